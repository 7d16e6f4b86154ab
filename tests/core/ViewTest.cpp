// The view record's text, bringing angles into half a turn, and reading and applying the host's 3D view.
#include "core/View.h"
#include "animation/KeyFrameTestHelpers.h"
#include "core/KeyFrameError.h"

#include <support/AddOnTest.h>
#include <support/ThrownMessage.h>

#include <cmath>
#include <limits>

using namespace vantix::vtxutiltools;
using testhelpers::HostView;
using Values = std::vector<double>;

namespace
{

using ViewTest = testsupport::AddOnTest;

Values Of(const View& view)
{
    return {view.x(), view.y(), view.z(), view.psi(), view.theta(), view.alpha(), view.width()};
}

} // namespace

TEST(ViewValueTest, TheDisplayStringShowsEachFieldWithTwoDecimals)
{
    EXPECT_EQ("X=1234567.89 Y=0.01 Z=-3.46 Psi=179.99 Theta=-180.00 Alpha=0.50 Width=100.00",
              View(1234567.891, 0.005001, -3.456, 179.994, -179.999, 0.5, 99.999).displayString());
}

TEST(ClampAngleTo180Test, BringsAnglesIntoHalfATurnEitherWay)
{
    const double infinity = std::numeric_limits<double>::infinity();
    // clang-format off
    for (const auto& [given, expected] : std::vector<std::pair<double, double>>{
        {190, -170}, {-190, 170}, {540, 180}, {-540, -180}, {180, 180}, {-180, -180}, {179.75, 179.75},
        {359.5, -0.5}, {-359.5, 0.5}, {1080000090, 90}, {-1080000090, -90},
        // So large that subtracting a turn leaves it as it is: 1e20 is 280 past a whole number of turns.
        {1e20, -80}, {-1e20, 80},
        // An angle that has no direction comes back as it was, and the call returns.
        {infinity, infinity}, {-infinity, -infinity}})
    // clang-format on
    {
        double angle = given;
        ClampAngleTo180(angle);
        EXPECT_EQ(expected, angle) << "angle " << given;
    }
    double nan = std::numeric_limits<double>::quiet_NaN();
    ClampAngleTo180(nan);
    EXPECT_TRUE(std::isnan(nan));
}

TEST_F(ViewTest, TheHostsViewIsReadInDegreesFromA3DCartesianFrameOnly)
{
    testhelpers::SetHostView(View(1.5, -2, 30, 30, -60, 150, 7));
    const View view = GetCurrentView();
    const Values expected{1.5, -2, 30, 30, -60, 150, 7};
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(expected[i], Of(view)[i], 1e-12) << "field " << i;
    View stored;
    stored.storeCurrentView();
    EXPECT_TRUE(stored == view);

    for (const PlotType_e plotType : {PlotType_Cartesian2D, PlotType_PolarLine})
    {
        vantix::host::setPlotType(plotType);
        EXPECT_THROW_MSG(GetCurrentView(), KeyFrameError, "The current frame must be in 3D Cartesian mode.")
            << plotType;
        EXPECT_THROW(stored.storeCurrentView(), KeyFrameError);
        EXPECT_TRUE(stored == view) << stored.displayString();
    }
}

TEST_F(ViewTest, ApplyMakesTheViewTheHostsViewKeepingItsProjection)
{
    // Writing the width in perspective would have moved the viewer along the view axis.
    for (const bool perspective : {false, true})
    {
        testhelpers::SetHostView(View(0, 0, 40, 0, 0, 0, 10), perspective);
        const View view(1.25, -2, 3, 30, -60, 150, 7);
        view.apply();
        EXPECT_TRUE(HostView() == view) << HostView().displayString();
        EXPECT_EQ(perspective, vantix::host::view().perspective);
    }
}
