// Zone geometry on the graphics card. Each mesh, scalar and set of streamtraces is uploaded once and kept
// for as long as the data set that owns it lives, so that drawing the frames of a movie only draws.
#pragma once

#include "render/GlObjects.h"
#include "render/TriangleParts.h"
#include "scene/Geometry.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace vantix::host::detail
{

struct GpuSurface
{
    GlVertexArray vertexArray; // attribute 0 position, 1 normal; 2 (scalar) is bound per zone
    GlBuffer nodes;            // positions then normals
    GlBuffer triangles;
    std::vector<TrianglePart> triangleParts; // in the buffer's order
    GlBuffer meshLines;
    GLsizei meshLineIndexCount = 0;
    GLsizeiptr normalOffset = 0;
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
    // Uploads a mesh the first time, taking its arrays from it (the host keeps none once the renderer has
    // them).
    const GpuSurface& surface(const std::shared_ptr<SurfaceMesh>& mesh);
    GLuint scalar(const std::shared_ptr<const std::vector<float>>& values);
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

    Table<GpuSurface> m_surfaces;
    Table<GlBuffer> m_scalars;
    Table<GpuStreamtraces> m_streamtraces;
};

} // namespace vantix::host::detail
