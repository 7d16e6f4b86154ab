// PNG files of 8-bit RGB images, written and read with zlib alone.
#pragma once

#include "core/Image.h"

#include <string>

namespace vantix::host::detail
{

// Throws std::runtime_error "cannot write PNG file '<path>': <reason>".
void WritePng(const Image& image, const std::string& path);
// Reads 8-bit greyscale, RGB, grey with alpha and RGBA files, not interlaced (alpha is dropped). Throws
// std::runtime_error "cannot read PNG file '<path>': <reason>" for anything else.
Image ReadPng(const std::string& path);

} // namespace vantix::host::detail
