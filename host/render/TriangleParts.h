// How a surface's triangles lie in the renderer's element buffer: in parts, each drawn in one call (see
// ThrottledDraw), in the mesh's own order. Meshes are written a region at a time, so a part covers a piece
// of the surface and its nodes are numbered close together; drawing the parts nearest the viewer first
// lets the depth test turn away most of what lies behind them before it is shaded.
#pragma once

#include "render/Gl.h"
#include "scene/Geometry.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vantix::host::detail
{

// One part. The nodes of a part usually lie close together, so its indices are kept in 16 bits, counted
// from its first node, where they fit, which halves the renderer's copy of them; in 32 bits where not.
struct TrianglePart
{
    GLintptr offset = 0; // bytes into the element buffer
    GLsizei indexCount = 0;
    GLenum indexType = GL_UNSIGNED_INT;
    GLint baseVertex = 0;
    std::array<float, 3> centre{}; // of the box around the part's nodes
};

// The element buffer's bytes and its parts.
struct PackedTriangles
{
    std::vector<TrianglePart> parts;
    std::vector<std::byte> bytes;
};

// Triangles per part: enough that handing a part over costs little beside setting it up.
inline constexpr std::size_t PartTriangles = 4096;

// The mesh's triangles in parts of PartTriangles.
PackedTriangles PackTriangles(const SurfaceGeometry& mesh);

// The parts in the order to draw them: nearest the viewer first, as modelToEye (column-major) sees them.
// Fills order, which it reuses.
void FrontToBack(const std::vector<TrianglePart>& parts, const std::array<float, 16>& modelToEye,
                 std::vector<const TrianglePart*>& order);

} // namespace vantix::host::detail
