// The geometry a zone draws: triangle surfaces and streamtraces, in model units. Geometry is shared
// between zones (the time steps of a transient surface share one mesh and differ only in their scalar), so
// that the renderer keeps one copy on the graphics card.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
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

// A surface zone's mesh in a data set: its sizes and bounds, and its arrays until the renderer takes
// them. The renderer keeps the mesh for as long as the data set lives, and the host asks nothing of the
// arrays after that, so it lets go of its own copy once the surface has been drawn: for a big mesh that is
// most of what a data set holds.
class SurfaceMesh
{
public:
    explicit SurfaceMesh(SurfaceGeometry geometry);

    std::size_t nodeCount() const { return m_nodeCount; }
    std::size_t triangleCount() const { return m_triangleCount; }
    const Bounds& bounds() const { return m_bounds; }
    // The arrays while the host has them; null once they have been handed over.
    const SurfaceGeometry* arrays() const { return m_arrays.get(); }
    // The arrays, for the renderer: the first call takes them, later calls get empty ones.
    SurfaceGeometry handOver();

private:
    std::size_t m_nodeCount;
    std::size_t m_triangleCount;
    Bounds m_bounds;
    std::unique_ptr<SurfaceGeometry> m_arrays;
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
