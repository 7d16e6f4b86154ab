// Ctrl-C (SIGINT), SIGTERM and SIGHUP while the program runs: the first asks the host to cancel (the next
// percent check answers FALSE, and the replay stops before its next command), and the program ends once
// the work under way has stopped and cleaned up. A second signal ends the program at once, after removing
// the temporary files of writes not completed. The handlers before them come back when this object goes.
#pragma once

#include <array>
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

    // The first signal received, or 0.
    static int received();
    // "SIGINT", "SIGTERM", "SIGHUP".
    static const char* describe(int signal);

private:
    static constexpr std::array<int, 3> Signals{SIGINT, SIGTERM, SIGHUP};
    std::array<struct sigaction, Signals.size()> m_previous = {};
    std::array<bool, Signals.size()> m_installed = {};
};

} // namespace vantix::host::detail
