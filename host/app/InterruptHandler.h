// Ctrl-C while the program runs: the first asks the host to cancel (the next percent check answers
// FALSE, and the replay stops before its next command); the handler then steps aside, so that a second
// Ctrl-C ends the program as usual. The handler before it comes back when this object goes.
#pragma once

#include <csignal>

namespace vantix::host::detail
{

class InterruptHandler
{
public:
    InterruptHandler();
    InterruptHandler(const InterruptHandler&) = delete;
    InterruptHandler& operator=(const InterruptHandler&) = delete;
    ~InterruptHandler();

private:
    struct sigaction m_previous = {};
    bool m_installed = false;
};

} // namespace vantix::host::detail
