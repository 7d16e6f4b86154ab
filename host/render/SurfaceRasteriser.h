// Draws a surface mesh's parts into a picture on every core. The parts are taken a few at a time: first
// each core sets up whole parts (their nodes transformed once, their triangles clipped and sorted into the
// bands of rows they reach), then each core fills whole bands, walking the parts' triangles in order. A
// band is only ever written by one core and sees the triangles in the order given, so the picture is the
// same whatever the number of cores.
#pragma once

#include "render/SurfaceRaster.h"
#include "render/TriangleParts.h"
#include "render/WorkerPool.h"

#include <vector>

namespace vantix::host::detail
{

class SurfaceRasteriser
{
public:
    // threads: 0 for one a core (up to eight). Each thread fills about bandsPerThread bands of the
    // picture's rows.
    explicit SurfaceRasteriser(int threads = 0, int bandsPerThread = 12);

    void draw(const SurfaceArrays& mesh, const std::vector<const TrianglePart*>& parts, const Camera& camera,
              const SurfaceLook& look, const RasterView& view, RasterPicture& picture);

private:
    // A part set up: its triangles and, band by band, which of them reach the band's rows.
    struct SetUpPart
    {
        std::vector<TriangleSetUp::Node> nodes;
        std::vector<RasterTriangle> triangles;
        std::vector<std::uint32_t>
            bandStart; // band b's triangles are byBand[bandStart[b] .. bandStart[b + 1])
        std::vector<std::uint32_t> byBand;
        std::vector<std::uint32_t> cursor; // where the next triangle of each band goes, while sorting
    };

    void setUp(const TrianglePart& part, const TriangleSetUp& setUpTriangle, SetUpPart& out) const;
    void fillBand(int band, int partCount, RasterPicture& picture) const;

    WorkerPool m_pool;
    int m_bandsPerThread;
    std::vector<SetUpPart> m_parts; // one a part of the few drawn at a time

    // What the draw under way draws, for the tasks.
    struct Job
    {
        const SurfaceArrays* mesh;
        const Camera* camera;
        const SurfaceLook* look;
        RasterView view;
        int bands;
        int rowShift; // a band is 1 << rowShift rows
    } m_job{};
};

} // namespace vantix::host::detail
