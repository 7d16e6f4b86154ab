#include "render/TriangleParts.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace vantix::host::detail
{

namespace
{

// Grid cells per axis: a power of two with about four cells per part, so that a part spans a cell or two.
std::uint32_t GridSize(std::size_t triangles)
{
    const std::size_t parts = triangles / PartTriangles + 1;
    std::uint32_t size = 1;
    while (size < 32 && std::size_t(size) * size * size < 4 * parts)
        size *= 2;
    return size;
}

std::uint32_t Morton(std::uint32_t x, std::uint32_t y, std::uint32_t z)
{
    std::uint32_t code = 0;
    for (int bit = 0; bit < 5; ++bit)
        code |= ((x >> bit & 1U) << (3 * bit)) | ((y >> bit & 1U) << (3 * bit + 1)) |
                ((z >> bit & 1U) << (3 * bit + 2));
    return code;
}

// The triangles' numbers, grouped by cell (a counting sort: stable, so each cell keeps the mesh's order).
std::vector<std::uint32_t> SpatialOrder(const SurfaceGeometry& mesh)
{
    const std::size_t count = mesh.triangleCount();
    const std::uint32_t grid = GridSize(count);
    const Bounds box = mesh.bounds();
    const auto cellOf = [&](std::uint32_t node)
    {
        std::uint32_t cell[3] = {0, 0, 0};
        for (int axis = 0; axis < 3; ++axis)
        {
            const double low = box.min()[axis], extent = box.max()[axis] - low;
            const double at = extent > 0.0 ? (mesh.positions[3 * node + axis] - low) / extent * grid : 0.0;
            cell[axis] = std::min(grid - 1, static_cast<std::uint32_t>(std::max(0.0, at)));
        }
        return Morton(cell[0], cell[1], cell[2]);
    };
    // Counted, then placed: the cells are worked out twice rather than kept, a number for each triangle.
    std::vector<std::uint32_t> starts(std::size_t(grid) * grid * grid + 1, 0);
    for (std::size_t t = 0; t < count; ++t)
        ++starts[cellOf(mesh.triangles[3 * t]) + 1];
    for (std::size_t c = 1; c < starts.size(); ++c)
        starts[c] += starts[c - 1];
    std::vector<std::uint32_t> order(count);
    for (std::size_t t = 0; t < count; ++t)
        order[starts[cellOf(mesh.triangles[3 * t])]++] = static_cast<std::uint32_t>(t);
    return order;
}

template <typename Index>
GLintptr Append(std::vector<std::byte>& bytes, const std::vector<std::uint32_t>& indices, std::uint32_t base)
{
    // Every part starts on a 4-byte boundary, where any index type may start.
    bytes.resize((bytes.size() + 3) / 4 * 4);
    const std::size_t at = bytes.size();
    bytes.resize(at + indices.size() * sizeof(Index));
    for (std::size_t i = 0; i < indices.size(); ++i)
    {
        const auto index = static_cast<Index>(indices[i] - base);
        std::memcpy(bytes.data() + at + i * sizeof(Index), &index, sizeof(Index));
    }
    return static_cast<GLintptr>(at);
}

} // namespace

PackedTriangles PackTriangles(const SurfaceGeometry& mesh)
{
    const std::vector<std::uint32_t> order = SpatialOrder(mesh);
    PackedTriangles packed;
    packed.bytes.reserve(mesh.triangles.size() * sizeof(std::uint16_t) +
                         4 * (order.size() / PartTriangles + 1));
    std::vector<std::uint32_t> indices;
    for (std::size_t first = 0; first < order.size(); first += PartTriangles)
    {
        indices.clear();
        const std::size_t last = std::min(order.size(), first + PartTriangles);
        for (std::size_t t = first; t < last; ++t)
            indices.insert(indices.end(), mesh.triangles.begin() + 3 * order[t],
                           mesh.triangles.begin() + 3 * order[t] + 3);
        const auto [lowest, highest] = std::minmax_element(indices.begin(), indices.end());
        std::array<float, 3> low, high;
        low.fill(std::numeric_limits<float>::max());
        high.fill(std::numeric_limits<float>::lowest());
        for (const std::uint32_t node : indices)
            for (int axis = 0; axis < 3; ++axis)
            {
                low[axis] = std::min(low[axis], mesh.positions[3 * node + axis]);
                high[axis] = std::max(high[axis], mesh.positions[3 * node + axis]);
            }

        TrianglePart part;
        part.indexCount = static_cast<GLsizei>(indices.size());
        for (int axis = 0; axis < 3; ++axis)
            part.centre[axis] = 0.5f * (low[axis] + high[axis]);
        if (*highest - *lowest <= std::numeric_limits<std::uint16_t>::max() &&
            *lowest <= static_cast<std::uint32_t>(std::numeric_limits<GLint>::max()))
        {
            part.indexType = GL_UNSIGNED_SHORT;
            part.baseVertex = static_cast<GLint>(*lowest);
            part.offset = Append<std::uint16_t>(packed.bytes, indices, *lowest);
        }
        else
            part.offset = Append<std::uint32_t>(packed.bytes, indices, 0);
        packed.parts.push_back(part);
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
