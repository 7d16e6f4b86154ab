#include "render/FrameRenderer.h"

#include "render/Camera.h"
#include "render/Colormap.h"
#include "render/StreamMarkers.h"
#include "render/ThrottledDraw.h"
#include "scene/DataSet.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace vantix::host::detail
{

namespace
{

constexpr int ColormapSize = 256;

// Colours of what is not coloured by the scalar.
constexpr float BackgroundTop[3] = {0.58f, 0.66f, 0.77f};
constexpr float BackgroundBottom[3] = {0.93f, 0.94f, 0.96f};
constexpr float PlainSurface[3] = {0.80f, 0.80f, 0.78f};
constexpr float MeshLine[3] = {0.56f, 0.57f, 0.60f};
constexpr float StreamtraceLine[3] = {0.10f, 0.12f, 0.17f};
constexpr float MarkerFill[3] = {1.0f, 0.84f, 0.05f};
constexpr float MarkerOutline[3] = {0.08f, 0.08f, 0.08f};
constexpr float AxisColours[3][3] = {{0.85f, 0.12f, 0.10f}, {0.10f, 0.58f, 0.12f}, {0.12f, 0.25f, 0.90f}};

// Lit and coloured per pixel. Software rasterising sets up and interpolates every varying of every
// triangle, which for meshes of small triangles costs more than the shading itself: the surface passes
// one vec4 (the eye-space normal and the colour map fraction, which is linear in the scalar and so may be
// interpolated in its place), and in perspective the fragment shader finds the direction to the viewer
// from the pixel's position instead of an interpolated eye-space position. It is built in a variant for
// each projection and for coloured and plain surfaces, since the rasteriser computes both sides of a choice.
const char* const SurfaceVertexShader = R"(
layout(location = 0) in vec3 position;
layout(location = 1) in vec3 normal;
layout(location = 2) in float scalar;
uniform mat4 modelToClip;
uniform mat4 modelToEye;
uniform vec2 scalarRange; // the lowest value and 1 / (highest - lowest)
out vec4 shading;
void main()
{
    gl_Position = modelToClip * vec4(position, 1.0);
    shading = vec4(mat3(modelToEye) * normal, (scalar - scalarRange.x) * scalarRange.y);
}
)";

const char* const SurfaceFragmentShader = R"(
in vec4 shading;
uniform sampler1D colormap;
uniform vec3 plainColour;
uniform vec4 pixelToViewer; // in perspective, (x, y) of the eye-space direction to the viewer at a pixel
uniform float ambient;
uniform float diffuse;
// The light comes from over the viewer's left shoulder, and moves with the viewer.
const vec3 lightDirection = vec3(-0.36, 0.46, 0.81);
out vec4 colour;
void main()
{
#ifdef COLOURED
    float fraction = clamp(shading.w, 0.0, 1.0);
    vec3 base = texture(colormap, (0.5 + fraction * 255.0) / 256.0).rgb;
#else
    vec3 base = plainColour;
#endif
#ifdef PERSPECTIVE
    vec3 toViewer = normalize(vec3(gl_FragCoord.xy * pixelToViewer.xy + pixelToViewer.zw, 1.0));
#else
    const vec3 toViewer = vec3(0.0, 0.0, 1.0);
#endif
    vec3 n = normalize(shading.xyz);
    if (dot(n, toViewer) < 0.0)
        n = -n; // both sides of a surface are lit alike
    float lambert = max(dot(n, lightDirection), 0.0);
    // The highlight's power 48 by multiplications: cheaper than pow() when rasterising in software.
    float h = max(dot(n, normalize(lightDirection + toViewer)), 0.0);
    float h2 = h * h, h4 = h2 * h2, h8 = h4 * h4, h16 = h8 * h8;
    float shine = h16 * h16 * h16 * 0.25;
    colour = vec4(base * (ambient + diffuse * lambert) + vec3(diffuse * shine), 1.0);
}
)";

ProgramOnDemand SurfaceProgram(bool perspective, bool coloured)
{
    std::string defines = "#version 330 core\n";
    if (perspective)
        defines += "#define PERSPECTIVE\n";
    if (coloured)
        defines += "#define COLOURED\n";
    return ProgramOnDemand("surface", defines + SurfaceVertexShader, defines + SurfaceFragmentShader);
}

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

const char* const BackgroundVertexShader = R"(#version 330 core
out float height;
void main()
{
    // One triangle that covers the viewport.
    vec2 p = vec2(gl_VertexID == 1 ? 3.0 : -1.0, gl_VertexID == 2 ? 3.0 : -1.0);
    height = (p.y + 1.0) / 2.0;
    gl_Position = vec4(p, 0.0, 1.0);
}
)";

const char* const BackgroundFragmentShader = R"(#version 330 core
in float height;
uniform vec3 top;
uniform vec3 bottom;
out vec4 colour;
void main()
{
    colour = vec4(mix(bottom, top, clamp(height, 0.0, 1.0)), 1.0);
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
    const DataSet& dataSet;
    const SceneStyle& style;
    Camera camera;
    PixelRect rect;
    double sizeScale;
    float light; // for what the light source does not shade
};

FrameRenderer::FrameRenderer()
    : m_surfacePrograms{SurfaceProgram(false, false), SurfaceProgram(false, true),
                        SurfaceProgram(true, false), SurfaceProgram(true, true)},
      m_lineProgram("line", LineVertexShader, LineFragmentShader),
      m_markerProgram("marker", MarkerVertexShader, MarkerFragmentShader),
      m_backgroundProgram("background", BackgroundVertexShader, BackgroundFragmentShader)
{
    const std::vector<std::uint8_t> table = ColormapTable(ColormapSize);
    glBindTexture(GL_TEXTURE_1D, m_colormap.id());
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glTexImage1D(GL_TEXTURE_1D, 0, GL_RGB8, ColormapSize, 0, GL_RGB, GL_UNSIGNED_BYTE, table.data());
    glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glBindVertexArray(m_scratchArray.id());
    glBindBuffer(GL_ARRAY_BUFFER, m_scratchBuffer.id());
    glEnableVertexAttribArray(0);
    glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
    glBindVertexArray(0);
}

void FrameRenderer::draw(const Frame& frame, const SceneStyle& style, const PixelRect& rect, double sizeScale)
{
    if (rect.width <= 0 || rect.height <= 0)
        return;
    const auto light = static_cast<float>(style.overallLight());
    glEnable(GL_SCISSOR_TEST);
    glScissor(rect.x, rect.y, rect.width, rect.height);
    glViewport(rect.x, rect.y, rect.width, rect.height);
    drawBackground(rect, light);
    if (frame.plotType != PlotType_Cartesian3D || !frame.dataSet)
    {
        glDisable(GL_SCISSOR_TEST);
        return;
    }

    const DataSet& dataSet = *frame.dataSet;
    const Context context{
        dataSet,
        style,
        MakeCamera(frame.view, static_cast<double>(rect.width) / rect.height, dataSet.bounds),
        rect,
        sizeScale,
        light};
    glClear(GL_DEPTH_BUFFER_BIT);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    for (const int number : dataSet.shownZones(frame.solutionTime))
    {
        const Zone& zone = dataSet.zone(number);
        if (zone.kind == ZoneKind::Surface)
            drawSurface(context, zone);
    }
    // Lines after every surface, so that the depth test hides exactly what lies behind a surface.
    for (const int number : dataSet.shownZones(frame.solutionTime))
    {
        const Zone& zone = dataSet.zone(number);
        if (zone.kind == ZoneKind::Streamtraces)
            drawStreamtraces(context, zone);
    }
    glDisable(GL_DEPTH_TEST);
    if (style.showFrameAxis)
        drawFrameAxis(context, rect);
    glBindVertexArray(0);
    glDisable(GL_SCISSOR_TEST);
}

void FrameRenderer::drawBackground(const PixelRect&, float light)
{
    glDisable(GL_DEPTH_TEST);
    const ShaderProgram& program = m_backgroundProgram.get();
    program.use();
    SetColour(program, "top", BackgroundTop, light);
    SetColour(program, "bottom", BackgroundBottom, light);
    glBindVertexArray(m_emptyArray.id());
    glDrawArrays(GL_TRIANGLES, 0, 3);
}

void FrameRenderer::drawSurface(const Context& context, const Zone& zone)
{
    const GpuSurface& gpu = m_geometry.surface(zone.surface);
    const DataSet& dataSet = context.dataSet;
    const ShaderProgram& program =
        m_surfacePrograms[2 * context.camera.perspective + (zone.scalar != nullptr)].get();
    program.use();
    program.set("modelToClip", context.camera.modelToClip);
    program.set("modelToEye", context.camera.modelToEye);
    program.set("colormap", 0);
    program.set("plainColour", PlainSurface[0], PlainSurface[1], PlainSurface[2]);
    program.set("scalarRange", dataSet.scalarMin, 1.0f / (dataSet.scalarMax - dataSet.scalarMin));
    if (context.camera.perspective)
        setPixelToViewer(program, context);
    program.set("ambient", static_cast<float>(context.style.backgroundLight / 100.0));
    program.set("diffuse", static_cast<float>(context.style.intensity / 100.0));
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_1D, m_colormap.id());

    glBindVertexArray(gpu.vertexArray.id());
    if (zone.scalar)
    {
        glBindBuffer(GL_ARRAY_BUFFER, m_geometry.scalar(zone.scalar));
        glEnableVertexAttribArray(2);
        glVertexAttribPointer(2, 1, GL_FLOAT, GL_FALSE, 0, nullptr);
    }
    else
    {
        glDisableVertexAttribArray(2);
        glVertexAttrib1f(2, 0.0f);
    }
    // Surfaces step back a little in depth so that lines drawn on them (their mesh lines, streamtraces
    // lying on them) win the depth test.
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(1.0f, 1.0f);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, gpu.triangles.id());
    FrontToBack(gpu.triangleParts, context.camera.modelToEye, m_partOrder);
    ThrottledDraw().triangles(m_partOrder);
    glDisable(GL_POLYGON_OFFSET_FILL);

    if (gpu.meshLineIndexCount > 0)
    {
        const ShaderProgram& lines = m_lineProgram.get();
        lines.use();
        lines.set("modelToClip", context.camera.modelToClip);
        SetColour(lines, "lineColour", MeshLine, context.light);
        lines.set("dashed", 0);
        glLineWidth(LineWidth(1.0, context.sizeScale));
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, gpu.meshLines.id());
        glDrawElements(GL_LINES, gpu.meshLineIndexCount, GL_UNSIGNED_INT, nullptr);
    }
}

void FrameRenderer::setPixelToViewer(const ShaderProgram& program, const Context& context)
{
    // The viewer sees the pixel at normalised device coordinates (u, v) along the eye-space direction
    // (u / p0, v / p1, -1), p0 and p1 the projection's scales, so the direction back to the viewer is
    // (-u / p0, -v / p1, 1), with u = 2 (x - left) / width - 1 at window position x (and v likewise).
    const PixelRect& rect = context.rect;
    const auto axis = [](int first, int size, float scale) {
        return std::array<float, 2>{-2.0f / (size * scale), (2.0f * first / size + 1.0f) / scale};
    };
    const auto x = axis(rect.x, rect.width, context.camera.projectionScale[0]);
    const auto y = axis(rect.y, rect.height, context.camera.projectionScale[1]);
    program.set("pixelToViewer", x[0], y[0], x[1], y[1]);
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
