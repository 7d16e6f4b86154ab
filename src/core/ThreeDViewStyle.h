#pragma once

#include <vantix/toolbox/StyleValue.h>

namespace vantix::vtxutiltools
{

// The host's "ThreeDView" style values that make up a view. The identifiers of the settings are looked up
// once, when the object is made, and belong to the host's style settings of that moment: make one for a
// piece of work (applying a view, computing an animation's views) rather than keeping one. The results of
// the individual writes are not examined: a refused write leaves that part of the view as it was.
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
    using SettingIDs = vantix::toolbox::StyleValue::MacroIDs;

    vantix::toolbox::StyleValue m_style;
    const SettingIDs m_psi;
    const SettingIDs m_theta;
    const SettingIDs m_alpha;
    const SettingIDs m_x;
    const SettingIDs m_y;
    const SettingIDs m_z;
    const SettingIDs m_width;
    const SettingIDs m_perspective;
};

} // namespace vantix::vtxutiltools
