#include "render/TriangleParts.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace vantix::host::detail
{

namespace
{

// The part's type, and where it starts once the parts before it take bytes bytes.
void Place(TrianglePart& part, std::uint32_t lowest, std::uint32_t highest, std::size_t& bytes)
{
    const bool small = highest - lowest <= std::numeric_limits<std::uint16_t>::max() &&
                       lowest <= static_cast<std::uint32_t>(std::numeric_limits<GLint>::max());
    part.indexType = small ? GL_UNSIGNED_SHORT : GL_UNSIGNED_INT;
    part.baseVertex = small ? static_cast<GLint>(lowest) : 0;
    // Every part starts on a 4-byte boundary, where any index type may start.
    bytes = (bytes + 3) / 4 * 4;
    part.offset = static_cast<GLintptr>(bytes);
    bytes +=
        static_cast<std::size_t>(part.indexCount) * (small ? sizeof(std::uint16_t) : sizeof(std::uint32_t));
}

template <typename Index>
void Write(std::byte* at, const std::uint32_t* indices, std::size_t count, std::uint32_t base)
{
    for (std::size_t i = 0; i < count; ++i)
    {
        const auto index = static_cast<Index>(indices[i] - base);
        std::memcpy(at + i * sizeof(Index), &index, sizeof(Index));
    }
}

} // namespace

PackedTriangles PackTriangles(const SurfaceGeometry& mesh)
{
    constexpr std::size_t PartIndices = 3 * PartTriangles;
    const std::vector<std::uint32_t>& triangles = mesh.triangles;
    PackedTriangles packed;
    // The parts first, so that the buffer is made at its size at once.
    std::size_t bytes = 0;
    for (std::size_t first = 0; first < triangles.size(); first += PartIndices)
    {
        const auto begin = triangles.begin() + static_cast<std::ptrdiff_t>(first);
        const auto end =
            triangles.begin() + static_cast<std::ptrdiff_t>(std::min(triangles.size(), first + PartIndices));
        std::uint32_t lowest = std::numeric_limits<std::uint32_t>::max(), highest = 0;
        std::array<float, 3> low, high;
        low.fill(std::numeric_limits<float>::max());
        high.fill(std::numeric_limits<float>::lowest());
        for (auto node = begin; node != end; ++node)
        {
            lowest = std::min(lowest, *node);
            highest = std::max(highest, *node);
            for (int axis = 0; axis < 3; ++axis)
            {
                low[axis] = std::min(low[axis], mesh.positions[3 * std::size_t(*node) + axis]);
                high[axis] = std::max(high[axis], mesh.positions[3 * std::size_t(*node) + axis]);
            }
        }
        TrianglePart part;
        part.indexCount = static_cast<GLsizei>(end - begin);
        for (int axis = 0; axis < 3; ++axis)
            part.centre[axis] = 0.5f * (low[axis] + high[axis]);
        Place(part, lowest, highest, bytes);
        packed.parts.push_back(part);
    }
    packed.bytes.resize(bytes);
    std::size_t first = 0;
    for (const TrianglePart& part : packed.parts)
    {
        std::byte* const at = packed.bytes.data() + part.offset;
        const std::size_t count = static_cast<std::size_t>(part.indexCount);
        if (part.indexType == GL_UNSIGNED_SHORT)
            Write<std::uint16_t>(at, triangles.data() + first, count,
                                 static_cast<std::uint32_t>(part.baseVertex));
        else
            Write<std::uint32_t>(at, triangles.data() + first, count, 0);
        first += count;
    }
    return packed;
}

void FrontToBack(const std::vector<TrianglePart>& parts, const std::array<float, 16>& modelToEye,
                 std::vector<const TrianglePart*>& order)
{
    // The viewer looks down the eye's -z: nearer means a larger eye z.
    const auto eyeZ = [&modelToEye](const TrianglePart* part)
    {
        return modelToEye[2] * part->centre[0] + modelToEye[6] * part->centre[1] +
               modelToEye[10] * part->centre[2];
    };
    order.clear();
    for (const TrianglePart& part : parts)
        order.push_back(&part);
    std::stable_sort(order.begin(), order.end(),
                     [&eyeZ](const TrianglePart* a, const TrianglePart* b) { return eyeZ(a) > eyeZ(b); });
}

} // namespace vantix::host::detail
