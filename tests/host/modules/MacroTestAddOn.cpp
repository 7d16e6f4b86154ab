// A tiny add-on module for the host's tests: it registers itself and a macro command callback, as a real
// add-on does, keeps every command text it receives for the tests to read (see MacroTestAddOn.h), and
// answers a few commands in ways a test needs:
//   fail <message>    refuses the command with <message> (made with VtxUtilStringAlloc)
//   fail-silently     refuses the command without a message
//   print <text>      writes <text> and a line break on standard output
//   progress <n>      shows a status line checked n times; refuses with "cancelled by the user" when a
//                     check says stop
//   wait-for-cancel   shows a status line and checks it until the user asks to stop, then refuses with
//                     "cancelled by the user" (gives up after a minute)
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

extern "C"
{
    // What the tests read back through dlsym.
    __attribute__((visibility("default"))) int MacroTestAddOnInitCalls = 0;
    __attribute__((visibility("default"))) std::vector<std::string> MacroTestAddOnReceived;
}

namespace
{

const char* const AddOnIDString = "Macro Test Add-On";

Boolean Refuse(const std::string& message, char** errorMessage)
{
    *errorMessage = VtxUtilStringAlloc(static_cast<int>(message.size()), "MacroTestAddOn");
    std::memcpy(*errorMessage, message.c_str(), message.size());
    return FALSE;
}

// Shows a status line checked `checks` times, `pause` apart; false when a check answered that the user
// asked to stop.
bool ShowProgress(const char* text, int checks, std::chrono::milliseconds pause)
{
    VtxUtilStatusStartPercentDone(text, TRUE, TRUE);
    bool goOn = true;
    for (int i = 1; i <= checks && goOn; ++i)
    {
        std::this_thread::sleep_for(pause);
        goOn = VtxUtilStatusCheckPercentDone(100 * i / checks) != FALSE;
    }
    VtxUtilStatusFinishPercentDone();
    return goOn;
}

Boolean RunCommand(char* commandText, char** errorMessage)
{
    const std::string text = commandText ? commandText : "";
    MacroTestAddOnReceived.push_back(text);
    const auto startsWith = [&text](const char* prefix) { return text.rfind(prefix, 0) == 0; };
    if (text == "fail-silently")
        return FALSE;
    if (startsWith("fail "))
        return Refuse(text.substr(5), errorMessage);
    if (startsWith("print "))
        std::printf("%s\n", text.substr(6).c_str());
    using std::chrono::milliseconds;
    if (startsWith("progress ") &&
        !ShowProgress("Testing progress....", std::atoi(text.c_str() + 9), milliseconds(0)))
        return Refuse("cancelled by the user", errorMessage);
    // "quietly": a cancel is the command's normal end, as for an animation shown on screen.
    if (startsWith("wait-for-cancel"))
    {
        const bool cancelled = !ShowProgress("Waiting for Ctrl-C....", 6000, milliseconds(10));
        if (!cancelled || text != "wait-for-cancel quietly")
            return Refuse(cancelled ? "cancelled by the user" : "no cancel came within a minute",
                          errorMessage);
    }
    if (VtxUtilMacroIsRecordingActive())
        VtxUtilMacroRecordExtCommand(AddOnIDString, text.c_str());
    return TRUE;
}

} // namespace

extern "C" __attribute__((visibility("default"))) void InitVtxAddOn113()
{
    ++MacroTestAddOnInitCalls;
    VtxUtilLockOn();
    VtxUtilAddOnRegister(110, AddOnIDString, "1.0", "the host tests");
    VtxUtilMacroAddCommandCallback(AddOnIDString, RunCommand);
    VtxUtilLockOff();
}
