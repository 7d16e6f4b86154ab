#include "render/Colormap.h"

#include <algorithm>
#include <cmath>

namespace vantix::host::detail
{

namespace
{

// Coefficients of fifth-degree polynomials in the fraction, per channel: a rainbow that runs from deep
// blue through cyan, green and yellow to deep red with smoothly rising lightness in its lower half and
// falling in its upper half ("turbo").
constexpr double Red[6] = {0.13572138, 4.61539260, -42.66032258, 132.13108234, -152.94239396, 59.28637943};
constexpr double Green[6] = {0.09140261, 2.19418839, 4.84296658, -14.18503333, 4.27729857, 2.82956604};
constexpr double Blue[6] = {0.10667330, 12.64194608, -60.58204836, 110.36276771, -89.90310912, 27.34824973};

float Polynomial(const double (&c)[6], double t)
{
    const double value = c[0] + t * (c[1] + t * (c[2] + t * (c[3] + t * (c[4] + t * c[5]))));
    return static_cast<float>(std::clamp(value, 0.0, 1.0));
}

} // namespace

std::array<float, 3> ColormapAt(double fraction)
{
    // The polynomials' very ends fade to near black; the map keeps to the part from a clear blue to a
    // clear red, so that the lowest and highest values still read as colours when shaded.
    constexpr double Start = 0.08, Span = 0.84;
    const double t = Start + Span * std::clamp(std::isfinite(fraction) ? fraction : 0.0, 0.0, 1.0);
    return {Polynomial(Red, t), Polynomial(Green, t), Polynomial(Blue, t)};
}

std::vector<std::uint8_t> ColormapTable(int count)
{
    std::vector<std::uint8_t> table;
    for (int i = 0; i < count; ++i)
        for (const float channel : ColormapAt(count > 1 ? static_cast<double>(i) / (count - 1) : 0.0))
            table.push_back(static_cast<std::uint8_t>(std::lround(channel * 255.0f)));
    return table;
}

} // namespace vantix::host::detail
