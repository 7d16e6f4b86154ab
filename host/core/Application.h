// The one host state of a process. Everything the SDK functions, the toolbox and the host's own API do is
// done on this object, on the user-interface thread.
#pragma once

#include "core/Image.h"
#include "core/StyleTree.h"
#include "core/View3D.h"

#include <VtxUtil.h>
#include <vantix/host/Host.h>

#include <array>
#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// The record behind an add-on handle.
struct AddOn_s
{
    int sdkVersion = 0;
    std::string name;
    std::string version;
    std::string author;
    int lockDepth = 0;
};

namespace vantix::host::detail
{

// The SDK functions the host counts and traces.
enum class Call
{
    AddOnRegister,
    LockStart,
    LockFinish,
    LockOn,
    LockOff,
    FrameGetCount,
    FrameGetPlotType,
    FrameGetUniqueID,
    FrameActivateTop,
    FramePushTop,
    FrameActivateByUniqueID,
    ThreeDViewGetViewerPos,
    ThreeDViewGetViewerAngle,
    ThreeDViewGetProjection,
    ViewRotate3D,
    DrawGraphics,
    Redraw,
    SolutionTimeGetCurrent,
    SolutionTimeSetCurrent,
    StatusStartPercentDone,
    StatusSetPercentDoneText,
    StatusCheckPercentDone,
    StatusFinishPercentDone,
    MacroIsRecordingActive,
    MacroRecordRawCommand,
    MacroRecordExtCommand,
    FrameGetPosAndSize,
    WorkAreaGetDimensions,
    ConvertXDimension,
    ConvertYDimension,
    FrameLightweightPopStart,
    FrameLightweightPopNext,
    FrameLightweightPopEnd,
    DataSetIsAvailable,
    ZoneGetEnabled,
    SetGetNextMember,
    SetDealloc,
    ZoneGetSolutionTime,
    ZoneGetStrandID,
    ExportSetup,
    ExportIsRecording,
    ExportStart,
    ExportNextFrame,
    ExportFinish,
    ExportCancel,
    MacroAddCommandCallback,
    StringAlloc,
    StringDealloc,
    DataSetJournalIsValid,
    DataSetAddJournalCommand,
    DialogErrMsg,
    DialogMessageBox,
    DialogGetFileName,
    Help,
    MenuAddOption,
    MenuSetSensitivity,
    ArrayDealloc,
    ArgListAlloc,
    ArgListAppendInt,
    ArgListAppendFunction,
    ArgListDealloc,
    StateChangeAddCallbackX,
    OnIdleQueueAddCallback,
    GuiDialogCreateModeless,
    GuiDialogCreateModal,
    GuiDialogLaunch,
    GuiDialogDrop,
    GuiDialogIsUp,
    GuiButtonAdd,
    GuiLabelAdd,
    GuiLabelSetText,
    GuiFrameAdd,
    GuiTextFieldAdd,
    GuiSpinTextFieldAdd,
    GuiTextFieldSetString,
    GuiTextFieldGetString,
    GuiToggleAdd,
    GuiToggleGet,
    GuiToggleSet,
    GuiRadioBoxAdd,
    GuiRadioBoxGetToggle,
    GuiRadioBoxSetToggle,
    GuiSetSensitivity,
    GuiSetToolTip,
    GuiListAdd,
    GuiListGetItemCount,
    GuiListAppendItem,
    GuiListReplaceItem,
    GuiListDeleteItemAtPos,
    GuiListDeleteAllItems,
    GuiListSetSelectedItem,
    GuiListSetSelectedItems,
    GuiListGetSelectedItems,
    GuiListDeselectAllItems,
    GuiOptionMenuAdd,
    GuiOptionMenuAppendItem,
    GuiOptionMenuDeleteAllItems,
    GuiOptionMenuGet,
    GuiOptionMenuSet,
    GuiMenuBarAdd,
    GuiMenuAdd,
    GuiMenuAddItem,
    GuiMenuAddToggle,
    GuiMenuAddSeparator,
    GuiMenuSetToggle,
    Count
};
const char* CallName(Call call);

struct DataSet;       // host/scene
class SetRegistry;    // host/scene
struct ExportSession; // host/export
struct MacroCommands; // host/macro
class HostStrings;    // host/macro
class AddOnModules;   // host/macro
struct UserInterface; // host/gui

struct Frame
{
    UniqueID_t id = 0;
    PlotType_e plotType = PlotType_Cartesian3D;
    View3D view;
    double solutionTime = 0.0;
    std::shared_ptr<DataSet> dataSet; // null: no data set
    // Position from the page's top left corner and size, in paper inches.
    double x = 0.25;
    double y = 0.25;
    double width = 10.5;
    double height = 8.0;
};

struct StatusLine
{
    bool shown = false;
    std::string text;
    int percent = 0;
    bool cancelRequested = false;
    int checksUntilCancel = 0; // 0: no cancel scripted
    std::vector<StatusEvent> events;
};

class Application
{
public:
    static Application& instance();

    void reset();

    // ---- bookkeeping
    void note(Call call)
    {
        ++m_callCounts[static_cast<std::size_t>(call)];
        if (m_tracing)
            m_trace.emplace_back(CallName(call));
    }
    void noteStyleWrite(const std::string& path)
    {
        if (m_tracing)
            m_trace.push_back("StyleValue.set " + path);
    }
    void reportError(std::string error);

    // ---- add-ons and locks
    AddOn_pa registerAddOn(int sdkVersion, const char* name, const char* version, const char* author);
    bool isRegistered(AddOn_pa addOn) const;

    // ---- frames
    Frame* activeFrame() { return m_active; }
    // The active frame, for the host's own API: throws std::logic_error when the page has none.
    Frame& requireActiveFrame();
    // The active frame when it is a 3D plot, else null.
    Frame* active3DFrame()
    {
        return m_active && m_active->plotType == PlotType_Cartesian3D ? m_active : nullptr;
    }
    Frame& addFrame(PlotType_e plotType);
    bool activate(UniqueID_t id);
    bool activateTop();
    bool pushTop();
    // Takes a frame off the page; the top frame becomes active when it was the active one. False for an
    // unknown frame.
    bool deleteFrame(UniqueID_t id);

    // ---- status line
    void statusStart(const char* text, bool showStop, bool showBar);
    void statusSetText(const char* text);
    bool statusCheck(int percent);
    void statusFinish();

    // ---- drawing
    void suspendDrawing(bool suspend);
    bool redraw();

    // ---- macro recording
    bool recordMacroLine(std::string line);

    // The state, open to the host's own code (SDK, toolbox, host API).
    std::vector<std::unique_ptr<AddOn_s>> m_addOns;
    int m_globalLockDepth = 0;
    std::vector<std::unique_ptr<Frame>> m_frames; // stacking order, bottom first
    Frame* m_active = nullptr;
    UniqueID_t m_lastFrameId = 0;
    StyleTree m_style;
    int m_drawSuspension = 0;
    int m_redraws = 0;
    int m_skippedRedraws = 0;
    StatusLine m_status;
    bool m_macroRecording = false;
    std::vector<std::string> m_macroLines;
    std::vector<std::string> m_errors;
    bool m_tracing = false;
    std::vector<std::string> m_trace;
    std::array<long, static_cast<std::size_t>(Call::Count)> m_callCounts{};

    // The page: paper size in inches, and the screen's pixels per paper inch.
    double m_paperWidth = 11.0;
    double m_paperHeight = 8.5;
    double m_pixelsPerInch = 100.0;
    // The lightweight walk over the frames: the position in the stack, -1 when no walk is open.
    int m_lightweightPop = -1;
    Frame* m_lightweightPopReturnTo = nullptr;

    // Parts of the state that live in their own folders.
    std::shared_ptr<ExportSession> m_export;        // the open export; null when none
    std::string m_exportError;                      // why the last export operation failed
    std::shared_ptr<MacroCommands> m_macroCommands; // add-on command callbacks; kept across reset
    // Draws the active frame on a redraw; unset, a redraw is only counted.
    std::function<void(Frame&)> m_drawFrame;
    // The program's progress display: called with every status event.
    std::function<void(const StatusEvent&)> m_statusObserver;
    // Set from a signal handler (Ctrl-C): the next percent check answers FALSE.
    std::atomic<bool> m_cancelSignal{false};
    // Host strings handed out and not yet released.
    long m_stringsOutstanding = 0;
    // The host strings' buffers; made on first use, kept across reset (an add-on may still hold one).
    std::shared_ptr<HostStrings> m_hostStrings;
    // The add-on modules loaded and started; made on first use, kept across reset.
    std::shared_ptr<AddOnModules> m_addOnModules;
    // Zone sets handed out and not yet released; made on first use.
    std::shared_ptr<SetRegistry> m_sets;
    // Dialogs, controls, menus, messages, host arrays, argument lists, the on-idle queue and state-change
    // listeners; made on first use, kept across reset (add-ons keep the identifiers and registrations).
    std::shared_ptr<UserInterface> m_userInterface;
    // What the last redraw drew, when the renderer draws on redraw (m_drawFrame).
    Image m_screenImage;

private:
    Application();
    // Makes a frame (or none) active, telling the listeners when that changes the active frame.
    void makeActive(Frame* frame);
    void logStatus(StatusEvent event);
    void defineStyles();
};

} // namespace vantix::host::detail
