// Draws one frame of the page into a rectangle of the framebuffer that is bound: its background, and for
// a 3D frame with a data set the zones shown at its solution time, the streamtrace markers and dashes,
// and the frame axis. The background and the lit surfaces are drawn on the processor and put into the
// framebuffer's textures with their depth; GL draws the lines, markers and axis over them.
#pragma once

#include "core/Page.h"
#include "render/GeometryCache.h"
#include "render/SceneStyle.h"
#include "render/ShaderProgram.h"
#include "render/SurfaceRasteriser.h"

#include <vector>

namespace vantix::host::detail
{

struct Zone;

// Pixels of the framebuffer, x from the left, y from the bottom (as GL counts them).
struct PixelRect
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

// The framebuffer drawn into: its colour and depth textures and their size.
struct TargetTextures
{
    GLuint colour = 0;
    GLuint depth = 0;
    int width = 0;
    int height = 0;
};

class FrameRenderer
{
public:
    // Needs the renderer's context current. Shaders are built when first needed.
    FrameRenderer();

    // sizeScale multiplies line widths and marker sizes: 1 for a picture of screen size, more for
    // supersampled or large pictures, so that lines keep their weight relative to the picture.
    void draw(const Frame& frame, const SceneStyle& style, const PixelRect& rect, double sizeScale,
              const TargetTextures& target);
    // Frees the graphics memory of data sets that are gone; called once a picture.
    void dropUnusedGeometry() { m_geometry.dropUnused(); }

private:
    struct Context; // what the drawing of one frame shares

    void fillBackground(const Context& context);
    void drawSurface(const Context& context, const Zone& zone);
    // Puts the picture into the target's textures.
    void putPicture(const Context& context, const TargetTextures& target) const;
    void drawMeshLines(const Context& context, const Zone& zone);
    void drawStreamtraces(const Context& context, const Zone& zone);
    void drawFrameAxis(const Context& context, const PixelRect& rect);
    // Uploads points (x, y, z each) into the scratch buffer and binds it for drawing.
    void bindScratch(const std::vector<float>& points);

    ProgramOnDemand m_lineProgram;
    ProgramOnDemand m_markerProgram;
    std::vector<std::uint8_t> m_colormap; // 256 RGB entries
    SurfaceRasteriser m_rasteriser;
    RasterPicture m_picture; // the part of the frame on the target
    GlVertexArray m_scratchArray;
    GlBuffer m_scratchBuffer;
    GeometryCache m_geometry;
    std::vector<const TrianglePart*> m_partOrder; // of the surface being drawn
};

} // namespace vantix::host::detail
