#include "export/FrameWriter.h"

#include "export/MovieWriter.h"
#include "export/RasterMetafile.h"

namespace vantix::host::detail
{

std::unique_ptr<FrameWriter> OpenFrameWriter(const MovieOptions& options)
{
    if (options.format == ExportFormat_RasterMetafile)
        return std::make_unique<RasterMetafileWriter>(options);
    return std::make_unique<MovieWriter>(options);
}

} // namespace vantix::host::detail
