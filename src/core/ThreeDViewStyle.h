#pragma once

#include <vantix/toolbox/StyleValue.h>

namespace vantix::vtxutiltools
{

// The host's "ThreeDView" style values that make up a view, opened for the lifetime of the object. The
// results of the individual writes are not examined: a refused write leaves that part of the view as it was.
class ThreeDViewStyle
{
public:
    ThreeDViewStyle();

    ThreeDViewStyle(const ThreeDViewStyle&) = delete;
    ThreeDViewStyle& operator=(const ThreeDViewStyle&) = delete;

    // Psi, then Theta, then Alpha, in degrees. Written as style values, the angles turn the view without
    // moving the viewer.
    void setAngles(double psi, double theta, double alpha);
    // X, then Y, then Z.
    void setViewerPosition(double x, double y, double z);
    // Writes the width while the view is orthographic and then puts the projection back as it was: a width
    // written in perspective would move the viewer along the view axis instead.
    void setWidthKeepingProjection(double width);

private:
    vantix::toolbox::StyleValue m_style;
};

} // namespace vantix::vtxutiltools
