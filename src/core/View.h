#pragma once

#include <string>

namespace vantix::vtxutiltools
{

class ThreeDViewStyle;

// One 3D view of the host's active frame: the viewer position (model units), the view angles Psi, Theta and
// Alpha (degrees) and the width of the orthographic view (model units). The field order X, Y, Z, Psi,
// Theta, Alpha, Width is the order of the seven-value constructor, of displayString and of the key frame
// file.
class View
{
public:
    View() = default;
    View(double x, double y, double z, double psi, double theta, double alpha, double width);

    double x() const { return m_x; }
    double y() const { return m_y; }
    double z() const { return m_z; }
    double psi() const { return m_psi; }
    double theta() const { return m_theta; }
    double alpha() const { return m_alpha; }
    double width() const { return m_width; }

    void setX(double x) { m_x = x; }
    void setY(double y) { m_y = y; }
    void setZ(double z) { m_z = z; }
    void setPsi(double psi) { m_psi = psi; }
    void setTheta(double theta) { m_theta = theta; }
    void setAlpha(double alpha) { m_alpha = alpha; }
    void setWidth(double width) { m_width = width; }

    // Overwrites every field with those of other; other is left as it is.
    void swap(const View& other);

    // Becomes the host's current view (GetCurrentView).
    void storeCurrentView();

    // Makes this the host's current view. Takes the host lock itself and suspends drawing meanwhile; a
    // frame in perspective stays in perspective, and the width is written as the orthographic width.
    void apply() const;
    // The same through style settings looked up already, for callers that apply many views in a row.
    void apply(ThreeDViewStyle& style) const;

    // "X=1.00 Y=-2.50 Z=3.00 Psi=10.00 Theta=20.00 Alpha=0.00 Width=1.25": a diagnostic text.
    std::string displayString() const;

private:
    double m_x = 0.0;
    double m_y = 0.0;
    double m_z = 0.0;
    double m_psi = 0.0;
    double m_theta = 0.0;
    double m_alpha = 0.0;
    double m_width = 0.0;
};

// Every field divided by divisor.
View operator/(const View& view, double divisor);

// Exact comparison of all seven fields: no tolerance, so a view with a NaN field equals no view.
bool operator==(const View& a, const View& b);

// The host's current 3D view. Throws KeyFrameError when the active frame is not a 3D Cartesian plot. Takes
// no lock: its callers hold it.
View GetCurrentView();

// Brings an angle difference into -180 to 180 degrees so that a turn by it goes the short way round; 180
// and -180 themselves are kept.
void ClampAngleTo180(double& angle);

} // namespace vantix::vtxutiltools
