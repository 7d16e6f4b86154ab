// Calls add-ons asked for when the host is next idle (VtxUtilOnIdleQueueAddCallback).
//
// One idle moment runs the calls queued before it began, oldest first. A call queued while the queue runs
// waits for the next idle moment, so that a call that queues itself again cannot keep the host busy.
#pragma once

#include <VtxUtil.h>

#include <cstddef>
#include <deque>

namespace vantix::host::detail
{

class OnIdleQueue
{
public:
    void add(OnIdleCallback_pf callback, ArbParam_t clientData) { m_calls.push_back({callback, clientData}); }
    // One idle moment; answers how many calls ran. Throws std::logic_error when the queue is running
    // already (a call cannot make the host idle).
    int runOnce();
    // Idle moments until the queue is empty or maxRounds have run; answers how many calls ran.
    int runUntilEmpty(int maxRounds);
    std::size_t pending() const { return m_calls.size(); }

private:
    struct QueuedCall
    {
        OnIdleCallback_pf callback;
        ArbParam_t clientData;
    };
    std::deque<QueuedCall> m_calls;
    bool m_running = false;
};

} // namespace vantix::host::detail
