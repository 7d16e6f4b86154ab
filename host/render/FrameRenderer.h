// Draws one frame of the page into a rectangle of the framebuffer that is bound: its background, and for
// a 3D frame with a data set the zones shown at its solution time, the streamtrace markers and dashes,
// and the frame axis.
#pragma once

#include "core/Page.h"
#include "render/GeometryCache.h"
#include "render/SceneStyle.h"
#include "render/ShaderProgram.h"

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

class FrameRenderer
{
public:
    // Builds the colour map; needs the renderer's context current. Shaders are built when first needed.
    FrameRenderer();

    // sizeScale multiplies line widths and marker sizes: 1 for a picture of screen size, more for
    // supersampled or large pictures, so that lines keep their weight relative to the picture.
    void draw(const Frame& frame, const SceneStyle& style, const PixelRect& rect, double sizeScale);
    // Frees the graphics memory of data sets that are gone; called once a picture.
    void dropUnusedGeometry() { m_geometry.dropUnused(); }

private:
    struct Context; // what the drawing of one frame shares

    void drawBackground(const PixelRect& rect, float light);
    void drawSurface(const Context& context, const Zone& zone);
    static void setPixelToViewer(const ShaderProgram& program, const Context& context);
    void drawStreamtraces(const Context& context, const Zone& zone);
    void drawFrameAxis(const Context& context, const PixelRect& rect);
    // Uploads points (x, y, z each) into the scratch buffer and binds it for drawing.
    void bindScratch(const std::vector<float>& points);

    ProgramOnDemand m_surfacePrograms[4]; // plain and coloured orthographic, then in perspective
    ProgramOnDemand m_lineProgram;
    ProgramOnDemand m_markerProgram;
    ProgramOnDemand m_backgroundProgram;
    GlTexture m_colormap;
    GlVertexArray m_emptyArray; // the background draws from gl_VertexID alone
    GlVertexArray m_scratchArray;
    GlBuffer m_scratchBuffer;
    GeometryCache m_geometry;
    std::vector<const TrianglePart*> m_partOrder; // of the surface being drawn
};

} // namespace vantix::host::detail
