#include "core/StatusLine.h"

#include "events/ProtocolErrors.h"

namespace vantix::host::detail
{

void StatusLine::start(const char* text, bool showStop, bool showBar)
{
    m_shown = true;
    m_text = text ? text : "";
    StatusEvent event;
    event.kind = StatusEvent::Kind::Start;
    event.text = m_text;
    event.showStop = showStop;
    event.showBar = showBar;
    log(std::move(event));
}

void StatusLine::setText(const char* text)
{
    if (!m_shown)
        ReportProtocolError("the status line text was set while no status line was shown");
    m_text = text ? text : "";
    StatusEvent event;
    event.kind = StatusEvent::Kind::SetText;
    event.text = m_text;
    log(std::move(event));
}

bool StatusLine::check(int percent)
{
    if (!m_shown)
        ReportProtocolError("the status line was checked while no status line was shown");
    if (percent < 0 || percent > 100)
        ReportProtocolError("the status line was given " + std::to_string(percent) + " percent");
    if (m_checksUntilCancel > 0 && --m_checksUntilCancel == 0)
        m_cancelRequested = true;
    if (m_cancelSignal.exchange(false))
        m_cancelRequested = true;
    StatusEvent event;
    event.kind = StatusEvent::Kind::Check;
    event.percent = percent;
    event.answer = !m_cancelRequested;
    const bool answer = event.answer;
    log(std::move(event));
    return answer;
}

void StatusLine::finish()
{
    if (!m_shown)
        ReportProtocolError("a status line was finished that was not shown");
    m_shown = false;
    m_text.clear();
    m_cancelRequested = false;
    StatusEvent event;
    event.kind = StatusEvent::Kind::Finish;
    log(std::move(event));
}

void StatusLine::log(StatusEvent event)
{
    if (m_observer)
        m_observer(event);
    m_events.add(std::move(event));
}

} // namespace vantix::host::detail
