// Add-on macro commands and host strings.
#include "core/Application.h"
#include "core/CallContext.h"
#include "macro/MacroCommands.h"

using vantix::host::detail::Application;
using vantix::host::detail::Call;
using vantix::host::detail::Enter;

extern "C"
{

    Boolean VtxUtilMacroAddCommandCallback(const char* addOnIDString,
                                           MacroCommandCallback_pf macroCommandCallback)
    {
        Application& app = Enter(Call::MacroAddCommandCallback);
        if (!addOnIDString)
            return FALSE;
        try
        {
            return vantix::host::detail::MacroCommandsOf(app).add(addOnIDString, macroCommandCallback)
                       ? TRUE
                       : FALSE;
        }
        catch (const std::exception&)
        {
            return FALSE; // out of memory: not registered
        }
    }

    // debugInfo only labels the allocation for the add-on's own debugging; this host has no use for it.
    char* VtxUtilStringAlloc(int maxLength, const char* debugInfo)
    {
        (void)debugInfo;
        return Enter(Call::StringAlloc).strings().allocate(maxLength);
    }

    void VtxUtilStringDealloc(char** text)
    {
        Enter(Call::StringDealloc).strings().release(text);
    }

} // extern "C"
