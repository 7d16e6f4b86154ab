#include "gui/CallbackShield.h"

#include "core/KeyFrameError.h"

#include <VtxUtil.h>

#include <exception>
#include <new>
#include <string>

namespace vantix::vtxutiltools
{

void ShowCallbackFailure(const char* callback) noexcept
{
    try
    {
        try
        {
            throw;
        }
        catch (const KeyFrameError& error)
        {
            VtxUtilDialogErrMsg(error.what());
        }
        catch (const std::bad_alloc&)
        {
            VtxUtilDialogErrMsg("Key Frame Animation: not enough memory to finish this action.");
        }
        catch (const std::exception& error)
        {
            VtxUtilDialogErrMsg(
                ("Key Frame Animation: internal error in " + std::string(callback) + ": " + error.what())
                    .c_str());
        }
        catch (...)
        {
            VtxUtilDialogErrMsg(
                ("Key Frame Animation: internal error in " + std::string(callback) + ".").c_str());
        }
    }
    catch (...)
    {
        // Building the message failed (memory): say what can be said without allocating.
        VtxUtilDialogErrMsg("Key Frame Animation: internal error.");
    }
}

} // namespace vantix::vtxutiltools
