#include "scene/CreasedNormals.h"

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <stdexcept>

namespace vantix::host::detail
{

namespace
{

using Normal = std::array<double, 3>;

std::array<std::uint32_t, 3> BitsOf(const float* position)
{
    std::array<std::uint32_t, 3> bits{};
    for (int i = 0; i < 3; ++i)
    {
        const float value = position[i] == 0.0f ? 0.0f : position[i]; // -0 and 0 are one place
        std::memcpy(&bits[i], &value, sizeof value);
    }
    return bits;
}

std::size_t HashOf(const std::array<std::uint32_t, 3>& bits)
{
    return (std::size_t(bits[0]) * 73856093u) ^ (std::size_t(bits[1]) * 19349663u) ^
           (std::size_t(bits[2]) * 83492791u);
}

// Each corner's position, numbered in the order first used; points gets the node of each number. An
// open-addressed table of numbers, twice as large as there are nodes, finds equal positions: a few bytes
// a node, where a node-based map takes tens (meshes of millions of triangles are loaded here).
std::vector<std::uint32_t> JoinedPositions(const SurfaceGeometry& mesh, std::vector<std::uint32_t>& points)
{
    constexpr std::uint32_t Free = 0xffffffffu;
    std::size_t capacity = 16;
    while (capacity < 2 * mesh.nodeCount())
        capacity *= 2;
    std::vector<std::uint32_t> table(capacity, Free);
    std::vector<std::uint32_t> corners;
    corners.reserve(mesh.triangles.size());
    for (const std::uint32_t node : mesh.triangles)
    {
        const auto bits = BitsOf(&mesh.positions[3 * std::size_t(node)]);
        std::size_t slot = HashOf(bits) & (capacity - 1);
        while (table[slot] != Free && BitsOf(&mesh.positions[3 * std::size_t(points[table[slot]])]) != bits)
            slot = (slot + 1) & (capacity - 1);
        if (table[slot] == Free)
        {
            table[slot] = std::uint32_t(points.size());
            points.push_back(node);
        }
        corners.push_back(table[slot]);
    }
    return corners;
}

// Twice the area times the unit normal: larger faces weigh more in a mean.
Normal AreaNormal(const float* a, const float* b, const float* c)
{
    const double ab[3] = {double(b[0]) - a[0], double(b[1]) - a[1], double(b[2]) - a[2]};
    const double ac[3] = {double(c[0]) - a[0], double(c[1]) - a[1], double(c[2]) - a[2]};
    return {ab[1] * ac[2] - ab[2] * ac[1], ab[2] * ac[0] - ab[0] * ac[2], ab[0] * ac[1] - ab[1] * ac[0]};
}

double Length(const Normal& n)
{
    return std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
}

struct Group
{
    Normal first;       // unit normal of the group's first face
    Normal sum{};       // of its faces' area normals
    std::uint32_t node; // in the result
};

} // namespace

SurfaceGeometry WithCreasedNormals(SurfaceGeometry mesh, double creaseDegrees)
{
    if (mesh.triangles.size() >= std::numeric_limits<std::uint32_t>::max())
        throw std::length_error("a mesh of more than 1.4 billion triangles");
    std::vector<std::uint32_t> points;
    std::vector<std::uint32_t> cornerPoints = JoinedPositions(mesh, points);
    std::vector<std::uint32_t>().swap(mesh.triangles);
    const std::size_t triangles = cornerPoints.size() / 3;
    const auto position = [&mesh, &points](std::uint32_t point)
    { return &mesh.positions[3 * std::size_t(points[point])]; };

    std::vector<Normal> areaNormals(triangles);
    for (std::size_t t = 0; t < triangles; ++t)
    {
        const std::uint32_t* const corner = &cornerPoints[3 * t];
        areaNormals[t] = AreaNormal(position(corner[0]), position(corner[1]), position(corner[2]));
    }
    const auto unitNormal = [&areaNormals](std::size_t t)
    {
        Normal unit{};
        const double length = Length(areaNormals[t]);
        if (length > 0.0 && std::isfinite(length))
            for (int i = 0; i < 3; ++i)
                unit[i] = areaNormals[t][i] / length;
        return unit;
    };

    // The corners at each position, as one list cut by offsets.
    std::vector<std::uint32_t> offsets(points.size() + 1, 0);
    for (const std::uint32_t point : cornerPoints)
        ++offsets[point + 1];
    for (std::size_t p = 0; p < points.size(); ++p)
        offsets[p + 1] += offsets[p];
    std::vector<std::uint32_t> cornersAt(cornerPoints.size()), filled(offsets.begin(), offsets.end() - 1);
    for (std::size_t corner = 0; corner < cornerPoints.size(); ++corner)
        cornersAt[filled[cornerPoints[corner]]++] = std::uint32_t(corner);
    filled = {};

    const std::size_t cornerCount = cornerPoints.size();
    std::vector<std::uint32_t>().swap(cornerPoints); // the corners are found through cornersAt from here on

    const double creaseCosine = std::cos(creaseDegrees * 3.14159265358979323846 / 180.0);
    SurfaceGeometry result;
    result.triangles.resize(cornerCount);
    result.positions.reserve(3 * points.size());
    result.normals.reserve(3 * points.size());
    std::vector<Group> groups;
    for (std::size_t p = 0; p < points.size(); ++p)
    {
        groups.clear();
        for (std::size_t at = offsets[p]; at < offsets[p + 1]; ++at)
        {
            const Normal unit = unitNormal(cornersAt[at] / 3);
            std::size_t g = 0;
            // A face without an area (or of infinite area) bends nothing: it goes with the first group.
            const bool flat = unit == Normal{};
            while (g < groups.size() && !flat &&
                   unit[0] * groups[g].first[0] + unit[1] * groups[g].first[1] +
                           unit[2] * groups[g].first[2] <
                       creaseCosine)
                ++g;
            if (g == groups.size())
                groups.push_back({unit, {}, std::uint32_t(result.nodeCount() + groups.size())});
            if (!flat)
                for (int i = 0; i < 3; ++i)
                    groups[g].sum[i] += areaNormals[cornersAt[at] / 3][i];
            result.triangles[cornersAt[at]] = groups[g].node;
        }
        for (const Group& group : groups)
        {
            result.positions.insert(result.positions.end(), position(std::uint32_t(p)),
                                    position(std::uint32_t(p)) + 3);
            const double length = Length(group.sum);
            const bool usable = length > 0.0 && std::isfinite(length);
            for (int i = 0; i < 3; ++i)
                result.normals.push_back(usable ? float(group.sum[i] / length) : (i == 2 ? 1.0f : 0.0f));
        }
    }
    // Creases made more nodes than positions, and the arrays grew by doubling: they are kept at their size,
    // once the tables above are gone.
    std::vector<Normal>().swap(areaNormals);
    std::vector<std::uint32_t>().swap(cornersAt);
    std::vector<std::uint32_t>().swap(offsets);
    result.positions.shrink_to_fit();
    result.normals.shrink_to_fit();
    return result;
}

} // namespace vantix::host::detail
