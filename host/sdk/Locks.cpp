// Add-on registration and the host locks.
#include "core/Application.h"

using vantix::host::detail::Application;
using vantix::host::detail::Call;

extern "C"
{

    AddOn_pa VtxUtilAddOnRegister(int sdkVersion, const char* name, const char* version, const char* author)
    {
        Application& app = Application::instance();
        app.note(Call::AddOnRegister);
        return app.registerAddOn(sdkVersion, name, version, author);
    }

    void VtxUtilLockStart(AddOn_pa addOn)
    {
        Application& app = Application::instance();
        app.note(Call::LockStart);
        if (!app.isRegistered(addOn))
        {
            app.reportError("a lock was started with a handle the host never gave out");
            return;
        }
        ++addOn->lockDepth;
    }

    void VtxUtilLockFinish(AddOn_pa addOn)
    {
        Application& app = Application::instance();
        app.note(Call::LockFinish);
        if (!app.isRegistered(addOn))
            app.reportError("a lock was finished with a handle the host never gave out");
        else if (addOn->lockDepth == 0)
            app.reportError("add-on '" + addOn->name + "' finished a lock it had not started");
        else
            --addOn->lockDepth;
    }

    void VtxUtilLockOn(void)
    {
        Application& app = Application::instance();
        app.note(Call::LockOn);
        ++app.m_globalLockDepth;
    }

    void VtxUtilLockOff(void)
    {
        Application& app = Application::instance();
        app.note(Call::LockOff);
        if (app.m_globalLockDepth == 0)
            app.reportError("the global lock was released while it was not held");
        else
            --app.m_globalLockDepth;
    }

} // extern "C"
