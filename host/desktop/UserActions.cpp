#include "desktop/UserActions.h"

#include <vantix/host/Events.h>

#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QWidget>

#include <cstdio>
#include <exception>
#include <utility>

namespace vantix::host::desktop
{

namespace
{

constexpr const char* AnswersProperty = "vantixAnswersDuringActions";

bool IsInput(QEvent::Type type)
{
    switch (type)
    {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::Close:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
    case QEvent::TabletMove:
        return true;
    default:
        return false;
    }
}

// Drops input to every window while an action runs, but for the Cancel button and the prompts.
class InputGate : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (depth == 0 || !IsInput(event->type()))
            return false;
        const auto* widget = qobject_cast<const QWidget*>(watched);
        if (!widget)
            return false; // the window system's own objects: each event reaches a widget after
        if (cancelButton && (widget == cancelButton || cancelButton->isAncestorOf(widget)))
            return false;
        const QWidget* window = widget->window();
        return !(window && window->property(AnswersProperty).toBool());
    }

    int depth = 0;
    QPointer<QWidget> cancelButton;
};

struct Actions
{
    InputGate* gate = nullptr;
    std::function<void()> refresh;
    std::function<void(const std::string&)> report;
};

Actions& State()
{
    static Actions actions;
    return actions;
}

InputGate& Gate()
{
    Actions& state = State();
    if (!state.gate)
    {
        state.gate = new InputGate;
        state.gate->setParent(QCoreApplication::instance());
        QCoreApplication::instance()->installEventFilter(state.gate);
    }
    return *state.gate;
}

void Refresh()
{
    if (State().refresh)
        State().refresh();
}

void Report(const std::string& why)
{
    if (State().report)
        State().report(why);
    else
        std::fprintf(stderr, "vantix: %s\n", why.c_str());
}

// One level of an action; the host is busy while any is open.
class ActionScope
{
public:
    ActionScope() { ++Gate().depth; }
    ActionScope(const ActionScope&) = delete;
    ActionScope& operator=(const ActionScope&) = delete;
    ~ActionScope() { --Gate().depth; }
};

// Runs work that calls into the host with the host busy, telling what it refused.
void RunBusy(const std::function<void()>& work)
{
    const ActionScope scope;
    try
    {
        work();
    }
    catch (const std::exception& error)
    {
        Report(error.what());
    }
}

} // namespace

void RunUserAction(const std::function<void()>& action)
{
    RunBusy(action);
    HostIsIdle();
}

bool UserActionRunning()
{
    return Gate().depth > 0;
}

void KeepWindowsAnswering()
{
    if (!UserActionRunning())
        return;
    Refresh();
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

void SetCancelButton(QWidget* button)
{
    Gate().cancelButton = button;
}

void AnswersDuringActions(QWidget* window)
{
    window->setProperty(AnswersProperty, true);
}

void SetWindowRefresher(std::function<void()> refresh)
{
    State().refresh = std::move(refresh);
}

void SetRefusalReporter(std::function<void(const std::string&)> report)
{
    State().report = std::move(report);
}

void HostIsIdle()
{
    if (UserActionRunning())
        return;
    // The queued calls go into add-ons: the host is busy meanwhile.
    RunBusy([] { runOnIdleUntilEmpty(); });
    Refresh();
}

} // namespace vantix::host::desktop
