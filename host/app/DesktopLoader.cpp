#include "app/DesktopLoader.h"

#include <dlfcn.h>
#include <stdexcept>

namespace vantix::host::detail
{

namespace
{

template <typename Function>
Function Entry(void* module, const char* name, const std::string& path)
{
    void* entry = dlsym(module, name);
    if (!entry)
        throw std::runtime_error("cannot load the desktop module " + path + ": it has no " + name);
    return reinterpret_cast<Function>(entry);
}

} // namespace

DesktopLoader::DesktopLoader(const std::string& path)
{
    // Qt keeps global state for the whole process: the module is never unloaded.
    void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!module)
    {
        const char* reason = dlerror();
        throw std::runtime_error("cannot load the desktop module " + path + ": " +
                                 (reason ? reason : "unknown reason"));
    }
    m_unavailableReason =
        Entry<desktop::UnavailableReasonFunction>(module, desktop::UnavailableReasonEntry, path);
    m_run = Entry<desktop::RunFunction>(module, desktop::RunEntry, path);
}

} // namespace vantix::host::detail
