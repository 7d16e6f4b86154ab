// The host's own API for export.
#include "export/ExportSession.h"
#include "export/ExportSetup.h"
#include "export/Exporter.h"
#include "export/RasterMetafile.h"
#include "export/StillImage.h"

#include <vantix/host/Export.h>
#include <vantix/toolbox/ReplacingFile.h>

#include <cerrno>
#include <cstring>
#include <fstream>
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
    vantix::toolbox::WriteWholeFile(
        settings.fileName, detail::AsText(detail::EncodeStillImage(
                               settings.format, detail::RenderExportImage(settings, width, height))));
}

std::string lastExportError()
{
    return detail::LastExportError();
}

std::string abandonOpenExport()
{
    return detail::CancelExport();
}

std::string abandonExportLeftOpenBy(const std::string& macroPath)
{
    const std::string abandoned = abandonOpenExport();
    if (abandoned.empty())
        return {};
    return macroPath + ": the macro ended with the export to " + abandoned +
           " still open ($!EXPORTFINISH missing); it was not written";
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

void writePng(const Image& image, const std::string& path)
{
    vantix::toolbox::WriteWholeFile(path, detail::AsText(detail::EncodeStillImage(ExportFormat_PNG, image)));
}

Image readPng(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot read PNG file '" + path + "': " + std::strerror(errno));
    // No picture the host draws makes a PNG file this large: a longer input (a device that never ends)
    // is refused once it has passed the bound.
    constexpr std::size_t LargestPngFile = std::size_t(1) << 30;
    std::vector<std::uint8_t> bytes;
    char block[65536];
    while (file.read(block, sizeof block) || file.gcount() > 0)
    {
        bytes.insert(bytes.end(), block, block + file.gcount());
        if (bytes.size() > LargestPngFile)
            throw std::runtime_error("cannot read PNG file '" + path + "': it is larger than 1 GiB");
    }
    try
    {
        return detail::DecodePng(std::move(bytes));
    }
    catch (const detail::ExportError& error)
    {
        throw std::runtime_error("cannot read PNG file '" + path + "': " + error.what());
    }
}

} // namespace vantix::host
