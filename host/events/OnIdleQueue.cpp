#include "events/OnIdleQueue.h"

#include "events/AddOnCallback.h"

#include <stdexcept>

namespace vantix::host::detail
{

namespace
{

class RunningFlag
{
public:
    explicit RunningFlag(bool& running) : m_running(running) { m_running = true; }
    RunningFlag(const RunningFlag&) = delete;
    RunningFlag& operator=(const RunningFlag&) = delete;
    ~RunningFlag() { m_running = false; }

private:
    bool& m_running;
};

} // namespace

int OnIdleQueue::runOnce()
{
    if (m_running)
        throw std::logic_error("the host cannot become idle while it runs its on-idle queue");
    const RunningFlag running(m_running);
    // The calls queued from here on sit behind these and wait for the next idle moment.
    std::size_t due = m_calls.size();
    int ran = 0;
    for (; due > 0; --due)
    {
        const QueuedCall call = m_calls.front();
        m_calls.pop_front();
        CallAddOn("an on-idle callback", [&call] { call.callback(call.clientData); });
        ++ran;
    }
    return ran;
}

int OnIdleQueue::runUntilEmpty(int maxRounds)
{
    int ran = 0;
    for (int round = 0; round < maxRounds && !m_calls.empty(); ++round)
        ran += runOnce();
    return ran;
}

} // namespace vantix::host::detail
