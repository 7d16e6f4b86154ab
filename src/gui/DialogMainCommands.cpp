// What the main dialog's list, option menu and "&Options" entries do.
#include "gui/CallbackShield.h"
#include "gui/DialogLayouts.h"
#include "gui/DialogMain.h"
#include "gui/DialogTimeOptions.h"

#include <VtxGUI.h>

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
void ToggleSetting(const char* callback, bool Settings_s::*setting)
{
    RunShielded(callback,
                [setting]
                {
                    DialogMain& dialog = DialogMain::instance();
                    Settings_s& settings = dialog.settings();
                    settings.*setting = !(settings.*setting);
                    dialog.updateMenuToggles();
                });
}

} // namespace

void DialogMain::animateTime_CB()
{
    RunShielded("DialogMain::animateTime_CB",
                []
                {
                    DialogMain& dialog = instance();
                    dialog.m_settings.timeOptions.animateTime = !dialog.m_settings.timeOptions.animateTime;
                    dialog.updateMenuToggles();
                });
}

void DialogMain::animateStreams_CB()
{
    ToggleSetting("DialogMain::animateStreams_CB", &Settings_s::animateStreamtraces);
}

void DialogMain::fadeIn_CB()
{
    ToggleSetting("DialogMain::fadeIn_CB", &Settings_s::fadeIn);
}

void DialogMain::fadeOut_CB()
{
    ToggleSetting("DialogMain::fadeOut_CB", &Settings_s::fadeOut);
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

// The capture, editing, file and animation commands are not wired up yet: their controls are laid out and
// bound, and pressing them changes nothing.
void DialogMain::appendKeyFrame_BTN_CB() {}
void DialogMain::insertKeyFrame_BTN_CB() {}
void DialogMain::update_BTN_CB() {}
void DialogMain::apply_BTN_CB() {}
void DialogMain::delete_BTN_CB() {}
void DialogMain::clear_BTN_CB() {}
int DialogMain::viewName_TF_CB(const char* /*text*/)
{
    return TRUE;
}
int DialogMain::frameCount_TF_CB(const char* /*text*/)
{
    return TRUE;
}
void DialogMain::animateAll_BTN_CB() {}
void DialogMain::animateSelected_BTN_CB() {}
void DialogMain::open_CB() {}
void DialogMain::save_CB() {}
void DialogMain::saveAs_CB() {}
