// Normals for a surface read from a file: smooth across gentle bends, sharp along creases.
#pragma once

#include "scene/Geometry.h"

namespace vantix::host::detail
{

// The surface of the triangles as one mesh of shared nodes with normals. Corners at the same position are
// joined; around each position the faces are gathered into groups, a face joining the first group whose
// first face turns less than the crease angle from its own, and each group gets its own node with the
// area-weighted mean normal of its faces (so that a box keeps its edges and a sphere is smooth). Positions
// that no triangle uses are left out. Takes the triangles' positions and indices, and lets go of the indices
// as soon as it has joined the corners (a big mesh is not held twice over); its normals are unused.
SurfaceGeometry WithCreasedNormals(SurfaceGeometry triangles, double creaseDegrees);

} // namespace vantix::host::detail
