#include "gui/CallbackShield.h"

#include "core/KeyFrameError.h"

#include <VtxUtil.h>

#include <exception>
#include <new>

namespace vantix::vtxutiltools
{

std::string CurrentExceptionMessage(const std::string& where)
{
    const std::string fault = "Internal error of the Key Frame Animation add-on in " + where;
    try
    {
        throw;
    }
    catch (const KeyFrameError& error)
    {
        return error.what();
    }
    catch (const std::bad_alloc&)
    {
        return fault + ": not enough memory.";
    }
    catch (const std::exception& error)
    {
        return fault + ": " + error.what();
    }
    catch (...)
    {
        return fault + ".";
    }
}

void ShowCallbackFailure(const char* callback) noexcept
{
    try
    {
        VtxUtilDialogErrMsg(CurrentExceptionMessage(callback).c_str());
    }
    catch (...)
    {
        // The message could not be made (memory): say what can be said without allocating.
        VtxUtilDialogErrMsg("Internal error of the Key Frame Animation add-on.");
    }
}

} // namespace vantix::vtxutiltools
