// The framebuffers the renderer draws into: a colour texture each and a depth texture they share, of one
// size, reallocated when a picture of another size is asked for. They are textures so that pictures drawn
// on the processor can be put into them as they are.
#pragma once

#include "core/Image.h"
#include "render/GlObjects.h"

namespace vantix::host::detail
{

// The depth buffer of every render target: pictures are drawn one at a time and the rasteriser works
// through them in order, so a picture's depth is cleared only once the one before it is drawn.
class DepthBuffer
{
public:
    // Gives the buffer that size (when it has another one); answers its allocation's number.
    long resize(int width, int height);
    GLuint id() const { return m_buffer.id(); }

private:
    GlTexture m_buffer; // 32-bit float, as the processor's pictures keep depth
    int m_width = 0;
    int m_height = 0;
    long m_allocation = 0;
};

class RenderTarget
{
public:
    // Binds the framebuffer at width x height pixels with the depth buffer, allocating them when the size
    // changed. Throws std::runtime_error when the implementation cannot make a framebuffer of that size.
    void bind(int width, int height, DepthBuffer& depth);
    // The colour buffer as an image, rows from the top down.
    Image read() const;
    GLuint colour() const { return m_colour.id(); }

private:
    GlFramebuffer m_framebuffer;
    GlTexture m_colour; // RGBA, 8 bits a channel
    int m_width = 0;
    int m_height = 0;
    long m_depthAllocation = 0; // of the depth buffer attached
};

} // namespace vantix::host::detail
