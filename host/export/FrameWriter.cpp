#include "export/FrameWriter.h"

#include "export/MovieWriter.h"
#include "export/RasterMetafile.h"

namespace vantix::host::detail
{

FrameWriter::FrameWriter(const MovieOptions& options, std::string kind)
    : m_file(options.path), m_width(options.width), m_height(options.height), m_kind(std::move(kind))
{
}

void FrameWriter::finish()
{
    complete();
    m_file.commit();
}

void FrameWriter::write(const Image& image)
{
    checkSize(image);
    append(image);
}

void FrameWriter::checkSize(const Image& image) const
{
    if (image.width != m_width || image.height != m_height)
        throw ExportError("an image of " + std::to_string(image.width) + " x " +
                          std::to_string(image.height) + " does not fit a " + m_kind + " of " +
                          std::to_string(m_width) + " x " + std::to_string(m_height));
}

std::unique_ptr<FrameWriter> OpenFrameWriter(const MovieOptions& options)
{
    if (options.format == ExportFormat_RasterMetafile)
        return OpenRasterMetafile(options);
    return std::make_unique<MovieWriter>(options);
}

} // namespace vantix::host::detail
