// Reading surface meshes from files (STL, OBJ, PLY, and whatever else the mesh importer reads).
#pragma once

#include "scene/DataSet.h"

#include <memory>
#include <string>

namespace vantix::host::detail
{

struct LoadedMesh
{
    std::shared_ptr<DataSet> dataSet;
    // What the user is told about triangles left out because they cannot be drawn; empty when none were.
    std::string note;
};

// One static surface zone named after the file: every mesh of the file merged and triangulated (points and
// lines left out), with smooth normals whose creases are kept, and the height (z) as the scalar so that the
// surface is coloured. STL, OBJ and PLY are read by the host's own readers, other formats by the mesh
// importer. Triangles with a corner the renderer cannot draw (a coordinate that is not finite or is beyond
// LargestCoordinate) are left out and said so in the note, so that the view is fitted to the rest.
// Throws std::runtime_error "cannot read mesh file '<path>': <reason>" and nothing else, also for a file
// with nothing drawable left.
LoadedMesh ReadMeshFile(const std::string& path);

} // namespace vantix::host::detail
