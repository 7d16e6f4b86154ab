// The add-ons registered with the host, and the host locks they hold.
#pragma once

#include <VtxUtil.h>

#include <memory>
#include <string>
#include <vector>

// The record behind an add-on handle.
struct AddOn_s
{
    int sdkVersion = 0;
    std::string name;
    std::string version;
    std::string author;
    int lockDepth = 0;
};

namespace vantix::host::detail
{

// Locks nest, per add-on and globally. A finish without a start and a handle the host never gave out are
// protocol errors, reported and otherwise ignored.
class AddOns
{
public:
    AddOn_pa add(int sdkVersion, const char* name, const char* version, const char* author);
    bool isRegistered(AddOn_pa addOn) const;
    const std::vector<std::unique_ptr<AddOn_s>>& all() const { return m_addOns; }

    void lockStart(AddOn_pa addOn);
    void lockFinish(AddOn_pa addOn);
    void lockOn() { ++m_globalLockDepth; }
    void lockOff();
    // 0 for a handle the host never gave out.
    int lockDepth(AddOn_pa addOn) const { return isRegistered(addOn) ? addOn->lockDepth : 0; }
    int globalLockDepth() const { return m_globalLockDepth; }

    // For a reset of the host: the add-ons stay registered (a loaded module cannot be unloaded behind its
    // back), and no lock is held any more.
    void dropLocks();

private:
    std::vector<std::unique_ptr<AddOn_s>> m_addOns;
    int m_globalLockDepth = 0;
};

} // namespace vantix::host::detail
