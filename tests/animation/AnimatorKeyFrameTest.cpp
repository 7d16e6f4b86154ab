#include "animation/AnimatorKeyFrame.h"
#include "animation/AnimatorOnScreen.h"
#include "animation/KeyFrameTestHelpers.h"
#include "core/KeyFrameError.h"

#include <support/AddOnTest.h>

#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using testhelpers::HostView;
using testhelpers::MakeKeyFrames;
using testhelpers::SetHostView;
using testhelpers::ViewAtX;
using vantix::host::StatusEvent;

namespace
{

class AnimatorKeyFrameTest : public testsupport::AddOnTest
{
protected:
    // The views of every frame, as drawing each frame leaves the host's view.
    static std::vector<View> DrawnViews(AnimatorKeyFrame& animator)
    {
        std::vector<View> views;
        for (std::size_t frame = 0; frame < animator.numTotalFrames(); ++frame)
        {
            animator.drawFrame(frame);
            views.push_back(HostView());
        }
        return views;
    }

    static std::unique_ptr<AnimatorKeyFrame> Build(const std::vector<KeyFrame_s>& keyFrames)
    {
        return std::make_unique<AnimatorKeyFrame>(keyFrames, std::make_unique<AnimatorOnScreen>(keyFrames));
    }
};

void ExpectNear(const View& expected, const View& actual, double tolerance, const std::string& where)
{
    EXPECT_NEAR(expected.x(), actual.x(), tolerance) << where;
    EXPECT_NEAR(expected.y(), actual.y(), tolerance) << where;
    EXPECT_NEAR(expected.z(), actual.z(), tolerance) << where;
    EXPECT_NEAR(expected.psi(), actual.psi(), tolerance) << where;
    EXPECT_NEAR(expected.theta(), actual.theta(), tolerance) << where;
    EXPECT_NEAR(expected.alpha(), actual.alpha(), tolerance) << where;
    EXPECT_NEAR(expected.width(), actual.width(), tolerance) << where;
}

double DistanceFromOrigin(const View& view)
{
    const vantix::host::ViewState state = vantix::host::view();
    return std::hypot(view.x() - state.originX, view.y() - state.originY, view.z() - state.originZ);
}

} // namespace

TEST_F(AnimatorKeyFrameTest, EachKeyViewSitsAtItsFrameExactlyAsCaptured)
{
    const View a(1, 2, 30, 10, 20, 30, 5);
    const View b(-4, 8, 25, -20, 60, -90, 9);
    const View c(0, 0, 40, 45, -45, 135, 3);
    const View d(2, 2, 20, 0, 0, 0, 7);
    const struct
    {
        std::vector<KeyFrame_s> keyFrames;
        std::size_t totalFrames;
        std::vector<std::pair<std::size_t, View>> keyViewsAt;
    } cases[] = {
        {MakeKeyFrames({{a, 1}, {b, 1}}), 2, {{0, a}, {1, b}}},
        {MakeKeyFrames({{a, 4}, {b, 1}}), 5, {{0, a}, {4, b}}},
        {MakeKeyFrames({{a, 2}, {b, 3}, {c, 9}}), 6, {{0, a}, {2, b}, {5, c}}},
        // A key frame with a frame count of 0 has no frame: the next key view takes its frame.
        {MakeKeyFrames({{a, 2}, {b, 0}, {c, 3}, {d, 4}}), 6, {{0, a}, {2, c}, {5, d}}},
        {MakeKeyFrames({{a, 0}, {b, 2}, {c, 1}}), 3, {{0, b}, {2, c}}},
        {MakeKeyFrames({{a, 0}, {b, 0}}), 1, {{0, b}}},
    };
    for (const auto& c : cases)
    {
        const auto animator = Build(c.keyFrames);
        ASSERT_EQ(c.totalFrames, animator->numTotalFrames());
        const std::vector<View> views = DrawnViews(*animator);
        for (const auto& [frame, keyView] : c.keyViewsAt)
            EXPECT_TRUE(views.at(frame) == keyView)
                << "frame " << frame << ": " << views.at(frame).displayString();
        EXPECT_THROW(animator->drawFrame(c.totalFrames), std::out_of_range);
    }
}

TEST_F(AnimatorKeyFrameTest, KeyViewsOneFrameApartNeedNoTurn)
{
    const auto animator =
        Build(MakeKeyFrames({{View(1, 2, 30, 10, 20, 30, 5), 1}, {View(0, 0, 9, 90, 0, 0, 1), 1}}));
    EXPECT_EQ(0, vantix::host::callCount("VtxUtilViewRotate3D"));
    EXPECT_EQ(2u, vantix::host::statusEvents().size()); // started and finished, nothing counted
}

TEST_F(AnimatorKeyFrameTest, TranslationAndWidthAreSpreadEvenly)
{
    const View start(0, -10, 40, 30, 40, 50, 4);
    const View end(12, 20, 16, 30, 40, 50, 10);
    const auto animator = Build(MakeKeyFrames({{start, 4}, {end, 1}}));
    EXPECT_EQ(3 * 6, vantix::host::callCount("VtxUtilViewRotate3D"));
    const std::vector<View> views = DrawnViews(*animator);
    ASSERT_EQ(5u, views.size());
    for (std::size_t k = 1; k < 4; ++k)
    {
        const double t = double(k) / 4.0;
        ExpectNear(View(12 * t, -10 + 30 * t, 40 - 24 * t, 30, 40, 50, 4 + 6 * t), views[k], 1e-9,
                   "frame " + std::to_string(k));
    }
}

TEST_F(AnimatorKeyFrameTest, TheViewerOrbitsTheRotationOriginWithTheHostsOwnRotation)
{
    // The target is the start turned by the host, so no translation is left over: a view interpolated by
    // plain arithmetic would cut across the orbit instead of following it.
    const View start(3, -4, 12, 60, 10, 0, 5);
    SetHostView(start);
    VtxUtilViewRotate3D(RotateAxis_Alpha, RotateOriginLocation_DefinedOrigin, 40.0, 0, 0, 0);
    VtxUtilViewRotate3D(RotateAxis_Psi, RotateOriginLocation_DefinedOrigin, 20.0, 0, 0, 0);
    VtxUtilViewRotate3D(RotateAxis_Theta, RotateOriginLocation_DefinedOrigin, 80.0, 0, 0, 0);
    View end = HostView();
    end.setWidth(9);
    const double radius = DistanceFromOrigin(start);
    ASSERT_NEAR(radius, DistanceFromOrigin(end), 1e-9);
    ASSERT_GT(std::hypot(end.x() - start.x(), end.y() - start.y(), end.z() - start.z()), 1.0);

    const auto animator = Build(MakeKeyFrames({{start, 4}, {end, 1}}));
    const std::vector<View> views = DrawnViews(*animator);
    ASSERT_EQ(5u, views.size());
    for (std::size_t k = 1; k < 4; ++k)
    {
        const double t = double(k) / 4.0;
        const std::string where = "frame " + std::to_string(k);
        EXPECT_NEAR(60 + 20 * t, views[k].psi(), 1e-9) << where;
        EXPECT_NEAR(10 + 80 * t, views[k].theta(), 1e-9) << where;
        EXPECT_NEAR(40 * t, views[k].alpha(), 1e-9) << where;
        EXPECT_NEAR(5 + 4 * t, views[k].width(), 1e-9) << where;
        EXPECT_NEAR(radius, DistanceFromOrigin(views[k]), 1e-9) << where;
    }
}

TEST_F(AnimatorKeyFrameTest, AnglesTurnTheShortWayRound)
{
    const struct
    {
        double start;
        double end;
        double middle;
    } cases[] = {
        {170, -170, 180}, {-170, 170, 180}, {-10, 10, 0},
        {100, -100, 180}, {-150, 90, 150}, // -120 the short way, half of it through 180
    };
    // The same for each angle: Psi, Theta, Alpha.
    for (int axis = 0; axis < 3; ++axis)
    {
        for (const auto& c : cases)
        {
            View start(0, 0, 10, 0, 0, 0, 1);
            View end = start;
            const auto setAngle = [axis](View& view, double angle)
            {
                if (axis == 0)
                    view.setPsi(angle);
                else if (axis == 1)
                    view.setTheta(angle);
                else
                    view.setAlpha(angle);
            };
            setAngle(start, c.start);
            setAngle(end, c.end);
            const auto animator = Build(MakeKeyFrames({{start, 2}, {end, 1}}));
            animator->drawFrame(1);
            const View middle = HostView();
            const double angle = axis == 0 ? middle.psi() : axis == 1 ? middle.theta() : middle.alpha();
            EXPECT_NEAR(c.middle, angle, 1e-9) << "axis " << axis << ": " << c.start << " to " << c.end;
        }
    }
}

TEST_F(AnimatorKeyFrameTest, IdenticalKeyViewsStayPut)
{
    const View view(1, 2, 30, 12, -34, 56, 7);
    const auto animator = Build(MakeKeyFrames({{view, 3}, {view, 1}}));
    for (const View& drawn : DrawnViews(*animator))
        ExpectNear(view, drawn, 1e-9, drawn.displayString());
}

TEST_F(AnimatorKeyFrameTest, TheComputationShowsItsOwnProgressLine)
{
    Build(MakeKeyFrames({{ViewAtX(0), 4}, {ViewAtX(40), 1}}));
    const std::vector<StatusEvent> events = vantix::host::statusEvents();
    ASSERT_EQ(5u, events.size());
    EXPECT_EQ(StatusEvent::Kind::Start, events[0].kind);
    EXPECT_EQ("Creating interpolated views.... Press [Esc] or click [Stop] to cancel.", events[0].text);
    EXPECT_TRUE(events[0].showStop);
    // One step per computed view out of one per frame: the line ends short of 100.
    for (std::size_t i = 1; i < 4; ++i)
    {
        EXPECT_EQ(StatusEvent::Kind::Check, events[i].kind);
        EXPECT_EQ(int(20 * i), events[i].percent);
    }
    EXPECT_EQ(StatusEvent::Kind::Finish, events[4].kind);
}

TEST_F(AnimatorKeyFrameTest, ACancelStopsTheComputationBeforeAnyFrameIsDrawn)
{
    vantix::host::scriptCancelAtCheck(2);
    try
    {
        Build(MakeKeyFrames({{ViewAtX(0), 6}, {ViewAtX(60), 1}}));
        ADD_FAILURE() << "not canceled";
    }
    catch (const KeyFrameError& error)
    {
        EXPECT_STREQ("Animation canceled.", error.what());
    }
    EXPECT_EQ(2 * 6, vantix::host::callCount("VtxUtilViewRotate3D"));
    EXPECT_EQ(0, vantix::host::redrawCount());
    EXPECT_FALSE(vantix::host::statusIsShown());
}

TEST_F(AnimatorKeyFrameTest, TheViewsNeedA3DCartesianFrame)
{
    vantix::host::setPlotType(PlotType_Cartesian2D);
    try
    {
        Build(MakeKeyFrames({{ViewAtX(0), 3}, {ViewAtX(60), 1}}));
        ADD_FAILURE() << "no error";
    }
    catch (const KeyFrameError& error)
    {
        EXPECT_STREQ("The current frame must be in 3D Cartesian mode.", error.what());
    }
    EXPECT_FALSE(vantix::host::statusIsShown());
}

TEST_F(AnimatorKeyFrameTest, TooManyFramesForMemoryFailBeforeAnyViewIsComputed)
{
    const std::uint64_t huge = std::uint64_t(1) << 62;
    EXPECT_THROW(Build(MakeKeyFrames({{ViewAtX(0), huge}, {ViewAtX(60), 1}})), std::length_error);
    EXPECT_EQ(0, vantix::host::callCount("VtxUtilViewRotate3D"));
    EXPECT_TRUE(vantix::host::statusEvents().empty());
}

TEST_F(AnimatorKeyFrameTest, EachComputedViewIsProbedUndoneAndSteppedUnderTheLock)
{
    const std::vector<std::string>& apply = testhelpers::ApplyViewTrace();
    const std::vector<std::string> rotate = {"VtxUtilViewRotate3D", "VtxUtilViewRotate3D",
                                             "VtxUtilViewRotate3D"};
    const std::vector<std::string> read = {"VtxUtilFrameGetPlotType", "VtxUtilThreeDViewGetViewerPos",
                                           "VtxUtilThreeDViewGetViewerAngle",
                                           "VtxUtilThreeDViewGetProjection"};
    const std::vector<std::string> translateAndWiden = {
        "StyleValue.set ThreeDView/ViewerPosition/X", "StyleValue.set ThreeDView/ViewerPosition/Y",
        "StyleValue.set ThreeDView/ViewerPosition/Z", "StyleValue.set ThreeDView/DrawInPerspective",
        "StyleValue.set ThreeDView/ViewWidth",        "StyleValue.set ThreeDView/DrawInPerspective",
    };
    std::vector<std::string> expected = {"VtxUtilStatusStartPercentDone"};
    const auto append = [&expected](const std::vector<std::string>& calls)
    { expected.insert(expected.end(), calls.begin(), calls.end()); };
    // The probe of the whole turn, under one lock.
    append(apply);
    append({"VtxUtilLockStart"});
    append(rotate);
    append(read);
    append({"VtxUtilLockFinish"});
    // Back to the view the step starts from, then the step itself, under two locks with drawing suspended.
    append(apply);
    append({"VtxUtilLockStart", "VtxUtilLockStart", "VtxUtilDrawGraphics"});
    append(rotate);
    append(read);
    append(translateAndWiden);
    append({"VtxUtilDrawGraphics", "VtxUtilLockFinish", "VtxUtilLockFinish"});
    // The view reached, then the progress.
    append(read);
    append({"VtxUtilStatusCheckPercentDone", "VtxUtilStatusFinishPercentDone"});

    vantix::host::setTracing(true);
    Build(MakeKeyFrames({{View(0, 0, 10, 0, 0, 0, 1), 2}, {View(1, 0, 10, 10, 0, 0, 1), 1}}));
    EXPECT_EQ(expected, vantix::host::trace());
}
