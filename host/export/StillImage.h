// Still images: a picture in the file form of a still-image format, through FFmpeg's image codecs (PNG
// through the host's own writer), which also read PNG files back.
#pragma once

#include "core/Image.h"

#include <VtxUtil.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vantix::host::detail
{

// The picture as a PNG, BMP, TIFF or JPEG file. Throws ExportError.
std::vector<std::uint8_t> EncodeStillImage(ExportFormat_e format, const Image& image);

// A picture from the bytes of a PNG file: 8 or 16 bits a channel, grey, RGB or a palette, with or without
// alpha (which is dropped). Throws ExportError naming what is wrong.
Image DecodePng(std::vector<std::uint8_t> bytes);

// The bytes as text, for vantix::toolbox::WriteWholeFile.
inline std::string_view AsText(const std::vector<std::uint8_t>& bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

} // namespace vantix::host::detail
