// The host's own API over the renderer.
#include "core/Application.h"
#include "render/OffscreenRenderer.h"
#include "render/Png.h"
#include "render/Render.h"

#include <vantix/host/Render.h>

#include <cmath>
#include <stdexcept>

namespace vantix::host
{

namespace
{

detail::Application& App()
{
    return detail::Application::instance();
}

Image ToPublic(detail::Image image)
{
    Image result;
    result.width = image.width;
    result.height = image.height;
    result.rgb = std::move(image.rgb);
    return result;
}

detail::Image ToDetail(const Image& image)
{
    detail::Image result;
    result.width = image.width;
    result.height = image.height;
    result.rgb = image.rgb;
    return result;
}

// A frame's size on the screen: its paper size times the pixels per inch, at least one pixel.
int ScreenPixels(double inches)
{
    return std::max(1, static_cast<int>(std::lround(inches * App().m_pixelsPerInch)));
}

void DrawOnRedraw(detail::Frame& frame)
{
    // A redraw comes from an add-on's call; a failure to draw is the host's to report, not to throw at it.
    try
    {
        App().m_screenImage =
            detail::RenderFrame(frame, ScreenPixels(frame.width), ScreenPixels(frame.height), 1);
    }
    catch (const std::exception& error)
    {
        App().reportError(std::string("the frame could not be drawn: ") + error.what());
    }
}

} // namespace

std::array<int, 3> Image::pixel(int x, int y) const
{
    if (x < 0 || y < 0 || x >= width || y >= height)
        return {0, 0, 0};
    const std::size_t at = (static_cast<std::size_t>(y) * width + x) * 3;
    return {rgb[at], rgb[at + 1], rgb[at + 2]};
}

std::array<double, 2> regionPixelSize(ExportRegion_e region)
{
    std::array<double, 2> size{};
    detail::RegionPixelSize(region, size[0], size[1]);
    return size;
}

Image renderRegion(ExportRegion_e region, int width, int height, int supersample)
{
    return ToPublic(detail::RenderRegion(region, width, height, supersample));
}

Image renderActiveFrame(int width, int height)
{
    return renderRegion(ExportRegion_CurrentFrame, width, height, 1);
}

void setRenderOnRedraw(bool on)
{
    App().m_drawFrame = on ? std::function<void(detail::Frame&)>(DrawOnRedraw) : nullptr;
    App().m_screenImage = detail::Image();
}

Image screenImage()
{
    return ToPublic(App().m_screenImage);
}

std::string rendererDescription()
{
    return detail::OffscreenRenderer::instance().description();
}

void writePng(const Image& image, const std::string& path)
{
    detail::WritePng(ToDetail(image), path);
}

Image readPng(const std::string& path)
{
    return ToPublic(detail::ReadPng(path));
}

} // namespace vantix::host
