#include "app/InterruptHandler.h"

#include <vantix/host/Host.h>
#include <vantix/toolbox/ReplacingFile.h>

#include <atomic>

namespace vantix::host::detail
{

namespace
{

std::atomic<int> g_received{0};

// Only atomic operations, unlink and raise: all safe in a signal handler.
void OnSignal(int signal)
{
    int none = 0;
    if (g_received.compare_exchange_strong(none, signal))
    {
        vantix::host::requestCancelFromSignal();
        return;
    }
    vantix::toolbox::RemoveTemporaryFilesNow();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

} // namespace

InterruptHandler::InterruptHandler()
{
    g_received = 0;
    struct sigaction action = {};
    action.sa_handler = OnSignal;
    sigemptyset(&action.sa_mask);
    for (const int signal : Signals)
        sigaddset(&action.sa_mask, signal);
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < Signals.size(); ++i)
        m_installed[i] = sigaction(Signals[i], &action, &m_previous[i]) == 0;
}

InterruptHandler::~InterruptHandler()
{
    for (std::size_t i = 0; i < Signals.size(); ++i)
        if (m_installed[i])
            sigaction(Signals[i], &m_previous[i], nullptr);
}

int InterruptHandler::received()
{
    return g_received.load();
}

const char* InterruptHandler::describe(int signal)
{
    switch (signal)
    {
    case SIGINT:
        return "SIGINT";
    case SIGTERM:
        return "SIGTERM";
    case SIGHUP:
        return "SIGHUP";
    default:
        return "a signal";
    }
}

} // namespace vantix::host::detail
