#include "core/Application.h"

#include "export/ExportSetup.h"
#include "gui/UserInterface.h"
#include "macro/HostStrings.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <utility>

namespace vantix::host::detail
{

namespace
{

const char* const CallNames[] = {
    "VtxUtilAddOnRegister",
    "VtxUtilLockStart",
    "VtxUtilLockFinish",
    "VtxUtilLockOn",
    "VtxUtilLockOff",
    "VtxUtilFrameGetCount",
    "VtxUtilFrameGetPlotType",
    "VtxUtilFrameGetUniqueID",
    "VtxUtilFrameActivateTop",
    "VtxUtilFramePushTop",
    "VtxUtilFrameActivateByUniqueID",
    "VtxUtilThreeDViewGetViewerPos",
    "VtxUtilThreeDViewGetViewerAngle",
    "VtxUtilThreeDViewGetProjection",
    "VtxUtilViewRotate3D",
    "VtxUtilDrawGraphics",
    "VtxUtilRedraw",
    "VtxUtilSolutionTimeGetCurrent",
    "VtxUtilSolutionTimeSetCurrent",
    "VtxUtilStatusStartPercentDone",
    "VtxUtilStatusSetPercentDoneText",
    "VtxUtilStatusCheckPercentDone",
    "VtxUtilStatusFinishPercentDone",
    "VtxUtilMacroIsRecordingActive",
    "VtxUtilMacroRecordRawCommand",
    "VtxUtilMacroRecordExtCommand",
    "VtxUtilFrameGetPosAndSize",
    "VtxUtilWorkAreaGetDimensions",
    "VtxUtilConvertXDimension",
    "VtxUtilConvertYDimension",
    "VtxUtilFrameLightweightPopStart",
    "VtxUtilFrameLightweightPopNext",
    "VtxUtilFrameLightweightPopEnd",
    "VtxUtilDataSetIsAvailable",
    "VtxUtilZoneGetEnabled",
    "VtxUtilSetGetNextMember",
    "VtxUtilSetDealloc",
    "VtxUtilZoneGetSolutionTime",
    "VtxUtilZoneGetStrandID",
    "VtxUtilExportSetup",
    "VtxUtilExportIsRecording",
    "VtxUtilExportStart",
    "VtxUtilExportNextFrame",
    "VtxUtilExportFinish",
    "VtxUtilExportCancel",
    "VtxUtilMacroAddCommandCallback",
    "VtxUtilStringAlloc",
    "VtxUtilStringDealloc",
    "VtxUtilDataSetJournalIsValid",
    "VtxUtilDataSetAddJournalCommand",
    "VtxUtilDialogErrMsg",
    "VtxUtilDialogMessageBox",
    "VtxUtilDialogGetFileName",
    "VtxUtilHelp",
    "VtxUtilMenuAddOption",
    "VtxUtilMenuSetSensitivity",
    "VtxUtilArrayDealloc",
    "VtxUtilArgListAlloc",
    "VtxUtilArgListAppendInt",
    "VtxUtilArgListAppendFunction",
    "VtxUtilArgListDealloc",
    "VtxUtilStateChangeAddCallbackX",
    "VtxUtilOnIdleQueueAddCallback",
    "VtxGUIDialogCreateModeless",
    "VtxGUIDialogCreateModal",
    "VtxGUIDialogLaunch",
    "VtxGUIDialogDrop",
    "VtxGUIDialogIsUp",
    "VtxGUIButtonAdd",
    "VtxGUILabelAdd",
    "VtxGUILabelSetText",
    "VtxGUIFrameAdd",
    "VtxGUITextFieldAdd",
    "VtxGUISpinTextFieldAdd",
    "VtxGUITextFieldSetString",
    "VtxGUITextFieldGetString",
    "VtxGUIToggleAdd",
    "VtxGUIToggleGet",
    "VtxGUIToggleSet",
    "VtxGUIRadioBoxAdd",
    "VtxGUIRadioBoxGetToggle",
    "VtxGUIRadioBoxSetToggle",
    "VtxGUISetSensitivity",
    "VtxGUISetToolTip",
    "VtxGUIListAdd",
    "VtxGUIListGetItemCount",
    "VtxGUIListAppendItem",
    "VtxGUIListReplaceItem",
    "VtxGUIListDeleteItemAtPos",
    "VtxGUIListDeleteAllItems",
    "VtxGUIListSetSelectedItem",
    "VtxGUIListSetSelectedItems",
    "VtxGUIListGetSelectedItems",
    "VtxGUIListDeselectAllItems",
    "VtxGUIOptionMenuAdd",
    "VtxGUIOptionMenuAppendItem",
    "VtxGUIOptionMenuDeleteAllItems",
    "VtxGUIOptionMenuGet",
    "VtxGUIOptionMenuSet",
    "VtxGUIMenuBarAdd",
    "VtxGUIMenuAdd",
    "VtxGUIMenuAddItem",
    "VtxGUIMenuAddToggle",
    "VtxGUIMenuAddSeparator",
    "VtxGUIMenuSetToggle",
};
static_assert(sizeof(CallNames) / sizeof(CallNames[0]) == static_cast<std::size_t>(Call::Count));

StyleSetting Stored(StyleKind kind, StyleData value)
{
    StyleSetting setting;
    setting.kind = kind;
    setting.stored = std::move(value);
    return setting;
}

} // namespace

const char* CallName(Call call)
{
    return CallNames[static_cast<std::size_t>(call)];
}

Application& Application::instance()
{
    static Application application;
    return application;
}

Application::Application()
{
    // A "ThreeDView" setting is part of the view; every other setting is style.
    m_style.setChangeObserver(
        [this](const std::string& path)
        {
            const bool view = path.compare(0, 11, "ThreeDView/") == 0;
            RaiseStateChange(*this, view ? StateChange_View3D : StateChange_Style);
        });
    defineStyles();
}

void Application::reset()
{
    for (auto& addOn : m_addOns)
        addOn->lockDepth = 0;
    m_globalLockDepth = 0;
    m_frames.clear();
    m_active = nullptr;
    m_style.clear();
    defineStyles();
    m_drawSuspension = 0;
    m_redraws = 0;
    m_skippedRedraws = 0;
    m_status = StatusLine();
    m_cancelSignal = false;
    m_lightweightPop = -1;
    m_lightweightPopReturnTo = nullptr;
    m_export.reset(); // an export still open is abandoned
    m_exportError.clear();
    m_stringsOutstanding = 0;
    if (m_hostStrings)
        m_hostStrings->forgetCounts(); // the count starts again; strings handed out stay valid
    m_sets.reset();                    // sets an add-on did not release die with the state they described
    m_drawFrame = nullptr;
    m_screenImage = Image();
    m_paperWidth = 11.0;
    m_paperHeight = 8.5;
    m_pixelsPerInch = 100.0;
    m_macroRecording = false;
    m_macroLines.clear();
    m_errors.clear();
    m_tracing = false;
    m_trace.clear();
    m_callCounts.fill(0);
    // Made here if need be, so that a clean host is one whose help never starts a browser.
    UserInterfaceOf(*this).reset();
}

void Application::reportError(std::string error)
{
    std::fprintf(stderr, "vantix: %s\n", error.c_str());
    m_errors.push_back(std::move(error));
}

AddOn_pa Application::registerAddOn(int sdkVersion, const char* name, const char* version, const char* author)
{
    auto addOn = std::make_unique<AddOn_s>();
    addOn->sdkVersion = sdkVersion;
    addOn->name = name ? name : "";
    addOn->version = version ? version : "";
    addOn->author = author ? author : "";
    m_addOns.push_back(std::move(addOn));
    return m_addOns.back().get();
}

bool Application::isRegistered(AddOn_pa addOn) const
{
    return std::any_of(m_addOns.begin(), m_addOns.end(),
                       [addOn](const auto& known) { return known.get() == addOn; });
}

Frame& Application::addFrame(PlotType_e plotType)
{
    auto frame = std::make_unique<Frame>();
    frame->id = ++m_lastFrameId;
    frame->plotType = plotType;
    m_frames.push_back(std::move(frame));
    m_active = m_frames.back().get();
    RaiseStateChange(*this, StateChange_FrameCreated);
    RaiseStateChange(*this, StateChange_NewTopFrame);
    return *m_active;
}

Frame& Application::requireActiveFrame()
{
    if (!m_active)
        throw std::logic_error("the page has no frame");
    return *m_active;
}

bool Application::activate(UniqueID_t id)
{
    for (auto& frame : m_frames)
        if (frame->id == id)
        {
            makeActive(frame.get());
            return true;
        }
    return false;
}

bool Application::activateTop()
{
    if (m_frames.empty())
        return false;
    makeActive(m_frames.back().get());
    return true;
}

bool Application::deleteFrame(UniqueID_t id)
{
    const auto found =
        std::find_if(m_frames.begin(), m_frames.end(), [id](const auto& frame) { return frame->id == id; });
    if (found == m_frames.end())
        return false;
    const bool wasActive = found->get() == m_active;
    if (m_lightweightPopReturnTo == found->get())
        m_lightweightPopReturnTo = nullptr;
    m_frames.erase(found);
    if (wasActive)
        m_active = m_frames.empty() ? nullptr : m_frames.back().get();
    RaiseStateChange(*this, StateChange_FrameDeleted);
    if (wasActive)
        RaiseStateChange(*this, StateChange_NewTopFrame);
    return true;
}

void Application::makeActive(Frame* frame)
{
    if (frame == m_active)
        return;
    m_active = frame;
    RaiseStateChange(*this, StateChange_NewTopFrame);
}

bool Application::pushTop()
{
    if (m_frames.empty())
        return false;
    std::rotate(m_frames.begin(), m_frames.end() - 1, m_frames.end());
    return activateTop();
}

void Application::statusStart(const char* text, bool showStop, bool showBar)
{
    m_status.shown = true;
    m_status.text = text ? text : "";
    m_status.percent = 0;
    StatusEvent event;
    event.kind = StatusEvent::Kind::Start;
    event.text = m_status.text;
    event.showStop = showStop;
    event.showBar = showBar;
    logStatus(std::move(event));
}

void Application::statusSetText(const char* text)
{
    if (!m_status.shown)
        reportError("the status line text was set while no status line was shown");
    m_status.text = text ? text : "";
    StatusEvent event;
    event.kind = StatusEvent::Kind::SetText;
    event.text = m_status.text;
    logStatus(std::move(event));
}

bool Application::statusCheck(int percent)
{
    if (!m_status.shown)
        reportError("the status line was checked while no status line was shown");
    if (percent < 0 || percent > 100)
        reportError("the status line was given " + std::to_string(percent) + " percent");
    m_status.percent = percent;
    if (m_status.checksUntilCancel > 0 && --m_status.checksUntilCancel == 0)
        m_status.cancelRequested = true;
    if (m_cancelSignal.exchange(false))
        m_status.cancelRequested = true;
    StatusEvent event;
    event.kind = StatusEvent::Kind::Check;
    event.percent = percent;
    event.answer = !m_status.cancelRequested;
    const bool answer = event.answer;
    logStatus(std::move(event));
    return answer;
}

void Application::statusFinish()
{
    if (!m_status.shown)
        reportError("a status line was finished that was not shown");
    m_status.shown = false;
    m_status.text.clear();
    m_status.cancelRequested = false;
    StatusEvent event;
    event.kind = StatusEvent::Kind::Finish;
    logStatus(std::move(event));
}

void Application::logStatus(StatusEvent event)
{
    if (m_statusObserver)
        m_statusObserver(event);
    m_status.events.push_back(std::move(event));
}

void Application::suspendDrawing(bool suspend)
{
    if (suspend)
        ++m_drawSuspension;
    else if (m_drawSuspension == 0)
        reportError("drawing was resumed while it was not suspended");
    else
        --m_drawSuspension;
}

bool Application::redraw()
{
    if (!m_active)
        return false;
    if (m_drawSuspension > 0)
    {
        ++m_skippedRedraws;
        return true;
    }
    ++m_redraws;
    if (m_drawFrame)
        m_drawFrame(*m_active);
    return true;
}

bool Application::recordMacroLine(std::string line)
{
    if (!m_macroRecording)
        return false;
    m_macroLines.push_back(std::move(line));
    return true;
}

void Application::defineStyles()
{
    // The view settings act on the active frame, which must be a 3D plot.
    const auto viewAvailable = [this] { return active3DFrame() != nullptr; };
    const auto viewDouble = [&](std::initializer_list<std::string_view> names, auto get, auto set)
    {
        StyleSetting setting;
        setting.kind = StyleKind::Double;
        setting.available = viewAvailable;
        setting.read = [this, get] { return StyleData(get(active3DFrame()->view)); };
        setting.write = [this, set](const StyleData& value)
        { return set(active3DFrame()->view, std::get<double>(value)); };
        m_style.define(names, std::move(setting));
    };
    using View = View3D;
    const auto ok = SetValueReturnCode_Ok;
    viewDouble(
        {"ThreeDView", "PSIAngle"}, [](const View& v) { return v.psi(); },
        [ok](View& v, double d) { return v.setAngle(View::Axis::Psi, d), ok; });
    viewDouble(
        {"ThreeDView", "ThetaAngle"}, [](const View& v) { return v.theta(); },
        [ok](View& v, double d) { return v.setAngle(View::Axis::Theta, d), ok; });
    viewDouble(
        {"ThreeDView", "AlphaAngle"}, [](const View& v) { return v.alpha(); },
        [ok](View& v, double d) { return v.setAngle(View::Axis::Alpha, d), ok; });
    for (int i = 0; i < 3; ++i)
    {
        const std::string_view axis = i == 0 ? "X" : i == 1 ? "Y" : "Z";
        viewDouble(
            {"ThreeDView", "ViewerPosition", axis}, [i](const View& v) { return v.position()[i]; },
            [ok, i](View& v, double d) { return v.setPositionComponent(i, d), ok; });
        viewDouble(
            {"GlobalThreeD", "RotateOrigin", axis}, [i](const View& v) { return v.rotationOrigin()[i]; },
            [ok, i](View& v, double d) { return v.setRotationOriginComponent(i, d), ok; });
    }
    viewDouble(
        {"ThreeDView", "ViewWidth"}, [](const View& v) { return v.width(); },
        [ok](View& v, double d) { return d > 0.0 ? (v.setWidth(d), ok) : SetValueReturnCode_InvalidValue; });
    viewDouble(
        {"ThreeDView", "FieldOfView"}, [](const View& v) { return v.fieldOfView(); },
        [ok](View& v, double d) { return v.setFieldOfView(d) ? ok : SetValueReturnCode_InvalidValue; });

    StyleSetting perspective;
    perspective.kind = StyleKind::Boolean;
    perspective.available = viewAvailable;
    perspective.read = [this] { return StyleData(active3DFrame()->view.perspective()); };
    perspective.write = [this, ok](const StyleData& value)
    {
        active3DFrame()->view.setPerspective(std::get<bool>(value));
        return ok;
    };
    m_style.define({"ThreeDView", "DrawInPerspective"}, std::move(perspective));

    m_style.define({"Interface", "UseDisplayLists"}, Stored(StyleKind::Boolean, true));
    m_style.define({"GlobalThreeD", "LightSource", "Intensity"}, Stored(StyleKind::Double, 75.0));
    m_style.define({"GlobalThreeD", "LightSource", "BackgroundLight"}, Stored(StyleKind::Double, 25.0));
    m_style.define({"ThreeDAxis", "FrameAxis", "Show"}, Stored(StyleKind::Boolean, true));
    m_style.define({"StreamAttributes", "StreamTiming", "TimeAnchor"}, Stored(StyleKind::Double, 0.0));
    m_style.define({"StreamAttributes", "StreamTiming", "DeltaTime"}, Stored(StyleKind::Double, 1.0));
    m_style.define({"StreamAttributes", "StreamTiming", "ShowMarkers"}, Stored(StyleKind::Boolean, false));
    m_style.define({"StreamAttributes", "StreamTiming", "ShowDashes"}, Stored(StyleKind::Boolean, false));
    DefineExportStyles(m_style);
}

} // namespace vantix::host::detail
