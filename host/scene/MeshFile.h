// Reading surface meshes from files (STL, OBJ, PLY, and whatever else the mesh importer reads).
#pragma once

#include "scene/DataSet.h"

#include <memory>
#include <string>

namespace vantix::host::detail
{

// One static surface zone named after the file: every mesh of the file placed by its node transforms,
// merged and triangulated (points and lines left out), with the file's normals or smooth ones computed
// with creases kept, and the height (z) as the scalar so that the surface is coloured. Throws
// std::runtime_error "cannot read mesh file '<path>': <reason>".
std::shared_ptr<DataSet> ReadMeshFile(const std::string& path);

} // namespace vantix::host::detail
