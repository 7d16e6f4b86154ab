// The desktop program: the main window on the person's display, until they quit.
#pragma once

#include <string>

namespace vantix::host::desktop
{

// Why the desktop cannot open here (no display, and no Qt platform named); empty when it can.
std::string DesktopUnavailableReason();

// Opens the main window and runs until it is closed, or until signalReceived (asked a few times a second)
// answers a signal; a macro given is replayed in it first (its failure is told in a message, and the
// desktop stays open). Add-on modules are loaded before. Answers the program's exit status.
int RunDesktop(const std::string& macroPath, int (*signalReceived)());

// The desktop is also built as a module of its own (libvtxdesktop.so), which the program loads only when
// the desktop opens, so that a batch run never loads Qt. Its two entry points, in C, are the functions
// above: the reason (an empty text when the desktop can open; the text stays valid until the next call)
// and the run.
inline constexpr const char* UnavailableReasonEntry = "VtxDesktopUnavailableReason";
inline constexpr const char* RunEntry = "VtxRunDesktop";
using UnavailableReasonFunction = const char* (*)();
using RunFunction = int (*)(const char* macroPath, int (*signalReceived)());

} // namespace vantix::host::desktop
