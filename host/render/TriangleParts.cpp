#include "render/TriangleParts.h"

#include <algorithm>
#include <limits>

namespace vantix::host::detail
{

PackedTriangles PackTriangles(const SurfaceGeometry& mesh)
{
    PackedTriangles packed;
    const std::size_t triangles = mesh.triangleCount();
    // The parts first, so that each array is made at its size at once.
    std::size_t shortCount = 0, longCount = 0;
    for (std::size_t first = 0; first < triangles; first += PartTriangles)
    {
        TrianglePart part;
        part.triangleCount = std::min(PartTriangles, triangles - first);
        part.lowestNode = std::numeric_limits<std::uint32_t>::max();
        std::array<float, 3> low, high;
        low.fill(std::numeric_limits<float>::max());
        high.fill(std::numeric_limits<float>::lowest());
        for (std::size_t i = 3 * first; i < 3 * (first + part.triangleCount); ++i)
        {
            const std::uint32_t node = mesh.triangles[i];
            part.lowestNode = std::min(part.lowestNode, node);
            part.highestNode = std::max(part.highestNode, node);
            for (int axis = 0; axis < 3; ++axis)
            {
                low[axis] = std::min(low[axis], mesh.positions[3 * std::size_t(node) + axis]);
                high[axis] = std::max(high[axis], mesh.positions[3 * std::size_t(node) + axis]);
            }
        }
        for (int axis = 0; axis < 3; ++axis)
            part.centre[axis] = 0.5f * (low[axis] + high[axis]);
        part.shortCorners = part.highestNode - part.lowestNode <= std::numeric_limits<std::uint16_t>::max();
        std::size_t& count = part.shortCorners ? shortCount : longCount;
        part.firstCorner = count;
        count += 3 * part.triangleCount;
        packed.parts.push_back(part);
    }
    packed.shortCorners.reserve(shortCount);
    packed.longCorners.reserve(longCount);
    std::size_t corner = 0;
    for (const TrianglePart& part : packed.parts)
        for (const std::size_t end = corner + 3 * part.triangleCount; corner < end; ++corner)
        {
            if (part.shortCorners)
                packed.shortCorners.push_back(
                    static_cast<std::uint16_t>(mesh.triangles[corner] - part.lowestNode));
            else
                packed.longCorners.push_back(mesh.triangles[corner]);
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
