// Draws the triangles of a big mesh in parts, each handed to the rasteriser as soon as it is set up, with
// only a few parts waiting to be rasterised at a time. The software rasteriser keeps every triangle it
// has set up until it has drawn it (some hundred bytes each) and reuses that memory only later; a mesh of
// millions of triangles drawn at once would hold a copy of them all. In parts, the memory stays that of a
// few parts, and the rasteriser starts on the first part while the next one is set up.
#pragma once

#include "render/Gl.h"
#include "render/TriangleParts.h"

#include <cstddef>
#include <deque>
#include <vector>

namespace vantix::host::detail
{

class ThrottledDraw
{
public:
    // Parts handed over and not yet rasterised, at most.
    static constexpr std::size_t PartsInFlight = 3;

    ThrottledDraw() = default;
    // Forgets the parts still in flight (the rasteriser finishes them all the same).
    ~ThrottledDraw();
    ThrottledDraw(const ThrottledDraw&) = delete;
    ThrottledDraw& operator=(const ThrottledDraw&) = delete;

    // Draws parts of the bound element buffer as triangles, in the order given.
    void triangles(const std::vector<const TrianglePart*>& parts);

private:
    std::deque<GLsync> m_inFlight;
};

} // namespace vantix::host::detail
