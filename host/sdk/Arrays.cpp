// Host arrays: what the host hands to add-ons in arrays, released by them.
#include "core/CallContext.h"
#include "gui/UserInterface.h"

using vantix::host::detail::Call;
using vantix::host::detail::CallContext;
using vantix::host::detail::Release;
using vantix::host::detail::UserInterfaceOf;

extern "C"
{

    void VtxUtilArrayDealloc(void** array)
    {
        const CallContext call(Call::ArrayDealloc);
        if (!array || !*array)
            return; // nothing to release, as with free(NULL)
        if (UserInterfaceOf(call.app()).arrays.release(*array) == Release::Unknown)
        {
            call.refuse("was given an array the host never gave out (or released already)");
            return; // not the host's to touch
        }
        *array = nullptr;
    }

} // extern "C"
