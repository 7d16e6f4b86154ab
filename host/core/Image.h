// The host's pictures are those of its own API: an RGB image with 8 bits a channel, rows from the top down.
#pragma once

#include <vantix/host/Image.h>

namespace vantix::host::detail
{

using vantix::host::Image;

} // namespace vantix::host::detail
