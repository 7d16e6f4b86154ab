// Misuse of the host noticed in what add-ons do (an unbalanced lock finish, a status line finished twice,
// an exception out of a callback, ...): each is printed on standard error, as "vantix: <what>", and kept for
// the tests, which fail on any.
#pragma once

#include <string>

namespace vantix::host::detail
{

void ReportProtocolError(std::string error);

} // namespace vantix::host::detail
