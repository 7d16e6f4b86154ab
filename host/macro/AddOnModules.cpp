#include "macro/AddOnModules.h"

#include "core/Application.h"
#include "core/InputExcerpt.h"

#include <algorithm>
#include <dlfcn.h>
#include <stdexcept>
#include <utility>

namespace vantix::host::detail
{

namespace
{

// The entry point every add-on module exports under its plain name.
const char* const EntryPointName = "InitVtxAddOn113";
using EntryPoint = void (*)();

} // namespace

ModuleHandle::ModuleHandle(const std::string& path)
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
        throw std::runtime_error("cannot load the add-on module " + InputExcerpt(path) + ": " +
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

void AddOnModules::load(const std::string& path)
{
    ModuleHandle module(path);
    // dlopen hands out the same handle for a module that is loaded already, whatever the path.
    const bool started =
        std::any_of(m_started.begin(), m_started.end(),
                    [&module](const ModuleHandle& known) { return known.get() == module.get(); });
    if (started)
        return;
    const auto entryPoint = reinterpret_cast<EntryPoint>(module.symbol(EntryPointName));
    if (!entryPoint)
        throw std::runtime_error("cannot load the add-on module " + InputExcerpt(path) +
                                 ": it has no entry point " + EntryPointName);
    m_started.push_back(std::move(module));
    entryPoint();
}

AddOnModules& AddOnModulesOf(Application& app)
{
    return app.part<AddOnModules>();
}

} // namespace vantix::host::detail
