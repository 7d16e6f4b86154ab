// The host's own lossless multi-frame raster file ("Raster Metafile", extension .rm).
//
// Layout, all integers unsigned 32-bit little-endian:
//   bytes 0-7   the signature "VTXRMF1\n"
//   width, height                      in pixels
//   rate numerator, rate denominator   frames per second as a fraction
//   frame count                        written when the file is completed; 0 in an unfinished file
// then each frame: its byte count n, followed by n bytes of zlib-compressed RGB pixels (8 bits a channel,
// rows from the top down, width * height * 3 bytes when uncompressed).
#pragma once

#include "export/FrameWriter.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vantix::host::detail
{

// Opens a raster metafile for writing. Throws ExportError when it cannot be written.
std::unique_ptr<FrameWriter> OpenRasterMetafile(const MovieOptions& options);

struct RasterMetafile
{
    int width = 0;
    int height = 0;
    std::uint32_t rateNumerator = 0;
    std::uint32_t rateDenominator = 1;
    std::vector<Image> frames;
};

// Reads a whole file. Throws ExportError naming what is wrong with it.
RasterMetafile ReadRasterMetafile(const std::string& path);

} // namespace vantix::host::detail
