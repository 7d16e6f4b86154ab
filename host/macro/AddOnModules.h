// The add-on modules loaded into the process, each started once through its entry point InitVtxAddOn113.
#pragma once

#include "core/HostPart.h"

#include <string>
#include <vector>

namespace vantix::host::detail
{

class Application;

// One dlopen handle, closed when it goes. Modules are opened so that closing never unmaps them: the host
// keeps the add-on's callbacks, which must stay callable until the process ends.
class ModuleHandle
{
public:
    // Throws std::runtime_error naming the file and the loader's reason.
    explicit ModuleHandle(const std::string& path);
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

class AddOnModules : public HostPart
{
public:
    // Loads the module at path and calls its InitVtxAddOn113, unless this module was started before (by
    // any path leading to it). Throws std::runtime_error naming the file when it cannot be loaded or has
    // no entry point.
    void load(const std::string& path);

    // The add-ons stay registered across a reset, and so do their modules.
    void reset() override {}

private:
    std::vector<ModuleHandle> m_started;
};

// The application's modules.
AddOnModules& AddOnModulesOf(Application& app);

} // namespace vantix::host::detail
