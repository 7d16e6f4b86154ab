#include "render/Render.h"

#include "core/Application.h"
#include "render/OffscreenRenderer.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace vantix::host::detail
{

namespace
{

// A rectangle of the page in paper inches, from its top left corner.
struct PageBox
{
    double x = 0.0, y = 0.0, width = 0.0, height = 0.0;
};

PageBox BoxOf(const Frame& frame)
{
    return {frame.x, frame.y, frame.width, frame.height};
}

// The part of the page a region shows, and the frames drawn in it; false when the region has no frame to
// show or is unknown.
bool Region(const Page& page, ExportRegion_e region, PageBox& box, std::vector<const Frame*>& frames)
{
    switch (region)
    {
    case ExportRegion_CurrentFrame:
        if (!page.activeFrame())
            return false;
        box = BoxOf(*page.activeFrame());
        frames = {page.activeFrame()};
        return true;
    case ExportRegion_AllFrames:
    {
        if (page.frames().empty())
            return false;
        double left = 1e300, top = 1e300, right = -1e300, bottom = -1e300;
        for (const auto& frame : page.frames())
        {
            left = std::min(left, frame->x);
            top = std::min(top, frame->y);
            right = std::max(right, frame->x + frame->width);
            bottom = std::max(bottom, frame->y + frame->height);
            frames.push_back(frame.get());
        }
        box = {left, top, right - left, bottom - top};
        return true;
    }
    case ExportRegion_WorkArea:
        box = {0.0, 0.0, page.paperWidth(), page.paperHeight()};
        for (const auto& frame : page.frames())
            frames.push_back(frame.get());
        return true;
    }
    return false;
}

} // namespace

void RegionPixelSize(ExportRegion_e region, double& width, double& height)
{
    const Page& page = Application::instance().page();
    PageBox box;
    std::vector<const Frame*> frames;
    if (!Region(page, region, box, frames))
    {
        width = height = 0.0;
        return;
    }
    width = box.width * page.pixelsPerInch();
    height = box.height * page.pixelsPerInch();
}

namespace
{

// The frames of a region at their places in it, as fractions of its width and height.
std::vector<FrameSlot> RegionSlots(ExportRegion_e region)
{
    Application& app = Application::instance();
    PageBox box;
    std::vector<const Frame*> frames;
    if (!Region(app.page(), region, box, frames))
    {
        if (region == ExportRegion_CurrentFrame || region == ExportRegion_AllFrames)
            throw std::logic_error("the page has no frame to draw");
        throw std::invalid_argument("no such region of the page: " + std::to_string(region));
    }
    if (!(box.width > 0.0 && box.height > 0.0))
        throw std::logic_error("the region to draw has no area");
    std::vector<FrameSlot> slots;
    for (const Frame* frame : frames)
        slots.push_back({frame, (frame->x - box.x) / box.width, (frame->y - box.y) / box.height,
                         (frame->x + frame->width - box.x) / box.width,
                         (frame->y + frame->height - box.y) / box.height});
    return slots;
}

} // namespace

Image RenderRegion(ExportRegion_e region, int width, int height, int supersample)
{
    const std::vector<FrameSlot> slots = RegionSlots(region);
    return OffscreenRenderer::instance().render(width, height, slots,
                                                ReadSceneStyle(Application::instance().style()), supersample);
}

PendingPicture DrawRegionPending(ExportRegion_e region, int width, int height, int supersample)
{
    const std::vector<FrameSlot> slots = RegionSlots(region);
    return OffscreenRenderer::instance().drawPending(
        width, height, slots, ReadSceneStyle(Application::instance().style()), supersample);
}

Image ReadPendingPicture(const PendingPicture& picture)
{
    return OffscreenRenderer::instance().readPending(picture);
}

void DropPendingPicture(const PendingPicture& picture)
{
    OffscreenRenderer::instance().dropPending(picture);
}

Image RenderFrame(const Frame& frame, int width, int height, int supersample)
{
    Application& app = Application::instance();
    return OffscreenRenderer::instance().render(width, height, {FrameSlot{&frame}},
                                                ReadSceneStyle(app.style()), supersample);
}

} // namespace vantix::host::detail
