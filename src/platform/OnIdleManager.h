#pragma once

#include <VtxUtil.h>

#include <boost/function.hpp>

namespace vantix::vtxutiltools
{

// Runs one deferred call when the host is next idle. While a call is pending, further requests are
// dropped: a burst of requests before the host is idle, and requests made by the pending call itself while
// it runs, come to one call.
//
// The host's on-idle queue cannot take a call back. So the queued client data is not the manager's address
// but a serial number that is never reused, and the call looks its manager up among the living ones: a
// call that arrives after its manager was destroyed finds none and does nothing, and a new manager that
// happens to live at the old address is not mistaken for it.
class OnIdleManager
{
public:
    OnIdleManager();
    virtual ~OnIdleManager();

    OnIdleManager(const OnIdleManager&) = delete;
    OnIdleManager& operator=(const OnIdleManager&) = delete;

    // Queues f unless a call is pending already, in which case f is dropped. An empty f asks for nothing.
    void addCallback(const boost::function<void()>& f);

    // The host's on-idle callback; clientData is the serial number of the manager that queued it. The
    // pending call counts as pending until it has returned, or thrown.
    static void onIdleCallback(ArbParam_t clientData);

private:
    static void finishPendingCall(ArbParam_t serial);

    boost::function<void()> m_pendingCall;
    const ArbParam_t m_serial;
};

} // namespace vantix::vtxutiltools
