// The one host state of a process. Everything the SDK functions, the toolbox and the host's own API do is
// done on this object, on the user-interface thread.
#pragma once

#include "core/StyleTree.h"
#include "core/View3D.h"

#include <VtxUtil.h>
#include <vantix/host/Host.h>

#include <array>
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
    Count
};
const char* CallName(Call call);

struct Frame
{
    UniqueID_t id = 0;
    PlotType_e plotType = PlotType_Cartesian3D;
    View3D view;
    double solutionTime = 0.0;
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
    // The active frame when it is a 3D plot, else null.
    Frame* active3DFrame()
    {
        return m_active && m_active->plotType == PlotType_Cartesian3D ? m_active : nullptr;
    }
    Frame& addFrame(PlotType_e plotType);
    bool activate(UniqueID_t id);
    bool activateTop();
    bool pushTop();

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

private:
    Application();
    void defineStyles();
};

} // namespace vantix::host::detail
