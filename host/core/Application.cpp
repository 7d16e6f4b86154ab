#include "core/Application.h"

#include "events/HostEvents.h"
#include "events/StateChanges.h"

#include <utility>

namespace vantix::host::detail
{

namespace
{

StyleSetting Stored(StyleKind kind, StyleData value)
{
    StyleSetting setting;
    setting.kind = kind;
    setting.stored = std::move(value);
    return setting;
}

} // namespace

std::atomic<Application*> Application::s_instance{nullptr};

Application& Application::make()
{
    static Application application;
    s_instance.store(&application, std::memory_order_release);
    return application;
}

Application::Application()
{
    startSession();
}

void Application::reset()
{
    startSession();
    m_addOns.dropLocks();
    m_strings.forgetCounts(); // the count starts again; strings handed out stay valid
    m_argLists.forgetCounts();
    m_cancelSignal = false;
    for (auto& part : m_parts)
        part.second->reset();
    m_wasReset = true;
    Events().reset();
}

void Application::startSession()
{
    m_session = std::make_unique<Session>(m_statusObserver, m_redrawObserver, m_cancelSignal);
    // A "ThreeDView" setting is part of the view; every other setting is style.
    m_session->style.setChangeNotice(
        [](const std::string& path) -> std::function<void()>
        {
            const StateChange_e change =
                path.compare(0, 11, "ThreeDView/") == 0 ? StateChange_View3D : StateChange_Style;
            return [change] { RaiseStateChange(change); };
        });
    defineStyles();
    for (const auto define : m_styleDefinitions)
        define(m_session->style);
}

void Application::addStyles(void (*define)(StyleTree& style))
{
    m_styleDefinitions.push_back(define);
    define(m_session->style);
}

bool Application::recordMacroLine(std::string line)
{
    if (!m_session->macroRecording)
        return false;
    m_session->macroLines.push_back(std::move(line));
    return true;
}

void Application::defineStyles()
{
    // The view settings act on the active frame, which must be a 3D plot.
    const auto viewAvailable = [this] { return page().active3DFrame() != nullptr; };
    const auto viewDouble = [&](std::initializer_list<std::string_view> names, auto get, auto set)
    {
        StyleSetting setting;
        setting.kind = StyleKind::Double;
        setting.available = viewAvailable;
        setting.read = [this, get] { return StyleData(get(page().active3DFrame()->view)); };
        setting.write = [this, set](const StyleData& value)
        { return set(page().active3DFrame()->view, std::get<double>(value)); };
        style().define(names, std::move(setting));
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
    perspective.read = [this] { return StyleData(page().active3DFrame()->view.perspective()); };
    perspective.write = [this, ok](const StyleData& value)
    {
        page().active3DFrame()->view.setPerspective(std::get<bool>(value));
        return ok;
    };
    style().define({"ThreeDView", "DrawInPerspective"}, std::move(perspective));

    style().define({"Interface", "UseDisplayLists"}, Stored(StyleKind::Boolean, true));
    style().define({"GlobalThreeD", "LightSource", "Intensity"}, Stored(StyleKind::Double, 75.0));
    style().define({"GlobalThreeD", "LightSource", "BackgroundLight"}, Stored(StyleKind::Double, 25.0));
    style().define({"ThreeDAxis", "FrameAxis", "Show"}, Stored(StyleKind::Boolean, true));
    style().define({"StreamAttributes", "StreamTiming", "TimeAnchor"}, Stored(StyleKind::Double, 0.0));
    style().define({"StreamAttributes", "StreamTiming", "DeltaTime"}, Stored(StyleKind::Double, 1.0));
    style().define({"StreamAttributes", "StreamTiming", "ShowMarkers"}, Stored(StyleKind::Boolean, false));
    style().define({"StreamAttributes", "StreamTiming", "ShowDashes"}, Stored(StyleKind::Boolean, false));
}

} // namespace vantix::host::detail
