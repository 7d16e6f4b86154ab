#include "core/View.h"

#include "core/KeyFrameError.h"
#include "core/ThreeDViewStyle.h"
#include "platform/HostGuards.h"

#include <VtxUtil.h>

#include <cmath>
#include <iomanip>
#include <locale>
#include <sstream>

namespace vantix::vtxutiltools
{

namespace
{

// The host reports view angles in radians; the add-on works in degrees.
const double DegreesPerRadian = 57.29577951308232;

// Beyond this many degrees, turning by whole turns one at a time would take practically forever.
const double LargestAngleTurnedStepwise = 360.0 * 10000.0;

} // namespace

View::View(double x, double y, double z, double psi, double theta, double alpha, double width)
    : m_x(x), m_y(y), m_z(z), m_psi(psi), m_theta(theta), m_alpha(alpha), m_width(width)
{
}

void View::swap(const View& other)
{
    *this = other;
}

void View::storeCurrentView()
{
    *this = GetCurrentView();
}

void View::apply() const
{
    ThreeDViewStyle style;
    apply(style);
}

void View::apply(ThreeDViewStyle& style) const
{
    // The lock is taken twice on purpose: the caller may hold it or not, and the view must be changed as
    // one piece either way, with nothing drawn in between.
    HostLock outerLock;
    HostLock innerLock;
    DrawingSuspension suspension;
    style.setAngles(m_psi, m_theta, m_alpha);
    style.setViewerPosition(m_x, m_y, m_z);
    style.setWidthKeepingProjection(m_width);
}

std::string View::displayString() const
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << std::fixed << std::setprecision(2) << "X=" << m_x << " Y=" << m_y << " Z=" << m_z
         << " Psi=" << m_psi << " Theta=" << m_theta << " Alpha=" << m_alpha << " Width=" << m_width;
    return text.str();
}

View operator/(const View& view, double divisor)
{
    return View(view.x() / divisor, view.y() / divisor, view.z() / divisor, view.psi() / divisor,
                view.theta() / divisor, view.alpha() / divisor, view.width() / divisor);
}

bool operator==(const View& a, const View& b)
{
    return a.x() == b.x() && a.y() == b.y() && a.z() == b.z() && a.psi() == b.psi() &&
           a.theta() == b.theta() && a.alpha() == b.alpha() && a.width() == b.width();
}

View GetCurrentView()
{
    if (VtxUtilFrameGetPlotType() != PlotType_Cartesian3D)
        throw KeyFrameError("The current frame must be in 3D Cartesian mode.");

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    VtxUtilThreeDViewGetViewerPos(&x, &y, &z);
    double psi = 0.0;
    double theta = 0.0;
    double alpha = 0.0;
    VtxUtilThreeDViewGetViewerAngle(&psi, &theta, &alpha);
    double fieldOfView = 0.0;
    double width = 0.0;
    Boolean perspective = FALSE;
    VtxUtilThreeDViewGetProjection(&fieldOfView, &width, &perspective);
    return View(x, y, z, psi * DegreesPerRadian, theta * DegreesPerRadian, alpha * DegreesPerRadian, width);
}

void ClampAngleTo180(double& angle)
{
    // An infinite angle has no direction to turn to and is left alone. A huge one (a key view typed into a
    // file, say) is first brought down by whole turns at once, exactly, so that the loops below end.
    if (!std::isfinite(angle))
        return;
    if (std::fabs(angle) > LargestAngleTurnedStepwise)
        angle = std::fmod(angle, 360.0);
    while (angle > 180.0)
        angle -= 360.0;
    while (angle < -180.0)
        angle += 360.0;
}

} // namespace vantix::vtxutiltools
