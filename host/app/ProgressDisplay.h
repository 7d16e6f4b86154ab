// The host's status line on standard error: a progress bar redrawn in place on a terminal, plain
// progress lines (one every ten percent) when the output goes to a file or a pipe.
#pragma once

#include <vantix/host/Host.h>

#include <cstdio>
#include <string>

namespace vantix::host::detail
{

class ProgressDisplay
{
public:
    ProgressDisplay(std::FILE* out, bool terminal) : m_out(out), m_terminal(terminal) {}

    // Called with every status event (vantix::host::setStatusObserver).
    void show(const StatusEvent& event);

private:
    void drawBar();
    void printLine(const std::string& state);

    std::FILE* m_out;
    bool m_terminal;
    std::string m_text;
    int m_percent = 0;
    int m_lastTenth = -1;    // plain lines: the last ten percent step printed
    bool m_stopped = false;  // a check answered that the user asked to stop
    bool m_barShown = false; // terminal: a bar stands on the current line
};

// The status line shown on standard error for as long as one lives.
class StatusDisplayScope
{
public:
    StatusDisplayScope();
    StatusDisplayScope(const StatusDisplayScope&) = delete;
    StatusDisplayScope& operator=(const StatusDisplayScope&) = delete;
    ~StatusDisplayScope();

private:
    ProgressDisplay m_display;
};

} // namespace vantix::host::detail
