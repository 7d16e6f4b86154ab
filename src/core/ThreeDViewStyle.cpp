#include "core/ThreeDViewStyle.h"

#include <VtxUtil.h>

namespace vantix::vtxutiltools
{

ThreeDViewStyle::ThreeDViewStyle() : m_style("ThreeDView") {}

void ThreeDViewStyle::setAngles(double psi, double theta, double alpha)
{
    m_style.setValue(psi, nullptr, -1, -1, m_style.initMacroIDsfromStyleValueNames("PSIAngle"));
    m_style.setValue(theta, nullptr, -1, -1, m_style.initMacroIDsfromStyleValueNames("ThetaAngle"));
    m_style.setValue(alpha, nullptr, -1, -1, m_style.initMacroIDsfromStyleValueNames("AlphaAngle"));
}

void ThreeDViewStyle::setViewerPosition(double x, double y, double z)
{
    m_style.setValue(x, nullptr, -1, -1, m_style.initMacroIDsfromStyleValueNames("ViewerPosition", "X"));
    m_style.setValue(y, nullptr, -1, -1, m_style.initMacroIDsfromStyleValueNames("ViewerPosition", "Y"));
    m_style.setValue(z, nullptr, -1, -1, m_style.initMacroIDsfromStyleValueNames("ViewerPosition", "Z"));
}

void ThreeDViewStyle::setWidthKeepingProjection(double width)
{
    const auto perspectiveIDs = m_style.initMacroIDsfromStyleValueNames("DrawInPerspective");
    Boolean perspective = FALSE;
    m_style.getValue(&perspective, -1, -1, perspectiveIDs);
    m_style.setValue(FALSE, nullptr, -1, -1, perspectiveIDs);
    m_style.setValue(width, nullptr, -1, -1, m_style.initMacroIDsfromStyleValueNames("ViewWidth"));
    m_style.setValue(perspective, nullptr, -1, -1, perspectiveIDs);
}

} // namespace vantix::vtxutiltools
