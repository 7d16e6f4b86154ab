// The add-on command callbacks: which function replays the $!ADDONCOMMAND lines recorded under an add-on's
// id. Registrations last for the whole process, like the add-ons that made them.
#pragma once

#include <VtxUtil.h>

#include <map>
#include <string>

namespace vantix::host::detail
{

class Application;

struct MacroCommands
{
    // False, and nothing registered, for an empty id, a null callback or an id that already has one: a
    // second add-on must not take over the commands recorded for the first.
    bool add(const std::string& addOnID, MacroCommandCallback_pf callback);
    // Null when no add-on registered under that id (ids are compared exactly).
    MacroCommandCallback_pf find(const std::string& addOnID) const;

private:
    std::map<std::string, MacroCommandCallback_pf> m_callbacks;
};

// The application's registry, made on first use.
MacroCommands& MacroCommandsOf(Application& app);

} // namespace vantix::host::detail
