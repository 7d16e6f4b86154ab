// PNG files of the host's pictures, written by the host itself because a movie's worth of them is written
// one picture at a time while the rest of the machine waits: the compression, most of the cost, runs in
// slices on every core at once.
#pragma once

#include "core/Image.h"

#include <cstdint>
#include <vector>

namespace vantix::host::detail
{

// The picture as a PNG file: 8-bit RGB, each row predicted from its left neighbour, compressed at zlib's
// fastest level (pictures of the page are smooth shading and flat background, which that prediction
// suits: smaller files than the default level without it, in half the time). The picture's pixels must
// match its size. Throws ExportError when the file cannot be made (too large, out of memory).
std::vector<std::uint8_t> EncodePng(const Image& image);

} // namespace vantix::host::detail
