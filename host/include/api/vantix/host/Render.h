// The host's own API for pictures: drawing regions of the page offscreen, and what the "screen" shows after
// a redraw.
#pragma once

#include <VtxUtil.h>
#include <vantix/host/Image.h>

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vantix::host
{

// The size of a region of the page in screen pixels (paper inches times the pixels per inch); {0, 0} when
// the region has no frame (the active frame or all frames of an empty page).
std::array<double, 2> regionPixelSize(ExportRegion_e region);

// Draws a region of the page, as an export does: the active frame alone, the box around all frames (each
// at its place, bottom of the stack first), or the whole work area, over white paper. A 3D frame shows
// its data set from its view at its solution time, lit, with streamtrace markers and dashes and the frame
// axis as the style settings say; a frame without a data set shows its background. Supersampling draws
// larger and averages down. Throws std::invalid_argument for a size that is not positive,
// std::logic_error for a region without a frame, std::runtime_error when no offscreen OpenGL context can be
// made.
Image renderRegion(ExportRegion_e region, int width, int height, int supersample = 1);
// The active frame alone at width x height pixels.
Image renderActiveFrame(int width, int height);

// While on, every redraw that draws (VtxUtilRedraw with drawing not suspended) draws the active frame at
// its size in screen pixels into the screen image. Off after reset; while off, a redraw is only counted.
// Switching clears the screen image.
void setRenderOnRedraw(bool on);
// The desktop's window: called after every redraw that draws (after the screen image above, when on), on
// the thread of the redraw, so that the window can show the frame before the add-on goes on. Null for
// none; a reset keeps it.
void setRedrawObserver(std::function<void()> observer);
// What the last redraw drew; empty when none has drawn since the switch was turned on.
Image screenImage();

// The OpenGL implementation drawing the pictures, e.g. "llvmpipe (LLVM 15.0.6, 256 bits), OpenGL 4.5 (Core
// Profile) Mesa 22.3.6". Makes the renderer when there is none yet.
std::string rendererDescription();

} // namespace vantix::host
