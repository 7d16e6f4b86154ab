// The 3D view of a frame: orientation, orbiting rotation, angle wrapping, projection read-back and the
// perspective dolly, through the SDK and the host's API.
#include "support/HostTest.h"

#include <VtxUtil.h>
#include <vantix/host/Host.h>
#include <vantix/toolbox/StyleValue.h>

#include <array>
#include <cmath>

namespace
{

using testsupport::HostTest;
using vantix::host::ViewState;
using vantix::toolbox::StyleValue;

constexpr double Tolerance = 1e-9;
constexpr double DegreesPerRadian = 57.29577951308232;

std::array<double, 3> TowardsViewer()
{
    const std::vector<double> m = vantix::host::viewMatrix();
    return {m[6], m[7], m[8]};
}

double Distance(const ViewState& v)
{
    return std::sqrt((v.x - v.originX) * (v.x - v.originX) + (v.y - v.originY) * (v.y - v.originY) +
                     (v.z - v.originZ) * (v.z - v.originZ));
}

ViewState LookingAt(double psi, double theta, double alpha)
{
    ViewState view;
    view.psi = psi;
    view.theta = theta;
    view.alpha = alpha;
    view.width = 2.0;
    view.fieldOfView = 30.0;
    view.originX = 1.0;
    view.originY = 2.0;
    view.originZ = 3.0;
    vantix::host::setView(view);
    // Put the viewer on the view axis, 10 units from the origin.
    const auto back = TowardsViewer();
    view.x = view.originX + 10.0 * back[0];
    view.y = view.originY + 10.0 * back[1];
    view.z = view.originZ + 10.0 * back[2];
    vantix::host::setView(view);
    return view;
}

class ViewTest : public HostTest
{
};

TEST_F(ViewTest, OrientationFollowsTheAnglesConvention)
{
    struct Case
    {
        double psi, theta, alpha;
        std::array<double, 9> matrix; // rows: right, up, towards the viewer
    };
    const Case cases[] = {
        {0, 0, 0, {1, 0, 0, 0, 1, 0, 0, 0, 1}},     // straight down the Z axis
        {90, 0, 0, {1, 0, 0, 0, 0, 1, 0, -1, 0}},   // horizontal, looking along +Y, Z up
        {90, 90, 0, {0, 1, 0, 0, 0, 1, 1, 0, 0}},   // horizontal, looking along -X
        {0, 0, 90, {0, -1, 0, 1, 0, 0, 0, 0, 1}},   // the picture turned a quarter about the view axis
        {180, 0, 0, {1, 0, 0, 0, -1, 0, 0, 0, -1}}, // from below
    };
    for (const Case& c : cases)
    {
        LookingAt(c.psi, c.theta, c.alpha);
        const std::vector<double> m = vantix::host::viewMatrix();
        for (int i = 0; i < 9; ++i)
            EXPECT_NEAR(c.matrix[i], m[i], Tolerance)
                << "psi " << c.psi << " theta " << c.theta << " alpha " << c.alpha << " element " << i;
    }
}

TEST_F(ViewTest, AnglesAreReadInRadiansAndKeptWrapped)
{
    LookingAt(10.0, -20.0, 30.0);
    double psi = 0, theta = 0, alpha = 0;
    ASSERT_TRUE(VtxUtilThreeDViewGetViewerAngle(&psi, &theta, &alpha));
    EXPECT_NEAR(10.0, psi * DegreesPerRadian, Tolerance);
    EXPECT_NEAR(-20.0, theta * DegreesPerRadian, Tolerance);
    EXPECT_NEAR(30.0, alpha * DegreesPerRadian, Tolerance);

    struct Case
    {
        double start, turn, expected;
    };
    const Case cases[] = {{170, 20, -170}, {170, 10, 180}, {-170, -10, 180}, {-170, -20, 170},
                          {0, 720, 0},     {10, -370, 0},  {179, 1, 180}};
    for (const Case& c : cases)
    {
        LookingAt(c.start, 0.0, 0.0);
        ASSERT_TRUE(VtxUtilViewRotate3D(RotateAxis_Psi, RotateOriginLocation_DefinedOrigin, c.turn, 0, 0, 0));
        EXPECT_NEAR(c.expected, vantix::host::view().psi, Tolerance) << c.start << " turned by " << c.turn;
    }

    vantix::host::setView(LookingAt(0, 0, 0));
    ViewState wrapped = vantix::host::view();
    wrapped.theta = -180.0;
    vantix::host::setView(wrapped);
    EXPECT_EQ(180.0, vantix::host::view().theta);
}

TEST_F(ViewTest, RotationOrbitsTheRotationOriginWithTheView)
{
    const RotateAxis_e axes[] = {RotateAxis_Psi, RotateAxis_Theta, RotateAxis_Alpha};
    for (RotateAxis_e axis : axes)
    {
        const ViewState before = LookingAt(40.0, 25.0, -15.0);
        ASSERT_TRUE(VtxUtilViewRotate3D(axis, RotateOriginLocation_DefinedOrigin, 33.0, 0, 0, 0));
        const ViewState after = vantix::host::view();
        EXPECT_NEAR(Distance(before), Distance(after), Tolerance) << "axis " << axis;
        // The viewer still looks at the origin: it stays on the view axis through the origin.
        const auto back = TowardsViewer();
        EXPECT_NEAR(after.originX + 10.0 * back[0], after.x, Tolerance) << "axis " << axis;
        EXPECT_NEAR(after.originY + 10.0 * back[1], after.y, Tolerance) << "axis " << axis;
        EXPECT_NEAR(after.originZ + 10.0 * back[2], after.z, Tolerance) << "axis " << axis;
        EXPECT_NEAR(33.0,
                    (axis == RotateAxis_Psi     ? after.psi - before.psi
                     : axis == RotateAxis_Theta ? after.theta - before.theta
                                                : after.alpha - before.alpha),
                    Tolerance);
        // Turning back returns the viewer to where it stood.
        ASSERT_TRUE(VtxUtilViewRotate3D(axis, RotateOriginLocation_DefinedOrigin, -33.0, 0, 0, 0));
        const ViewState back2 = vantix::host::view();
        EXPECT_NEAR(before.x, back2.x, Tolerance);
        EXPECT_NEAR(before.y, back2.y, Tolerance);
        EXPECT_NEAR(before.z, back2.z, Tolerance);
    }

    // An off-axis viewer orbits too: its offset from the origin turns with the view.
    ViewState offAxis = LookingAt(0.0, 0.0, 0.0);
    offAxis.x += 3.0; // three units to the right of the axis
    vantix::host::setView(offAxis);
    ASSERT_TRUE(VtxUtilViewRotate3D(RotateAxis_Theta, RotateOriginLocation_DefinedOrigin, 90.0, 0, 0, 0));
    const ViewState turned = vantix::host::view();
    EXPECT_NEAR(offAxis.originX, turned.x, Tolerance);
    EXPECT_NEAR(offAxis.originY + 3.0, turned.y, Tolerance);
    EXPECT_NEAR(offAxis.z, turned.z, Tolerance);
}

TEST_F(ViewTest, RotationAboutTheViewerOrRefusedAxesLeavesThePositionAlone)
{
    const ViewState before = LookingAt(40.0, 25.0, -15.0);
    ASSERT_TRUE(VtxUtilViewRotate3D(RotateAxis_Theta, RotateOriginLocation_Viewer, 20.0, 0, 0, 0));
    ViewState after = vantix::host::view();
    EXPECT_NEAR(before.x, after.x, Tolerance);
    EXPECT_NEAR(before.y, after.y, Tolerance);
    EXPECT_NEAR(before.z, after.z, Tolerance);
    EXPECT_NEAR(45.0, after.theta, Tolerance);

    for (RotateAxis_e refused : {RotateAxis_X, RotateAxis_Y, RotateAxis_Z})
        EXPECT_FALSE(VtxUtilViewRotate3D(refused, RotateOriginLocation_DefinedOrigin, 20.0, 0, 0, 1));
    after = vantix::host::view();
    EXPECT_EQ(45.0, after.theta);
    EXPECT_EQ(before.psi, after.psi);
}

TEST_F(ViewTest, WidthWrittenInPerspectiveDolliesTheViewer)
{
    ViewState start = LookingAt(30.0, 60.0, 0.0);
    StyleValue view("ThreeDView");
    const auto width = view.initMacroIDsfromStyleValueNames("ViewWidth");
    const auto perspective = view.initMacroIDsfromStyleValueNames("DrawInPerspective");

    // Orthographic: only the width changes.
    ASSERT_EQ(SetValueReturnCode_Ok, view.setValue(5.0, nullptr, -1, -1, width));
    ViewState after = vantix::host::view();
    EXPECT_EQ(5.0, after.width);
    EXPECT_EQ(start.x, after.x);
    EXPECT_EQ(start.y, after.y);
    EXPECT_EQ(start.z, after.z);

    // Perspective: the viewer moves along the view axis until the width at the origin's depth is 5.
    ASSERT_EQ(SetValueReturnCode_Ok, view.setValue(TRUE, nullptr, -1, -1, perspective));
    ASSERT_EQ(SetValueReturnCode_Ok, view.setValue(8.0, nullptr, -1, -1, width));
    after = vantix::host::view();
    EXPECT_EQ(8.0, after.width);
    const double wantedDistance = 8.0 / (2.0 * std::tan(15.0 / DegreesPerRadian));
    EXPECT_NEAR(wantedDistance, Distance(after), 1e-9);
    const auto back = TowardsViewer();
    EXPECT_NEAR(after.originX + wantedDistance * back[0], after.x, 1e-9);

    double fieldOfView = 0, readWidth = 0;
    Boolean isPerspective = FALSE;
    ASSERT_TRUE(VtxUtilThreeDViewGetProjection(&fieldOfView, &readWidth, &isPerspective));
    EXPECT_EQ(30.0, fieldOfView);
    EXPECT_EQ(8.0, readWidth);
    EXPECT_EQ(TRUE, isPerspective);
}

TEST_F(ViewTest, AnglesWrittenAsStyleDoNotOrbit)
{
    const ViewState before = LookingAt(10.0, 10.0, 10.0);
    StyleValue view("ThreeDView");
    for (const char* angle : {"PSIAngle", "ThetaAngle", "AlphaAngle"})
        ASSERT_EQ(SetValueReturnCode_Ok,
                  view.setValue(200.0, nullptr, -1, -1, view.initMacroIDsfromStyleValueNames(angle)));
    const ViewState after = vantix::host::view();
    EXPECT_EQ(-160.0, after.psi);
    EXPECT_EQ(-160.0, after.theta);
    EXPECT_EQ(-160.0, after.alpha);
    EXPECT_EQ(before.x, after.x);
    EXPECT_EQ(before.y, after.y);
    EXPECT_EQ(before.z, after.z);

    for (int i = 0; i < 3; ++i)
    {
        const char* axis[] = {"X", "Y", "Z"};
        ASSERT_EQ(SetValueReturnCode_Ok,
                  view.setValue(7.0 + i, nullptr, -1, -1,
                                view.initMacroIDsfromStyleValueNames("ViewerPosition", axis[i])));
    }
    double x = 0, y = 0, z = 0;
    ASSERT_TRUE(VtxUtilThreeDViewGetViewerPos(&x, &y, &z));
    EXPECT_EQ(7.0, x);
    EXPECT_EQ(8.0, y);
    EXPECT_EQ(9.0, z);
}

TEST_F(ViewTest, FramesThatAreNotThreeDimensionalHaveNoView)
{
    vantix::host::setPlotType(PlotType_Cartesian2D);
    double a = 1, b = 2, c = 3;
    Boolean flag = FALSE;
    EXPECT_FALSE(VtxUtilThreeDViewGetViewerPos(&a, &b, &c));
    EXPECT_FALSE(VtxUtilThreeDViewGetViewerAngle(&a, &b, &c));
    EXPECT_FALSE(VtxUtilThreeDViewGetProjection(&a, &b, &flag));
    EXPECT_FALSE(VtxUtilViewRotate3D(RotateAxis_Psi, RotateOriginLocation_DefinedOrigin, 10.0, 0, 0, 0));
    EXPECT_EQ(1.0, a);

    StyleValue view("ThreeDView");
    double psi = 0;
    EXPECT_EQ(GetValueReturnCode_ContextError,
              view.getValue(&psi, -1, -1, view.initMacroIDsfromStyleValueNames("PSIAngle")));
    EXPECT_EQ(SetValueReturnCode_ContextError,
              view.setValue(1.0, nullptr, -1, -1, view.initMacroIDsfromStyleValueNames("PSIAngle")));
}

} // namespace
