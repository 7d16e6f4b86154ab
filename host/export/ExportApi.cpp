// The host's own API for export.
#include "core/Application.h"
#include "export/ExportSession.h"
#include "export/ExportSetup.h"
#include "export/RasterMetafile.h"

#include <vantix/host/Export.h>

#include <stdexcept>

namespace vantix::host
{

void setExportSetupFromText(const std::string& name, const std::string& valueText)
{
    std::string why;
    const SetValueReturnCode_e result = detail::SetExportValueFromText(name, valueText, why);
    if (result != SetValueReturnCode_Ok && result != SetValueReturnCode_DuplicateValue)
        throw std::invalid_argument(why);
}

void exportStillImage()
{
    const detail::ExportSettings settings = detail::CurrentExportSettings();
    if (detail::IsAnimationFormat(settings.format))
        throw std::runtime_error("the export format holds an animation: start an export to write it");
    if (settings.fileName.empty())
        throw std::runtime_error("no export file name is set");
    int width = 0, height = 0;
    detail::ExportImageSize(settings, width, height);
    detail::WriteStillImage(settings.format, detail::RenderExportImage(settings, width, height),
                            settings.fileName);
}

std::string lastExportError()
{
    return detail::Application::instance().m_exportError;
}

RasterMetafileContents readRasterMetafile(const std::string& path)
{
    detail::RasterMetafile file = detail::ReadRasterMetafile(path);
    RasterMetafileContents contents;
    contents.width = file.width;
    contents.height = file.height;
    contents.rateNumerator = file.rateNumerator;
    contents.rateDenominator = file.rateDenominator;
    for (detail::Image& frame : file.frames)
        contents.frames.push_back(std::move(frame.rgb));
    return contents;
}

} // namespace vantix::host
