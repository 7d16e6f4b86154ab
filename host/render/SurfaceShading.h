// How a surface's pixel is lit and coloured, as the host's surface shader did it on the graphics side:
// the colour map's colour (or the plain colour) times ambient plus diffuse light, and a highlight, both
// sides of a surface lit alike. Written once for one pixel (float) and for four side by side (Float4),
// which the rasteriser shades together along the rows of larger triangles.
#pragma once

#include "render/SurfaceRaster.h"

#include <algorithm>
#include <cmath>
#ifdef __SSE__
#include <xmmintrin.h>
#endif

namespace vantix::host::detail
{

using Float4 = float __attribute__((vector_size(16)));

// The light comes from over the viewer's left shoulder, and moves with the viewer.
inline constexpr float Light[3] = {-0.36f, 0.46f, 0.81f};

inline Float4 Saturate(Float4 value)
{
    return value > 0.0f ? (value < 1.0f ? value : Float4{} + 1.0f) : Float4{};
}

inline float Max(float a, float b)
{
    return std::max(a, b);
}

inline Float4 Max(Float4 a, float b)
{
    return a > b ? a : Float4{} + b;
}

// 1 / sqrt(x): the processor's estimate and one Newton step (within a few parts in 10^7), several times
// as fast as a square root and a division, which shading a pixel needs three of.
inline float InverseSqrt(float x)
{
#ifdef __SSE__
    const float estimate = _mm_cvtss_f32(_mm_rsqrt_ss(_mm_set_ss(x)));
    return estimate * (1.5f - 0.5f * x * estimate * estimate);
#else
    return 1.0f / std::sqrt(x);
#endif
}

inline Float4 InverseSqrt(Float4 x)
{
#ifdef __SSE__
    const Float4 estimate = reinterpret_cast<Float4>(_mm_rsqrt_ps(reinterpret_cast<__m128>(x)));
#else
    Float4 estimate;
    for (int i = 0; i < 4; ++i)
        estimate[i] = 1.0f / std::sqrt(x[i]);
    return estimate;
#endif
    return estimate * (1.5f - 0.5f * x * estimate * estimate);
}

template <typename Real>
Real Dot(const Real (&a)[3], const Real (&b)[3])
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

// The unit vector half way between the light and the direction to the viewer.
template <typename Real>
void HalfWay(const Real (&toViewer)[3], Real (&half)[3])
{
    for (int c = 0; c < 3; ++c)
        half[c] = Light[c] + toViewer[c];
    const Real scale = InverseSqrt(Dot(half, half));
    for (Real& v : half)
        v *= scale;
}

// The half-way vector of an orthographic view, where the viewer is in the same direction everywhere.
struct OrthographicHalfWay
{
    float v[3];
    OrthographicHalfWay() { HalfWay<float>({0.0f, 0.0f, 1.0f}, v); }
};
inline const OrthographicHalfWay OrthographicHalf;

// The colour map's colour at a fraction of the range, linear between the centres of its 256 entries.
inline void MapColour(const std::uint8_t* colormap, float fraction, float (&base)[3])
{
    const float at = Saturate(fraction) * 255.0f;
    const int low = std::min(static_cast<int>(at), 254);
    const float t = at - static_cast<float>(low);
    const std::uint8_t* entry = colormap + 3 * low;
    for (int c = 0; c < 3; ++c)
        base[c] = (entry[c] + (entry[c + 3] - entry[c]) * t) * (1.0f / 255.0f);
}

inline void MapColour(const std::uint8_t* colormap, Float4 fraction, Float4 (&base)[3])
{
    for (int i = 0; i < 4; ++i)
    {
        float one[3];
        MapColour(colormap, fraction[i], one);
        for (int c = 0; c < 3; ++c)
            base[c][i] = one[c];
    }
}

// The red, green and blue of pixels centred at (centreX, centreY) of the picture with the normal and colour
// map fraction interpolated there.
template <typename Real>
void ShadePixels(const SurfaceLook& look, Real centreX, Real centreY, const Real (&normal)[3], Real fraction,
                 Real (&rgb)[3])
{
    Real base[3];
    if (look.colormap)
        MapColour(look.colormap, fraction, base);
    else
        for (int c = 0; c < 3; ++c)
            base[c] = Real{} + look.plainColour[c];
    Real toViewer[3] = {Real{}, Real{}, Real{} + 1.0f};
    Real half[3] = {Real{} + OrthographicHalf.v[0], Real{} + OrthographicHalf.v[1],
                    Real{} + OrthographicHalf.v[2]};
    if (look.perspective)
    {
        toViewer[0] = centreX * look.pixelToViewer[0] + look.pixelToViewer[2];
        toViewer[1] = centreY * look.pixelToViewer[1] + look.pixelToViewer[3];
        const Real scale = InverseSqrt(toViewer[0] * toViewer[0] + toViewer[1] * toViewer[1] + 1.0f);
        for (Real& v : toViewer)
            v *= scale;
        HalfWay(toViewer, half);
    }
    // The normal made a unit vector, turned towards the viewer: both sides of a surface are lit alike.
    Real scale = InverseSqrt(Dot(normal, normal));
    scale = Dot(normal, toViewer) < 0.0f ? -scale : scale;
    const Real light[3] = {Real{} + Light[0], Real{} + Light[1], Real{} + Light[2]};
    const Real lambert = Max(Dot(normal, light) * scale, 0.0f);
    const Real h = Max(Dot(normal, half) * scale, 0.0f);
    const Real h2 = h * h, h4 = h2 * h2, h8 = h4 * h4, h16 = h8 * h8;
    const Real shine = look.diffuse * h16 * h16 * h16 * 0.25f;
    const Real lit = look.ambient + look.diffuse * lambert;
    for (int c = 0; c < 3; ++c)
        rgb[c] = base[c] * lit + shine;
}

} // namespace vantix::host::detail
