// Add-on registration and the host locks.
#include "core/Application.h"
#include "core/CallContext.h"

using vantix::host::detail::Call;
using vantix::host::detail::Enter;

extern "C"
{

    AddOn_pa VtxUtilAddOnRegister(int sdkVersion, const char* name, const char* version, const char* author)
    {
        return Enter(Call::AddOnRegister).addOns().add(sdkVersion, name, version, author);
    }

    void VtxUtilLockStart(AddOn_pa addOn)
    {
        Enter(Call::LockStart).addOns().lockStart(addOn);
    }

    void VtxUtilLockFinish(AddOn_pa addOn)
    {
        Enter(Call::LockFinish).addOns().lockFinish(addOn);
    }

    void VtxUtilLockOn(void)
    {
        Enter(Call::LockOn).addOns().lockOn();
    }

    void VtxUtilLockOff(void)
    {
        Enter(Call::LockOff).addOns().lockOff();
    }

} // extern "C"
