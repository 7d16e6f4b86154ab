// The options add-ons add to the host's own menus (VtxUtilMenuAddOption). They last for the whole process,
// like the add-ons that added them.
#pragma once

#include "core/CallContext.h"

#include <vantix/host/Gui.h>

#include <string>
#include <vector>

namespace vantix::host::detail
{

struct HostMenuEntry
{
    vantix::host::HostMenuOption option;
    MenuOptionCallback_pf callback = nullptr;
};

class HostMenus
{
public:
    // The host's menus, in the order of its menu bar.
    static const std::vector<std::string>& menuNames();

    // Refused (reported, false) for an unknown menu, a null or empty label, a null callback, or a label the
    // menu has already.
    bool add(const CallContext& call, const char* menu, const char* label, bool sensitive,
             MenuOptionCallback_pf callback);
    bool setSensitivity(const CallContext& call, const char* menu, const char* label, bool sensitive);

    // The option with exactly that label, or with that readable label; null when there is none.
    HostMenuEntry* find(const std::string& menu, const std::string& label);
    const std::vector<HostMenuEntry>& entries() const { return m_entries; }

private:
    std::vector<HostMenuEntry> m_entries;
};

} // namespace vantix::host::detail
