#include "app/ProgressDisplay.h"

#include <algorithm>
#include <unistd.h>

namespace vantix::host::detail
{

namespace
{

constexpr int BarWidth = 30;

} // namespace

void ProgressDisplay::show(const StatusEvent& event)
{
    switch (event.kind)
    {
    case StatusEvent::Kind::Start:
        m_text = event.text;
        m_percent = 0;
        m_lastTenth = -1;
        m_stopped = false;
        if (m_terminal)
            drawBar();
        break;
    case StatusEvent::Kind::SetText:
        m_text = event.text;
        if (m_terminal)
            drawBar();
        else
            printLine(std::to_string(m_percent) + "%");
        break;
    case StatusEvent::Kind::Check:
    {
        const bool stoppedNow = !event.answer && !m_stopped;
        m_stopped = m_stopped || !event.answer;
        const bool moved = event.percent != m_percent;
        m_percent = std::clamp(event.percent, 0, 100);
        if (m_terminal && (moved || stoppedNow || !m_barShown))
            drawBar();
        else if (!m_terminal && stoppedNow)
            printLine(std::to_string(m_percent) + "%, stopping");
        else if (!m_terminal && m_percent / 10 > m_lastTenth)
        {
            m_lastTenth = m_percent / 10;
            printLine(std::to_string(m_percent) + "%");
        }
        break;
    }
    case StatusEvent::Kind::Finish:
        if (m_terminal && m_barShown)
        {
            std::fputc('\n', m_out);
            m_barShown = false;
        }
        else if (!m_terminal)
            printLine(m_stopped ? "stopped" : "done");
        break;
    }
    std::fflush(m_out);
}

void ProgressDisplay::drawBar()
{
    const int filled = m_percent * BarWidth / 100;
    const std::string bar = std::string(filled, '#') + std::string(BarWidth - filled, '-');
    // Back to the start of the line and clear it, so that a shorter text leaves nothing behind.
    std::fprintf(m_out, "\r\033[K%s [%s] %3d%%%s", m_text.c_str(), bar.c_str(), m_percent,
                 m_stopped ? " stopping" : "");
    m_barShown = true;
}

void ProgressDisplay::printLine(const std::string& state)
{
    std::fprintf(m_out, "%s %s\n", m_text.c_str(), state.c_str());
}

StatusDisplayScope::StatusDisplayScope() : m_display(stderr, ::isatty(STDERR_FILENO) == 1)
{
    setStatusObserver([this](const StatusEvent& event) { m_display.show(event); });
}

StatusDisplayScope::~StatusDisplayScope()
{
    setStatusObserver(nullptr);
}

} // namespace vantix::host::detail
