// A tiny add-on module for the host's tests: it registers itself and a macro command callback, as a real
// add-on does, keeps every command text it receives for the tests to read, and answers a few commands in
// ways a test needs:
//   fail <message>        refuses the command with <message> (made with VtxUtilStringAlloc)
//   fail-silently         refuses the command without a message
//   print <text>          writes <text> and a line break on standard output
//   progress <n>          shows a status line checked n times; refuses with "cancelled" when a check says
//   stop wait-for-cancel       shows a status line and checks it until the user asks to stop, then refuses
//   with
//                         "cancelled by the user" (gives up after a minute)
// Every other text is accepted as it is. An accepted command is recorded again while the host records a
// macro, as the real add-on records its own commands.
#include <VtxUtil.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

namespace
{

const char* const AddOnIDString = "Macro Test Add-On";

int InitCalls = 0;
std::vector<std::string> Received;

Boolean Refuse(const std::string& message, char** errorMessage)
{
    *errorMessage = VtxUtilStringAlloc(static_cast<int>(message.size()), "MacroTestAddOn");
    if (*errorMessage)
        std::memcpy(*errorMessage, message.c_str(), message.size());
    return FALSE;
}

bool StartsWith(const std::string& text, const char* prefix)
{
    return text.compare(0, std::strlen(prefix), prefix) == 0;
}

// Returns false when a check answered that the user asked to stop.
bool ShowProgress(int checks)
{
    VtxUtilStatusStartPercentDone("Testing progress....", TRUE, TRUE);
    bool goOn = true;
    for (int i = 1; i <= checks && goOn; ++i)
        goOn = VtxUtilStatusCheckPercentDone(100 * i / checks) != FALSE;
    VtxUtilStatusFinishPercentDone();
    return goOn;
}

bool WaitForCancel()
{
    VtxUtilStatusStartPercentDone("Waiting for Ctrl-C....", TRUE, TRUE);
    bool cancelled = false;
    for (int i = 0; i < 6000 && !cancelled; ++i)
    {
        cancelled = VtxUtilStatusCheckPercentDone(i % 101) == FALSE;
        if (!cancelled)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    VtxUtilStatusFinishPercentDone();
    return cancelled;
}

Boolean RunCommand(char* commandText, char** errorMessage)
{
    const std::string text = commandText ? commandText : "";
    Received.push_back(text);
    if (StartsWith(text, "fail-silently"))
        return FALSE;
    if (StartsWith(text, "fail "))
        return Refuse(text.substr(5), errorMessage);
    if (StartsWith(text, "print "))
    {
        std::printf("%s\n", text.substr(6).c_str());
        std::fflush(stdout);
    }
    if (StartsWith(text, "progress "))
    {
        const int checks = std::atoi(text.c_str() + 9);
        if (checks < 1)
            return Refuse("progress needs a count of checks", errorMessage);
        if (!ShowProgress(checks))
            return Refuse("cancelled", errorMessage);
    }
    if (text == "wait-for-cancel")
        return Refuse(WaitForCancel() ? "cancelled by the user" : "no cancel came within a minute",
                      errorMessage);
    if (VtxUtilMacroIsRecordingActive())
        VtxUtilMacroRecordExtCommand(AddOnIDString, text.c_str());
    return TRUE;
}

} // namespace

extern "C"
{

    __attribute__((visibility("default"))) void InitVtxAddOn113()
    {
        ++InitCalls;
        VtxUtilLockOn();
        VtxUtilAddOnRegister(110, AddOnIDString, "1.0", "the host tests");
        VtxUtilMacroAddCommandCallback(AddOnIDString, RunCommand);
        VtxUtilLockOff();
    }

    // What the tests read back through dlsym.
    __attribute__((visibility("default"))) int MacroTestAddOnInitCalls()
    {
        return InitCalls;
    }

    __attribute__((visibility("default"))) int MacroTestAddOnReceivedCount()
    {
        return static_cast<int>(Received.size());
    }

    __attribute__((visibility("default"))) const char* MacroTestAddOnReceived(int index)
    {
        return index >= 0 && index < static_cast<int>(Received.size()) ? Received[index].c_str() : nullptr;
    }

    __attribute__((visibility("default"))) void MacroTestAddOnForget()
    {
        Received.clear();
    }

} // extern "C"
