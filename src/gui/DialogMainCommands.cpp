// What the main dialog's buttons, fields, list, option menu and menu entries do.
#include "animation/Animate.h"
#include "animation/AnimatorStreams.h"
#include "animation/AnimatorTime.h"
#include "core/KeyFrameError.h"
#include "document/KeyFrameFile.h"
#include "gui/CallbackShield.h"
#include "gui/DialogExportOptions.h"
#include "gui/DialogLayouts.h"
#include "gui/DialogMain.h"
#include "gui/DialogTimeOptions.h"
#include "gui/OpenSettingsFile.h"
#include "platform/HostGuards.h"

#include <VtxGUI.h>
#include <VtxUtil.h>

#include <string>
#include <vector>

using namespace vantix::vtxutiltools;

void DialogMain::keyFrameList_MLST_CB(const int* /*position*/)
{
    RunShielded("DialogMain::keyFrameList_MLST_CB",
                [] { instance().m_keyFrameListView.selectionModel()->selectionChanged(); });
}

void DialogMain::destination_OPT_CB(const int* /*position*/)
{
    RunShielded("DialogMain::destination_OPT_CB",
                []
                {
                    DialogMain& dialog = instance();
                    dialog.m_settings.destination = dialog.m_destinationMenu.chosenValue();
                    dialog.registerOnIdleUpdate();
                });
}

namespace
{

// Turns one of the settings' switches over and shows it in its menu toggle. Whether the switch can work
// with the data set is checked when an animation starts, not here.
void ToggleSetting(const char* callback, bool& (*setting)(Settings_s&))
{
    RunShielded(callback,
                [setting]
                {
                    DialogMain& dialog = DialogMain::instance();
                    bool& on = setting(dialog.settings());
                    on = !on;
                    dialog.updateMenuToggles();
                });
}

} // namespace

void DialogMain::animateTime_CB()
{
    ToggleSetting("DialogMain::animateTime_CB",
                  [](Settings_s& s) -> bool& { return s.timeOptions.animateTime; });
}

void DialogMain::animateStreams_CB()
{
    ToggleSetting("DialogMain::animateStreams_CB",
                  [](Settings_s& s) -> bool& { return s.animateStreamtraces; });
}

void DialogMain::fadeIn_CB()
{
    ToggleSetting("DialogMain::fadeIn_CB", [](Settings_s& s) -> bool& { return s.fadeIn; });
}

void DialogMain::fadeOut_CB()
{
    ToggleSetting("DialogMain::fadeOut_CB", [](Settings_s& s) -> bool& { return s.fadeOut; });
}

void DialogMain::timeAnimationOptions_CB()
{
    RunShielded("DialogMain::timeAnimationOptions_CB",
                []
                {
                    DialogMain& dialog = instance();
                    DialogTimeOptions::launch(dialog.m_settings.timeOptions, [&dialog](bool ok)
                                              { dialog.onTimeAnimationDialogDropped(ok); });
                });
}

namespace
{

const int FrameCountOfAFirstKeyFrame = 30;

std::vector<unsigned long> SelectedKeyFrames(ListSelectionModelInterface& selection)
{
    std::vector<unsigned long> selected;
    selection.getSelectedItems(selected);
    return selected;
}

// The selection as the host reports it, ascending, is one run of neighbouring key frames.
bool IsContinuous(const std::vector<unsigned long>& selected)
{
    for (std::size_t i = 1; i < selected.size(); ++i)
    {
        if (selected[i] != selected[i - 1] + 1)
            return false;
    }
    return true;
}

View CaptureCurrentView()
{
    HostLock lock;
    return GetCurrentView();
}

} // namespace

// ---- Capturing key frames --------------------------------------------------------------------------------

void DialogMain::insertKeyFrameIntoModel(const View& view, ListModelKeyFrame& model, unsigned long index)
{
    const std::string name = "View " + std::to_string(model.end());
    const unsigned long frameCount =
        model.size() == 0 ? FrameCountOfAFirstKeyFrame : model.frameCount(model.size() - 1);
    HostLock lock;
    model.insertItem(index, KeyFrame_s(view, name, frameCount, VtxUtilSolutionTimeGetCurrent()));
    registerOnIdleUpdate();
}

void DialogMain::appendKeyFrame_BTN_CB()
{
    RunShielded("DialogMain::appendKeyFrame_BTN_CB",
                []
                {
                    DialogMain& dialog = instance();
                    dialog.insertKeyFrameIntoModel(CaptureCurrentView(), dialog.m_keyFrameModel,
                                                   dialog.m_keyFrameModel.end());
                });
}

void DialogMain::insertKeyFrame_BTN_CB()
{
    RunShielded("DialogMain::insertKeyFrame_BTN_CB",
                []
                {
                    DialogMain& dialog = instance();
                    const std::vector<unsigned long> selected =
                        SelectedKeyFrames(*dialog.m_keyFrameListView.selectionModel());
                    const unsigned long index =
                        selected.empty() ? dialog.m_keyFrameModel.end() : selected.front();
                    dialog.insertKeyFrameIntoModel(CaptureCurrentView(), dialog.m_keyFrameModel, index);
                });
}

// ---- Editing key frames ----------------------------------------------------------------------------------

void DialogMain::update_BTN_CB()
{
    RunShielded("DialogMain::update_BTN_CB",
                []
                {
                    DialogMain& dialog = instance();
                    const int index = dialog.m_keyFrameListView.selectionModel()->getSelectedItem();
                    if (index >= 0)
                        dialog.m_keyFrameModel.update(static_cast<unsigned long>(index),
                                                      CaptureCurrentView());
                });
}

void DialogMain::apply_BTN_CB()
{
    RunShielded("DialogMain::apply_BTN_CB",
                []
                {
                    DialogMain& dialog = instance();
                    const int index = dialog.m_keyFrameListView.selectionModel()->getSelectedItem();
                    if (index < 0)
                        return;
                    const KeyFrame_s& keyFrame =
                        dialog.m_keyFrameModel.data(static_cast<unsigned long>(index));
                    keyFrame.view.apply();
                    HostLock lock;
                    VtxUtilSolutionTimeSetCurrent(keyFrame.solutionTime);
                });
}

void DialogMain::delete_BTN_CB()
{
    RunShielded("DialogMain::delete_BTN_CB",
                []
                {
                    DialogMain& dialog = instance();
                    const std::vector<unsigned long> selected =
                        SelectedKeyFrames(*dialog.m_keyFrameListView.selectionModel());
                    if (selected.empty())
                        return;
                    // A run goes as one change, so that the list is redrawn once.
                    if (IsContinuous(selected))
                        dialog.m_keyFrameModel.removeItems(selected.front(),
                                                           selected.back() - selected.front() + 1);
                    else
                    {
                        for (auto index = selected.rbegin(); index != selected.rend(); ++index)
                            dialog.m_keyFrameModel.removeItem(*index);
                    }
                    dialog.registerOnIdleUpdate();
                });
}

void DialogMain::clear_BTN_CB()
{
    RunShielded("DialogMain::clear_BTN_CB",
                []
                {
                    DialogMain& dialog = instance();
                    dialog.m_keyFrameModel.removeItems(0, dialog.m_keyFrameModel.size());
                    dialog.registerOnIdleUpdate();
                });
}

int DialogMain::viewName_TF_CB(const char* text)
{
    RunShielded("DialogMain::viewName_TF_CB",
                [text]
                {
                    DialogMain& dialog = instance();
                    const int index = dialog.m_keyFrameListView.selectionModel()->getSelectedItem();
                    if (index < 0)
                        return;
                    const auto keyFrame = static_cast<unsigned long>(index);
                    if (*text == '\0')
                    {
                        VtxUtilDialogErrMsg("The view name must be at least one character.");
                        VtxGUITextFieldSetString(ViewName_TF_D1,
                                                 dialog.m_keyFrameModel.name(keyFrame).c_str());
                    }
                    else
                        dialog.m_keyFrameModel.setName(keyFrame, text);
                });
    return TRUE;
}

int DialogMain::frameCount_TF_CB(const char* text)
{
    return RunShielded("DialogMain::frameCount_TF_CB", FALSE,
                       [text]
                       {
                           DialogMain& dialog = instance();
                           if (!dialog.m_frameCountValidator.validate(text))
                               return FALSE;
                           for (const unsigned long index :
                                SelectedKeyFrames(*dialog.m_keyFrameListView.selectionModel()))
                               dialog.m_keyFrameModel.setFrameCount(
                                   index, static_cast<unsigned long>(dialog.m_frameCountValidator.m_value));
                           return TRUE;
                       });
}

// ---- Animation -------------------------------------------------------------------------------------------

void DialogMain::checkAnimationSettings()
{
    HostLock lock;
    if (m_settings.timeOptions.animateTime && !DataSetIsTransient())
    {
        VtxUtilDialogMessageBox(
            "The current data set is not transient.\nConcurrent time animation will be disabled.",
            MessageBoxType_Information);
        m_settings.timeOptions.animateTime = false;
    }
    if (m_settings.animateStreamtraces && !StreamtraceTimingIsEnabled())
    {
        VtxUtilDialogMessageBox("Neither streamtrace markers nor dashes are enabled.\n"
                                "Concurrent streamtrace animation will be disabled.",
                                MessageBoxType_Information);
        m_settings.animateStreamtraces = false;
    }
}

void DialogMain::animate(Destination_e destination, MacroOption_e option)
{
    try
    {
        HostLock lock;
        m_settings.destination = destination;
        Animate(m_keyFrameModel.dataList(), 0, m_keyFrameModel.size(), m_settings, option);
    }
    catch (const KeyFrameError& error)
    {
        VtxUtilDialogErrMsg(error.what());
    }
}

void DialogMain::animateAll_BTN_CB()
{
    RunShielded("DialogMain::animateAll_BTN_CB",
                []
                {
                    DialogMain& dialog = instance();
                    dialog.checkAnimationSettings();
                    const Destination_e destination = dialog.m_destinationMenu.chosenValue();
                    if (destination == ToFile)
                        DialogExportOptions::launch([] { instance().animate(ToFile, RecordMacro); });
                    else
                        dialog.animate(OnScreen, RecordMacro);
                });
}

void DialogMain::animateSelected_BTN_CB()
{
    RunShielded("DialogMain::animateSelected_BTN_CB",
                []
                {
                    DialogMain& dialog = instance();
                    HostLock lock;
                    const std::vector<unsigned long> selected =
                        SelectedKeyFrames(*dialog.m_keyFrameListView.selectionModel());
                    if (!IsContinuous(selected))
                    {
                        VtxUtilDialogErrMsg("Selected items must be a continuous range.");
                        return;
                    }
                    if (selected.empty())
                        return;
                    if (dialog.m_destinationMenu.chosenValue() == ToFile)
                    {
                        const std::string notice =
                            std::string("\"Animate Selected\" does not support output to file.\n") +
                            "The destination has been reset to \"" +
                            dialog.m_destinationMenu.getDisplayString(OnScreen) + "\".";
                        VtxUtilDialogMessageBox(notice.c_str(), MessageBoxType_Information);
                        dialog.m_settings.destination = OnScreen;
                        dialog.registerOnIdleUpdate();
                    }
                    Animate(dialog.m_keyFrameModel.dataList(), selected.front(),
                            selected.back() - selected.front(), dialog.m_settings, DoNotRecordMacro);
                });
}

// ---- Files -----------------------------------------------------------------------------------------------

void DialogMain::open_CB()
{
    RunShielded("DialogMain::open_CB",
                []
                {
                    DialogMain& dialog = instance();
                    if (dialog.m_currentFile.promptForFile(SelectFileOption_ReadSingleFile))
                        OpenSettingsFile(dialog.m_currentFile.fileName(), dialog.m_keyFrameModel,
                                         dialog.m_settings);
                });
}

void DialogMain::saveKeyFrameFile()
{
    KeyFrameFile().saveFile(m_currentFile.fileName(), m_settings, m_keyFrameModel);
}

namespace
{

// Saving needs key frames: an empty list is refused before any file dialog.
bool HasKeyFramesToSave(const ListModelKeyFrame& model)
{
    if (model.size() > 0)
        return true;
    VtxUtilDialogErrMsg("No Key Frames established.");
    return false;
}

} // namespace

void DialogMain::save_CB()
{
    RunShielded("DialogMain::save_CB",
                []
                {
                    DialogMain& dialog = instance();
                    if (!HasKeyFramesToSave(dialog.m_keyFrameModel))
                        return;
                    if (!dialog.m_currentFile.fileHasBeenSelected())
                        dialog.m_currentFile.promptForFile(SelectFileOption_WriteFile);
                    if (dialog.m_currentFile.fileHasBeenSelected())
                        dialog.saveKeyFrameFile();
                });
}

void DialogMain::saveAs_CB()
{
    RunShielded("DialogMain::saveAs_CB",
                []
                {
                    DialogMain& dialog = instance();
                    if (HasKeyFramesToSave(dialog.m_keyFrameModel) &&
                        dialog.m_currentFile.promptForFile(SelectFileOption_WriteFile))
                        dialog.saveKeyFrameFile();
                });
}
