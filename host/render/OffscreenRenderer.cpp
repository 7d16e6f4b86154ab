#include "render/OffscreenRenderer.h"
#include "render/Render.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>

namespace vantix::host::detail
{

namespace
{

constexpr float Paper[3] = {1.0f, 1.0f, 1.0f};
// The frame height at which lines and markers have their plain widths; taller frames thicken them.
constexpr double ReferenceHeight = 600.0;

} // namespace

OffscreenRenderer& OffscreenRenderer::instance()
{
    static OffscreenRenderer renderer;
    return renderer;
}

OffscreenRenderer::OffscreenRenderer()
{
    GLint renderbuffer = 0, viewport[2] = {0, 0};
    glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &renderbuffer);
    glGetIntegerv(GL_MAX_VIEWPORT_DIMS, viewport);
    m_maxSize = std::min({renderbuffer, viewport[0], viewport[1], LargestPictureSide});
}

OffscreenRenderer::~OffscreenRenderer()
{
    try
    {
        m_context.makeCurrent();
    }
    catch (...)
    {
        // Nothing to be done at exit: the context goes with the process.
    }
}

int OffscreenRenderer::usableFactor(int width, int height, int supersample) const
{
    int factor = std::max(1, supersample);
    while (factor > 1 &&
           (static_cast<long>(width) * factor > m_maxSize || static_cast<long>(height) * factor > m_maxSize ||
            static_cast<long>(width) * height * factor * factor > MaxDrawnPixels))
        --factor;
    return factor;
}

int OffscreenRenderer::freeTarget() const
{
    if (m_pending[0] == 0)
        return 0;
    if (m_pending[1] == 0)
        return 1;
    throw std::logic_error("two pictures wait to be read already");
}

Image OffscreenRenderer::render(int width, int height, const std::vector<FrameSlot>& frames,
                                const SceneStyle& style, int supersample)
{
    const PendingPicture picture = drawPending(width, height, frames, style, supersample);
    glFinish();
    return readPending(picture);
}

PendingPicture OffscreenRenderer::drawPending(int width, int height, const std::vector<FrameSlot>& frames,
                                              const SceneStyle& style, int supersample)
{
    const int target = freeTarget();
    const int factor = draw(target, width, height, frames, style, supersample);
    glFlush(); // the rasteriser starts on the last part now
    m_pending[target] = ++m_drawings;
    return {target, m_drawings, factor};
}

void OffscreenRenderer::checkPending(const PendingPicture& picture) const
{
    if (picture.target < 0 || picture.target > 1 || m_pending[picture.target] != picture.drawing)
        throw std::logic_error("the picture is not waiting to be read");
}

Image OffscreenRenderer::readPending(const PendingPicture& picture)
{
    checkPending(picture);
    m_context.makeCurrent();
    m_pending[picture.target] = 0;
    // Read after the next picture was set up, this one is drawn by now: the rasteriser works through
    // what it was given in order, and reading waits only for what this target still takes part in.
    Image image = m_targets[picture.target].read();
    return picture.factor > 1 ? BoxFilter(image, picture.factor) : image;
}

void OffscreenRenderer::dropPending(const PendingPicture& picture)
{
    checkPending(picture);
    m_pending[picture.target] = 0;
}

int OffscreenRenderer::draw(int target, int width, int height, const std::vector<FrameSlot>& frames,
                            const SceneStyle& style, int supersample)
{
    if (width <= 0 || height <= 0)
        throw std::invalid_argument("cannot draw a picture of " + std::to_string(width) + " x " +
                                    std::to_string(height) + " pixels");
    if (width > m_maxSize || height > m_maxSize)
        throw std::invalid_argument("cannot draw a picture of " + std::to_string(width) + " x " +
                                    std::to_string(height) + " pixels: the most is " +
                                    std::to_string(m_maxSize) + " a side");
    m_context.makeCurrent();
    const int factor = usableFactor(width, height, supersample);
    const int drawnWidth = width * factor, drawnHeight = height * factor;
    m_targets[target].bind(drawnWidth, drawnHeight, m_depth);
    m_frames.dropUnusedGeometry();

    glDisable(GL_SCISSOR_TEST);
    glViewport(0, 0, drawnWidth, drawnHeight);
    glClearColor(Paper[0], Paper[1], Paper[2], 1.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    for (const FrameSlot& slot : frames)
    {
        // Edges are rounded, not sizes, so that frames that touch on the page touch in the picture.
        const auto column = [&](double f) { return static_cast<int>(std::lround(f * drawnWidth)); };
        const auto row = [&](double f) { return static_cast<int>(std::lround(f * drawnHeight)); };
        PixelRect rect;
        rect.x = column(slot.left);
        rect.width = column(slot.right) - rect.x;
        rect.y = drawnHeight - row(slot.bottom);
        rect.height = row(slot.bottom) - row(slot.top);
        // A frame's lines and markers keep their weight relative to the frame, whatever else is on the page.
        m_frames.draw(*slot.frame, style, rect,
                      std::max(static_cast<double>(factor), rect.height / ReferenceHeight),
                      {m_targets[target].colour(), m_depth.id(), drawnWidth, drawnHeight});
    }
    return factor;
}

Image BoxFilter(const Image& large, int factor)
{
    Image small;
    small.width = large.width / factor;
    small.height = large.height / factor;
    small.rgb.resize(static_cast<std::size_t>(small.width) * small.height * 3);
    const int area = factor * factor;
    std::vector<int> sums(static_cast<std::size_t>(small.width) * 3);
    for (int y = 0; y < small.height; ++y)
    {
        std::fill(sums.begin(), sums.end(), 0);
        for (int dy = 0; dy < factor; ++dy)
        {
            const std::uint8_t* source =
                large.rgb.data() + static_cast<std::size_t>(y * factor + dy) * large.width * 3;
            for (int x = 0; x < small.width * factor; ++x)
                for (int c = 0; c < 3; ++c)
                    sums[static_cast<std::size_t>(x / factor) * 3 + c] += source[x * 3 + c];
        }
        std::uint8_t* target = small.rgb.data() + static_cast<std::size_t>(y) * small.width * 3;
        for (std::size_t i = 0; i < sums.size(); ++i)
            target[i] = static_cast<std::uint8_t>((sums[i] + area / 2) / area);
    }
    return small;
}

} // namespace vantix::host::detail
