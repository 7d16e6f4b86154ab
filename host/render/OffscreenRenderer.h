// The host's one renderer: made on the first picture and kept for the life of the process (a context
// and its shaders are costly to make; the geometry uploaded for a data set is kept while it lives).
#pragma once

#include "core/Image.h"
#include "render/FrameRenderer.h"
#include "render/OffscreenContext.h"
#include "render/Render.h"
#include "render/RenderTarget.h"

#include <memory>
#include <vector>

namespace vantix::host::detail
{

// A frame and where it goes in the picture, as fractions of the picture's width and height from its top
// left corner.
struct FrameSlot
{
    const Frame* frame = nullptr;
    double left = 0.0, top = 0.0, right = 1.0, bottom = 1.0;
};

class OffscreenRenderer
{
public:
    // Throws std::runtime_error when no offscreen context can be made; the next call tries again.
    static OffscreenRenderer& instance();
    // Makes the context current again first (a window's may be current by then), so that the GL objects
    // are deleted in the context they belong to.
    ~OffscreenRenderer();
    OffscreenRenderer(const OffscreenRenderer&) = delete;
    OffscreenRenderer& operator=(const OffscreenRenderer&) = delete;

    // The largest picture drawn at once; a supersample factor is lowered to stay within it.
    static constexpr long MaxDrawnPixels = 36L * 1000 * 1000;

    // Draws a picture of width x height pixels: the paper colour, then the frames in the order given
    // (bottom of the stack first). With a supersample factor above 1 the picture is drawn that many times
    // larger each way and each block of factor x factor pixels is averaged into one.
    Image render(int width, int height, const std::vector<FrameSlot>& frames, const SceneStyle& style,
                 int supersample);
    // The same picture left in one of the two render targets, for readPending() to read later; the other
    // target stays free for the next picture (see DrawRegionPending).
    PendingPicture drawPending(int width, int height, const std::vector<FrameSlot>& frames,
                               const SceneStyle& style, int supersample);
    Image readPending(const PendingPicture& picture);
    void dropPending(const PendingPicture& picture);
    const std::string& description() const { return m_context.description(); }

private:
    OffscreenRenderer();
    int usableFactor(int width, int height, int supersample) const;
    // A render target that holds no pending picture. Throws std::logic_error when both do.
    int freeTarget() const;
    // Draws into a target; answers the supersample factor used.
    int draw(int target, int width, int height, const std::vector<FrameSlot>& frames, const SceneStyle& style,
             int supersample);
    void checkPending(const PendingPicture& picture) const;

    // Declared first, destroyed last: every GL object below is deleted while the context still exists.
    OffscreenContext m_context;
    FrameRenderer m_frames;
    DepthBuffer m_depth;
    RenderTarget m_targets[2];
    long m_pending[2] = {0, 0}; // the drawing a target holds unread; 0 when it holds none
    long m_drawings = 0;
    int m_maxSize = 0;
};

// Averages every block of factor x factor pixels of a picture into one pixel.
Image BoxFilter(const Image& large, int factor);

} // namespace vantix::host::detail
