// The desktop program: the main window on the person's display, until they quit.
#pragma once

#include <string>

namespace vantix::host::desktop
{

// Why the desktop cannot open here (no display, and no Qt platform named); empty when it can.
std::string DesktopUnavailableReason();

// Opens the main window and runs until it is closed; a macro given is replayed in it first (its failure
// is told in a message, and the desktop stays open). Add-on modules are loaded before. Answers the
// program's exit status.
int RunDesktop(const std::string& macroPath);

} // namespace vantix::host::desktop
