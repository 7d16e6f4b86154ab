#include "gui/DialogTimeOptions.h"

#include "gui/CallbackShield.h"
#include "gui/ControlSensitivity.h"
#include "gui/DialogLayouts.h"

#include <VtxGUI.h>
#include <VtxUtil.h>

#include <algorithm>
#include <cstdint>
#include <limits>

using namespace vantix::vtxutiltools;

namespace
{

const int MaximumCycles = std::numeric_limits<int>::max();

} // namespace

DialogTimeOptions& DialogTimeOptions::instance()
{
    static DialogTimeOptions dialogInstance;
    return dialogInstance;
}

DialogTimeOptions::DialogTimeOptions() : m_numCyclesValidator(1)
{
    m_numCyclesValidator.setMinimum(1);
    initAnimationMap();
}

void DialogTimeOptions::initAnimationMap()
{
    m_animationMap = {{1, Forward}, {2, Loop}, {3, Bounce}, {4, AsCaptured}};
}

void DialogTimeOptions::launch(TimeAnimationOptions_s& options, const boost::function<void(bool)>& onDropped)
{
    DialogTimeOptions& dialog = instance();
    dialog.m_options = &options;
    dialog.m_onDropped = onDropped;
    dialog.m_dialogLock.emplace();
    BuildDialog3(GuiId_MainWindow);
    VtxGUIDialogLaunch(Dialog3Manager);
}

void DialogTimeOptions::init_CB()
{
    RunShielded("DialogTimeOptions::init_CB",
                []
                {
                    DialogTimeOptions& dialog = instance();
                    dialog.m_numCyclesValidator.bindTextField(numCycles_TFS_D3);
                    if (!dialog.m_options)
                        return;
                    const TimeAnimationOptions_s& options = *dialog.m_options;
                    HostLock lock;
                    const auto chosen =
                        std::find_if(dialog.m_animationMap.begin(), dialog.m_animationMap.end(),
                                     [&options](const auto& entry)
                                     { return entry.second == options.timeAnimationOperation; });
                    if (chosen != dialog.m_animationMap.end())
                        VtxGUIRadioBoxSetToggle(animationOperation_RADIO_D3, chosen->first);
                    // A count beyond what the field holds is read as the field's int would hold it.
                    const auto cycles = static_cast<std::int32_t>(options.numCycles);
                    dialog.m_numCyclesValidator.showWithinBounds(cycles);
                    updateSensitivities(options.timeAnimationOperation);
                });
}

void DialogTimeOptions::updateSensitivities(TimeAnimationOperation_e operation)
{
    HostLock lock;
    SetSensitivity({numCycles_LBL_D3, numCycles_TFS_D3}, operation == Loop || operation == Bounce);
}

void DialogTimeOptions::animationOperation_RADIO_CB(const int* position)
{
    RunShielded("DialogTimeOptions::animationOperation_RADIO_CB",
                [position] { updateSensitivities(instance().m_animationMap.at(*position)); });
}

int DialogTimeOptions::numCycles_TFS_ValueChanged_CB(const char* text)
{
    return RunShielded("DialogTimeOptions::numCycles_TFS_ValueChanged_CB", FALSE,
                       [text] { return instance().m_numCyclesValidator.validate(text) ? TRUE : FALSE; });
}

void DialogTimeOptions::stepCycles(int step)
{
    const long long cycles = static_cast<long long>(m_numCyclesValidator.m_value) + step;
    m_numCyclesValidator.showWithinBounds(static_cast<int>(std::clamp<long long>(cycles, 1, MaximumCycles)));
}

void DialogTimeOptions::numCycles_TFS_ButtonUp_CB()
{
    RunShielded("DialogTimeOptions::numCycles_TFS_ButtonUp_CB", [] { instance().stepCycles(1); });
}

void DialogTimeOptions::numCycles_TFS_ButtonDown_CB()
{
    RunShielded("DialogTimeOptions::numCycles_TFS_ButtonDown_CB", [] { instance().stepCycles(-1); });
}

void DialogTimeOptions::ok_BTN_CB()
{
    RunShielded("DialogTimeOptions::ok_BTN_CB",
                []
                {
                    DialogTimeOptions& dialog = instance();
                    HostLock lock;
                    if (dialog.m_options)
                    {
                        TimeAnimationOptions_s& options = *dialog.m_options;
                        options.timeAnimationOperation =
                            dialog.m_animationMap.at(VtxGUIRadioBoxGetToggle(animationOperation_RADIO_D3));
                        options.numCycles = static_cast<std::uint64_t>(dialog.m_numCyclesValidator.m_value);
                        options.animateTime = true;
                    }
                    // The function may launch the dialog anew, which replaces the stored one.
                    const boost::function<void(bool)> onDropped = dialog.m_onDropped;
                    drop();
                    onDropped(true);
                });
}

void DialogTimeOptions::cancel_BTN_CB()
{
    RunShielded("DialogTimeOptions::cancel_BTN_CB",
                []
                {
                    const boost::function<void(bool)> onDropped = instance().m_onDropped;
                    drop();
                    onDropped(false);
                });
}

void DialogTimeOptions::drop()
{
    DialogTimeOptions& dialog = instance();
    dialog.m_options = nullptr;
    dialog.m_dialogLock.reset();
    if (Dialog3Manager != GuiId_None)
        VtxGUIDialogDrop(Dialog3Manager);
}

void DialogTimeOptions::help_BTN_CB()
{
    RunShielded("DialogTimeOptions::help_BTN_CB",
                []
                {
                    HostLock lock;
                    VtxUtilHelp("time_animation_options.html", FALSE, 0);
                });
}
