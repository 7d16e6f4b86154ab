#include "core/ModuleHandle.h"

#include "core/InputExcerpt.h"

#include <dlfcn.h>
#include <stdexcept>
#include <utility>

namespace vantix::host::detail
{

ModuleHandle::ModuleHandle(const std::string& path, const std::string& kind)
{
    dlerror(); // forget an older failure, so that the reason below is this one's
    m_handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!m_handle)
    {
        const char* error = dlerror();
        std::string reason = error ? error : "unknown reason";
        // The loader names the file itself; once is enough.
        if (reason.compare(0, path.size() + 2, path + ": ") == 0)
            reason.erase(0, path.size() + 2);
        // The loader's reason may name other files and symbols: room for them, not for an endless path.
        throw std::runtime_error("cannot load the " + kind + " " + InputExcerpt(path) + ": " +
                                 InputExcerpt(reason, 2 * InputExcerptLength));
    }
}

ModuleHandle::ModuleHandle(ModuleHandle&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr))
{
}

ModuleHandle& ModuleHandle::operator=(ModuleHandle&& other) noexcept
{
    if (this != &other)
    {
        if (m_handle)
            dlclose(m_handle);
        m_handle = std::exchange(other.m_handle, nullptr);
    }
    return *this;
}

ModuleHandle::~ModuleHandle()
{
    if (m_handle)
        dlclose(m_handle); // only drops the reference: the module was opened never to be unmapped
}

void* ModuleHandle::symbol(const char* name) const
{
    return dlsym(m_handle, name);
}

} // namespace vantix::host::detail
