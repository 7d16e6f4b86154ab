#include "scene/ImportedMesh.h"

#include "core/ModuleHandle.h"
#include "scene/MeshText.h"

#include <dlfcn.h>

#include <filesystem>
#include <new>
#include <optional>
#include <stdexcept>

namespace vantix::host::detail
{

namespace
{

// The folder of the library this code is in, where the module is built and installed beside it.
std::filesystem::path LibraryFolder()
{
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&ReadWithImporter), &info) == 0 || !info.dli_fname)
        return {};
    return std::filesystem::path(info.dli_fname).parent_path();
}

ImporterFunction LoadImporter()
{
    const std::string path = (LibraryFolder() / ImporterModule).string();
    // assimp keeps global state: the module stays loaded until the process ends, after the handle goes.
    std::optional<ModuleHandle> module;
    try
    {
        module.emplace(path, "mesh importer");
    }
    catch (const std::runtime_error& error)
    {
        throw MeshFormatError(error.what());
    }
    void* entry = module->symbol(ImporterEntry);
    if (!entry)
        throw MeshFormatError("the mesh importer " + path + " has no " + ImporterEntry);
    return reinterpret_cast<ImporterFunction>(entry);
}

} // namespace

SurfaceGeometry ReadWithImporter(const std::string& path)
{
    static const ImporterFunction import = LoadImporter();
    SurfaceGeometry mesh;
    std::string reason;
    switch (import(path.c_str(), &mesh, &reason))
    {
    case ImportRead:
        return mesh;
    case ImportOutOfMemory:
        throw std::bad_alloc();
    default:
        throw MeshFormatError(reason);
    }
}

} // namespace vantix::host::detail
