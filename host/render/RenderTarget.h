// The framebuffer the renderer draws into: a colour and a depth buffer of one size, reallocated when a
// picture of another size is asked for.
#pragma once

#include "core/Image.h"
#include "render/GlObjects.h"

namespace vantix::host::detail
{

class RenderTarget
{
public:
    // Binds the framebuffer at width x height pixels, allocating it when the size changed. Throws
    // std::runtime_error when the implementation cannot make a framebuffer of that size.
    void bind(int width, int height);
    // The colour buffer as an image, rows from the top down.
    Image read() const;

private:
    GlFramebuffer m_framebuffer;
    GlRenderbuffer m_colour;
    GlRenderbuffer m_depth;
    int m_width = 0;
    int m_height = 0;
};

} // namespace vantix::host::detail
