// The entry points of the desktop module, which the program loads only when the desktop opens.
#include "desktop/Desktop.h"

#include <string>

extern "C" __attribute__((visibility("default"))) const char* VtxDesktopUnavailableReason()
{
    static std::string reason;
    reason = vantix::host::desktop::DesktopUnavailableReason();
    return reason.c_str();
}

extern "C" __attribute__((visibility("default"))) int VtxRunDesktop(const char* macroPath,
                                                                    int (*signalReceived)())
{
    return vantix::host::desktop::RunDesktop(macroPath ? macroPath : "", signalReceived);
}
