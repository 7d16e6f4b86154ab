// The on-idle queue: calls add-ons ask for when the host is next idle.
#include "core/Application.h"
#include "gui/UserInterface.h"

using vantix::host::detail::Application;
using vantix::host::detail::Call;
using vantix::host::detail::CallContext;
using vantix::host::detail::UserInterfaceOf;

extern "C"
{

    Boolean VtxUtilOnIdleQueueAddCallback(OnIdleCallback_pf callback, ArbParam_t clientData)
    {
        const CallContext call(Application::instance(), Call::OnIdleQueueAddCallback);
        if (!callback)
        {
            call.refuse("was given no callback");
            return FALSE;
        }
        UserInterfaceOf(call.app()).onIdle.add(callback, clientData);
        return TRUE;
    }

} // extern "C"
