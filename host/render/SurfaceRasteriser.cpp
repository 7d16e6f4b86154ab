#include "render/SurfaceRasteriser.h"

#include <algorithm>
#include <thread>

namespace vantix::host::detail
{

namespace
{

// Beyond this many cores, bands get too thin to share out well, and each core's parts take memory.
constexpr int MostThreads = 8;

int Threads(int asked)
{
    return asked > 0 ? asked
                     : std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, MostThreads);
}

} // namespace

SurfaceRasteriser::SurfaceRasteriser(int threads, int bandsPerThread)
    : m_pool(Threads(threads)), m_bandsPerThread(std::max(1, bandsPerThread))
{
    // Parts set up at a time: two a core, so that none waits long for the others. Their memory is taken
    // at once, at its size, here (not by the threads, each of which would keep its own heap).
    m_parts.resize(static_cast<std::size_t>(2 * m_pool.threads()));
    for (SetUpPart& part : m_parts)
    {
        part.nodes.reserve(PartTriangles);
        part.triangles.reserve(PartTriangles + PartTriangles / 8);
        part.byBand.reserve(PartTriangles + PartTriangles / 4);
    }
}

void SurfaceRasteriser::draw(const SurfaceArrays& mesh, const std::vector<const TrianglePart*>& parts,
                             const Camera& camera, const SurfaceLook& look, const RasterView& view,
                             RasterPicture& picture)
{
    if (view.pictureWidth <= 0 || view.pictureHeight <= 0)
        return;
    // Bands of a power of two rows, so that sorting a triangle into them shifts instead of dividing.
    const int wanted = m_pool.threads() * m_bandsPerThread;
    int rowShift = 0;
    while ((1 << rowShift) * wanted < view.pictureHeight)
        ++rowShift;
    const int bands = ((view.pictureHeight - 1) >> rowShift) + 1;
    m_job = {&mesh, &camera, &look, view, bands, rowShift};
    const TriangleSetUp setUpTriangle(view);
    const std::size_t perRound = m_parts.size();
    for (std::size_t first = 0; first < parts.size(); first += perRound)
    {
        const int count = static_cast<int>(std::min(perRound, parts.size() - first));
        m_pool.run(count, [&](int i) { setUp(*parts[first + i], setUpTriangle, m_parts[i]); });
        m_pool.run(bands, [&](int band) { fillBand(band, count, picture); });
    }
}

void SurfaceRasteriser::setUp(const TrianglePart& part, const TriangleSetUp& setUpTriangle,
                              SetUpPart& out) const
{
    const SurfaceArrays& mesh = *m_job.mesh;
    const auto transform = [&](std::uint32_t node)
    {
        return setUpTriangle.place(
            TransformNode(mesh, node, m_job.camera->modelToClip, m_job.camera->modelToEye, *m_job.look));
    };
    const std::size_t cornerCount = 3 * part.triangleCount;
    // A corner's node, counted from the part's lowest.
    const auto offset = [&](std::size_t corner) -> std::uint32_t
    {
        return part.shortCorners ? mesh.shortCorners[part.firstCorner + corner]
                                 : mesh.longCorners[part.firstCorner + corner] - part.lowestNode;
    };
    // Nodes numbered close together are transformed once each, by number; scattered ones once a corner.
    const std::size_t span = std::size_t(part.highestNode) - part.lowestNode + 1;
    const bool byNumber = span <= cornerCount;
    out.nodes.resize(byNumber ? span : cornerCount);
    for (std::size_t i = 0; i < out.nodes.size(); ++i)
        out.nodes[i] = transform(part.lowestNode + static_cast<std::uint32_t>(byNumber ? i : offset(i)));
    const auto node = [&](std::size_t corner) -> const TriangleSetUp::Node&
    { return out.nodes[byNumber ? offset(corner) : corner]; };

    out.triangles.clear();
    for (std::size_t corner = 0; corner < cornerCount; corner += 3)
        setUpTriangle(node(corner), node(corner + 1), node(corner + 2), out.triangles);

    // Sorted into bands by counting: how many reach each band, where each band starts, then the triangles.
    const int bands = m_job.bands, shift = m_job.rowShift;
    out.bandStart.assign(static_cast<std::size_t>(bands) + 1, 0);
    for (const RasterTriangle& t : out.triangles)
        for (int band = t.firstRow >> shift; band <= (t.endRow - 1) >> shift; ++band)
            ++out.bandStart[static_cast<std::size_t>(band) + 1];
    for (int band = 0; band < bands; ++band)
        out.bandStart[band + 1] += out.bandStart[band];
    out.byBand.resize(out.bandStart.back());
    out.cursor.assign(out.bandStart.begin(), out.bandStart.end() - 1);
    for (std::size_t i = 0; i < out.triangles.size(); ++i)
    {
        const RasterTriangle& t = out.triangles[i];
        for (int band = t.firstRow >> shift; band <= (t.endRow - 1) >> shift; ++band)
            out.byBand[out.cursor[static_cast<std::size_t>(band)]++] = static_cast<std::uint32_t>(i);
    }
}

void SurfaceRasteriser::fillBand(int band, int partCount, RasterPicture& picture) const
{
    const int firstRow = band << m_job.rowShift;
    const int endRow = std::min(firstRow + (1 << m_job.rowShift), m_job.view.pictureHeight);
    for (int p = 0; p < partCount; ++p)
    {
        const SetUpPart& part = m_parts[static_cast<std::size_t>(p)];
        for (std::uint32_t i = part.bandStart[band]; i < part.bandStart[band + 1]; ++i)
            FillRows(part.triangles[part.byBand[i]], firstRow, endRow, *m_job.look, picture);
    }
}

} // namespace vantix::host::detail
