// The 3D view of a frame: orientation, orbiting rotation, angle wrapping, projection read-back and the
// perspective dolly, through the SDK and the host's API.
#include "support/HostTest.h"

#include <vantix/toolbox/StyleValue.h>

#include <array>
#include <cmath>

namespace
{

namespace host = vantix::host;
using host::ViewState;
using namespace ::testing;
using vantix::toolbox::StyleValue;
using Point = std::array<double, 3>;
using ViewTest = testsupport::HostTest;

constexpr double Tolerance = 1e-9;
constexpr double DegreesPerRadian = 57.29577951308232;

const auto Viewer = [](const ViewState& v) { return Point{v.x, v.y, v.z}; };

// Where the viewer stands this far from the rotation origin along the view axis (the matrix's third row).
Point OnTheAxis(const ViewState& v, double distance)
{
    const std::vector<double> m = host::viewMatrix();
    return {v.originX + distance * m[6], v.originY + distance * m[7], v.originZ + distance * m[8]};
}

const auto Distance = [](const ViewState& v)
{ return std::hypot(v.x - v.originX, v.y - v.originY, v.z - v.originZ); };

// A view with these angles, looking at the origin (1, 2, 3) from 10 units away on the view axis.
ViewState LookingAt(double psi, double theta, double alpha)
{
    ViewState view{0, 0, 0, psi, theta, alpha, 2.0, false, 30.0, 1.0, 2.0, 3.0};
    host::setView(view);
    const Point viewer = OnTheAxis(view, 10.0);
    view.x = viewer[0], view.y = viewer[1], view.z = viewer[2];
    host::setView(view);
    return view;
}

TEST_F(ViewTest, OrientationFollowsTheAnglesConventionAndAnglesAreKeptWrapped)
{
    const std::pair<Point, std::array<double, 9>> cases[] = {
        // psi, theta, alpha; the rows right, up, towards the viewer
        {{0, 0, 0}, {1, 0, 0, 0, 1, 0, 0, 0, 1}},     // straight down the Z axis
        {{90, 0, 0}, {1, 0, 0, 0, 0, 1, 0, -1, 0}},   // horizontal, looking along +Y, Z up
        {{90, 90, 0}, {0, 1, 0, 0, 0, 1, 1, 0, 0}},   // horizontal, looking along -X
        {{0, 0, 90}, {0, -1, 0, 1, 0, 0, 0, 0, 1}},   // the picture turned a quarter about the view axis
        {{180, 0, 0}, {1, 0, 0, 0, -1, 0, 0, 0, -1}}, // from below
    };
    for (const auto& [angles, matrix] : cases)
    {
        LookingAt(angles[0], angles[1], angles[2]);
        EXPECT_THAT(host::viewMatrix(), Pointwise(DoubleNear(Tolerance), matrix))
            << angles[0] << " " << angles[1] << " " << angles[2];
    }

    // Angles are kept wrapped into (-180, 180]. (The SDK reads them in radians: the add-on's view tests.)
    const Point turns[] = {{170, 20, -170}, {170, 10, 180}, {-170, -10, 180}, {-170, -20, 170},
                           {0, 720, 0},     {10, -370, 0},  {179, 1, 180}}; // start, turn, end
    for (const auto& [start, turn, end] : turns)
    {
        LookingAt(start, 0.0, 0.0);
        ASSERT_TRUE(VtxUtilViewRotate3D(RotateAxis_Psi, RotateOriginLocation_DefinedOrigin, turn, 0, 0, 0));
        EXPECT_NEAR(end, host::view().psi, Tolerance) << start << " turned by " << turn;
    }
    ViewState wrapped = LookingAt(0, 0, 0);
    wrapped.theta = -180.0;
    host::setView(wrapped);
    EXPECT_EQ(180.0, host::view().theta);
}

// About the rotation origin the viewer orbits with the view; about the viewer, or about a fixed axis, which
// the host refuses, it stays where it is.
TEST_F(ViewTest, RotationOrbitsTheRotationOriginOrLeavesTheViewerWhereItIs)
{
    const auto angles = [](const ViewState& v) { return Point{v.psi, v.theta, v.alpha}; };
    for (const RotateAxis_e axis : {RotateAxis_Psi, RotateAxis_Theta, RotateAxis_Alpha})
    {
        const ViewState before = LookingAt(40.0, 25.0, -15.0);
        ASSERT_TRUE(VtxUtilViewRotate3D(axis, RotateOriginLocation_DefinedOrigin, 33.0, 0, 0, 0));
        const ViewState after = host::view();
        EXPECT_NEAR(Distance(before), Distance(after), Tolerance) << "axis " << axis;
        // The viewer still looks at the origin: it stays on the view axis through the origin.
        EXPECT_THAT(Viewer(after), Pointwise(DoubleNear(Tolerance), OnTheAxis(after, 10.0)))
            << "axis " << axis;
        Point turned = angles(before);
        turned[axis - RotateAxis_Psi] += 33.0;
        EXPECT_THAT(angles(after), Pointwise(DoubleNear(Tolerance), turned));
        // Turning back returns the viewer to where it stood.
        ASSERT_TRUE(VtxUtilViewRotate3D(axis, RotateOriginLocation_DefinedOrigin, -33.0, 0, 0, 0));
        EXPECT_THAT(Viewer(host::view()), Pointwise(DoubleNear(Tolerance), Viewer(before)));
    }

    // An off-axis viewer orbits too: its offset from the origin turns with the view.
    ViewState offAxis = LookingAt(0.0, 0.0, 0.0);
    offAxis.x += 3.0; // three units to the right of the axis
    host::setView(offAxis);
    ASSERT_TRUE(VtxUtilViewRotate3D(RotateAxis_Theta, RotateOriginLocation_DefinedOrigin, 90.0, 0, 0, 0));
    EXPECT_THAT(Viewer(host::view()),
                Pointwise(DoubleNear(Tolerance), Point{offAxis.originX, offAxis.originY + 3.0, offAxis.z}));

    const ViewState before = LookingAt(40.0, 25.0, -15.0);
    ASSERT_TRUE(VtxUtilViewRotate3D(RotateAxis_Theta, RotateOriginLocation_Viewer, 20.0, 0, 0, 0));
    for (const RotateAxis_e refused : {RotateAxis_X, RotateAxis_Y, RotateAxis_Z})
        EXPECT_FALSE(VtxUtilViewRotate3D(refused, RotateOriginLocation_DefinedOrigin, 20.0, 0, 0, 1));
    EXPECT_THAT(Viewer(host::view()), Pointwise(DoubleNear(Tolerance), Viewer(before)));
    EXPECT_THAT(angles(host::view()), Pointwise(DoubleNear(Tolerance), Point{40.0, 45.0, -15.0}));
}

TEST_F(ViewTest, WidthWrittenInPerspectiveDolliesTheViewer)
{
    const ViewState start = LookingAt(30.0, 60.0, 0.0);
    StyleValue view("ThreeDView");
    const auto width = view.initMacroIDsfromStyleValueNames("ViewWidth");

    // Orthographic: only the width changes.
    ASSERT_EQ(SetValueReturnCode_Ok, view.setValue(5.0, nullptr, -1, -1, width));
    EXPECT_EQ(std::make_pair(5.0, Viewer(start)), std::make_pair(host::view().width, Viewer(host::view())));

    // Perspective: the viewer moves along the view axis until the width at the origin's depth is 8.
    host::setStyle({"ThreeDView", "DrawInPerspective"}, true);
    ASSERT_EQ(SetValueReturnCode_Ok, view.setValue(8.0, nullptr, -1, -1, width));
    const ViewState after = host::view();
    const double wantedDistance = 8.0 / (2.0 * std::tan(15.0 / DegreesPerRadian));
    EXPECT_THAT(Viewer(after), Pointwise(DoubleNear(Tolerance), OnTheAxis(after, wantedDistance)));

    double fov = 0, read = 0; // the field of view and the width
    Boolean perspective = FALSE;
    ASSERT_TRUE(VtxUtilThreeDViewGetProjection(&fov, &read, &perspective));
    EXPECT_EQ(std::make_tuple(30.0, 8.0, true), std::make_tuple(fov, read, perspective == TRUE));
}

TEST_F(ViewTest, FramesThatAreNotThreeDimensionalHaveNoView)
{
    host::setPlotType(PlotType_Cartesian2D);
    double a = 1, b = 2, c = 3;
    Boolean flag = FALSE;
    EXPECT_FALSE(VtxUtilThreeDViewGetViewerPos(&a, &b, &c));
    EXPECT_FALSE(VtxUtilThreeDViewGetViewerAngle(&a, &b, &c));
    EXPECT_FALSE(VtxUtilThreeDViewGetProjection(&a, &b, &flag));
    EXPECT_FALSE(VtxUtilViewRotate3D(RotateAxis_Psi, RotateOriginLocation_DefinedOrigin, 10.0, 0, 0, 0));
    EXPECT_EQ(1.0, a);
    StyleValue view("ThreeDView");
    double psi = 0;
    const auto angle = view.initMacroIDsfromStyleValueNames("PSIAngle");
    EXPECT_EQ(GetValueReturnCode_ContextError, view.getValue(&psi, -1, -1, angle));
    EXPECT_EQ(SetValueReturnCode_ContextError, view.setValue(1.0, nullptr, -1, -1, angle));
}

} // namespace
