// Reading PLY files, text or binary: the positions of their vertices and the corners of their faces.
#pragma once

#include "scene/Geometry.h"

#include <string_view>

namespace vantix::host::detail
{

// The vertices' x, y and z and the faces' lists of vertex indices ("vertex_indices" or "vertex_index"),
// each face fanned into triangles from its first corner; every other element and property is read past
// and left out. Throws MeshFormatError saying what is wrong: the header (see ReadPlyHeader), data that
// ends early or is not a number, a list longer than the data left, a face of fewer than three corners or
// one that refers to a vertex the file does not have.
SurfaceGeometry ReadPly(std::string_view bytes);

} // namespace vantix::host::detail
