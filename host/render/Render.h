// What the rest of the host asks of the renderer.
#pragma once

#include "core/Image.h"

#include <VtxUtil.h>

namespace vantix::host::detail
{

// The size of a region of the page in screen pixels: the active frame, the box around all frames, or the
// work area. The export takes its aspect ratio from here.
void RegionPixelSize(ExportRegion_e region, double& width, double& height);

// Draws a region of the page into an image of width x height pixels. With a supersample factor above 1
// the region is drawn factor times larger in each direction and filtered down, for smooth edges.
Image RenderRegion(ExportRegion_e region, int width, int height, int supersample);

} // namespace vantix::host::detail
