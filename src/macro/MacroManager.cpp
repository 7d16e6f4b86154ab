#include "macro/MacroManager.h"

#include "platform/HostGuards.h"

namespace vantix::vtxutiltools
{

MacroManager& MacroManager::instance()
{
    static MacroManager manager;
    return manager;
}

MacroManager::MacroManager() : m_commandManager(std::make_unique<AddOnMacroCommandManager>(" ")) {}

void MacroManager::recordCommand(Command_e command, const MacroParameterList& parameters)
{
    HostLock lock;
    m_commandManager->recordMacroCommand(command, parameters, false);
}

} // namespace vantix::vtxutiltools
