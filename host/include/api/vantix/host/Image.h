// The host's pictures: what it draws, exports and shows, for its own API and inside alike.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace vantix::host
{

// An RGB picture with 8 bits a channel, rows from the top down, no padding between rows.
struct Image
{
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgb; // width * height * 3 bytes

    bool empty() const { return width <= 0 || height <= 0; }
    // The pixel at column x and row y (from the top left corner); {0, 0, 0} outside the picture.
    std::array<int, 3> pixel(int x, int y) const;
};

} // namespace vantix::host
