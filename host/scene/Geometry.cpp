#include "scene/Geometry.h"

#include <algorithm>
#include <cmath>

namespace vantix::host::detail
{

void Bounds::include(const Point3& point)
{
    if (m_empty)
    {
        m_min = m_max = point;
        m_empty = false;
        return;
    }
    for (int i = 0; i < 3; ++i)
    {
        m_min[i] = std::min(m_min[i], point[i]);
        m_max[i] = std::max(m_max[i], point[i]);
    }
}

void Bounds::include(const Bounds& other)
{
    if (other.empty())
        return;
    include(other.min());
    include(other.max());
}

Point3 Bounds::centre() const
{
    return {(m_min[0] + m_max[0]) / 2.0, (m_min[1] + m_max[1]) / 2.0, (m_min[2] + m_max[2]) / 2.0};
}

double Bounds::radius() const
{
    const double dx = m_max[0] - m_min[0], dy = m_max[1] - m_min[1], dz = m_max[2] - m_min[2];
    return std::sqrt(dx * dx + dy * dy + dz * dz) / 2.0;
}

std::array<Point3, 8> Bounds::corners() const
{
    std::array<Point3, 8> corners;
    for (int i = 0; i < 8; ++i)
        corners[i] = {i & 1 ? m_max[0] : m_min[0], i & 2 ? m_max[1] : m_min[1], i & 4 ? m_max[2] : m_min[2]};
    return corners;
}

namespace
{

Bounds BoundsOf(const std::vector<float>& positions)
{
    Bounds bounds;
    for (std::size_t i = 0; i + 2 < positions.size(); i += 3)
        bounds.include({positions[i], positions[i + 1], positions[i + 2]});
    return bounds;
}

} // namespace

Bounds SurfaceGeometry::bounds() const
{
    return BoundsOf(positions);
}

void SurfaceGeometry::computeNormals()
{
    std::vector<double> sums(positions.size(), 0.0);
    for (std::size_t t = 0; t + 2 < triangles.size(); t += 3)
    {
        const std::uint32_t a = triangles[t], b = triangles[t + 1], c = triangles[t + 2];
        double ab[3], ac[3];
        for (int i = 0; i < 3; ++i)
        {
            ab[i] = double(positions[3 * b + i]) - positions[3 * a + i];
            ac[i] = double(positions[3 * c + i]) - positions[3 * a + i];
        }
        // The cross product's length is twice the area, which weights large faces more.
        const double face[3] = {ab[1] * ac[2] - ab[2] * ac[1], ab[2] * ac[0] - ab[0] * ac[2],
                                ab[0] * ac[1] - ab[1] * ac[0]};
        for (const std::uint32_t node : {a, b, c})
            for (int i = 0; i < 3; ++i)
                sums[3 * node + i] += face[i];
    }
    normals.assign(positions.size(), 0.0f);
    for (std::size_t node = 0; node < nodeCount(); ++node)
    {
        const double* n = &sums[3 * node];
        const double length = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
        if (length > 0.0)
            for (int i = 0; i < 3; ++i)
                normals[3 * node + i] = static_cast<float>(n[i] / length);
        else
            normals[3 * node + 2] = 1.0f; // a node of no face, or of degenerate faces only
    }
}

std::size_t StreamtraceGeometry::pointCount() const
{
    std::size_t count = 0;
    for (const Streamtrace& line : lines)
        count += line.pointCount();
    return count;
}

Bounds StreamtraceGeometry::bounds() const
{
    Bounds bounds;
    for (const Streamtrace& line : lines)
        bounds.include(BoundsOf(line.positions));
    return bounds;
}

SurfaceMesh::SurfaceMesh(SurfaceGeometry geometry)
    : m_nodeCount(geometry.nodeCount()), m_triangleCount(geometry.triangleCount()),
      m_bounds(geometry.bounds()), m_arrays(std::make_unique<SurfaceGeometry>(std::move(geometry)))
{
}

SurfaceGeometry SurfaceMesh::handOver()
{
    if (!m_arrays)
        return {};
    SurfaceGeometry arrays = std::move(*m_arrays);
    m_arrays.reset();
    return arrays;
}

} // namespace vantix::host::detail
