#include "core/ThreeDViewStyle.h"

#include <VtxUtil.h>

namespace vantix::vtxutiltools
{

ThreeDViewStyle::ThreeDViewStyle()
    : m_style("ThreeDView"), m_psi(m_style.initMacroIDsfromStyleValueNames("PSIAngle")),
      m_theta(m_style.initMacroIDsfromStyleValueNames("ThetaAngle")),
      m_alpha(m_style.initMacroIDsfromStyleValueNames("AlphaAngle")),
      m_x(m_style.initMacroIDsfromStyleValueNames("ViewerPosition", "X")),
      m_y(m_style.initMacroIDsfromStyleValueNames("ViewerPosition", "Y")),
      m_z(m_style.initMacroIDsfromStyleValueNames("ViewerPosition", "Z")),
      m_width(m_style.initMacroIDsfromStyleValueNames("ViewWidth")),
      m_perspective(m_style.initMacroIDsfromStyleValueNames("DrawInPerspective"))
{
}

void ThreeDViewStyle::setAngles(double psi, double theta, double alpha)
{
    m_style.setValue(psi, nullptr, -1, -1, m_psi);
    m_style.setValue(theta, nullptr, -1, -1, m_theta);
    m_style.setValue(alpha, nullptr, -1, -1, m_alpha);
}

void ThreeDViewStyle::setViewerPosition(double x, double y, double z)
{
    m_style.setValue(x, nullptr, -1, -1, m_x);
    m_style.setValue(y, nullptr, -1, -1, m_y);
    m_style.setValue(z, nullptr, -1, -1, m_z);
}

void ThreeDViewStyle::setWidthKeepingProjection(double width)
{
    Boolean perspective = FALSE;
    m_style.getValue(&perspective, -1, -1, m_perspective);
    m_style.setValue(FALSE, nullptr, -1, -1, m_perspective);
    m_style.setValue(width, nullptr, -1, -1, m_width);
    m_style.setValue(perspective, nullptr, -1, -1, m_perspective);
}

} // namespace vantix::vtxutiltools
