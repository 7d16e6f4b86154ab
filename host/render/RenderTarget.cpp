#include "render/RenderTarget.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace vantix::host::detail
{

namespace
{

// Rows read back at a time: the picture is turned the right way up and its alpha dropped band by band,
// through a buffer much smaller than the picture.
constexpr int BandRows = 64;

void AllocateTexture(GLuint texture, GLint format, GLenum layout, GLenum type, int width, int height)
{
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexImage2D(GL_TEXTURE_2D, 0, format, width, height, 0, layout, type, nullptr);
}

} // namespace

long DepthBuffer::resize(int width, int height)
{
    if (width != m_width || height != m_height)
    {
        AllocateTexture(m_buffer.id(), GL_DEPTH_COMPONENT32F, GL_DEPTH_COMPONENT, GL_FLOAT, width, height);
        m_width = width;
        m_height = height;
        ++m_allocation;
    }
    return m_allocation;
}

void RenderTarget::bind(int width, int height, DepthBuffer& depth)
{
    glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer.id());
    const long depthAllocation = depth.resize(width, height);
    if (width == m_width && height == m_height && depthAllocation == m_depthAllocation)
        return;
    if (width != m_width || height != m_height)
        AllocateTexture(m_colour.id(), GL_RGBA8, GL_RGBA, GL_UNSIGNED_BYTE, width, height);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, m_colour.id(), 0);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_TEXTURE_2D, depth.id(), 0);
    const GLenum status = glCheckFramebufferStatus(GL_FRAMEBUFFER);
    if (status != GL_FRAMEBUFFER_COMPLETE)
    {
        m_width = m_height = 0;
        throw std::runtime_error("cannot make a framebuffer of " + std::to_string(width) + " x " +
                                 std::to_string(height) + " pixels (status " + std::to_string(status) + ")");
    }
    m_width = width;
    m_height = height;
    m_depthAllocation = depthAllocation;
}

Image RenderTarget::read() const
{
    // RGBA is the texture's own layout and reads back more than twice as fast as RGB.
    Image image;
    image.width = m_width;
    image.height = m_height;
    image.rgb.resize(static_cast<std::size_t>(m_width) * m_height * 3);
    std::vector<std::uint8_t> rgba(static_cast<std::size_t>(m_width) * std::min(BandRows, m_height) * 4);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, m_framebuffer.id());
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    for (int first = 0; first < m_height; first += BandRows)
    {
        // GL counts rows from the bottom: the band's rows are the picture's rows first.. first + rows - 1
        // counted from the top.
        const int rows = std::min(BandRows, m_height - first);
        glReadPixels(0, m_height - first - rows, m_width, rows, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
        for (int y = 0; y < rows; ++y)
        {
            const std::uint8_t* source = rgba.data() + static_cast<std::size_t>(rows - 1 - y) * m_width * 4;
            std::uint8_t* target = image.rgb.data() + static_cast<std::size_t>(first + y) * m_width * 3;
            for (int x = 0; x < m_width; ++x, source += 4, target += 3)
            {
                target[0] = source[0];
                target[1] = source[1];
                target[2] = source[2];
            }
        }
    }
    return image;
}

} // namespace vantix::host::detail
