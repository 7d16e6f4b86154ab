// The main dialog "Key Frame Animation": the key frame list with the selected key frame's name and frame
// count, the buttons that capture, edit and animate key frames, the destination of an animation, and the
// menu bar with the file commands and the animation options.
//
// One instance, made on first use, also by a replayed macro command while the dialog was never shown: it
// holds the key frame list, the animation settings and the current key frame file for as long as the
// module is loaded, whether the host dialog is up or not. The controls are never refreshed directly by a
// command: registerOnIdleUpdate() refreshes them once the host is idle.
#pragma once

#include "core/MacroOption.h"
#include "core/Settings.h"
#include "core/View.h"
#include "document/CurrentFileManager.h"
#include "document/ListModelKeyFrame.h"
#include "gui/ListSelectionModelInterface.h"
#include "gui/ListView.h"
#include "gui/OptionMenuStaticManager.h"
#include "gui/TextFieldValidator.h"
#include "model/ListModelPreMapped.h"
#include "platform/DialogDropper.h"
#include "platform/OnIdleManager.h"

#include <string>
#include <vector>

class DialogMain : public virtual vantix::vtxutiltools::ListSelectionModelObserverInterface
{
public:
    using Destination_e = vantix::vtxutiltools::Destination_e;
    using Settings_s = vantix::vtxutiltools::Settings_s;
    using ListModelKeyFrame = vantix::vtxutiltools::ListModelKeyFrame;

    static DialogMain& instance();

    DialogMain(const DialogMain&) = delete;
    DialogMain& operator=(const DialogMain&) = delete;

    // ---- The host dialog --------------------------------------------------------------------------------
    // Builds the dialog and its menu bar the first time, then brings it up. The action of the add-on's
    // option in the host's "Animate" menu.
    static void launch();
    // True while the active frame is a 3D Cartesian plot: the dialog works on nothing else.
    static bool okToLaunch();
    static bool isVisible();
    // Each time the dialog comes up: binds the controls, shows the list, the settings and the selection.
    static void init_CB();
    // The dialog's Close: takes it down and stops following the selection. The key frames and settings stay.
    static void drop();
    static void help_BTN_CB();
    static void buildMenuBar();

    // ---- Keeping the controls in step -------------------------------------------------------------------
    // Asks for update() once the host is idle, when the dialog is up; otherwise does nothing.
    void registerOnIdleUpdate();
    // The selected key frame's name and frame count, the sensitivity of every control, the destination.
    void update();
    void updateSelectedKeyFrameInfo(const std::vector<unsigned long>& selected);
    // The "&Options" toggles show the settings, when the dialog is up.
    void updateMenuToggles();
    void selectionChanged(const std::vector<unsigned long>& selected) override;

    // ---- What other parts of the add-on hand over -------------------------------------------------------
    void applySettings(const Settings_s& settings);
    // The key frames become a copy of model's.
    void applyDataModel(const ListModelKeyFrame& model);
    // A key frame file has been read into the list and the settings; it becomes the current file.
    void onSettingsFileRead(const std::string& fileName);
    // The time animation options dialog closed; ok after OK.
    void onTimeAnimationDialogDropped(bool ok);

    ListModelKeyFrame& keyFrameModel() { return m_keyFrameModel; }
    Settings_s& settings() { return m_settings; }

    // ---- The commands of the buttons, fields, list, option menu and menu entries ------------------------
    static void appendKeyFrame_BTN_CB();
    static void insertKeyFrame_BTN_CB();
    static void update_BTN_CB();
    static void apply_BTN_CB();
    static void delete_BTN_CB();
    static void clear_BTN_CB();
    static void keyFrameList_MLST_CB(const int* position);
    static int viewName_TF_CB(const char* text);
    static int frameCount_TF_CB(const char* text);
    static void destination_OPT_CB(const int* position);
    static void animateAll_BTN_CB();
    static void animateSelected_BTN_CB();
    static void open_CB();
    static void save_CB();
    static void saveAs_CB();
    static void animateTime_CB();
    static void timeAnimationOptions_CB();
    static void animateStreams_CB();
    static void fadeIn_CB();
    static void fadeOut_CB();

    // Captures view as a new key frame named after the list's length, before index (end() appends), with
    // the last key frame's frame count and the host's current solution time.
    void insertKeyFrameIntoModel(const vantix::vtxutiltools::View& view, ListModelKeyFrame& model,
                                 unsigned long index);
    // Switches off, with a notice each, the concurrent animations the data set cannot show.
    void checkAnimationSettings();
    // The whole list, to d.
    void animate(Destination_e destination, vantix::vtxutiltools::MacroOption_e option);
    void saveKeyFrameFile();

    // The destination option menu's entries, in menu order.
    static const vantix::vtxutiltools::PreMappedValue<Destination_e> m_destinationOptions[2];
    // The option menu is made with this one blank entry; its real entries come when the dialog comes up.
    static const char* const m_destination_OPT_List;

private:
    DialogMain();
    ~DialogMain() override;

    ListModelKeyFrame m_keyFrameModel;
    // Shows m_keyFrameModel, which it does not own.
    vantix::vtxutiltools::ListView m_keyFrameListView;
    vantix::vtxutiltools::TextFieldValidator<int> m_frameCountValidator;
    Settings_s m_settings;
    vantix::vtxutiltools::CurrentFileManager m_currentFile;
    vantix::vtxutiltools::OnIdleManager m_onIdleManager;
    vantix::vtxutiltools::DialogDropper<DialogMain> m_dialogDropper;
    vantix::vtxutiltools::OptionMenuStaticManager<Destination_e> m_destinationMenu;

    static int m_animateTimeMenuID;
    static int m_animateStreamsMenuID;
    static int m_fadeInMenuID;
    static int m_fadeOutMenuID;
};
