// Zone geometry as the renderer keeps it. Each mesh and set of streamtraces is taken or uploaded once and
// kept for as long as the data set that owns it lives, so that drawing the frames of a movie only draws.
#pragma once

#include "render/GlObjects.h"
#include "render/TriangleParts.h"
#include "scene/Geometry.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace vantix::host::detail
{

// A surface as the renderer keeps it: its arrays in memory, for the processor to draw it, and its mesh
// lines (if it has any) on the graphics card with the node positions they join.
struct CachedSurface
{
    std::vector<float> positions;
    std::vector<float> normals;
    PackedTriangles triangles;
    GlVertexArray lineArray; // attribute 0 position
    GlBuffer linePositions;
    GlBuffer lines;
    GLsizei lineIndexCount = 0;
};

struct GpuStreamtraces
{
    GlVertexArray vertexArray; // attribute 0 position, 1 time
    GlBuffer points;           // x, y, z, time per point
    std::vector<GLint> firsts;
    std::vector<GLsizei> counts;
};

class GeometryCache
{
public:
    // Takes a mesh's arrays from it the first time (the host keeps none once the renderer has them).
    const CachedSurface& surface(const std::shared_ptr<SurfaceMesh>& mesh);
    const GpuStreamtraces& streamtraces(const std::shared_ptr<const StreamtraceGeometry>& geometry);
    // Frees what belongs to data sets that no longer exist.
    void dropUnused();

private:
    template <typename Gpu>
    struct Entry
    {
        std::weak_ptr<const void> owner; // expired: the geometry is gone (and the address may be reused)
        std::unique_ptr<Gpu> gpu;
    };
    template <typename Gpu>
    using Table = std::unordered_map<const void*, Entry<Gpu>>;

    template <typename Gpu, typename Source, typename Upload>
    const Gpu& find(Table<Gpu>& table, const std::shared_ptr<Source>& source, Upload upload);

    Table<CachedSurface> m_surfaces;
    Table<GpuStreamtraces> m_streamtraces;
};

} // namespace vantix::host::detail
