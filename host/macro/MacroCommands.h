// The add-on command callbacks: which function replays the $!ADDONCOMMAND lines recorded under an add-on's
// id. Registrations last for the whole process, like the add-ons that made them.
#pragma once

#include "core/HostPart.h"

#include <VtxUtil.h>

#include <map>
#include <string>

namespace vantix::host::detail
{

class Application;

class MacroCommands : public HostPart
{
public:
    // False, and nothing registered, for an empty id, a null callback or an id that already has one: a
    // second add-on must not take over the commands recorded for the first.
    bool add(const std::string& addOnID, MacroCommandCallback_pf callback);
    // Null when no add-on registered under that id (ids are compared exactly).
    MacroCommandCallback_pf find(const std::string& addOnID) const;

    // Registrations last for the whole process, like the add-ons that made them.
    void reset() override {}

private:
    std::map<std::string, MacroCommandCallback_pf> m_callbacks;
};

// The application's registry.
MacroCommands& MacroCommandsOf(Application& app);

} // namespace vantix::host::detail
