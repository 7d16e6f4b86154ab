#include "scene/CreasedNormals.h"

#include <array>
#include <cmath>
#include <cstring>
#include <unordered_map>

namespace vantix::host::detail
{

namespace
{

using Normal = std::array<double, 3>;

struct PositionKey
{
    std::array<std::uint32_t, 3> bits;
    bool operator==(const PositionKey& other) const { return bits == other.bits; }
};

struct PositionHash
{
    std::size_t operator()(const PositionKey& key) const
    {
        return (std::size_t(key.bits[0]) * 73856093u) ^ (std::size_t(key.bits[1]) * 19349663u) ^
               (std::size_t(key.bits[2]) * 83492791u);
    }
};

PositionKey KeyOf(const float* position)
{
    PositionKey key{};
    for (int i = 0; i < 3; ++i)
    {
        const float value = position[i] == 0.0f ? 0.0f : position[i]; // -0 and 0 are one place
        std::memcpy(&key.bits[i], &value, sizeof value);
    }
    return key;
}

// Each corner's position, numbered in the order first used.
std::vector<std::uint32_t> JoinedPositions(const SurfaceGeometry& mesh, std::vector<const float*>& points)
{
    std::unordered_map<PositionKey, std::uint32_t, PositionHash> numbers;
    std::vector<std::uint32_t> corners;
    corners.reserve(mesh.triangles.size());
    for (const std::uint32_t node : mesh.triangles)
    {
        const float* const position = &mesh.positions[3 * std::size_t(node)];
        const auto [entry, added] = numbers.try_emplace(KeyOf(position), std::uint32_t(points.size()));
        if (added)
            points.push_back(position);
        corners.push_back(entry->second);
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

SurfaceGeometry WithCreasedNormals(const SurfaceGeometry& mesh, double creaseDegrees)
{
    std::vector<const float*> points;
    const std::vector<std::uint32_t> cornerPoints = JoinedPositions(mesh, points);
    const std::size_t triangles = cornerPoints.size() / 3;

    std::vector<Normal> areaNormals(triangles), unitNormals(triangles, Normal{});
    for (std::size_t t = 0; t < triangles; ++t)
    {
        const std::uint32_t* const corner = &cornerPoints[3 * t];
        areaNormals[t] = AreaNormal(points[corner[0]], points[corner[1]], points[corner[2]]);
        const double length = Length(areaNormals[t]);
        if (length > 0.0 && std::isfinite(length))
            for (int i = 0; i < 3; ++i)
                unitNormals[t][i] = areaNormals[t][i] / length;
    }

    // The corners at each position, as one list cut by offsets.
    std::vector<std::size_t> offsets(points.size() + 1, 0);
    for (const std::uint32_t point : cornerPoints)
        ++offsets[point + 1];
    for (std::size_t p = 0; p < points.size(); ++p)
        offsets[p + 1] += offsets[p];
    std::vector<std::size_t> cornersAt(cornerPoints.size()), filled(offsets.begin(), offsets.end() - 1);
    for (std::size_t corner = 0; corner < cornerPoints.size(); ++corner)
        cornersAt[filled[cornerPoints[corner]]++] = corner;

    const double creaseCosine = std::cos(creaseDegrees * 3.14159265358979323846 / 180.0);
    SurfaceGeometry result;
    result.triangles.resize(cornerPoints.size());
    std::vector<Group> groups;
    for (std::size_t p = 0; p < points.size(); ++p)
    {
        groups.clear();
        for (std::size_t at = offsets[p]; at < offsets[p + 1]; ++at)
        {
            const Normal& unit = unitNormals[cornersAt[at] / 3];
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
            result.positions.insert(result.positions.end(), points[p], points[p] + 3);
            const double length = Length(group.sum);
            const bool usable = length > 0.0 && std::isfinite(length);
            for (int i = 0; i < 3; ++i)
                result.normals.push_back(usable ? float(group.sum[i] / length) : (i == 2 ? 1.0f : 0.0f));
        }
    }
    return result;
}

} // namespace vantix::host::detail
