// Reading the mesh formats the host has no reader of its own for, through the mesh importer (assimp),
// which lives in a module of its own (libvtximporter.so, beside the scene library) loaded the first time
// such a file is read.
#pragma once

#include "scene/Geometry.h"

#include <string>

namespace vantix::host::detail
{

// The triangles of every mesh of the file, placed by its node transforms, merged and triangulated (points
// and lines left out), without normals. Throws MeshFormatError for a format the importer does not know,
// for a file it cannot make a scene of, and when the module cannot be loaded; std::bad_alloc when memory
// runs out.
SurfaceGeometry ReadWithImporter(const std::string& path);

// The module's entry point: reads the file at path into mesh and answers one of the ImportResult values,
// with the reason in `reason` for ImportFailed.
inline constexpr const char* ImporterModule = "libvtximporter.so";
inline constexpr const char* ImporterEntry = "VtxImportMesh";
enum ImportResult
{
    ImportRead = 0,
    ImportFailed = 1,
    ImportOutOfMemory = 2
};
using ImporterFunction = int (*)(const char* path, SurfaceGeometry* mesh, std::string* reason);

} // namespace vantix::host::detail
