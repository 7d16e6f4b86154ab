#include "core/View3D.h"

#include <cmath>
#include <cstdint>
#include <cstring>

namespace vantix::host::detail
{

namespace
{

constexpr double DegreesToRadians = 3.14159265358979323846 / 180.0;

Vector3 Subtract(const Vector3& a, const Vector3& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Vector3 Multiply(const Matrix3& m, const Vector3& v)
{
    return {m[0] * v[0] + m[1] * v[1] + m[2] * v[2], m[3] * v[0] + m[4] * v[1] + m[5] * v[2],
            m[6] * v[0] + m[7] * v[1] + m[8] * v[2]};
}

Vector3 MultiplyTransposed(const Matrix3& m, const Vector3& v)
{
    return {m[0] * v[0] + m[3] * v[1] + m[6] * v[2], m[1] * v[0] + m[4] * v[1] + m[7] * v[2],
            m[2] * v[0] + m[5] * v[1] + m[8] * v[2]};
}

bool SameBits(double a, double b)
{
    std::uint64_t aBits = 0;
    std::uint64_t bBits = 0;
    std::memcpy(&aBits, &a, sizeof a);
    std::memcpy(&bBits, &b, sizeof b);
    return aBits == bBits;
}

} // namespace

double WrapAngle(double degrees)
{
    if (degrees > 180.0 || degrees <= -180.0)
    {
        degrees = std::fmod(degrees, 360.0);
        if (degrees > 180.0)
            degrees -= 360.0;
        else if (degrees <= -180.0)
            degrees += 360.0;
    }
    return degrees;
}

const View3D::Trig::Angle& View3D::Trig::update(double newDegrees)
{
    if (SameBits(newDegrees, recent[0].degrees))
        return recent[0];
    std::size_t found = 1;
    while (found < recent.size() && !SameBits(newDegrees, recent[found].degrees))
        ++found;
    Angle angle;
    if (found < recent.size())
        angle = recent[found];
    else
    {
        found = recent.size() - 1; // the one used longest ago makes room
        angle.degrees = newDegrees;
        const double radians = newDegrees * DegreesToRadians;
        angle.sine = std::sin(radians);
        angle.cosine = std::cos(radians);
    }
    for (std::size_t i = found; i > 0; --i)
        recent[i] = recent[i - 1];
    recent[0] = angle;
    return recent[0];
}

View3D::View3D()
{
    m_angles = {60.0, -30.0, 0.0};
    m_width = 4.0;
    // Stand back along the view axis far enough to see the whole width in perspective too.
    const double distance = m_width / (2.0 * std::tan(m_fieldOfView / 2.0 * DegreesToRadians));
    const Vector3 back = towardsViewer();
    m_position = {m_origin[0] + distance * back[0], m_origin[1] + distance * back[1],
                  m_origin[2] + distance * back[2]};
}

void View3D::setAngle(Axis axis, double degrees)
{
    m_angles[static_cast<std::size_t>(axis)] = WrapAngle(degrees);
}

void View3D::setWidth(double width)
{
    const double halfAngle = m_fieldOfView / 2.0 * DegreesToRadians;
    if (m_perspective)
    {
        const Vector3 back = towardsViewer();
        const Vector3 fromOrigin = Subtract(m_position, m_origin);
        const double depth = fromOrigin[0] * back[0] + fromOrigin[1] * back[1] + fromOrigin[2] * back[2];
        const double wantedDepth = width / (2.0 * std::tan(halfAngle));
        const double move = wantedDepth - depth;
        for (int i = 0; i < 3; ++i)
            m_position[i] += move * back[i];
    }
    m_width = width;
}

bool View3D::setFieldOfView(double degrees)
{
    if (!(degrees > 0.0 && degrees < 180.0))
        return false;
    m_fieldOfView = degrees;
    return true;
}

void View3D::rotate(Axis axis, double degrees, const Vector3& pivot)
{
    const Matrix3 before = matrix();
    setAngle(axis, angle(axis) + degrees);
    const Matrix3& after = matrix();
    const Vector3 eye = Multiply(before, Subtract(m_position, pivot));
    const Vector3 moved = MultiplyTransposed(after, eye);
    m_position = {pivot[0] + moved[0], pivot[1] + moved[1], pivot[2] + moved[2]};
}

const Matrix3& View3D::matrix() const
{
    if (m_matrixMade && SameBits(m_angles[0], m_matrixAngles[0]) &&
        SameBits(m_angles[1], m_matrixAngles[1]) && SameBits(m_angles[2], m_matrixAngles[2]))
        return m_matrix;
    m_matrix = matrixFor(m_trig[0].update(m_angles[0]), m_trig[1].update(m_angles[1]),
                         m_trig[2].update(m_angles[2]));
    m_matrixAngles = m_angles;
    m_matrixMade = true;
    return m_matrix;
}

Matrix3 View3D::matrixFor(const Trig::Angle& psi, const Trig::Angle& theta, const Trig::Angle& alpha)
{
    // Rx(-Psi) * Rz(-Theta)
    const double ct = theta.cosine, st = theta.sine;
    const double cp = psi.cosine, sp = psi.sine;
    const Matrix3 tilt = {ct, st, 0.0, -cp * st, cp * ct, sp, sp * st, -sp * ct, cp};
    // Rz(Alpha) * tilt
    const double ca = alpha.cosine, sa = alpha.sine;
    return {ca * tilt[0] - sa * tilt[3],
            ca * tilt[1] - sa * tilt[4],
            ca * tilt[2] - sa * tilt[5],
            sa * tilt[0] + ca * tilt[3],
            sa * tilt[1] + ca * tilt[4],
            sa * tilt[2] + ca * tilt[5],
            tilt[6],
            tilt[7],
            tilt[8]};
}

Vector3 View3D::towardsViewer() const
{
    const Matrix3& m = matrix();
    return {m[6], m[7], m[8]};
}

} // namespace vantix::host::detail
