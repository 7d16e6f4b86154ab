#include "macro/AddOnModules.h"

#include "core/Application.h"
#include "core/InputExcerpt.h"

#include <algorithm>
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

void AddOnModules::load(const std::string& path)
{
    ModuleHandle module(path, "add-on module");
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
