// Draws the triangles of a big mesh in parts, each handed to the rasteriser as soon as it is set up, with
// only a few parts waiting to be rasterised at a time. The software rasteriser keeps every triangle it
// has set up until it has drawn it (some hundred bytes each) and reuses that memory only later; a mesh of
// millions of triangles drawn at once would hold a copy of them all. In parts, the memory stays that of a
// few parts, and the rasteriser starts on the first part while the next one is set up.
#pragma once

#include "render/Gl.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

namespace vantix::host::detail
{

// One part of a mesh's triangles in its element buffer. The nodes of a part usually lie close together
// (meshes are written a region at a time), so its indices are kept in 16 bits, counted from its first
// node, where they fit, which halves the renderer's copy of them; in 32 bits where they do not.
struct TrianglePart
{
    GLintptr offset = 0; // bytes into the element buffer
    GLsizei indexCount = 0;
    GLenum indexType = GL_UNSIGNED_INT;
    GLint baseVertex = 0;
};

// The element buffer of triangles (three node indices each) drawn in parts: the parts and their bytes.
struct PackedTriangles
{
    std::vector<TrianglePart> parts;
    std::vector<std::byte> bytes;
};

PackedTriangles PackTriangles(const std::vector<std::uint32_t>& triangles);

class ThrottledDraw
{
public:
    // Triangles per part: enough that handing a part over costs little beside setting it up.
    static constexpr GLsizei PartTriangles = 4096;
    // Parts handed over and not yet rasterised, at most.
    static constexpr std::size_t PartsInFlight = 3;

    ThrottledDraw() = default;
    // Forgets the parts still in flight (the rasteriser finishes them all the same).
    ~ThrottledDraw();
    ThrottledDraw(const ThrottledDraw&) = delete;
    ThrottledDraw& operator=(const ThrottledDraw&) = delete;

    // Draws the parts of the bound element buffer as triangles.
    void triangles(const std::vector<TrianglePart>& parts);

private:
    std::deque<GLsync> m_inFlight;
};

} // namespace vantix::host::detail
