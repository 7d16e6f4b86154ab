// The SDK functions the host counts and traces, in one list: each entry makes an enumerator of Call and
// the function's name, so that the two cannot get out of step.
#pragma once

#include <cstddef>

namespace vantix::host::detail
{

// UTIL(Name) stands for VtxUtilName (enumerator Name), GUI(Name) for VtxGUIName (enumerator GuiName).
#define VANTIX_SDK_CALLS(UTIL, GUI)                                                                          \
    UTIL(AddOnRegister)                                                                                      \
    UTIL(LockStart)                                                                                          \
    UTIL(LockFinish)                                                                                         \
    UTIL(LockOn)                                                                                             \
    UTIL(LockOff)                                                                                            \
    UTIL(FrameGetCount)                                                                                      \
    UTIL(FrameGetPlotType)                                                                                   \
    UTIL(FrameGetUniqueID)                                                                                   \
    UTIL(FrameActivateTop)                                                                                   \
    UTIL(FramePushTop)                                                                                       \
    UTIL(FrameActivateByUniqueID)                                                                            \
    UTIL(ThreeDViewGetViewerPos)                                                                             \
    UTIL(ThreeDViewGetViewerAngle)                                                                           \
    UTIL(ThreeDViewGetProjection)                                                                            \
    UTIL(ViewRotate3D)                                                                                       \
    UTIL(DrawGraphics)                                                                                       \
    UTIL(Redraw)                                                                                             \
    UTIL(SolutionTimeGetCurrent)                                                                             \
    UTIL(SolutionTimeSetCurrent)                                                                             \
    UTIL(StatusStartPercentDone)                                                                             \
    UTIL(StatusSetPercentDoneText)                                                                           \
    UTIL(StatusCheckPercentDone)                                                                             \
    UTIL(StatusFinishPercentDone)                                                                            \
    UTIL(MacroIsRecordingActive)                                                                             \
    UTIL(MacroRecordRawCommand)                                                                              \
    UTIL(MacroRecordExtCommand)                                                                              \
    UTIL(FrameGetPosAndSize)                                                                                 \
    UTIL(WorkAreaGetDimensions)                                                                              \
    UTIL(ConvertXDimension)                                                                                  \
    UTIL(ConvertYDimension)                                                                                  \
    UTIL(FrameLightweightPopStart)                                                                           \
    UTIL(FrameLightweightPopNext)                                                                            \
    UTIL(FrameLightweightPopEnd)                                                                             \
    UTIL(DataSetIsAvailable)                                                                                 \
    UTIL(ZoneGetEnabled)                                                                                     \
    UTIL(SetGetNextMember)                                                                                   \
    UTIL(SetDealloc)                                                                                         \
    UTIL(ZoneGetSolutionTime)                                                                                \
    UTIL(ZoneGetStrandID)                                                                                    \
    UTIL(ExportSetup)                                                                                        \
    UTIL(ExportIsRecording)                                                                                  \
    UTIL(ExportStart)                                                                                        \
    UTIL(ExportNextFrame)                                                                                    \
    UTIL(ExportFinish)                                                                                       \
    UTIL(ExportCancel)                                                                                       \
    UTIL(MacroAddCommandCallback)                                                                            \
    UTIL(StringAlloc)                                                                                        \
    UTIL(StringDealloc)                                                                                      \
    UTIL(DataSetJournalIsValid)                                                                              \
    UTIL(DataSetAddJournalCommand)                                                                           \
    UTIL(DialogErrMsg)                                                                                       \
    UTIL(DialogMessageBox)                                                                                   \
    UTIL(DialogGetFileName)                                                                                  \
    UTIL(Help)                                                                                               \
    UTIL(MenuAddOption)                                                                                      \
    UTIL(MenuSetSensitivity)                                                                                 \
    UTIL(ArrayDealloc)                                                                                       \
    UTIL(ArgListAlloc)                                                                                       \
    UTIL(ArgListAppendInt)                                                                                   \
    UTIL(ArgListAppendFunction)                                                                              \
    UTIL(ArgListDealloc)                                                                                     \
    UTIL(StateChangeAddCallbackX)                                                                            \
    UTIL(OnIdleQueueAddCallback)                                                                             \
    GUI(DialogCreateModeless)                                                                                \
    GUI(DialogCreateModal)                                                                                   \
    GUI(DialogLaunch)                                                                                        \
    GUI(DialogDrop)                                                                                          \
    GUI(DialogIsUp)                                                                                          \
    GUI(ButtonAdd)                                                                                           \
    GUI(LabelAdd)                                                                                            \
    GUI(LabelSetText)                                                                                        \
    GUI(FrameAdd)                                                                                            \
    GUI(TextFieldAdd)                                                                                        \
    GUI(SpinTextFieldAdd)                                                                                    \
    GUI(TextFieldSetString)                                                                                  \
    GUI(TextFieldGetString)                                                                                  \
    GUI(ToggleAdd)                                                                                           \
    GUI(ToggleGet)                                                                                           \
    GUI(ToggleSet)                                                                                           \
    GUI(RadioBoxAdd)                                                                                         \
    GUI(RadioBoxGetToggle)                                                                                   \
    GUI(RadioBoxSetToggle)                                                                                   \
    GUI(SetSensitivity)                                                                                      \
    GUI(SetToolTip)                                                                                          \
    GUI(ListAdd)                                                                                             \
    GUI(ListGetItemCount)                                                                                    \
    GUI(ListAppendItem)                                                                                      \
    GUI(ListReplaceItem)                                                                                     \
    GUI(ListDeleteItemAtPos)                                                                                 \
    GUI(ListDeleteAllItems)                                                                                  \
    GUI(ListSetSelectedItem)                                                                                 \
    GUI(ListSetSelectedItems)                                                                                \
    GUI(ListGetSelectedItems)                                                                                \
    GUI(ListDeselectAllItems)                                                                                \
    GUI(OptionMenuAdd)                                                                                       \
    GUI(OptionMenuAppendItem)                                                                                \
    GUI(OptionMenuDeleteAllItems)                                                                            \
    GUI(OptionMenuGet)                                                                                       \
    GUI(OptionMenuSet)                                                                                       \
    GUI(MenuBarAdd)                                                                                          \
    GUI(MenuAdd)                                                                                             \
    GUI(MenuAddItem)                                                                                         \
    GUI(MenuAddToggle)                                                                                       \
    GUI(MenuAddSeparator)                                                                                    \
    GUI(MenuSetToggle)

enum class Call
{
#define VANTIX_UTIL_CALL(name) name,
#define VANTIX_GUI_CALL(name) Gui##name,
    VANTIX_SDK_CALLS(VANTIX_UTIL_CALL, VANTIX_GUI_CALL)
#undef VANTIX_UTIL_CALL
#undef VANTIX_GUI_CALL
        Count
};

constexpr std::size_t CallCount = static_cast<std::size_t>(Call::Count);

// "VtxUtilRedraw" for Call::Redraw.
const char* CallName(Call call);

} // namespace vantix::host::detail
