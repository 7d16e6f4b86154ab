// Reading STL files: binary (an 80-byte header, a triangle count, 50 bytes a triangle) and text
// ("solid ... facet normal ... outer loop ... vertex x y z ... endloop endfacet ... endsolid").
#pragma once

#include "scene/Geometry.h"

#include <string_view>

namespace vantix::host::detail
{

// The triangles of the file, three nodes each, as the file gives them (the facet normals are left out:
// the loader makes its own). A file is read as binary when its size is exactly what its count says, or
// when it does not begin like text STL; a binary file must hold the triangles its header claims (bytes
// after them are ignored). Throws MeshFormatError saying what is wrong, and where in text files.
SurfaceGeometry ReadStl(std::string_view bytes);

} // namespace vantix::host::detail
