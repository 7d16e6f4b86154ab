#include "core/View.h"
#include "animation/KeyFrameTestHelpers.h"
#include "core/KeyFrameError.h"

#include <support/AddOnTest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using testhelpers::HostView;
using testhelpers::SetHostView;

namespace
{

class ViewTest : public testsupport::AddOnTest
{
};

// One accessor and its setter, so that every field can be checked the same way.
struct Field_s
{
    const char* name;
    std::function<double(const View&)> get;
    std::function<void(View&, double)> set;
};

const std::vector<Field_s>& Fields()
{
    static const std::vector<Field_s> fields = {
        {"X", [](const View& v) { return v.x(); }, [](View& v, double d) { v.setX(d); }},
        {"Y", [](const View& v) { return v.y(); }, [](View& v, double d) { v.setY(d); }},
        {"Z", [](const View& v) { return v.z(); }, [](View& v, double d) { v.setZ(d); }},
        {"Psi", [](const View& v) { return v.psi(); }, [](View& v, double d) { v.setPsi(d); }},
        {"Theta", [](const View& v) { return v.theta(); }, [](View& v, double d) { v.setTheta(d); }},
        {"Alpha", [](const View& v) { return v.alpha(); }, [](View& v, double d) { v.setAlpha(d); }},
        {"Width", [](const View& v) { return v.width(); }, [](View& v, double d) { v.setWidth(d); }},
    };
    return fields;
}

std::vector<double> Values(const View& view)
{
    std::vector<double> values;
    for (const Field_s& field : Fields())
        values.push_back(field.get(view));
    return values;
}

} // namespace

TEST(ViewValueTest, ConstructorsKeepTheFieldOrderAndEachSetterChangesOnlyItsField)
{
    EXPECT_EQ(std::vector<double>(7, 0.0), Values(View()));
    const View view(1, 2, 3, 4, 5, 6, 7);
    EXPECT_EQ((std::vector<double>{1, 2, 3, 4, 5, 6, 7}), Values(view));

    for (std::size_t i = 0; i < Fields().size(); ++i)
    {
        View changed = view;
        Fields()[i].set(changed, -100.5);
        std::vector<double> expected{1, 2, 3, 4, 5, 6, 7};
        expected[i] = -100.5;
        EXPECT_EQ(expected, Values(changed)) << Fields()[i].name;
        EXPECT_FALSE(changed == view) << Fields()[i].name;
    }
}

TEST(ViewValueTest, SwapOverwritesEveryFieldAndLeavesItsArgumentAlone)
{
    View target(1, 2, 3, 4, 5, 6, 7);
    const View source(-1, -2, -3, -4, -5, -6, -7);
    target.swap(source);
    EXPECT_EQ((std::vector<double>{-1, -2, -3, -4, -5, -6, -7}), Values(target));
    EXPECT_EQ((std::vector<double>{-1, -2, -3, -4, -5, -6, -7}), Values(source));
}

TEST(ViewValueTest, DivisionDividesEveryField)
{
    const View quotient = View(2, 4, 6, 8, 10, 12, 14) / 4.0;
    EXPECT_EQ((std::vector<double>{0.5, 1, 1.5, 2, 2.5, 3, 3.5}), Values(quotient));
}

TEST(ViewValueTest, EqualityIsExactOnEveryField)
{
    const View view(1, 2, 3, 4, 5, 6, 7);
    EXPECT_TRUE(view == View(1, 2, 3, 4, 5, 6, 7));
    EXPECT_TRUE(View() == View(-0.0, -0.0, -0.0, -0.0, -0.0, -0.0, -0.0));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (std::size_t i = 0; i < Fields().size(); ++i)
    {
        View nearlyEqual = view;
        Fields()[i].set(nearlyEqual, std::nextafter(Fields()[i].get(view), 100.0));
        EXPECT_FALSE(view == nearlyEqual) << Fields()[i].name;
        View withNaN = view;
        Fields()[i].set(withNaN, nan);
        EXPECT_FALSE(withNaN == withNaN) << Fields()[i].name;
    }
}

TEST(ViewValueTest, DisplayStringShowsEveryFieldWithTwoDecimals)
{
    EXPECT_EQ("X=1.00 Y=-2.50 Z=3.00 Psi=10.00 Theta=20.00 Alpha=0.00 Width=1.25",
              View(1, -2.5, 3, 10, 20, 0, 1.25).displayString());
    EXPECT_EQ("X=0.00 Y=0.00 Z=0.00 Psi=0.00 Theta=0.00 Alpha=0.00 Width=0.00", View().displayString());
    EXPECT_EQ("X=1234567.89 Y=0.01 Z=-3.46 Psi=179.99 Theta=-180.00 Alpha=0.50 Width=100.00",
              View(1234567.891, 0.005001, -3.456, 179.994, -179.999, 0.5, 99.999).displayString());
}

TEST(ClampAngleTo180Test, BringsAnglesIntoHalfATurnEitherWay)
{
    const struct
    {
        double angle;
        double expected;
    } cases[] = {
        {190, -170},
        {-190, 170},
        {540, 180},
        {-540, -180},
        {720, 0},
        {180, 180},
        {-180, -180},
        {0, 0},
        {359.5, -0.5},
        {-359.5, 0.5},
        {1080000090, 90},
        {-1080000090, -90},
        {179.75, 179.75},
        {-179.75, -179.75},
        // So large that subtracting a turn leaves it as it is: 1e20 is 280 past a whole number of turns.
        {1e20, -80},
        {-1e20, 80},
    };
    for (const auto& c : cases)
    {
        double angle = c.angle;
        ClampAngleTo180(angle);
        EXPECT_EQ(c.expected, angle) << "angle " << c.angle;
    }

    // Angles that have no direction come back as they were, and the call returns.
    double infinite = std::numeric_limits<double>::infinity();
    ClampAngleTo180(infinite);
    EXPECT_EQ(std::numeric_limits<double>::infinity(), infinite);
    double nan = std::numeric_limits<double>::quiet_NaN();
    ClampAngleTo180(nan);
    EXPECT_TRUE(std::isnan(nan));
}

TEST_F(ViewTest, GetCurrentViewReadsTheHostsViewInDegrees)
{
    SetHostView(View(1.5, -2, 30, 30, -60, 150, 7));
    const View view = GetCurrentView();
    EXPECT_DOUBLE_EQ(1.5, view.x());
    EXPECT_DOUBLE_EQ(-2, view.y());
    EXPECT_DOUBLE_EQ(30, view.z());
    EXPECT_NEAR(30, view.psi(), 1e-12);
    EXPECT_NEAR(-60, view.theta(), 1e-12);
    EXPECT_NEAR(150, view.alpha(), 1e-12);
    EXPECT_DOUBLE_EQ(7, view.width());

    View stored;
    stored.storeCurrentView();
    EXPECT_TRUE(stored == view);
}

TEST_F(ViewTest, OnlyA3DCartesianFrameHasAView)
{
    for (const PlotType_e plotType :
         {PlotType_Cartesian2D, PlotType_XYLine, PlotType_Sketch, PlotType_PolarLine})
    {
        vantix::host::setPlotType(plotType);
        try
        {
            GetCurrentView();
            ADD_FAILURE() << "no error for plot type " << plotType;
        }
        catch (const KeyFrameError& error)
        {
            EXPECT_STREQ("The current frame must be in 3D Cartesian mode.", error.what());
        }
        View stored(1, 2, 3, 4, 5, 6, 7);
        EXPECT_THROW(stored.storeCurrentView(), KeyFrameError);
        EXPECT_TRUE(stored == View(1, 2, 3, 4, 5, 6, 7)) << stored.displayString();
    }
}

TEST_F(ViewTest, ApplyMakesTheViewTheHostsViewWithoutOrbiting)
{
    SetHostView(View(10, 10, 10, 0, 0, 0, 1));
    const View view(1.25, -2, 3, 30, -60, 150, 7);
    view.apply();
    EXPECT_TRUE(HostView() == view) << HostView().displayString();
    EXPECT_FALSE(vantix::host::view().perspective);
}

TEST_F(ViewTest, ApplyToAFrameInPerspectiveWritesTheWidthWhileOrthographic)
{
    SetHostView(View(0, 0, 40, 0, 0, 0, 10), true);
    const View view(1, 2, 30, 20, 10, 5, 15);
    view.apply();
    EXPECT_TRUE(vantix::host::view().perspective);
    // Writing the width in perspective would have moved the viewer along the view axis.
    EXPECT_TRUE(HostView() == view) << HostView().displayString();
}

TEST_F(ViewTest, ApplyChangesTheViewAsOnePieceUnderTheLockWithDrawingSuspended)
{
    vantix::host::setTracing(true);
    View(1, 2, 3, 4, 5, 6, 7).apply();
    EXPECT_EQ(testhelpers::ApplyViewTrace(), vantix::host::trace());
    EXPECT_EQ(0, vantix::host::skippedRedrawCount() + vantix::host::redrawCount());
}
