// What the rest of the host asks of the renderer.
#pragma once

#include "core/Image.h"

#include <VtxUtil.h>

namespace vantix::host::detail
{

struct Frame;

// The largest picture side the renderer draws, here and on every OpenGL stack it is built for: the export
// accepts no image width beyond it.
constexpr int LargestPictureSide = 16384;

// The size of a region of the page in screen pixels (paper inches times the pixels per inch): the active
// frame, the box around all frames, or the work area (the whole page). The export takes its aspect ratio
// from here. 0 x 0 for the active frame or all frames when the page has no frame, and for an unknown
// region.
void RegionPixelSize(ExportRegion_e region, double& width, double& height);

// Draws a region of the page into an image of width x height pixels: the frames in it at their places,
// bottom of the stack first, over the white paper. With a supersample factor above 1 the region is drawn
// factor times larger in each direction and filtered down, for smooth edges (a factor that would make the
// drawn picture too large is lowered). Throws std::invalid_argument for a size that is not positive or an
// unknown region, std::logic_error when the region has no frame (the active frame or all frames of an
// empty page), std::runtime_error when no offscreen OpenGL context can be made.
Image RenderRegion(ExportRegion_e region, int width, int height, int supersample);

// A picture drawn and not yet read back; see DrawRegionPending.
struct PendingPicture
{
    int target = -1;  // the renderer's render target that holds it; -1: none
    long drawing = 0; // the renderer's count of pictures drawn when it was
    int factor = 1;   // the supersample factor it was drawn at
};

// Draws a region as RenderRegion does but leaves the picture in the renderer, to be read by
// ReadPendingPicture. Movies draw the next frame before reading this one: the software rasteriser
// finishes this picture while the next one is set up, and reading it then waits for nothing. At most one
// picture may be pending when the next one is drawn; throws std::logic_error otherwise.
PendingPicture DrawRegionPending(ExportRegion_e region, int width, int height, int supersample);
// Reads a pending picture back (once), supersampling filtered. Throws std::logic_error for one already
// read or not pending.
Image ReadPendingPicture(const PendingPicture& picture);
// Forgets a pending picture without reading it (an export that stops early).
void DropPendingPicture(const PendingPicture& picture);

// Draws one frame alone at width x height pixels.
Image RenderFrame(const Frame& frame, int width, int height, int supersample);

} // namespace vantix::host::detail
