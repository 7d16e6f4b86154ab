// The matrices that take a frame's model coordinates to the picture, from its 3D view.
#pragma once

#include "core/View3D.h"
#include "scene/Geometry.h"

#include <array>

namespace vantix::host::detail
{

using Matrix4 = std::array<float, 16>; // column-major, as OpenGL takes it

struct Camera
{
    Matrix4 modelToEye{};  // rotation M and the viewer at the eye's origin
    Matrix4 modelToClip{}; // the projection after modelToEye
    Matrix3 rotation{};    // M, row-major
    // The projection's scales of eye-space x and y (its first two diagonal elements).
    std::array<float, 2> projectionScale{};
    bool perspective = false;
};

// Orthographic: a region view.width() wide, centred on the view axis through the viewer. Perspective: the
// horizontal field of view. The height follows from aspect = width / height of the picture. The depth range
// is the box's (everything in it is drawn; in perspective only what is in front of the viewer).
Camera MakeCamera(const View3D& view, double aspect, const Bounds& scene);

} // namespace vantix::host::detail
