// Lit surfaces drawn on the processor. A software GL rasteriser spends most of a big mesh's frame setting
// up and binning triangles for its general pipeline; drawing the one kind of triangle the host has (lit per
// pixel, perhaps coloured by a scalar) takes about half its processor time. The rules are GL's, so that the
// lines and markers GL draws over the surfaces meet them as before: positions snapped to 1/256 pixel, pixel
// centres at half pixels, an edge two triangles share drawn by exactly one of them, attributes interpolated
// in perspective, depth tested "less or equal" with the surface pushed back as glPolygonOffset(1, 1) does,
// and triangles clipped at the near and far planes and far outside the picture.
#pragma once

#include "render/Camera.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vantix::host::detail
{

// Colour (RGBA, 8 bits each, red in the lowest byte) and window depth of every pixel, rows from the
// bottom up as GL keeps them.
struct RasterPicture
{
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> colour;
    std::vector<float> depth;

    // Makes the picture that size with every depth 1 (the colours are to be filled). Keeps the memory it
    // has unless that is far more than needed.
    void reset(int newWidth, int newHeight);
    void fillRow(int y, std::uint32_t rowColour);
};

// A value in [0, 1]; one that is not a number counts as 0.
inline float Saturate(float value)
{
    return value > 0.0f ? (value < 1.0f ? value : 1.0f) : 0.0f;
}

// A colour in [0, 1] a channel as the picture keeps it (alpha opaque), rounded as GL rounds.
inline std::uint32_t PackColour(float red, float green, float blue)
{
    const auto channel = [](float value)
    { return static_cast<std::uint32_t>(Saturate(value) * 255.0f + 0.5f); };
    return channel(red) | channel(green) << 8 | channel(blue) << 16 | 0xff000000u;
}

// How a surface is lit and coloured, as the host's surface shader does it.
struct SurfaceLook
{
    float ambient = 0.0f;
    float diffuse = 0.0f;
    std::array<float, 3> plainColour{};
    const std::uint8_t* colormap = nullptr; // 256 RGB entries, or null: the plain colour
    float scalarLowest = 0.0f;
    float scalarScale = 0.0f; // 1 / (highest - lowest)
    bool perspective = false;
    // In perspective, the (x, y) of the eye-space direction back to the viewer at pixel (px, py) of the
    // picture is (px * [0] + [2], py * [1] + [3]), z being 1.
    std::array<float, 4> pixelToViewer{};
};

// The arrays of a surface mesh, which the rasteriser only reads.
struct SurfaceArrays
{
    const float* positions = nullptr;            // x, y, z per node
    const float* normals = nullptr;              // x, y, z per node
    const float* scalars = nullptr;              // one per node, or null
    const std::uint16_t* shortCorners = nullptr; // of the parts kept in 16 bits (see TrianglePart)
    const std::uint32_t* longCorners = nullptr;
};

// A node as the picture sees it: clip coordinates, then the eye-space normal and the colour map fraction.
struct ClipVertex
{
    float x, y, z, w;
    float nx, ny, nz, fraction;
};

ClipVertex TransformNode(const SurfaceArrays& mesh, std::uint32_t node, const Matrix4& modelToClip,
                         const Matrix4& modelToEye, const SurfaceLook& look);

// A node inside every clip plane, in the window: snapped position, depth, and 1/w and the attributes
// divided by w, which are what is interpolated linearly over the picture.
struct WindowVertex
{
    std::int32_t x, y; // 1/256 pixel
    float z;
    std::array<float, 5> overW;
};

// A triangle set up for filling: snapped corners and the planes of what is interpolated over it.
struct RasterTriangle
{
    std::int32_t x[3], y[3]; // 1/256 pixel, counter-clockwise
    std::int8_t bias[3];  // 0 where the edge's own pixels are drawn, -1 where they are left to the neighbour
    int firstRow, endRow; // of the picture, whose centres it may cover
    int firstColumn, endColumn;
    float originX, originY; // corner 0 in pixels: the planes are taken from there
    // value, d/dx, d/dy: window depth (the offset included), then 1/w and the attributes divided by w
    std::array<float, 3> depth;
    std::array<std::array<float, 3>, 5> planes;
};

// Where the picture lies in the frame's viewport of width x height pixels: its pixel (0, 0) is the
// viewport's pixel (left, bottom). The picture may be only the part of a frame that shows on the page.
struct RasterView
{
    int width = 0;
    int height = 0;
    int left = 0;
    int bottom = 0;
    int pictureWidth = 0;
    int pictureHeight = 0;
};

// Sets up a view's triangles for filling. Each node is placed once (against the clip planes and, when
// inside them all, in the window); a triangle of placed nodes is then clipped only when it crosses a plane.
class TriangleSetUp
{
public:
    explicit TriangleSetUp(const RasterView& view);

    struct Node
    {
        ClipVertex clip;
        WindowVertex window; // when outside is 0
        unsigned outside;    // a bit for each clip plane the node lies outside of; all when not finite
    };
    Node place(const ClipVertex& vertex) const;
    // Appends the pieces of the triangle that reach a pixel centre of the picture.
    void operator()(const Node& a, const Node& b, const Node& c, std::vector<RasterTriangle>& out) const;

private:
    // A plane a x + b y + c z + d w >= 0 of clip space, inside which a triangle is kept.
    struct Plane
    {
        float a, b, c, d;
        float distance(const ClipVertex& v) const { return a * v.x + b * v.y + c * v.z + d * v.w; }
    };

    WindowVertex toWindow(const ClipVertex& vertex) const;
    void setUpPiece(const WindowVertex* corner[3], std::vector<RasterTriangle>& out) const;

    RasterView m_view;
    std::array<Plane, 6> m_planes;
};

// Draws the triangle's pixels in rows [firstRow, endRow) (within its own rows) that pass the depth test.
void FillRows(const RasterTriangle& triangle, int firstRow, int endRow, const SurfaceLook& look,
              RasterPicture& picture);

} // namespace vantix::host::detail
