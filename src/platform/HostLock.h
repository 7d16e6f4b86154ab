#pragma once

namespace vantix::vtxutiltools
{

// Holds the add-on's host lock for its lifetime. The host's lock nests, so a HostLock may be taken while
// another is held; every one releases exactly what it took.
class HostLock
{
public:
    HostLock();
    ~HostLock();

    HostLock(const HostLock&) = delete;
    HostLock& operator=(const HostLock&) = delete;
};

} // namespace vantix::vtxutiltools
