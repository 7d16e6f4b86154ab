#include "app/InterruptHandler.h"

#include <vantix/host/Host.h>

namespace vantix::host::detail
{

namespace
{

void OnInterrupt(int)
{
    // Only an atomic store: safe in a signal handler.
    vantix::host::requestCancelFromSignal();
}

} // namespace

InterruptHandler::InterruptHandler()
{
    struct sigaction action = {};
    action.sa_handler = OnInterrupt;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESETHAND | SA_RESTART;
    m_installed = sigaction(SIGINT, &action, &m_previous) == 0;
}

InterruptHandler::~InterruptHandler()
{
    if (m_installed)
        sigaction(SIGINT, &m_previous, nullptr);
}

} // namespace vantix::host::detail
