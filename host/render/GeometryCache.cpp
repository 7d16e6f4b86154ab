#include "render/GeometryCache.h"

#include <malloc.h>

namespace vantix::host::detail
{

namespace
{

template <typename T>
GLsizeiptr Bytes(const std::vector<T>& values)
{
    return static_cast<GLsizeiptr>(values.size() * sizeof(T));
}

constexpr std::size_t LargeMeshBytes = std::size_t(1) << 20;

// The arrays are moved, not copied: a big mesh never lies in memory twice over.
std::unique_ptr<CachedSurface> Keep(SurfaceMesh& surface)
{
    SurfaceGeometry mesh = surface.handOver();
    auto kept = std::make_unique<CachedSurface>();
    kept->triangles = PackTriangles(mesh);
    std::vector<std::uint32_t>().swap(mesh.triangles);
    if (!mesh.meshLines.empty())
    {
        glBindVertexArray(kept->lineArray.id());
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, kept->lines.id());
        glBufferData(GL_ELEMENT_ARRAY_BUFFER, Bytes(mesh.meshLines), mesh.meshLines.data(), GL_STATIC_DRAW);
        kept->lineIndexCount = static_cast<GLsizei>(mesh.meshLines.size());
        glBindBuffer(GL_ARRAY_BUFFER, kept->linePositions.id());
        glBufferData(GL_ARRAY_BUFFER, Bytes(mesh.positions), mesh.positions.data(), GL_STATIC_DRAW);
        glEnableVertexAttribArray(0);
        glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
        glBindVertexArray(0);
    }
    kept->positions = std::move(mesh.positions);
    kept->normals = std::move(mesh.normals);
    // What reading a big mesh left free lies low in the heap, below the arrays kept, where it would stay
    // with the process: it is handed back to the system at once.
    if (kept->positions.size() * sizeof(float) >= LargeMeshBytes)
        malloc_trim(0);
    return kept;
}

std::unique_ptr<GpuStreamtraces> Upload(const StreamtraceGeometry& traces)
{
    auto gpu = std::make_unique<GpuStreamtraces>();
    std::vector<float> points;
    points.reserve(4 * traces.pointCount());
    for (const Streamtrace& line : traces.lines)
    {
        gpu->firsts.push_back(static_cast<GLint>(points.size() / 4));
        gpu->counts.push_back(static_cast<GLsizei>(line.pointCount()));
        for (std::size_t i = 0; i < line.pointCount(); ++i)
            points.insert(points.end(), {line.positions[3 * i], line.positions[3 * i + 1],
                                         line.positions[3 * i + 2], static_cast<float>(line.times[i])});
    }
    glBindVertexArray(gpu->vertexArray.id());
    glBindBuffer(GL_ARRAY_BUFFER, gpu->points.id());
    glBufferData(GL_ARRAY_BUFFER, Bytes(points), points.data(), GL_STATIC_DRAW);
    glEnableVertexAttribArray(0);
    glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 4 * sizeof(float), nullptr);
    glEnableVertexAttribArray(1);
    glVertexAttribPointer(1, 1, GL_FLOAT, GL_FALSE, 4 * sizeof(float),
                          reinterpret_cast<const void*>(3 * sizeof(float)));
    glBindVertexArray(0);
    return gpu;
}

} // namespace

template <typename Gpu, typename Source, typename UploadFunction>
const Gpu& GeometryCache::find(Table<Gpu>& table, const std::shared_ptr<Source>& source,
                               UploadFunction upload)
{
    Entry<Gpu>& entry = table[source.get()];
    if (!entry.gpu || entry.owner.expired())
    {
        entry.gpu = upload(*source);
        entry.owner = source;
    }
    return *entry.gpu;
}

const CachedSurface& GeometryCache::surface(const std::shared_ptr<SurfaceMesh>& mesh)
{
    return find(m_surfaces, mesh, [](SurfaceMesh& surface) { return Keep(surface); });
}

const GpuStreamtraces& GeometryCache::streamtraces(const std::shared_ptr<const StreamtraceGeometry>& geometry)
{
    return find(m_streamtraces, geometry, [](const StreamtraceGeometry& traces) { return Upload(traces); });
}

void GeometryCache::dropUnused()
{
    const auto sweep = [](auto& table)
    {
        for (auto entry = table.begin(); entry != table.end();)
            entry = entry->second.owner.expired() ? table.erase(entry) : std::next(entry);
    };
    sweep(m_surfaces);
    sweep(m_streamtraces);
}

} // namespace vantix::host::detail
