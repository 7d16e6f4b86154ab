#include "scene/ImportedMesh.h"

#include "scene/MeshText.h"

#include <dlfcn.h>

#include <filesystem>
#include <new>

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
    // assimp keeps global state: the module stays loaded until the process ends.
    void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!module)
    {
        const char* reason = dlerror(); // names the module
        throw MeshFormatError(std::string("the mesh importer cannot be loaded: ") + (reason ? reason : path));
    }
    void* entry = dlsym(module, ImporterEntry);
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
