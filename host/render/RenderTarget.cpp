#include "render/RenderTarget.h"

#include <stdexcept>
#include <string>

namespace vantix::host::detail
{

void RenderTarget::bind(int width, int height)
{
    glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer.id());
    if (width == m_width && height == m_height)
        return;
    glBindRenderbuffer(GL_RENDERBUFFER, m_colour.id());
    glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, width, height);
    glBindRenderbuffer(GL_RENDERBUFFER, m_depth.id());
    glRenderbufferStorage(GL_RENDERBUFFER, GL_DEPTH_COMPONENT24, width, height);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, m_colour.id());
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, m_depth.id());
    const GLenum status = glCheckFramebufferStatus(GL_FRAMEBUFFER);
    if (status != GL_FRAMEBUFFER_COMPLETE)
    {
        m_width = m_height = 0;
        throw std::runtime_error("cannot make a framebuffer of " + std::to_string(width) + " x " +
                                 std::to_string(height) + " pixels (status " + std::to_string(status) + ")");
    }
    m_width = width;
    m_height = height;
}

Image RenderTarget::read() const
{
    // RGBA is the renderbuffer's own layout and reads back more than twice as fast as RGB; the alpha is
    // dropped here, while the rows are turned the right way up (GL counts them from the bottom).
    std::vector<std::uint8_t> rgba(static_cast<std::size_t>(m_width) * m_height * 4);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, m_framebuffer.id());
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, m_width, m_height, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
    Image image;
    image.width = m_width;
    image.height = m_height;
    image.rgb.resize(static_cast<std::size_t>(m_width) * m_height * 3);
    for (int y = 0; y < m_height; ++y)
    {
        const std::uint8_t* source = rgba.data() + static_cast<std::size_t>(m_height - 1 - y) * m_width * 4;
        std::uint8_t* target = image.rgb.data() + static_cast<std::size_t>(y) * m_width * 3;
        for (int x = 0; x < m_width; ++x, source += 4, target += 3)
        {
            target[0] = source[0];
            target[1] = source[1];
            target[2] = source[2];
        }
    }
    return image;
}

} // namespace vantix::host::detail
