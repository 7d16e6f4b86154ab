// The replay side of the add-on's macro commands.
#include "addon/CommandExecuterAbstractFactory.h"
#include "core/KeyFrameError.h"
#include "gui/CallbackShield.h"
#include "macro/MacroManager.h"
#include "platform/HostGuards.h"

#include <VtxUtil.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace vantix::vtxutiltools
{

namespace
{

// Hands message to the host as "Key Frame Animation error:\n<message>" in a host string.
void StoreErrorMessage(const char* message, char** errorMessage) noexcept
{
    HostLock lock;
    // Room for the add-on's name, " error:\n", the message and the terminating null, and one byte more.
    const std::size_t length = std::strlen(message) + 29;
    *errorMessage = VtxUtilStringAlloc(static_cast<int>(length), nullptr);
    if (*errorMessage)
        std::snprintf(*errorMessage, length, "%s error:\n%s", MacroCommandAddOnID, message);
}

} // namespace

void MacroManager::registerCallback()
{
    VtxUtilMacroAddCommandCallback(MacroCommandAddOnID, vantixCallback);
}

Boolean MacroManager::vantixCallback(char* commandText, char** errorMessage)
{
    try
    {
        MacroManager& manager = instance();
        Command_e command{};
        MacroParameterList parameters;
        manager.m_commandManager->parseMacroCommandString(commandText, command, parameters);
        const std::unique_ptr<CommandExecuterAbstract> executer =
            CommandExecuterAbstractFactory::getMacroExecuter(command);
        if (!executer)
            throw KeyFrameError("Unknown macro command: " + std::string(commandText));
        executer->executeCommand(parameters);
        return TRUE;
    }
    catch (...)
    {
        try
        {
            StoreErrorMessage(CurrentExceptionMessage("the macro command callback").c_str(), errorMessage);
        }
        catch (...)
        {
            // No memory for the message itself.
            StoreErrorMessage("Internal error of the Key Frame Animation add-on.", errorMessage);
        }
    }
    return FALSE;
}

} // namespace vantix::vtxutiltools
