// Reading Wavefront OBJ files: their vertices ("v x y z") and faces ("f 1 2 3 ...").
#pragma once

#include "scene/Geometry.h"

#include <string_view>

namespace vantix::host::detail
{

// The vertices and the faces of the file, each face fanned into triangles from its first corner. A corner
// is "v", "v/vt", "v//vn" or "v/vt/vn" with v counted from 1, or from the end of the vertices so far when
// negative; only its vertex is used. Every other line (texture coordinates, normals, groups, materials,
// lines, points, comments) is left out. Throws MeshFormatError naming the line of a vertex without three
// numbers, a face of fewer than three corners, or a corner of a vertex that does not come before it.
SurfaceGeometry ReadObj(std::string_view text);

} // namespace vantix::host::detail
