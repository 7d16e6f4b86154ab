// Calls into an add-on. No exception may come back out of a callback into the host; one that does anyway is
// reported as a protocol error naming the callback, and the host goes on as if the callback had answered
// the fallback.
#pragma once

#include "core/Application.h"

#include <exception>
#include <string>

namespace vantix::host::detail
{

template <typename Result, typename Function>
Result CallAddOn(Application& app, const std::string& what, Result fallback, Function&& function)
{
    try
    {
        return function();
    }
    catch (const std::exception& error)
    {
        app.reportError(what + " let an exception out: " + error.what());
    }
    catch (...)
    {
        app.reportError(what + " let an exception out");
    }
    return fallback;
}

template <typename Function>
void CallAddOn(Application& app, const std::string& what, Function&& function)
{
    CallAddOn(app, what, true,
              [&function]
              {
                  function();
                  return true;
              });
}

} // namespace vantix::host::detail
