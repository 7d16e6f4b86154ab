#include "gui/DialogExportOptions.h"

#include "animation/FramePopperAbstractFactory.h"
#include "gui/CallbackShield.h"
#include "gui/ControlSensitivity.h"
#include "gui/DialogLayouts.h"

#include <VtxGUI.h>
#include <VtxUtil.h>

#include <optional>
#include <vantix/toolbox/StringList.h>
#include <vantix/toolbox/StyleValue.h>

#include <boost/format.hpp>

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

using vantix::vtxutiltools::FramePopperAbstract;
using vantix::vtxutiltools::FramePopperAbstractFactory;
using vantix::vtxutiltools::HostLock;
using vantix::vtxutiltools::RunShielded;
using vantix::vtxutiltools::SetSensitivity;

const DialogExportOptions::PreMappedValue<ExportFormat_e> DialogExportOptions::m_exportFormatOptions[6] = {
    {"AVI", ExportFormat_AVI},
    {"Flash (FLV)", ExportFormat_FLV},
    {"Flash (SWF)", ExportFormat_Flash},
    {"MPEG-4", ExportFormat_MPEG4},
    {"Raster Metafile", ExportFormat_RasterMetafile},
    {"WMV", ExportFormat_WMV}};

const DialogExportOptions::PreMappedValue<ExportRegion_e> DialogExportOptions::m_exportRegionOptions[3] = {
    {"Active Frame", ExportRegion_CurrentFrame},
    {"All Frames", ExportRegion_AllFrames},
    {"Work Area", ExportRegion_WorkArea}};

const DialogExportOptions::PreMappedValue<AVICompression_e> DialogExportOptions::m_aviCompressionOptions[2] =
    {{"Line Preserving", AVICompression_LinePreserving},
     {"Lossless Uncompressed", AVICompression_LosslessUncompressed}};

const DialogExportOptions::PreMappedValue<FlashImageType_e> DialogExportOptions::m_flashImageTypeOptions[3] =
    {{"True Color", FlashImageType_Lossless},
     {"JPEG", FlashImageType_JPEG},
     {"256 Colors", FlashImageType_Color256}};

const char* const DialogExportOptions::m_defaultFileName = "export";
const char* const DialogExportOptions::empty_OPT_List = " ";

namespace
{

// The buttons of the two radio boxes, as the host counts them.
const int EnteredWidth = 2;
const int OptimizeForSpeed = 1;
const int OptimizeForFileSize = 2;

// Reads one setting of the host's export setup. value comes preset with the default: a setting the host
// does not answer keeps it.
template <typename T>
T ReadExportSetting(const vantix::toolbox::StyleValue& exportSetup, const char* name, T value)
{
    (void)exportSetup.getValue(&value, -1, -1, exportSetup.initMacroIDsfromStyleValueNames(name));
    return value;
}

} // namespace

DialogExportOptions& DialogExportOptions::instance()
{
    static DialogExportOptions dialogInstance;
    return dialogInstance;
}

DialogExportOptions::DialogExportOptions()
    : m_widthValidator(300, 4, 32766), m_animationSpeedValidator(30.0, 0.001, 200.0),
      m_supersampleFactorValidator(3, 2, 16), m_fileManager(m_defaultFileName, "avi", "Movie"),
      m_formatMenu(m_exportFormatOptions, std::size(m_exportFormatOptions)),
      m_regionMenu(m_exportRegionOptions, std::size(m_exportRegionOptions)),
      m_aviCompressionMenu(m_aviCompressionOptions, std::size(m_aviCompressionOptions)),
      m_flashImageTypeMenu(m_flashImageTypeOptions, std::size(m_flashImageTypeOptions))
{
    init();
}

void DialogExportOptions::init()
{
    m_exportFormatKeywords = {{ExportFormat_AVI, "AVI"},
                              {ExportFormat_FLV, "FLV"},
                              {ExportFormat_Flash, "FLASH"},
                              {ExportFormat_MPEG4, "MPEG4"},
                              {ExportFormat_RasterMetafile, "RASTERMETAFILE"},
                              {ExportFormat_WMV, "WMV"}};
    m_exportRegionKeywords = {{ExportRegion_CurrentFrame, "CURRENTFRAME"},
                              {ExportRegion_AllFrames, "ALLFRAMES"},
                              {ExportRegion_WorkArea, "WORKAREA"}};
    m_flashImageTypeKeywords = {{FlashImageType_Lossless, "LOSSLESS"},
                                {FlashImageType_JPEG, "JPEG"},
                                {FlashImageType_Color256, "256COLOR"}};
    m_flashCompressionTypeKeywords = {{FlashCompressionType_BestSpeed, "BESTSPEED"},
                                      {FlashCompressionType_SmallestSize, "SMALLESTSIZE"}};
    // The menu does not offer colour preserving compression, but the host may hold it.
    m_aviCompressionKeywords = {{AVICompression_ColorPreserving, "COLORPRESERVING"},
                                {AVICompression_LinePreserving, "LINEPRESERVING"},
                                {AVICompression_LosslessUncompressed, "LOSSLESSUNCOMPRESSED"}};
}

// ---- Up and down --------------------------------------------------------------------------------------

void DialogExportOptions::launch(const boost::function<void()>& action)
{
    RunShielded("DialogExportOptions::launch", [&action] { instance().open(action); });
}

void DialogExportOptions::open(const boost::function<void()>& action)
{
    // A launch while the dialog is up keeps the one lock it holds.
    if (!m_dialogLock)
        m_dialogLock.emplace();
    try
    {
        BuildDialog2(Dialog1Manager);
        if (Dialog2Manager == GuiId_None)
            throw std::logic_error("the dialog could not be built");
        m_okAction = action;
        m_widthValidator.bindTextField(Width_TF_D2);
        m_animationSpeedValidator.bindTextField(AnimationSpeed_TF_D2);
        m_supersampleFactorValidator.bindTextField(SupersampleFactor_TF_D2);
        m_aviCompressionMenu.bind(AVICompression_OPT_D2);
        m_regionMenu.bind(Region_OPT_D2);
        m_flashImageTypeMenu.bind(ImageType_OPT_D2);
        m_formatMenu.bind(Format_OPT_D2);
        VtxGUIDialogLaunch(Dialog2Manager);
    }
    catch (...)
    {
        // A dialog that never came up must not keep the host locked.
        if (Dialog2Manager == GuiId_None || !VtxGUIDialogIsUp(Dialog2Manager))
            m_dialogLock.reset();
        throw;
    }
}

// Safe whatever state the dialog is in: a dialog never built is not dropped, and a lock not held is not
// released.
void DialogExportOptions::close()
{
    if (Dialog2Manager != GuiId_None)
        VtxGUIDialogDrop(Dialog2Manager);
    m_dialogLock.reset();
}

void DialogExportOptions::drop()
{
    RunShielded("DialogExportOptions::drop", [] { instance().close(); });
}

void DialogExportOptions::cancel_BTN_CB()
{
    RunShielded("DialogExportOptions::cancel_BTN_CB", [] { instance().close(); });
}

void DialogExportOptions::help_BTN_CB()
{
    RunShielded("DialogExportOptions::help_BTN_CB",
                []
                {
                    instance();
                    const HostLock lock;
                    VtxUtilHelp("export_options.html", FALSE, 0);
                });
}

void DialogExportOptions::init_CB()
{
    RunShielded("DialogExportOptions::init_CB", [] { instance().showHostExportSetup(); });
}

// The region, the width choice and the entered width are the user's, not the host's: they stay as the
// controls and the width field hold them.
void DialogExportOptions::showHostExportSetup()
{
    const vantix::toolbox::StyleValue exportSetup(vantix::toolbox::StringList("ExportSetup"));
    m_formatMenu.showValue(ReadExportSetting(exportSetup, "ExportFormat", ExportFormat_AVI));
    m_animationSpeedValidator.showWithinBounds(ReadExportSetting(exportSetup, "AnimationSpeed", 30.0));
    VtxGUIToggleSet(Antialiasing_TOG_D2,
                    ReadExportSetting(exportSetup, "UseSuperSampleAntiAliasing", false) ? TRUE : FALSE);
    m_supersampleFactorValidator.showWithinBounds(ReadExportSetting(exportSetup, "SuperSampleFactor", 3));
    // Colour preserving is not in the menu: the menu then stays where it is.
    m_aviCompressionMenu.showValue(
        ReadExportSetting(exportSetup, "AVICompression", AVICompression_ColorPreserving));
    m_flashImageTypeMenu.showValue(ReadExportSetting(exportSetup, "FlashImageType", FlashImageType_Lossless));
    const FlashCompressionType_e compression =
        ReadExportSetting(exportSetup, "FlashCompressionType", FlashCompressionType_BestSpeed);
    VtxGUIRadioBoxSetToggle(Optimization_RADIO_D2, compression != FlashCompressionType_BestSpeed
                                                       ? OptimizeForFileSize
                                                       : OptimizeForSpeed);
    updateSensitivities();
    updateImageDimensionLabel();
}

void DialogExportOptions::ok_BTN_CB()
{
    RunShielded("DialogExportOptions::ok_BTN_CB", [] { instance().applyAndRun(); });
}

void DialogExportOptions::applyAndRun()
{
    // Without a file the user stays in the dialog, and nothing is applied.
    if (!promptUserForDestinationFilename())
        return;
    // Every setter takes the lock for itself, and the action runs without the dialog's.
    close();

    const ExportFormat_e format = m_formatMenu.chosenValue();
    setExportFormat(format);
    if (format == ExportFormat_Flash)
        setExportFlashOptions(m_flashImageTypeMenu.chosenValue(), getFlashCompressionType());
    else if (format == ExportFormat_AVI)
        setExportAVIOptions(m_aviCompressionMenu.chosenValue());
    setExportRegion(m_regionMenu.chosenValue());
    setExportImageWidth();
    setExportAnimationSpeed(m_animationSpeedValidator.m_value);
    setExportAntialiasingOptions(VtxGUIToggleGet(Antialiasing_TOG_D2) != FALSE,
                                 m_supersampleFactorValidator.m_value);
    setExportFilename(m_fileManager.fileName());

    if (m_okAction)
        m_okAction();
}

// ---- The controls -------------------------------------------------------------------------------------

void DialogExportOptions::exportFormat_OPT_CB(const int* /*position*/)
{
    RunShielded("DialogExportOptions::exportFormat_OPT_CB", [] { instance().updateSensitivities(); });
}

void DialogExportOptions::antialiasing_TOG_CB(const int* /*on*/)
{
    RunShielded("DialogExportOptions::antialiasing_TOG_CB", [] { instance().updateSensitivities(); });
}

void DialogExportOptions::width_RADIO_CB(const int* /*choice*/)
{
    RunShielded("DialogExportOptions::width_RADIO_CB",
                []
                {
                    DialogExportOptions& dialog = instance();
                    dialog.updateSensitivities();
                    dialog.updateImageDimensionLabel();
                });
}

void DialogExportOptions::region_OPT_CB(const int* /*position*/)
{
    RunShielded("DialogExportOptions::region_OPT_CB", [] { instance().updateImageDimensionLabel(); });
}

// The text fields accept whatever the user typed: a refused entry has been explained and replaced by the
// previous value already.
int DialogExportOptions::width_TF_CB(const char* text)
{
    return RunShielded("DialogExportOptions::width_TF_CB", 1,
                       [text]
                       {
                           DialogExportOptions& dialog = instance();
                           dialog.m_widthValidator.validate(text ? text : "");
                           dialog.updateImageDimensionLabel();
                           return 1;
                       });
}

int DialogExportOptions::animationSpeed_TF_CB(const char* text)
{
    return RunShielded("DialogExportOptions::animationSpeed_TF_CB", 1,
                       [text]
                       {
                           instance().m_animationSpeedValidator.validate(text ? text : "");
                           return 1;
                       });
}

int DialogExportOptions::supersampleFactor_TF_CB(const char* text)
{
    return RunShielded("DialogExportOptions::supersampleFactor_TF_CB", 1,
                       [text]
                       {
                           instance().m_supersampleFactorValidator.validate(text ? text : "");
                           return 1;
                       });
}

// The AVI compression, the image type and the optimisation are read only when OK applies them.
void DialogExportOptions::aviCompression_OPT_CB(const int* /*position*/)
{
    RunShielded("DialogExportOptions::aviCompression_OPT_CB", [] { instance(); });
}

void DialogExportOptions::imageType_OPT_CB(const int* /*position*/)
{
    RunShielded("DialogExportOptions::imageType_OPT_CB", [] { instance(); });
}

void DialogExportOptions::optimization_RADIO_CB(const int* /*choice*/)
{
    RunShielded("DialogExportOptions::optimization_RADIO_CB", [] { instance(); });
}

// ---- Keeping the controls in step ---------------------------------------------------------------------

void DialogExportOptions::updateSensitivities()
{
    const ExportFormat_e format = m_formatMenu.chosenValue();
    SetSensitivity({AVICompression_LBL_D2, AVICompression_OPT_D2}, format == ExportFormat_AVI);
    SetSensitivity({ImageType_LBL_D2, ImageType_OPT_D2, Optimization_RADIO_D2}, format == ExportFormat_Flash);
    SetSensitivity({Width_TF_D2}, VtxGUIRadioBoxGetToggle(Width_RADIO_D2) == EnteredWidth);
    // A raster metafile holds frames without a playing speed.
    SetSensitivity({AnimationSpeed_TF_D2, AnimationSpeed_LBL_D2}, format != ExportFormat_RasterMetafile);
    SetSensitivity({SupersampleFactor_LBL_D2, SupersampleFactor_TF_D2},
                   VtxGUIToggleGet(Antialiasing_TOG_D2) != FALSE);
}

void DialogExportOptions::updateImageDimensionLabel()
{
    int width = 0;
    int height = 0;
    determineImageDimensions(width, height);
    VtxGUILabelSetText(ImageDimensions_LBL_D2,
                       (boost::format("Dimensions: %1% x %2%") % width % height).str().c_str());
}

void DialogExportOptions::determineImageDimensions(int& width, int& height)
{
    const ExportRegion_e region = m_regionMenu.chosenValue();
    const HostLock lock;
    switch (region)
    {
    case ExportRegion_WorkArea:
        VtxUtilWorkAreaGetDimensions(&width, &height);
        break;
    case ExportRegion_CurrentFrame:
    {
        double x = 0.0, y = 0.0, w = 0.0, h = 0.0;
        VtxUtilFrameGetPosAndSize(&x, &y, &w, &h);
        width = static_cast<int>(VtxUtilConvertXDimension(Units_Inches, Units_Pixels, w));
        height = static_cast<int>(VtxUtilConvertYDimension(Units_Inches, Units_Pixels, h));
        break;
    }
    case ExportRegion_AllFrames:
    {
        std::vector<double> left, top, right, bottom;
        {
            // The walk brings every frame up in turn and puts the page back as it was when it goes.
            const std::unique_ptr<FramePopperAbstract> popper =
                FramePopperAbstractFactory::getFramePopper(false);
            do
            {
                double x = 0.0, y = 0.0, w = 0.0, h = 0.0;
                VtxUtilFrameGetPosAndSize(&x, &y, &w, &h);
                left.push_back(x);
                top.push_back(y);
                right.push_back(x + w);
                bottom.push_back(y + h);
            } while (popper->next());
        }
        const double spanX =
            *std::max_element(right.begin(), right.end()) - *std::min_element(left.begin(), left.end());
        const double spanY =
            *std::max_element(bottom.begin(), bottom.end()) - *std::min_element(top.begin(), top.end());
        width = static_cast<int>(VtxUtilConvertXDimension(Units_Inches, Units_Pixels, spanX));
        height = static_cast<int>(VtxUtilConvertYDimension(Units_Inches, Units_Pixels, spanY));
        break;
    }
    }

    if (VtxGUIRadioBoxGetToggle(Width_RADIO_D2) == EnteredWidth)
    {
        const int entered = m_widthValidator.m_value;
        // A region without width has no aspect ratio to keep: its height stays as measured.
        if (width != 0)
            height = static_cast<int>(static_cast<std::int64_t>(height) * entered / width);
        width = entered;
    }
}

// ---- OK -----------------------------------------------------------------------------------------------

bool DialogExportOptions::promptUserForDestinationFilename()
{
    static std::map<ExportFormat_e, std::string> formatToFileExtensionMap;
    if (formatToFileExtensionMap.empty())
        formatToFileExtensionMap = {{ExportFormat_AVI, "avi"},           {ExportFormat_FLV, "flv"},
                                    {ExportFormat_Flash, "swf"},         {ExportFormat_MPEG4, "mp4"},
                                    {ExportFormat_RasterMetafile, "rm"}, {ExportFormat_WMV, "wmv"}};
    const auto found = formatToFileExtensionMap.find(m_formatMenu.chosenValue());
    m_fileManager.setExtension(found == formatToFileExtensionMap.end() ? std::string() : found->second);
    return m_fileManager.promptForFile(SelectFileOption_WriteFile);
}

std::optional<FlashCompressionType_e> DialogExportOptions::getFlashCompressionType()
{
    switch (VtxGUIRadioBoxGetToggle(Optimization_RADIO_D2))
    {
    case OptimizeForFileSize:
        return FlashCompressionType_SmallestSize;
    case OptimizeForSpeed:
        return FlashCompressionType_BestSpeed;
    default:
        return std::nullopt;
    }
}
