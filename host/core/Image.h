// An RGB image with 8 bits a channel, rows from the top down, no padding between rows.
#pragma once

#include <cstdint>
#include <vector>

namespace vantix::host::detail
{

struct Image
{
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgb; // width * height * 3 bytes
};

} // namespace vantix::host::detail
