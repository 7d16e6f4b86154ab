// The 3D view of one frame: where the viewer stands, how the scene is turned, and how wide the view is.
//
// Orientation: the model-to-eye rotation is M = Rz(Alpha) * Rx(-Psi) * Rz(-Theta), with the eye's x to the
// right, y up and z towards the viewer; the viewer looks along -z from its position. Psi 0 looks straight
// down the model Z axis, Psi 90 looks horizontally. Angles are kept in degrees in (-180, 180].
#pragma once

#include <array>
#include <cstddef>

namespace vantix::host::detail
{

using Vector3 = std::array<double, 3>;
using Matrix3 = std::array<double, 9>; // row-major

// An angle in degrees brought into (-180, 180].
double WrapAngle(double degrees);

class View3D
{
public:
    enum class Axis
    {
        Psi,
        Theta,
        Alpha
    };

    // The host's default view: an oblique look at the rotation origin, orthographic.
    View3D();

    const Vector3& position() const { return m_position; }
    double angle(Axis axis) const { return m_angles[static_cast<std::size_t>(axis)]; }
    double psi() const { return angle(Axis::Psi); }
    double theta() const { return angle(Axis::Theta); }
    double alpha() const { return angle(Axis::Alpha); }
    double width() const { return m_width; }
    bool perspective() const { return m_perspective; }
    double fieldOfView() const { return m_fieldOfView; }
    const Vector3& rotationOrigin() const { return m_origin; }

    void setPosition(const Vector3& position) { m_position = position; }
    void setPositionComponent(int component, double value) { m_position[component] = value; }
    // Changes one angle alone: the viewer does not move.
    void setAngle(Axis axis, double degrees);
    // In perspective, the viewer moves along the view axis so that the visible width at the rotation
    // origin's depth becomes the new width (a dolly); orthographic views just take the width.
    void setWidth(double width);
    void setPerspective(bool perspective) { m_perspective = perspective; }
    // Refused (false) outside (0, 180) degrees.
    bool setFieldOfView(double degrees);
    void setRotationOrigin(const Vector3& origin) { m_origin = origin; }
    void setRotationOriginComponent(int component, double value) { m_origin[component] = value; }

    // Adds degrees to one angle and lets the viewer orbit the pivot with the view:
    // P' = pivot + M'^T * M * (P - pivot).
    void rotate(Axis axis, double degrees, const Vector3& pivot);

    // Kept by the view until its angles change.
    const Matrix3& matrix() const;
    // The eye's z axis (towards the viewer) in model coordinates.
    Vector3 towardsViewer() const;

private:
    // Sine and cosine of the last three angles one axis had, the latest first, computed only for an angle
    // that is none of them. Rotations and reads of the matrix come in long runs over few distinct angles:
    // an add-on that steps a view towards another sets the view, turns it to the other, sets it back and
    // turns it by one step, so that each axis goes between the angles of the three views.
    // Angles are told apart by their bits, so what is kept is exactly what computing afresh would give.
    struct Trig
    {
        struct Angle
        {
            double degrees = 0.0;
            double sine = 0.0;
            double cosine = 1.0;
        };
        std::array<Angle, 3> recent;
        // Makes newDegrees the latest angle.
        const Angle& update(double newDegrees);
    };

    static Matrix3 matrixFor(const Trig::Angle& psi, const Trig::Angle& theta, const Trig::Angle& alpha);

    Vector3 m_position{};
    std::array<double, 3> m_angles{}; // Psi, Theta, Alpha
    double m_width = 1.0;
    bool m_perspective = false;
    double m_fieldOfView = 30.0;
    Vector3 m_origin{};

    mutable std::array<Trig, 3> m_trig; // of m_angles
    // The matrix last made, and the angles it was made of: a rotation starts from the matrix the rotation
    // before it ended with.
    mutable Matrix3 m_matrix{};
    mutable std::array<double, 3> m_matrixAngles{};
    mutable bool m_matrixMade = false;
};

} // namespace vantix::host::detail
