#include "render/SurfaceRaster.h"
#include "render/SurfaceShading.h"

#include <algorithm>
#include <cmath>

namespace vantix::host::detail
{

namespace
{

constexpr int SubPixels = 256; // snapping: GL's 8 bits of sub-pixel precision
constexpr int SubPixelBits = 8;
constexpr int HalfPixel = SubPixels / 2;
// One unit of depth offset: the smallest difference a depth of 24 bits tells apart.
constexpr float DepthUnit = 1.0f / (1 << 24);

ClipVertex Mix(const ClipVertex& p, const ClipVertex& q, float t)
{
    const auto mix = [t](float a, float b) { return a + (b - a) * t; };
    return {mix(p.x, q.x),   mix(p.y, q.y),   mix(p.z, q.z),   mix(p.w, q.w),
            mix(p.nx, q.nx), mix(p.ny, q.ny), mix(p.nz, q.nz), mix(p.fraction, q.fraction)};
}

// First row (or column) whose pixel centre lies at or above the snapped position, and the row after the
// last at or below one.
int FirstCentreFrom(std::int64_t position)
{
    return static_cast<int>((position - HalfPixel + SubPixels - 1) >> SubPixelBits);
}

int EndCentreTo(std::int64_t position)
{
    return static_cast<int>(((position - HalfPixel) >> SubPixelBits) + 1);
}

// Nearest 1/256 pixel, halves away from zero; the guard band keeps positions far inside 32 bits.
std::int32_t Snap(float pixels)
{
    const float scaled = pixels * SubPixels;
    return static_cast<std::int32_t>(scaled + (scaled >= 0.0f ? 0.5f : -0.5f));
}

} // namespace

void RasterPicture::reset(int newWidth, int newHeight)
{
    width = newWidth;
    height = newHeight;
    const std::size_t size = static_cast<std::size_t>(width) * height;
    // A picture far larger than the next (an antialiased still before a movie) does not stay in memory.
    if (colour.capacity() > 4 * size)
    {
        std::vector<std::uint32_t>().swap(colour);
        std::vector<float>().swap(depth);
    }
    colour.resize(size);
    depth.assign(size, 1.0f);
}

void RasterPicture::fillRow(int y, std::uint32_t rowColour)
{
    std::fill_n(colour.begin() + static_cast<std::ptrdiff_t>(y) * width, width, rowColour);
}

ClipVertex TransformNode(const SurfaceArrays& mesh, std::uint32_t node, const Matrix4& modelToClip,
                         const Matrix4& modelToEye, const SurfaceLook& look)
{
    const float* p = mesh.positions + 3 * std::size_t(node);
    const float* n = mesh.normals + 3 * std::size_t(node);
    const Matrix4& c = modelToClip;
    const Matrix4& e = modelToEye;
    ClipVertex v;
    v.x = c[0] * p[0] + c[4] * p[1] + c[8] * p[2] + c[12];
    v.y = c[1] * p[0] + c[5] * p[1] + c[9] * p[2] + c[13];
    v.z = c[2] * p[0] + c[6] * p[1] + c[10] * p[2] + c[14];
    v.w = c[3] * p[0] + c[7] * p[1] + c[11] * p[2] + c[15];
    v.nx = e[0] * n[0] + e[4] * n[1] + e[8] * n[2];
    v.ny = e[1] * n[0] + e[5] * n[1] + e[9] * n[2];
    v.nz = e[2] * n[0] + e[6] * n[1] + e[10] * n[2];
    v.fraction = mesh.scalars ? (mesh.scalars[node] - look.scalarLowest) * look.scalarScale : 0.0f;
    return v;
}

TriangleSetUp::TriangleSetUp(const RasterView& view) : m_view(view)
{
    // The near and far planes, and a guard band around the picture: pieces reaching further out are cut
    // so that their snapped corners stay small enough for exact edge arithmetic in 64 bits, while most
    // triangles that only stick out of the picture are drawn whole. Window x = (x / w + 1) width / 2 -
    // left is kept within [-margin, pictureWidth + margin], and y likewise.
    const float margin = 4.0f * static_cast<float>(view.pictureWidth + view.pictureHeight) + 64.0f;
    const auto lower = [margin](int size, int offset) {
        return Plane{0.5f * size, 0.0f, 0.0f, 0.5f * size - static_cast<float>(offset) + margin};
    };
    const auto upper = [margin](int size, int offset, int pictureSize) {
        return Plane{-0.5f * size, 0.0f, 0.0f,
                     static_cast<float>(pictureSize + offset) + margin - 0.5f * size};
    };
    Plane bottom = lower(view.height, view.bottom), top = upper(view.height, view.bottom, view.pictureHeight);
    std::swap(bottom.a, bottom.b);
    std::swap(top.a, top.b);
    m_planes = {Plane{0, 0, 1, 1},
                Plane{0, 0, -1, 1},
                lower(view.width, view.left),
                upper(view.width, view.left, view.pictureWidth),
                bottom,
                top};
}

TriangleSetUp::Node TriangleSetUp::place(const ClipVertex& vertex) const
{
    Node node{vertex, {}, 0};
    if (!std::isfinite(vertex.x) || !std::isfinite(vertex.y) || !std::isfinite(vertex.z) ||
        !std::isfinite(vertex.w))
    {
        node.outside = ~0u;
        return node;
    }
    for (std::size_t p = 0; p < m_planes.size(); ++p)
        node.outside |= (m_planes[p].distance(vertex) < 0.0f ? 1u : 0u) << p;
    if (node.outside == 0)
        node.window = toWindow(vertex);
    return node;
}

WindowVertex TriangleSetUp::toWindow(const ClipVertex& v) const
{
    const float q = 1.0f / v.w; // w > 0 inside the near plane
    WindowVertex window;
    window.x =
        Snap((v.x * q + 1.0f) * 0.5f * static_cast<float>(m_view.width) - static_cast<float>(m_view.left));
    window.y =
        Snap((v.y * q + 1.0f) * 0.5f * static_cast<float>(m_view.height) - static_cast<float>(m_view.bottom));
    window.z = (v.z * q + 1.0f) * 0.5f;
    window.overW = {q, v.nx * q, v.ny * q, v.nz * q, v.fraction * q};
    return window;
}

void TriangleSetUp::operator()(const Node& a, const Node& b, const Node& c,
                               std::vector<RasterTriangle>& out) const
{
    if (a.outside & b.outside & c.outside)
        return; // wholly outside one plane (or not a number)
    if ((a.outside | b.outside | c.outside) == 0)
    {
        const WindowVertex* corners[3] = {&a.window, &b.window, &c.window};
        setUpPiece(corners, out);
        return;
    }
    if ((a.outside | b.outside | c.outside) == ~0u)
        return; // a corner that is not a number
    // Cut at each plane a corner lies outside of, then draw the polygon left as a fan.
    ClipVertex buffers[2][9];
    int count = 3;
    ClipVertex* polygon = buffers[0];
    ClipVertex* next = buffers[1];
    polygon[0] = a.clip;
    polygon[1] = b.clip;
    polygon[2] = c.clip;
    const unsigned crossed = a.outside | b.outside | c.outside;
    for (std::size_t p = 0; p < m_planes.size() && count >= 3; ++p)
    {
        if (!(crossed & (1u << p)))
            continue;
        int kept = 0;
        for (int i = 0; i < count; ++i)
        {
            const ClipVertex& from = polygon[i];
            const ClipVertex& to = polygon[(i + 1) % count];
            const float d0 = m_planes[p].distance(from), d1 = m_planes[p].distance(to);
            if (d0 >= 0.0f)
                next[kept++] = from;
            // Always from the corner inside to the one outside, so that two triangles sharing the edge
            // cut it at exactly the same point.
            if (d0 >= 0.0f && d1 < 0.0f)
                next[kept++] = Mix(from, to, d0 / (d0 - d1));
            else if (d0 < 0.0f && d1 >= 0.0f)
                next[kept++] = Mix(to, from, d1 / (d1 - d0));
        }
        count = kept;
        std::swap(polygon, next);
    }
    WindowVertex window[9];
    for (int i = 0; i < count; ++i)
    {
        if (!(polygon[i].w > 0.0f))
            return; // cut to nothing by rounding
        window[i] = toWindow(polygon[i]);
    }
    for (int i = 1; i + 1 < count; ++i)
    {
        const WindowVertex* piece[3] = {&window[0], &window[i], &window[i + 1]};
        setUpPiece(piece, out);
    }
}

void TriangleSetUp::setUpPiece(const WindowVertex* corner[3], std::vector<RasterTriangle>& out) const
{
    RasterTriangle t;
    for (int i = 0; i < 3; ++i)
    {
        t.x[i] = corner[i]->x;
        t.y[i] = corner[i]->y;
    }
    // Most triangles of a big mesh are small: those that reach no pixel centre are left first.
    const int minX = std::min({t.x[0], t.x[1], t.x[2]}), maxX = std::max({t.x[0], t.x[1], t.x[2]});
    const int minY = std::min({t.y[0], t.y[1], t.y[2]}), maxY = std::max({t.y[0], t.y[1], t.y[2]});
    t.firstColumn = std::max(0, FirstCentreFrom(minX));
    t.endColumn = std::min(m_view.pictureWidth, EndCentreTo(maxX));
    t.firstRow = std::max(0, FirstCentreFrom(minY));
    t.endRow = std::min(m_view.pictureHeight, EndCentreTo(maxY));
    if (t.firstColumn >= t.endColumn || t.firstRow >= t.endRow)
        return;
    const std::int64_t area =
        std::int64_t(t.x[1] - t.x[0]) * (t.y[2] - t.y[0]) - std::int64_t(t.y[1] - t.y[0]) * (t.x[2] - t.x[0]);
    if (area == 0)
        return;
    if (area < 0) // both faces are drawn: turn the back face's corners round
    {
        std::swap(corner[1], corner[2]);
        std::swap(t.x[1], t.x[2]);
        std::swap(t.y[1], t.y[2]);
    }
    for (int i = 0; i < 3; ++i)
    {
        // Of an edge two triangles share, only the triangle it bounds on the left or from above draws
        // the pixels whose centres lie on it.
        const int j = (i + 1) % 3;
        const int dx = t.x[j] - t.x[i], dy = t.y[j] - t.y[i];
        t.bias[i] = (dy < 0 || (dy == 0 && dx < 0)) ? 0 : -1;
    }
    constexpr float Pixel = 1.0f / SubPixels;
    t.originX = static_cast<float>(t.x[0]) * Pixel;
    t.originY = static_cast<float>(t.y[0]) * Pixel;
    const float dx1 = static_cast<float>(t.x[1] - t.x[0]) * Pixel,
                dy1 = static_cast<float>(t.y[1] - t.y[0]) * Pixel;
    const float dx2 = static_cast<float>(t.x[2] - t.x[0]) * Pixel,
                dy2 = static_cast<float>(t.y[2] - t.y[0]) * Pixel;
    const float inverse = 1.0f / (static_cast<float>(std::abs(area)) * (Pixel * Pixel));
    // The plane through three values at the corners: value at corner 0, d/dx, d/dy.
    const auto plane = [&](float v0, float v1, float v2)
    {
        const float d1 = v1 - v0, d2 = v2 - v0;
        return std::array<float, 3>{v0, (d1 * dy2 - d2 * dy1) * inverse, (dx1 * d2 - dx2 * d1) * inverse};
    };
    t.depth = plane(corner[0]->z, corner[1]->z, corner[2]->z);
    // As glPolygonOffset(1, 1): back by the depth's steepest slope and one unit.
    t.depth[0] += std::max(std::abs(t.depth[1]), std::abs(t.depth[2])) + DepthUnit;
    for (std::size_t k = 0; k < t.planes.size(); ++k)
        t.planes[k] = plane(corner[0]->overW[k], corner[1]->overW[k], corner[2]->overW[k]);
    out.push_back(t);
}

namespace
{

// The colour of pixels at (x, y) from the triangle's corner 0, from the attributes interpolated there.
template <typename Real>
void ShadeAt(const RasterTriangle& t, const SurfaceLook& look, Real x, Real y, Real (&rgb)[3])
{
    const auto& [q, nx, ny, nz, f] = t.planes;
    const Real w = 1.0f / (q[0] + q[1] * x + q[2] * y);
    const auto at = [x, y, w](const std::array<float, 3>& p) { return (p[0] + p[1] * x + p[2] * y) * w; };
    const Real normal[3] = {at(nx), at(ny), at(nz)};
    ShadePixels<Real>(look, x + t.originX, y + t.originY, normal, at(f), rgb);
}

// Rows of triangles at most this wide are walked pixel by pixel; wider ones find where each row's
// covered pixels start and end, which costs divisions.
constexpr int NarrowColumns = 8;

// The pixels [first, end) of a row of count pixels whose centres the triangle covers, from the edge
// values at the first one and their steps from pixel to pixel. A triangle is convex, so they are one run.
std::pair<int, int> CoveredSpan(const std::int64_t (&start)[3], const std::int64_t (&step)[3], int count)
{
    std::int64_t first = 0, end = count;
    for (int i = 0; i < 3; ++i)
    {
        if (step[i] > 0) // covered from where the edge value reaches 0
        {
            if (start[i] < 0)
                first = std::max(first, (-start[i] + step[i] - 1) / step[i]);
        }
        else if (step[i] < 0) // covered until the edge value falls below 0
            end = std::min(end, start[i] < 0 ? std::int64_t(0) : start[i] / -step[i] + 1);
        else if (start[i] < 0)
            return {0, 0};
    }
    return {static_cast<int>(first), static_cast<int>(std::max(first, end))};
}

} // namespace

void FillRows(const RasterTriangle& t, int firstRow, int endRow, const SurfaceLook& look,
              RasterPicture& picture)
{
    firstRow = std::max(firstRow, t.firstRow);
    endRow = std::min(endRow, t.endRow);
    std::int64_t stepX[3], stepY[3], rowStart[3];
    const std::int64_t startX = std::int64_t(t.firstColumn) * SubPixels + HalfPixel;
    const std::int64_t startY = std::int64_t(firstRow) * SubPixels + HalfPixel;
    for (int i = 0; i < 3; ++i)
    {
        const int j = (i + 1) % 3;
        const std::int64_t dx = t.x[j] - t.x[i], dy = t.y[j] - t.y[i];
        stepX[i] = -dy * SubPixels;
        stepY[i] = dx * SubPixels;
        rowStart[i] = dx * (startY - t.y[i]) - dy * (startX - t.x[i]) + t.bias[i];
    }
    const int columns = t.endColumn - t.firstColumn;
    const float firstX = static_cast<float>(t.firstColumn) + 0.5f - t.originX;
    for (int row = firstRow; row < endRow; ++row)
    {
        const float y = static_cast<float>(row) + 0.5f - t.originY;
        float* depth = picture.depth.data() + static_cast<std::size_t>(row) * picture.width + t.firstColumn;
        std::uint32_t* colour =
            picture.colour.data() + static_cast<std::size_t>(row) * picture.width + t.firstColumn;
        if (columns <= NarrowColumns)
        {
            std::int64_t e0 = rowStart[0], e1 = rowStart[1], e2 = rowStart[2];
            for (int k = 0; k < columns; ++k, e0 += stepX[0], e1 += stepX[1], e2 += stepX[2])
            {
                if ((e0 | e1 | e2) < 0)
                    continue;
                const float x = firstX + static_cast<float>(k);
                const float z = Saturate(t.depth[0] + t.depth[1] * x + t.depth[2] * y);
                if (!(z <= depth[k]))
                    continue;
                depth[k] = z;
                float rgb[3];
                ShadeAt(t, look, x, y, rgb);
                colour[k] = PackColour(rgb[0], rgb[1], rgb[2]);
            }
        }
        else
        {
            // Four pixels at a time, those that pass the depth test written.
            const auto [first, end] = CoveredSpan(rowStart, stepX, columns);
            for (int k = first; k < end; k += 4)
            {
                const int count = std::min(4, end - k);
                const Float4 x = firstX + static_cast<float>(k) + Float4{0.0f, 1.0f, 2.0f, 3.0f};
                const Float4 z = Saturate(t.depth[0] + t.depth[1] * x + t.depth[2] * y);
                bool pass[4] = {false, false, false, false};
                bool any = false;
                for (int i = 0; i < count; ++i)
                    any |= pass[i] = z[i] <= depth[k + i];
                if (!any)
                    continue;
                Float4 rgb[3];
                ShadeAt(t, look, x, Float4{} + y, rgb);
                for (int i = 0; i < count; ++i)
                    if (pass[i])
                    {
                        depth[k + i] = z[i];
                        colour[k + i] = PackColour(rgb[0][i], rgb[1][i], rgb[2][i]);
                    }
            }
        }
        for (int i = 0; i < 3; ++i)
            rowStart[i] += stepY[i];
    }
}

} // namespace vantix::host::detail
