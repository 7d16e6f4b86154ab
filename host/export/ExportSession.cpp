#include "export/ExportSession.h"

#include "core/Application.h"
#include "render/Render.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantix::host::detail
{

namespace
{

int RoundToEven(double value)
{
    return std::max(2, 2 * static_cast<int>(std::lround(value / 2.0)));
}

} // namespace

void ExportImageSize(const ExportSettings& settings, int& width, int& height)
{
    if (!Application::instance().page().activeFrame())
        throw ExportError("the page has no frame to export");
    double regionWidth = 0.0, regionHeight = 0.0;
    RegionPixelSize(settings.region, regionWidth, regionHeight);
    if (!(regionWidth > 0.0 && regionHeight > 0.0))
        throw ExportError("the export region is empty");
    width = RoundToEven(settings.imageWidth);
    height = RoundToEven(width * regionHeight / regionWidth);
}

Image RenderExportImage(const ExportSettings& settings, int width, int height)
{
    return RenderRegion(settings.region, width, height,
                        settings.supersample ? settings.supersampleFactor : 1);
}

PendingPicture DrawExportImage(const ExportSettings& settings, int width, int height)
{
    return DrawRegionPending(settings.region, width, height,
                             settings.supersample ? settings.supersampleFactor : 1);
}

ExportSession::~ExportSession()
{
    try
    {
        if (drawn)
            DropPendingPicture(*drawn);
    }
    catch (...)
    {
        // The renderer no longer holds the picture: there is nothing to let go of.
    }
}

void ExportSession::drawFrame()
{
    const std::optional<PendingPicture> previous =
        std::exchange(drawn, DrawExportImage(settings, width, height));
    if (previous)
        writer->write(ReadPendingPicture(*previous));
    ++frames;
}

void ExportSession::finish()
{
    if (drawn)
        writer->write(ReadPendingPicture(*std::exchange(drawn, std::nullopt)));
    writer->finish();
}

} // namespace vantix::host::detail
