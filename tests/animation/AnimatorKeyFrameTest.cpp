// The key frame animator: the view of every frame computed up front under its own progress line, each key
// view at its frame exactly as captured, the views between spread evenly along the orbit the host's own
// rotation makes, angles turning the short way round, and a computation that is canceled or cannot start.
#include "animation/AnimatorKeyFrame.h"
#include "animation/AnimatorOnScreen.h"
#include "animation/ChainTestHelpers.h"

#include <cmath>
#include <memory>
#include <stdexcept>

using namespace testhelpers;

class AnimatorKeyFrameTest : public AnimationTest
{
protected:
    static std::unique_ptr<AnimatorKeyFrame> Build(const std::vector<KeyFrame_s>& keyFrames)
    {
        return std::make_unique<AnimatorKeyFrame>(keyFrames, std::make_unique<AnimatorOnScreen>(keyFrames));
    }

    // The views of every frame, as drawing each frame leaves the host's view.
    static std::vector<View> DrawnViews(const std::vector<KeyFrame_s>& keyFrames)
    {
        const auto animator = Build(keyFrames);
        std::vector<View> views;
        for (std::size_t frame = 0; frame < animator->numTotalFrames(); ++frame)
        {
            animator->drawFrame(frame);
            views.push_back(HostView());
        }
        EXPECT_THROW(animator->drawFrame(views.size()), std::out_of_range);
        return views;
    }

    // The largest difference between two views in any of their seven fields.
    static double Difference(const View& a, const View& b)
    {
        return std::max({std::abs(a.x() - b.x()), std::abs(a.y() - b.y()), std::abs(a.z() - b.z()),
                         std::abs(a.psi() - b.psi()), std::abs(a.theta() - b.theta()),
                         std::abs(a.alpha() - b.alpha()), std::abs(a.width() - b.width())});
    }

    static double DistanceFromOrigin(const View& view)
    {
        const vantix::host::ViewState state = vantix::host::view();
        return std::hypot(view.x() - state.originX, view.y() - state.originY, view.z() - state.originZ);
    }
};

TEST_F(AnimatorKeyFrameTest, EachKeyViewSitsAtItsFrameExactlyAsCapturedAndOnlyTheViewsBetweenAreComputed)
{
    const View a(1, 2, 30, 10, 20, 30, 5), b(-4, 8, 25, -20, 60, -90, 9), c(0, 0, 40, 45, -45, 135, 3),
        d(2, 2, 20, 0, 0, 0, 7);
    // The key frames, the frame of each key view, the last one last, and the progress: one check per computed
    // view.
    using KeyViewsAt = std::vector<std::pair<std::size_t, View>>;
    // clang-format off
    const std::tuple<std::vector<KeyFrame_s>, KeyViewsAt, const char*> cases[] = {
        // Key views one frame apart need no turn and no progress step.
        {MakeKeyFrames({{a, 1}, {b, 1}}), {{0, a}, {1, b}}, ""},
        // One step per computed view out of one per frame: the line ends short of 100.
        {MakeKeyFrames({{a, 4}, {b, 1}}), {{0, a}, {4, b}}, "20 40 60"},
        {MakeKeyFrames({{a, 2}, {b, 3}, {c, 9}}), {{0, a}, {2, b}, {5, c}}, "16 33 50"},
        // A key frame with a frame count of 0 has no frame: the next key view takes its frame.
        {MakeKeyFrames({{a, 2}, {b, 0}, {c, 3}, {d, 4}}), {{0, a}, {2, c}, {5, d}}, "16 33 50"},
        {MakeKeyFrames({{a, 0}, {b, 2}, {c, 1}}), {{0, b}, {2, c}}, "33"},
        {MakeKeyFrames({{a, 0}, {b, 0}}), {{0, b}}, ""},
    };
    // clang-format on
    for (const auto& [keyFrames, keyViewsAt, percents] : cases)
    {
        FreshHost();
        const std::vector<View> views = DrawnViews(keyFrames);
        ASSERT_EQ(keyViewsAt.back().first + 1, views.size());
        for (const auto& [frame, keyView] : keyViewsAt)
            EXPECT_TRUE(views.at(frame) == keyView)
                << "frame " << frame << ": " << views.at(frame).displayString();
        EXPECT_EQ(percents, Percents());
        // For each check (the events but start and finish), a probe of the whole turn and the step itself,
        // each about three axes.
        EXPECT_EQ(long(6 * (StatusEvents().size() - 2)), Calls("VtxUtilViewRotate3D"));
    }
}

TEST_F(AnimatorKeyFrameTest, TranslationAndWidthAreSpreadEvenlyAndIdenticalKeyViewsStayPut)
{
    const View start(0, -10, 40, 30, 40, 50, 4);
    const std::vector<View> views =
        DrawnViews(MakeKeyFrames({{start, 4}, {View(12, 20, 16, 30, 40, 50, 10), 1}}));
    ASSERT_EQ(5u, views.size());
    for (std::size_t k = 1; k < 4; ++k)
    {
        const double t = double(k) / 4.0;
        EXPECT_LT(Difference(View(12 * t, -10 + 30 * t, 40 - 24 * t, 30, 40, 50, 4 + 6 * t), views[k]), 1e-9)
            << k;
    }
    for (const View& drawn : DrawnViews(MakeKeyFrames({{start, 3}, {start, 1}})))
        EXPECT_LT(Difference(start, drawn), 1e-9) << drawn.displayString();
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

    const std::vector<View> views = DrawnViews(MakeKeyFrames({{start, 4}, {end, 1}}));
    ASSERT_EQ(5u, views.size());
    for (std::size_t k = 1; k < 4; ++k)
    {
        const double t = double(k) / 4.0;
        const View& v = views[k];
        EXPECT_LT(Difference(View(v.x(), v.y(), v.z(), 60 + 20 * t, 10 + 80 * t, 40 * t, 5 + 4 * t), v), 1e-9)
            << k;
        EXPECT_NEAR(radius, DistanceFromOrigin(v), 1e-9) << k;
    }
}

TEST_F(AnimatorKeyFrameTest, AnglesTurnTheShortWayRound)
{
    // The start, the end and the angle halfway; -150 to 90 is -120 the short way, half of it through 180.
    const double cases[][3] = {
        {170, -170, 180}, {-170, 170, 180}, {-10, 10, 0}, {100, -100, 180}, {-150, 90, 150}};
    for (const auto& [start, end, middle] : cases)
    {
        // All three angles turn at once: each must take its own short way.
        Build(MakeKeyFrames(
                  {{View(0, 0, 10, start, start, start, 1), 2}, {View(0, 0, 10, end, end, end, 1), 1}}))
            ->drawFrame(1);
        const View drawn = HostView();
        EXPECT_LT(Difference(View(drawn.x(), drawn.y(), drawn.z(), middle, middle, middle, 1), drawn), 1e-9)
            << start << " to " << end << ": " << drawn.displayString();
    }
}

TEST_F(AnimatorKeyFrameTest, TooManyFramesACancelOrAFrameNotIn3DStopTheComputationBeforeAnyFrameIsDrawn)
{
    // Too many frames for memory fail before any view is computed.
    EXPECT_THROW(Build(MakeKeyFrames({{ViewAtX(0), std::uint64_t(1) << 62}, {ViewAtX(60), 1}})),
                 std::length_error);
    EXPECT_EQ(0, Calls("VtxUtilViewRotate3D"));
    EXPECT_TRUE(vantix::host::statusEvents().empty());

    vantix::host::scriptCancelAtCheck(2);
    EXPECT_THROW_MSG(Build(MakeKeyFrames({{ViewAtX(0), 6}, {ViewAtX(60), 1}})), KeyFrameError,
                     CanceledMessage);
    EXPECT_EQ(2 * 6, Calls("VtxUtilViewRotate3D"));
    EXPECT_EQ(0, vantix::host::redrawCount());
    EXPECT_FALSE(vantix::host::statusIsShown());

    vantix::host::setPlotType(PlotType_Cartesian2D);
    EXPECT_THROW_MSG(Build(MakeKeyFrames({{ViewAtX(0), 3}, {ViewAtX(60), 1}})), KeyFrameError,
                     "The current frame must be in 3D Cartesian mode.");
    EXPECT_FALSE(vantix::host::statusIsShown());
}
