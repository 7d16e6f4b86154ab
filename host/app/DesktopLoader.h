// The desktop module, loaded only when the desktop opens, so that a batch run never loads Qt.
#pragma once

#include "desktop/Desktop.h"

#include <string>

namespace vantix::host::detail
{

class DesktopLoader
{
public:
    // Loads the module at path (it stays loaded until the process ends). Throws std::runtime_error "cannot
    // load the desktop module <path>: <reason>" when it cannot be loaded or lacks an entry point.
    explicit DesktopLoader(const std::string& path);

    // desktop::DesktopUnavailableReason and desktop::RunDesktop, in the module.
    std::string unavailableReason() const { return m_unavailableReason(); }
    int run(const std::string& macroPath, int (*signalReceived)()) const
    {
        return m_run(macroPath.c_str(), signalReceived);
    }

private:
    desktop::UnavailableReasonFunction m_unavailableReason = nullptr;
    desktop::RunFunction m_run = nullptr;
};

} // namespace vantix::host::detail
