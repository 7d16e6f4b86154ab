// The user's web browser, for help pages.
#pragma once

#include <string>

namespace vantix::host::detail
{

// Starts a browser on a file or address and does not wait for it: the command in $BROWSER, given the
// target as its last argument, or xdg-open when there is a display ($DISPLAY or $WAYLAND_DISPLAY) and it is
// on the PATH. Answers whether one was started.
bool StartBrowser(const std::string& target);

} // namespace vantix::host::detail
