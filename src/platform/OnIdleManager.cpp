#include "platform/OnIdleManager.h"

#include <unordered_map>

namespace vantix::vtxutiltools
{

namespace
{

using LiveManagers = std::unordered_map<ArbParam_t, OnIdleManager*>;

// Made on first use and never destroyed, so that a call the host delivers while or after the module's
// static objects are destroyed still finds an answer: no manager.
LiveManagers& TheLiveManagers()
{
    static LiveManagers* const managers = new LiveManagers();
    return *managers;
}

OnIdleManager* FindManager(ArbParam_t serial)
{
    const LiveManagers& managers = TheLiveManagers();
    const LiveManagers::const_iterator found = managers.find(serial);
    return found == managers.end() ? nullptr : found->second;
}

ArbParam_t NewSerial()
{
    static ArbParam_t last = 0;
    return ++last;
}

} // namespace

OnIdleManager::OnIdleManager() : m_serial(NewSerial())
{
    TheLiveManagers().emplace(m_serial, this);
}

OnIdleManager::~OnIdleManager()
{
    TheLiveManagers().erase(m_serial);
}

void OnIdleManager::addCallback(const boost::function<void()>& f)
{
    if (m_pendingCall || !f)
        return;
    m_pendingCall = f;
    // A call the host refused would never run and would block every later request.
    if (!VtxUtilOnIdleQueueAddCallback(onIdleCallback, m_serial))
        m_pendingCall.clear();
}

void OnIdleManager::onIdleCallback(ArbParam_t clientData)
{
    OnIdleManager* const manager = FindManager(clientData);
    if (!manager)
        return;
    // Run from a copy: the call may destroy its own manager, and with it the stored function, for instance
    // by closing the dialog that owns the manager. The stored one stays set meanwhile, so that requests
    // made while it runs are dropped.
    const boost::function<void()> call = manager->m_pendingCall;
    try
    {
        if (call)
            call();
    }
    catch (...)
    {
        finishPendingCall(clientData);
        throw;
    }
    finishPendingCall(clientData);
}

void OnIdleManager::finishPendingCall(ArbParam_t serial)
{
    if (OnIdleManager* const manager = FindManager(serial))
        manager->m_pendingCall.clear();
}

} // namespace vantix::vtxutiltools
