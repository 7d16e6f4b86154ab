// The modal dialog "Export Options": how an animation is written to a file. Format, region of the page,
// image width, animation speed, antialiasing, and the AVI compression or the Flash image type and
// optimisation. OK asks for the destination file, writes every choice to the host's export setup (recorded
// as "$!EXPORTSETUP" lines while the host records a macro) and then runs the action the dialog was launched
// with.
//
// One instance, made on first use, lives until the module is unloaded: the entered width and the export
// file name stay from one launch to the next. The dialog holds the add-on's host lock from launch until it
// goes down, whichever way that is.
#pragma once

#include "document/CurrentFileManager.h"
#include "gui/OptionMenuStaticManager.h"
#include "gui/TextFieldValidator.h"
#include "model/ListModelPreMapped.h"
#include "platform/HostGuards.h"

#include <VtxUtil.h>

#include <boost/function.hpp>

#include <map>
#include <optional>
#include <string>

class DialogExportOptions
{
public:
    template <typename T>
    using PreMappedValue = vantix::vtxutiltools::PreMappedValue<T>;

    static DialogExportOptions& instance();

    DialogExportOptions(const DialogExportOptions&) = delete;
    DialogExportOptions& operator=(const DialogExportOptions&) = delete;

    // Takes the host lock, builds the dialog the first time (a child of the main dialog), fills its
    // controls and brings it up. action runs after OK, once the export is set up and the lock released.
    static void launch(const boost::function<void()>& action);
    // Takes the dialog down and releases its lock; nothing is applied.
    static void drop();

    // ---- The dialog's own callbacks --------------------------------------------------------------------
    // Each time the dialog comes up: shows the host's current export setup.
    static void init_CB();
    static void ok_BTN_CB();
    static void cancel_BTN_CB();
    static void help_BTN_CB();

    // ---- The controls' callbacks -----------------------------------------------------------------------
    static void exportFormat_OPT_CB(const int* position);
    static void region_OPT_CB(const int* position);
    static void width_RADIO_CB(const int* choice);
    static int width_TF_CB(const char* text);
    static int animationSpeed_TF_CB(const char* text);
    static void antialiasing_TOG_CB(const int* on);
    static int supersampleFactor_TF_CB(const char* text);
    static void aviCompression_OPT_CB(const int* position);
    static void imageType_OPT_CB(const int* position);
    static void optimization_RADIO_CB(const int* choice);

    // The option menus' entries, in menu order.
    static const PreMappedValue<ExportFormat_e> m_exportFormatOptions[6];
    static const PreMappedValue<ExportRegion_e> m_exportRegionOptions[3];
    static const PreMappedValue<AVICompression_e> m_aviCompressionOptions[2];
    static const PreMappedValue<FlashImageType_e> m_flashImageTypeOptions[3];
    // The export file offered until the user has chosen one; its extension follows the format.
    static const char* const m_defaultFileName;
    // The option menus are made with this one blank entry; their real entries come with each launch.
    static const char* const empty_OPT_List;

private:
    DialogExportOptions();
    ~DialogExportOptions() = default;

    void init();
    void open(const boost::function<void()>& action);
    void close();
    void showHostExportSetup();
    void applyAndRun();

    void updateSensitivities();
    void updateImageDimensionLabel();
    // The size in screen pixels of the chosen region, or with an entered width that width and the height
    // that keeps the region's aspect ratio. Both start at 0.
    void determineImageDimensions(int& width, int& height);
    // True when the user chose a destination file; it is then m_fileManager's file.
    bool promptUserForDestinationFilename();
    // The optimisation radio box's choice; none when it shows neither button. The host's enumeration has
    // no value for "neither", so it is not forced into one.
    std::optional<FlashCompressionType_e> getFlashCompressionType();

    // ---- Writing the host's export setup, one setting each, recorded while the host records ------------
    void setExportFormat(ExportFormat_e format);
    void setExportRegion(ExportRegion_e region);
    void setExportAVIOptions(AVICompression_e compression);
    void setExportFlashOptions(FlashImageType_e imageType, std::optional<FlashCompressionType_e> compression);
    void setExportImageWidth();
    static void setExportAnimationSpeed(double speed);
    static void setExportAntialiasingOptions(bool on, int factor);
    static void setExportFilename(const std::string& fileName);

    template <typename T>
    static void setExportEnumValue(const char* name, T value, const std::string& keyword);
    // T is int or bool; a bool goes to the host as 1 or 0 and is recorded as true or false.
    template <typename T>
    static void setExportIntegerValue(const char* name, T value);
    static void setExportDoubleValue(const char* name, double value);
    // T is std::string, double, bool or int.
    template <typename T>
    static void recordExportMacroCommand(const char* name, const T& value);

    vantix::vtxutiltools::TextFieldValidator<int> m_widthValidator;
    vantix::vtxutiltools::TextFieldValidator<double> m_animationSpeedValidator;
    vantix::vtxutiltools::TextFieldValidator<int> m_supersampleFactorValidator;
    vantix::vtxutiltools::CurrentFileManager m_fileManager;
    boost::function<void()> m_okAction;
    vantix::vtxutiltools::OptionMenuStaticManager<ExportFormat_e> m_formatMenu;
    vantix::vtxutiltools::OptionMenuStaticManager<ExportRegion_e> m_regionMenu;
    vantix::vtxutiltools::OptionMenuStaticManager<AVICompression_e> m_aviCompressionMenu;
    vantix::vtxutiltools::OptionMenuStaticManager<FlashImageType_e> m_flashImageTypeMenu;
    // The keywords of the host's macro language, by value.
    std::map<ExportFormat_e, std::string> m_exportFormatKeywords;
    std::map<ExportRegion_e, std::string> m_exportRegionKeywords;
    std::map<FlashImageType_e, std::string> m_flashImageTypeKeywords;
    std::map<FlashCompressionType_e, std::string> m_flashCompressionTypeKeywords;
    std::map<AVICompression_e, std::string> m_aviCompressionKeywords;
    // Held while the dialog is up: taken by launch, given back when the dialog goes down.
    std::optional<vantix::vtxutiltools::HostLock> m_dialogLock;
};
