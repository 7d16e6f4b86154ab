// The colour map of scalar values: a rainbow from blue (lowest) to red (highest) whose colours
// are told apart easily all along the range, as engineers expect of pressure and height plots.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace vantix::host::detail
{

// The map's colour at a fraction of the range (clamped to [0, 1]), red, green, blue in [0, 1].
std::array<float, 3> ColormapAt(double fraction);
// The map sampled at count evenly spaced fractions from 0 to 1, as 8-bit RGB, for a texture.
std::vector<std::uint8_t> ColormapTable(int count);

} // namespace vantix::host::detail
