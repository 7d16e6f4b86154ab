#include "macro/MacroCommands.h"

#include "core/Application.h"

namespace vantix::host::detail
{

bool MacroCommands::add(const std::string& addOnID, MacroCommandCallback_pf callback)
{
    if (addOnID.empty() || !callback)
        return false;
    return m_callbacks.emplace(addOnID, callback).second;
}

MacroCommandCallback_pf MacroCommands::find(const std::string& addOnID) const
{
    const auto found = m_callbacks.find(addOnID);
    return found == m_callbacks.end() ? nullptr : found->second;
}

MacroCommands& MacroCommandsOf(Application& app)
{
    return app.part<MacroCommands>();
}

} // namespace vantix::host::detail
