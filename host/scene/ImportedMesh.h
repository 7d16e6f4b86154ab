// Reading the mesh formats the host has no reader of its own for, through the mesh importer (assimp).
#pragma once

#include "scene/Geometry.h"

#include <string>

namespace vantix::host::detail
{

// The triangles of every mesh of the file, placed by its node transforms, merged and triangulated (points
// and lines left out), without normals. Throws MeshFormatError for a format the importer does not know
// and for a file it cannot make a scene of.
SurfaceGeometry ReadWithImporter(const std::string& path);

} // namespace vantix::host::detail
