// The geometry a zone draws: triangle surfaces and streamtraces, in model units. Geometry is immutable
// once built and shared between zones (the time steps of a transient surface share one mesh and differ
// only in their scalar), so that the renderer can keep one copy on the graphics card.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace vantix::host::detail
{

using Point3 = std::array<double, 3>;

// An axis-aligned box; empty until a point is included.
class Bounds
{
public:
    void include(const Point3& point);
    void include(const Bounds& other);
    bool empty() const { return m_empty; }
    const Point3& min() const { return m_min; }
    const Point3& max() const { return m_max; }
    Point3 centre() const;
    // Half the length of the diagonal: the radius of a sphere around the centre that holds the box.
    double radius() const;
    std::array<Point3, 8> corners() const;

private:
    bool m_empty = true;
    Point3 m_min{};
    Point3 m_max{};
};

struct SurfaceGeometry
{
    std::vector<float> positions; // x, y, z per node
    std::vector<float> normals;   // unit normal per node, x, y, z
    std::vector<std::uint32_t>
        triangles; // three node indices per triangle, counter-clockwise seen from outside
    std::vector<std::uint32_t> meshLines; // two node indices per line drawn over the surface (may be empty)

    std::size_t nodeCount() const { return positions.size() / 3; }
    std::size_t triangleCount() const { return triangles.size() / 3; }
    Bounds bounds() const;
    // Fills normals from the triangles, each node the area-weighted mean of the faces around it.
    void computeNormals();
};

// One streamtrace: a polyline with the time at which the flow reaches each point (increasing).
struct Streamtrace
{
    std::vector<float> positions; // x, y, z per point
    std::vector<double> times;    // one per point

    std::size_t pointCount() const { return times.size(); }
};

struct StreamtraceGeometry
{
    std::vector<Streamtrace> lines;

    std::size_t pointCount() const;
    Bounds bounds() const;
};

} // namespace vantix::host::detail
