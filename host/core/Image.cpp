#include "core/Image.h"

namespace vantix::host
{

std::array<int, 3> Image::pixel(int x, int y) const
{
    if (x < 0 || y < 0 || x >= width || y >= height)
        return {0, 0, 0};
    const std::size_t at = (static_cast<std::size_t>(y) * width + x) * 3;
    return {rgb[at], rgb[at + 1], rgb[at + 2]};
}

} // namespace vantix::host
