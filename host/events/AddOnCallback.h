// Calls into an add-on. No exception may come back out of a callback into the host; one that does anyway is
// reported as a protocol error naming the callback, and the host goes on as if the callback had answered
// the fallback.
#pragma once

#include "events/ProtocolErrors.h"

#include <exception>
#include <string>
#include <string_view>

namespace vantix::host::detail
{

// what names the callback in the report; it is read only when there is something to report.
template <typename Result, typename Function>
Result CallAddOn(std::string_view what, Result fallback, Function&& function)
{
    try
    {
        return function();
    }
    catch (const std::exception& error)
    {
        ReportProtocolError(std::string(what) + " let an exception out: " + error.what());
    }
    catch (...)
    {
        ReportProtocolError(std::string(what) + " let an exception out");
    }
    return fallback;
}

template <typename Function>
void CallAddOn(std::string_view what, Function&& function)
{
    CallAddOn(what, true,
              [&function]
              {
                  function();
                  return true;
              });
}

} // namespace vantix::host::detail
