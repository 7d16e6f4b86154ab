// The status line of one long operation: its text, the percent done, and the user's request to stop. Every
// event is shown to the program's progress display as it happens, and the latest are logged for the tests.
#pragma once

#include "events/RecentLog.h"

#include <vantix/host/Host.h>

#include <atomic>
#include <functional>
#include <string>
#include <vector>

namespace vantix::host::detail
{

class StatusLine
{
public:
    using Observer = std::function<void(const StatusEvent&)>;

    // The observer and the cancel signal belong to the program and outlive the status line: a signal
    // handler (Ctrl-C) sets the signal, and the next percent check answers FALSE.
    StatusLine(const Observer& observer, std::atomic<bool>& cancelSignal)
        : m_observer(observer), m_cancelSignal(cancelSignal)
    {
    }

    void start(const char* text, bool showStop, bool showBar);
    void setText(const char* text);
    // False once the user asked to stop, until the status line is finished.
    bool check(int percent);
    void finish();

    bool isShown() const { return m_shown; }
    const std::string& text() const { return m_text; }
    const std::vector<StatusEvent>& events() const { return m_events.entries(); }

    // The user asks to stop at the n-th check from now (n >= 1).
    void scriptCancelAtCheck(int n) { m_checksUntilCancel = n; }
    // The user asks to stop now.
    void requestCancel() { m_cancelRequested = true; }

private:
    void log(StatusEvent event);

    const Observer& m_observer;
    std::atomic<bool>& m_cancelSignal;
    bool m_shown = false;
    std::string m_text;
    bool m_cancelRequested = false;
    int m_checksUntilCancel = 0; // 0: no cancel scripted
    RecentLog<StatusEvent> m_events;
};

} // namespace vantix::host::detail
