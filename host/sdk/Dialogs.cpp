// The host's messages, questions, file dialogs and help pages.
#include "core/Application.h"
#include "core/CallContext.h"
#include "gui/UserInterface.h"

#include <cstring>

using vantix::host::detail::Application;
using vantix::host::detail::Call;
using vantix::host::detail::CallContext;
using vantix::host::detail::UserInterfaceOf;

namespace
{

std::string Text(const char* text)
{
    return text ? text : "";
}

} // namespace

extern "C"
{

    void VtxUtilDialogErrMsg(const char* message)
    {
        const CallContext call(Call::DialogErrMsg);
        if (!message)
        {
            call.refuse("was given no message (null)");
            return;
        }
        UserInterfaceOf(call.app()).prompts.errorMessage(message);
    }

    Boolean VtxUtilDialogMessageBox(const char* message, MessageBoxType_e type)
    {
        const CallContext call(Call::DialogMessageBox);
        if (!message)
        {
            call.refuse("was given no message (null)");
            return FALSE;
        }
        if (type < MessageBoxType_Error || type > MessageBoxType_YesNo)
        {
            call.refuse("was given the unknown message box type " + std::to_string(type));
            return FALSE;
        }
        return UserInterfaceOf(call.app()).prompts.messageBox(message, type) ? TRUE : FALSE;
    }

    Boolean VtxUtilDialogGetFileName(SelectFileOption_e option, char** fileName, const char* fileTypeName,
                                     const char* defaultFileName, const char* defaultFilter)
    {
        const CallContext call(Call::DialogGetFileName);
        Application& app = call.app();
        if (!fileName)
        {
            call.refuse("was given nowhere to put the file name");
            return FALSE;
        }
        *fileName = nullptr;
        if (option != SelectFileOption_ReadSingleFile && option != SelectFileOption_WriteFile)
        {
            call.refuse("was given the unknown file dialog option " + std::to_string(option));
            return FALSE;
        }
        const std::optional<std::string> chosen = UserInterfaceOf(app).prompts.fileName(
            option, Text(fileTypeName), Text(defaultFileName), Text(defaultFilter));
        if (!chosen)
            return FALSE;
        char* copy = app.strings().allocate(static_cast<int>(chosen->size()));
        if (!copy)
            return FALSE; // out of memory: as good as no name
        std::memcpy(copy, chosen->c_str(), chosen->size() + 1);
        *fileName = copy;
        return TRUE;
    }

    Boolean VtxUtilHelp(const char* helpFile, Boolean isURL, int reserved)
    {
        (void)reserved;
        const CallContext call(Call::Help);
        if (!helpFile || !*helpFile)
        {
            call.refuse("was given no help page");
            return FALSE;
        }
        return UserInterfaceOf(call.app()).help.show(helpFile, isURL != FALSE) ? TRUE : FALSE;
    }

} // extern "C"
