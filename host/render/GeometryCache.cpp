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

template <typename T>
void Release(std::vector<T>& values)
{
    std::vector<T>().swap(values);
}

// Takes the mesh's arrays one at a time, each let go of as soon as the renderer has its copy, so that a big
// mesh never lies in memory twice over: the triangles first (packing them needs the positions too).
std::unique_ptr<GpuSurface> Upload(SurfaceGeometry& mesh)
{
    auto gpu = std::make_unique<GpuSurface>();
    // The index buffers are filled while the vertex array is bound (the element binding is part of it);
    // drawing binds the one it needs.
    glBindVertexArray(gpu->vertexArray.id());
    {
        PackedTriangles triangles = PackTriangles(mesh);
        Release(mesh.triangles);
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, gpu->triangles.id());
        glBufferData(GL_ELEMENT_ARRAY_BUFFER, Bytes(triangles.bytes), triangles.bytes.data(), GL_STATIC_DRAW);
        gpu->triangleParts = std::move(triangles.parts);
    }
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, gpu->meshLines.id());
    glBufferData(GL_ELEMENT_ARRAY_BUFFER, Bytes(mesh.meshLines), mesh.meshLines.data(), GL_STATIC_DRAW);
    gpu->meshLineIndexCount = static_cast<GLsizei>(mesh.meshLines.size());
    Release(mesh.meshLines);

    glBindBuffer(GL_ARRAY_BUFFER, gpu->nodes.id());
    gpu->normalOffset = Bytes(mesh.positions);
    glBufferData(GL_ARRAY_BUFFER, Bytes(mesh.positions) + Bytes(mesh.normals), nullptr, GL_STATIC_DRAW);
    glBufferSubData(GL_ARRAY_BUFFER, 0, Bytes(mesh.positions), mesh.positions.data());
    Release(mesh.positions);
    glBufferSubData(GL_ARRAY_BUFFER, gpu->normalOffset, Bytes(mesh.normals), mesh.normals.data());
    Release(mesh.normals);
    glEnableVertexAttribArray(0);
    glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
    glEnableVertexAttribArray(1);
    glVertexAttribPointer(1, 3, GL_FLOAT, GL_FALSE, 0, reinterpret_cast<const void*>(gpu->normalOffset));
    glBindVertexArray(0);
    return gpu;
}

// The renderer keeps a mesh once it has it, so the host's copy goes. The arrays of a big mesh, read before
// most else was allocated, lie low in the heap, where the memory they free would stay with the process: it
// is handed back to the system at once.
constexpr GLsizeiptr LargeMeshBytes = GLsizeiptr(1) << 20;

std::unique_ptr<GpuSurface> Upload(SurfaceMesh& surface)
{
    SurfaceGeometry mesh = surface.handOver();
    const GLsizeiptr bytes = Bytes(mesh.positions) + Bytes(mesh.normals) + Bytes(mesh.triangles);
    std::unique_ptr<GpuSurface> gpu = Upload(mesh);
    if (bytes >= LargeMeshBytes)
        malloc_trim(0);
    return gpu;
}

std::unique_ptr<GlBuffer> Upload(const std::vector<float>& values)
{
    auto buffer = std::make_unique<GlBuffer>();
    glBindBuffer(GL_ARRAY_BUFFER, buffer->id());
    glBufferData(GL_ARRAY_BUFFER, Bytes(values), values.data(), GL_STATIC_DRAW);
    return buffer;
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

const GpuSurface& GeometryCache::surface(const std::shared_ptr<SurfaceMesh>& mesh)
{
    return find(m_surfaces, mesh, [](SurfaceMesh& surface) { return Upload(surface); });
}

GLuint GeometryCache::scalar(const std::shared_ptr<const std::vector<float>>& values)
{
    return find(m_scalars, values, [](const std::vector<float>& v) { return Upload(v); }).id();
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
    sweep(m_scalars);
    sweep(m_streamtraces);
}

} // namespace vantix::host::detail
