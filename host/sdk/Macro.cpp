// Add-on macro commands and host strings.
#include "core/Application.h"
#include "macro/HostStrings.h"
#include "macro/MacroCommands.h"

using vantix::host::detail::Application;
using vantix::host::detail::Call;

extern "C"
{

    Boolean VtxUtilMacroAddCommandCallback(const char* addOnIDString,
                                           MacroCommandCallback_pf macroCommandCallback)
    {
        Application& app = Application::instance();
        app.note(Call::MacroAddCommandCallback);
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
        Application& app = Application::instance();
        app.note(Call::StringAlloc);
        return vantix::host::detail::AllocateHostString(app, maxLength);
    }

    void VtxUtilStringDealloc(char** text)
    {
        Application& app = Application::instance();
        app.note(Call::StringDealloc);
        vantix::host::detail::ReleaseHostString(app, text);
    }

} // extern "C"
