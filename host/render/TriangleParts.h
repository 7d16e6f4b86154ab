// A surface's triangles in parts, in the mesh's own order. Meshes are written a region at a time, so a
// part covers a piece of the surface and its nodes are numbered close together; drawing the parts nearest
// the viewer first lets the depth test turn away most of what lies behind them before it is shaded.
#pragma once

#include "scene/Geometry.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vantix::host::detail
{

struct TrianglePart
{
    std::size_t triangleCount = 0;
    // The part's corners are kept in 16 bits, counted from its lowest node, where they fit (half the
    // memory of a big mesh's triangles), else in 32; first is where they start in their array.
    bool shortCorners = false;
    std::size_t firstCorner = 0;
    std::uint32_t lowestNode = 0; // of the part's triangles
    std::uint32_t highestNode = 0;
    std::array<float, 3> centre{}; // of the box around the part's nodes
};

// Triangles per part: enough that setting a part up costs little beside drawing it, few enough that
// the parts nearest the viewer hide the rest.
inline constexpr std::size_t PartTriangles = 4096;

// The mesh's triangles in parts of PartTriangles, and their corners.
struct PackedTriangles
{
    std::vector<TrianglePart> parts;
    std::vector<std::uint16_t> shortCorners;
    std::vector<std::uint32_t> longCorners;
};
PackedTriangles PackTriangles(const SurfaceGeometry& mesh);

// The parts in the order to draw them: nearest the viewer first, as modelToEye (column-major) sees them.
// Fills order, which it reuses.
void FrontToBack(const std::vector<TrianglePart>& parts, const std::array<float, 16>& modelToEye,
                 std::vector<const TrianglePart*>& order);

} // namespace vantix::host::detail
