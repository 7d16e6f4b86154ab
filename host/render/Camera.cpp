#include "render/Camera.h"

#include <algorithm>
#include <cmath>

namespace vantix::host::detail
{

namespace
{

constexpr double DegreesToRadians = 3.14159265358979323846 / 180.0;

struct DepthRange
{
    double nearest, farthest;
};

DepthRange DepthsOf(const Bounds& scene, const Matrix3& m, const Vector3& viewer)
{
    if (scene.empty())
        return {1.0, 2.0};
    DepthRange range{1e300, -1e300};
    for (const Point3& corner : scene.corners())
    {
        const double d[3] = {corner[0] - viewer[0], corner[1] - viewer[1], corner[2] - viewer[2]};
        const double depth = -(m[6] * d[0] + m[7] * d[1] + m[8] * d[2]);
        range.nearest = std::min(range.nearest, depth);
        range.farthest = std::max(range.farthest, depth);
    }
    return range;
}

} // namespace

Camera MakeCamera(const View3D& view, double aspect, const Bounds& scene)
{
    Camera camera;
    camera.rotation = view.matrix();
    camera.perspective = view.perspective();
    const Matrix3& m = camera.rotation;
    const Vector3& p = view.position();
    double eye[16] = {}; // column-major
    for (int row = 0; row < 3; ++row)
    {
        for (int column = 0; column < 3; ++column)
            eye[column * 4 + row] = m[row * 3 + column];
        eye[12 + row] = -(m[row * 3] * p[0] + m[row * 3 + 1] * p[1] + m[row * 3 + 2] * p[2]);
    }
    eye[15] = 1.0;

    DepthRange depth = DepthsOf(scene, m, p);
    const double pad = 0.02 * (depth.farthest - depth.nearest) + 1e-6 * (1.0 + std::abs(depth.farthest));
    depth.nearest -= pad;
    depth.farthest += pad;

    double projection[16] = {};
    if (camera.perspective)
    {
        if (depth.farthest <= 0.0)
            depth = {1.0, 2.0}; // all behind the viewer: nothing to draw
        depth.nearest = std::max(depth.nearest, depth.farthest * 1e-3);
        const double f = 1.0 / std::tan(view.fieldOfView() / 2.0 * DegreesToRadians);
        projection[0] = f;
        projection[5] = f * aspect;
        projection[10] = (depth.farthest + depth.nearest) / (depth.nearest - depth.farthest);
        projection[11] = -1.0;
        projection[14] = 2.0 * depth.farthest * depth.nearest / (depth.nearest - depth.farthest);
    }
    else
    {
        const double halfWidth = view.width() / 2.0, halfHeight = halfWidth / aspect;
        projection[0] = 1.0 / halfWidth;
        projection[5] = 1.0 / halfHeight;
        projection[10] = -2.0 / (depth.farthest - depth.nearest);
        projection[14] = -(depth.farthest + depth.nearest) / (depth.farthest - depth.nearest);
        projection[15] = 1.0;
    }

    camera.projectionScale = {static_cast<float>(projection[0]), static_cast<float>(projection[5])};
    for (int column = 0; column < 4; ++column)
        for (int row = 0; row < 4; ++row)
        {
            double sum = 0.0;
            for (int k = 0; k < 4; ++k)
                sum += projection[k * 4 + row] * eye[column * 4 + k];
            camera.modelToClip[column * 4 + row] = static_cast<float>(sum);
            camera.modelToEye[column * 4 + row] = static_cast<float>(eye[column * 4 + row]);
        }
    return camera;
}

} // namespace vantix::host::detail
