// Shared modules the host loads while it runs: add-ons, the mesh importer.
#pragma once

#include <string>

namespace vantix::host::detail
{

// One dlopen handle, closed when it goes. Modules are opened so that closing never unmaps them: the host
// keeps callbacks into them, and the libraries they bring keep global state, until the process ends.
class ModuleHandle
{
public:
    // Throws std::runtime_error "cannot load the <kind> <path>: <the loader's reason>".
    ModuleHandle(const std::string& path, const std::string& kind);
    ModuleHandle(ModuleHandle&& other) noexcept;
    ModuleHandle& operator=(ModuleHandle&& other) noexcept;
    ModuleHandle(const ModuleHandle&) = delete;
    ModuleHandle& operator=(const ModuleHandle&) = delete;
    ~ModuleHandle();

    void* get() const { return m_handle; }
    // The address of a plain (C) symbol of the module; null when it has none.
    void* symbol(const char* name) const;

private:
    void* m_handle = nullptr;
};

} // namespace vantix::host::detail
