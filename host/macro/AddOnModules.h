// The add-on modules loaded into the process, each started once through its entry point InitVtxAddOn113.
#pragma once

#include "core/HostPart.h"
#include "core/ModuleHandle.h"

#include <string>
#include <vector>

namespace vantix::host::detail
{

class Application;

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
