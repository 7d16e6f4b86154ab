#include "core/AddOns.h"

#include "events/ProtocolErrors.h"

namespace vantix::host::detail
{

AddOn_pa AddOns::add(int sdkVersion, const char* name, const char* version, const char* author)
{
    auto addOn = std::make_unique<AddOn_s>();
    addOn->sdkVersion = sdkVersion;
    addOn->name = name ? name : "";
    addOn->version = version ? version : "";
    addOn->author = author ? author : "";
    m_addOns.push_back(std::move(addOn));
    return m_addOns.back().get();
}

bool AddOns::isRegistered(AddOn_pa addOn) const
{
    // A plain loop: there are few add-ons, and every lock start and finish asks.
    for (const auto& known : m_addOns)
        if (known.get() == addOn)
            return true;
    return false;
}

void AddOns::lockStart(AddOn_pa addOn)
{
    if (!isRegistered(addOn))
    {
        ReportProtocolError("a lock was started with a handle the host never gave out");
        return;
    }
    ++addOn->lockDepth;
}

void AddOns::lockFinish(AddOn_pa addOn)
{
    if (!isRegistered(addOn))
        ReportProtocolError("a lock was finished with a handle the host never gave out");
    else if (addOn->lockDepth == 0)
        ReportProtocolError("add-on '" + addOn->name + "' finished a lock it had not started");
    else
        --addOn->lockDepth;
}

void AddOns::lockOff()
{
    if (m_globalLockDepth == 0)
        ReportProtocolError("the global lock was released while it was not held");
    else
        --m_globalLockDepth;
}

void AddOns::dropLocks()
{
    for (auto& addOn : m_addOns)
        addOn->lockDepth = 0;
    m_globalLockDepth = 0;
}

} // namespace vantix::host::detail
