#include "render/FrameRenderer.h"

#include "render/Camera.h"
#include "render/Colormap.h"
#include "render/StreamMarkers.h"
#include "scene/DataSet.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace vantix::host::detail
{

namespace
{

constexpr int ColormapSize = 256;
// The framebuffer's rows are the picture's: 4-byte colours and depths.
constexpr GLint PictureRowAlignment = 4;

// Colours of what is not coloured by the scalar.
constexpr float BackgroundTop[3] = {0.58f, 0.66f, 0.77f};
constexpr float BackgroundBottom[3] = {0.93f, 0.94f, 0.96f};
constexpr std::array<float, 3> PlainSurface = {0.80f, 0.80f, 0.78f};
constexpr float MeshLine[3] = {0.56f, 0.57f, 0.60f};
constexpr float StreamtraceLine[3] = {0.10f, 0.12f, 0.17f};
constexpr float MarkerFill[3] = {1.0f, 0.84f, 0.05f};
constexpr float MarkerOutline[3] = {0.08f, 0.08f, 0.08f};
constexpr float AxisColours[3][3] = {{0.85f, 0.12f, 0.10f}, {0.10f, 0.58f, 0.12f}, {0.12f, 0.25f, 0.90f}};

const char* const LineVertexShader = R"(#version 330 core
layout(location = 0) in vec3 position;
layout(location = 1) in float time;
uniform mat4 modelToClip;
out float lineTime;
void main()
{
    gl_Position = modelToClip * vec4(position, 1.0);
    lineTime = time;
}
)";

const char* const LineFragmentShader = R"(#version 330 core
in float lineTime;
uniform vec3 lineColour;
uniform int dashed;
uniform float anchor;
uniform float delta;
out vec4 colour;
void main()
{
    // On from the anchor for one delta, off for the next, and so on both ways.
    if (dashed != 0 && mod(floor((lineTime - anchor) / delta), 2.0) > 0.5)
        discard;
    colour = vec4(lineColour, 1.0);
}
)";

const char* const MarkerVertexShader = R"(#version 330 core
layout(location = 0) in vec3 position;
uniform mat4 modelToClip;
uniform float size;
void main()
{
    gl_Position = modelToClip * vec4(position, 1.0);
    gl_PointSize = size;
}
)";

const char* const MarkerFragmentShader = R"(#version 330 core
uniform vec3 fill;
uniform vec3 outline;
out vec4 colour;
void main()
{
    vec2 d = gl_PointCoord * 2.0 - 1.0;
    float r = dot(d, d);
    if (r > 1.0)
        discard;
    colour = vec4(r > 0.42 ? outline : fill, 1.0);
}
)";

const Matrix4 Identity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

void SetColour(const ShaderProgram& program, const char* name, const float (&colour)[3], float light)
{
    program.set(name, colour[0] * light, colour[1] * light, colour[2] * light);
}

// Whole pixels: lines of a fractional width look no better and cost more to rasterise.
float LineWidth(double width, double sizeScale)
{
    return static_cast<float>(std::max(1.0, std::round(width * sizeScale)));
}

// The strokes of the axis letters in a box from -1 to 1, two points a stroke.
const std::vector<std::array<float, 4>>& Letter(int axis)
{
    static const std::vector<std::array<float, 4>> letters[3] = {
        {{-1, -1, 1, 1}, {-1, 1, 1, -1}},
        {{-1, 1, 0, 0}, {1, 1, 0, 0}, {0, 0, 0, -1}},
        {{-1, 1, 1, 1}, {1, 1, -1, -1}, {-1, -1, 1, -1}},
    };
    return letters[axis];
}

} // namespace

struct FrameRenderer::Context
{
    const DataSet* dataSet; // null: the frame shows no 3D data
    const SceneStyle& style;
    Camera camera;
    PixelRect rect;
    RasterView view; // the part of rect on the target
    double sizeScale;
    float light; // for what the light source does not shade
};

FrameRenderer::FrameRenderer()
    : m_lineProgram("line", LineVertexShader, LineFragmentShader),
      m_markerProgram("marker", MarkerVertexShader, MarkerFragmentShader),
      m_colormap(ColormapTable(ColormapSize))
{
    glBindVertexArray(m_scratchArray.id());
    glBindBuffer(GL_ARRAY_BUFFER, m_scratchBuffer.id());
    glEnableVertexAttribArray(0);
    glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
    glBindVertexArray(0);
}

void FrameRenderer::draw(const Frame& frame, const SceneStyle& style, const PixelRect& rect, double sizeScale,
                         const TargetTextures& target)
{
    const int left = std::max(rect.x, 0), bottom = std::max(rect.y, 0);
    const int right = std::min(rect.x + rect.width, target.width);
    const int top = std::min(rect.y + rect.height, target.height);
    if (rect.width <= 0 || rect.height <= 0 || right <= left || top <= bottom)
        return;
    const bool threeD = frame.plotType == PlotType_Cartesian3D && frame.dataSet;
    const RasterView view{rect.width,      rect.height,  left - rect.x,
                          bottom - rect.y, right - left, top - bottom};
    const Context context{
        threeD ? frame.dataSet.get() : nullptr,
        style,
        threeD ? MakeCamera(frame.view, static_cast<double>(rect.width) / rect.height, frame.dataSet->bounds)
               : Camera{},
        rect,
        view,
        sizeScale,
        static_cast<float>(style.overallLight())};
    m_picture.reset(view.pictureWidth, view.pictureHeight);
    fillBackground(context);
    if (threeD)
        for (const int number : context.dataSet->shownZones(frame.solutionTime))
        {
            const Zone& zone = context.dataSet->zone(number);
            if (zone.kind == ZoneKind::Surface)
                drawSurface(context, zone);
        }
    putPicture(context, target);
    if (!threeD)
        return;

    glEnable(GL_SCISSOR_TEST);
    glScissor(rect.x, rect.y, rect.width, rect.height);
    glViewport(rect.x, rect.y, rect.width, rect.height);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    // Lines after every surface, so that the depth test hides exactly what lies behind a surface.
    for (const int number : context.dataSet->shownZones(frame.solutionTime))
    {
        const Zone& zone = context.dataSet->zone(number);
        if (zone.kind == ZoneKind::Surface)
            drawMeshLines(context, zone);
        else if (zone.kind == ZoneKind::Streamtraces)
            drawStreamtraces(context, zone);
    }
    glDisable(GL_DEPTH_TEST);
    if (style.showFrameAxis)
        drawFrameAxis(context, rect);
    glBindVertexArray(0);
    glDisable(GL_SCISSOR_TEST);
}

void FrameRenderer::fillBackground(const Context& context)
{
    // Blended from the bottom colour to the top one, at the centre of each of the frame's rows.
    const RasterView& view = context.view;
    for (int y = 0; y < view.pictureHeight; ++y)
    {
        const float t = (static_cast<float>(y + view.bottom) + 0.5f) / static_cast<float>(view.height);
        const auto at = [&](int c)
        { return (BackgroundBottom[c] + (BackgroundTop[c] - BackgroundBottom[c]) * t) * context.light; };
        m_picture.fillRow(y, PackColour(at(0), at(1), at(2)));
    }
}

void FrameRenderer::drawSurface(const Context& context, const Zone& zone)
{
    const CachedSurface& surface = m_geometry.surface(zone.surface);
    const DataSet& dataSet = *context.dataSet;
    const Camera& camera = context.camera;
    SurfaceLook look;
    look.ambient = static_cast<float>(context.style.backgroundLight / 100.0);
    look.diffuse = static_cast<float>(context.style.intensity / 100.0);
    look.plainColour = PlainSurface;
    look.colormap = zone.scalar ? m_colormap.data() : nullptr;
    look.scalarLowest = static_cast<float>(dataSet.scalarMin);
    look.scalarScale = static_cast<float>(1.0 / (dataSet.scalarMax - dataSet.scalarMin));
    look.perspective = camera.perspective;
    if (camera.perspective)
    {
        // The viewer sees the viewport's pixel at normalised device coordinates (u, v) along the eye-space
        // direction (u / p0, v / p1, -1), p0 and p1 the projection's scales, so the direction back to the
        // viewer is (-u / p0, -v / p1, 1), with u = 2 (x + left) / width - 1 at the picture's x.
        const auto axis = [](int left, int size, float scale) {
            return std::array<float, 2>{-2.0f / (size * scale), (1.0f - 2.0f * left / size) / scale};
        };
        const auto x = axis(context.view.left, context.view.width, camera.projectionScale[0]);
        const auto y = axis(context.view.bottom, context.view.height, camera.projectionScale[1]);
        look.pixelToViewer = {x[0], y[0], x[1], y[1]};
    }
    const SurfaceArrays arrays{surface.positions.data(), surface.normals.data(),
                               zone.scalar ? zone.scalar->data() : nullptr,
                               surface.triangles.shortCorners.data(), surface.triangles.longCorners.data()};
    FrontToBack(surface.triangles.parts, camera.modelToEye, m_partOrder);
    m_rasteriser.draw(arrays, m_partOrder, camera, look, context.view, m_picture);
}

void FrameRenderer::putPicture(const Context& context, const TargetTextures& target) const
{
    const RasterView& view = context.view;
    const int x = context.rect.x + view.left, y = context.rect.y + view.bottom;
    glPixelStorei(GL_UNPACK_ALIGNMENT, PictureRowAlignment);
    glBindTexture(GL_TEXTURE_2D, target.colour);
    glTexSubImage2D(GL_TEXTURE_2D, 0, x, y, view.pictureWidth, view.pictureHeight, GL_RGBA, GL_UNSIGNED_BYTE,
                    m_picture.colour.data());
    glBindTexture(GL_TEXTURE_2D, target.depth);
    glTexSubImage2D(GL_TEXTURE_2D, 0, x, y, view.pictureWidth, view.pictureHeight, GL_DEPTH_COMPONENT,
                    GL_FLOAT, m_picture.depth.data());
    glBindTexture(GL_TEXTURE_2D, 0);
}

void FrameRenderer::drawMeshLines(const Context& context, const Zone& zone)
{
    const CachedSurface& surface = m_geometry.surface(zone.surface);
    if (surface.lineIndexCount == 0)
        return;
    const ShaderProgram& lines = m_lineProgram.get();
    lines.use();
    lines.set("modelToClip", context.camera.modelToClip);
    SetColour(lines, "lineColour", MeshLine, context.light);
    lines.set("dashed", 0);
    glVertexAttrib1f(1, 0.0f);
    glLineWidth(LineWidth(1.0, context.sizeScale));
    glBindVertexArray(surface.lineArray.id());
    glDrawElements(GL_LINES, surface.lineIndexCount, GL_UNSIGNED_INT, nullptr);
}

void FrameRenderer::drawStreamtraces(const Context& context, const Zone& zone)
{
    const GpuStreamtraces& gpu = m_geometry.streamtraces(zone.streamtraces);
    const SceneStyle& style = context.style;
    const bool timed = style.deltaTime > 0.0 && std::isfinite(style.timeAnchor);
    const ShaderProgram& lines = m_lineProgram.get();
    lines.use();
    lines.set("modelToClip", context.camera.modelToClip);
    SetColour(lines, "lineColour", StreamtraceLine, context.light);
    lines.set("dashed", style.showDashes && timed ? 1 : 0);
    lines.set("anchor", static_cast<float>(style.timeAnchor));
    lines.set("delta", static_cast<float>(style.deltaTime));
    glLineWidth(LineWidth(1.6, context.sizeScale));
    glBindVertexArray(gpu.vertexArray.id());
    // The lines are hidden by surfaces but leave no depth behind: a marker is a flat disc at one depth,
    // and a line that runs towards the viewer would otherwise cut through the half of it that lies behind.
    glDepthMask(GL_FALSE);
    glMultiDrawArrays(GL_LINE_STRIP, gpu.firsts.data(), gpu.counts.data(),
                      static_cast<GLsizei>(gpu.counts.size()));
    glDepthMask(GL_TRUE);

    if (!style.showMarkers || !timed)
        return;
    const std::vector<float> markers = MarkerPositions(*zone.streamtraces, style.timeAnchor, style.deltaTime);
    if (markers.empty())
        return;
    const ShaderProgram& disc = m_markerProgram.get();
    disc.use();
    disc.set("modelToClip", context.camera.modelToClip);
    disc.set("size", static_cast<float>(std::max(3.0, 7.0 * context.sizeScale)));
    SetColour(disc, "fill", MarkerFill, context.light);
    SetColour(disc, "outline", MarkerOutline, context.light);
    glEnable(GL_PROGRAM_POINT_SIZE);
    bindScratch(markers);
    glDrawArrays(GL_POINTS, 0, static_cast<GLsizei>(markers.size() / 3));
}

void FrameRenderer::drawFrameAxis(const Context& context, const PixelRect& rect)
{
    // A triad in the lower left corner: where the model's X, Y and Z axes point in the picture.
    const int shortSide = std::min(rect.width, rect.height);
    const int size =
        std::min(shortSide / 3, std::max(static_cast<int>(12 * context.sizeScale), shortSide / 6));
    const int margin = std::max(1, size / 8);
    glViewport(rect.x + margin, rect.y + margin, size, size);
    const ShaderProgram& lines = m_lineProgram.get();
    lines.use();
    lines.set("modelToClip", Identity);
    lines.set("dashed", 0);
    glVertexAttrib1f(1, 0.0f);
    glLineWidth(LineWidth(2.0, context.sizeScale));
    const Matrix3& m = context.camera.rotation;
    constexpr float Length = 0.55f, LetterAt = 0.75f, LetterSize = 0.11f;
    for (int axis = 0; axis < 3; ++axis)
    {
        // The model axis seen in the eye: column `axis` of M, right and up.
        const float right = static_cast<float>(m[axis]), up = static_cast<float>(m[3 + axis]);
        std::vector<float> strokes = {0.0f, 0.0f, 0.0f, Length * right, Length * up, 0.0f};
        for (const auto& s : Letter(axis))
            strokes.insert(strokes.end(),
                           {LetterAt * right + LetterSize * s[0], LetterAt * up + LetterSize * s[1], 0.0f,
                            LetterAt * right + LetterSize * s[2], LetterAt * up + LetterSize * s[3], 0.0f});
        SetColour(lines, "lineColour", AxisColours[axis], context.light);
        bindScratch(strokes);
        glDrawArrays(GL_LINES, 0, static_cast<GLsizei>(strokes.size() / 3));
    }
    glViewport(rect.x, rect.y, rect.width, rect.height);
}

void FrameRenderer::bindScratch(const std::vector<float>& points)
{
    glBindVertexArray(m_scratchArray.id());
    glBindBuffer(GL_ARRAY_BUFFER, m_scratchBuffer.id());
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(points.size() * sizeof(float)), points.data(),
                 GL_STREAM_DRAW);
}

} // namespace vantix::host::detail
