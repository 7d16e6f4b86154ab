// Calls into an add-on. No exception may come back out of a callback into the host; one that does anyway is
// reported as a protocol error naming the callback, and the host goes on as if the callback had answered
// the fallback.
#pragma once

#include "events/ProtocolErrors.h"

#include <exception>
#include <string>

namespace vantix::host::detail
{

template <typename Result, typename Function>
Result CallAddOn(const std::string& what, Result fallback, Function&& function)
{
    try
    {
        return function();
    }
    catch (const std::exception& error)
    {
        ReportProtocolError(what + " let an exception out: " + error.what());
    }
    catch (...)
    {
        ReportProtocolError(what + " let an exception out");
    }
    return fallback;
}

template <typename Function>
void CallAddOn(const std::string& what, Function&& function)
{
    CallAddOn(what, true,
              [&function]
              {
                  function();
                  return true;
              });
}

} // namespace vantix::host::detail
