// The on-idle queue: calls add-ons ask for when the host is next idle.
#include "core/CallContext.h"
#include "events/HostEvents.h"

using vantix::host::detail::Call;
using vantix::host::detail::CallContext;

extern "C"
{

    Boolean VtxUtilOnIdleQueueAddCallback(OnIdleCallback_pf callback, ArbParam_t clientData)
    {
        const CallContext call(Call::OnIdleQueueAddCallback);
        if (!callback)
        {
            call.refuse("was given no callback");
            return FALSE;
        }
        vantix::host::detail::Events().onIdle.add(callback, clientData);
        return TRUE;
    }

} // extern "C"
