// The host's own API over the renderer.
#include "core/Application.h"
#include "render/OffscreenRenderer.h"
#include "render/Render.h"

#include <vantix/host/Render.h>

#include <cmath>
#include <stdexcept>
#include <utility>

namespace vantix::host
{

namespace
{

detail::Application& App()
{
    return detail::Application::instance();
}

// A frame's size on the screen: its paper size times the pixels per inch, at least one pixel.
int ScreenPixels(double inches)
{
    return std::max(1, static_cast<int>(std::lround(inches * App().page().pixelsPerInch())));
}

detail::Image DrawOnRedraw(const detail::Frame& frame)
{
    return detail::RenderFrame(frame, ScreenPixels(frame.width), ScreenPixels(frame.height), 1);
}

} // namespace

std::array<double, 2> regionPixelSize(ExportRegion_e region)
{
    std::array<double, 2> size{};
    detail::RegionPixelSize(region, size[0], size[1]);
    return size;
}

Image renderRegion(ExportRegion_e region, int width, int height, int supersample)
{
    return detail::RenderRegion(region, width, height, supersample);
}

Image renderActiveFrame(int width, int height)
{
    return renderRegion(ExportRegion_CurrentFrame, width, height, 1);
}

void setRenderOnRedraw(bool on)
{
    App().drawing().setFrameDrawer(on ? detail::Drawing::FrameDrawer(DrawOnRedraw) : nullptr);
}

void setRedrawObserver(std::function<void()> observer)
{
    App().setRedrawObserver(std::move(observer));
}

Image screenImage()
{
    return App().drawing().screenImage();
}

std::string rendererDescription()
{
    return detail::OffscreenRenderer::instance().description();
}

} // namespace vantix::host
