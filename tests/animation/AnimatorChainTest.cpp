#include "animation/AnimatorAbstract.h"
#include "animation/AnimatorAbstractFactory.h"
#include "animation/AnimatorKeyFrame.h"
#include "animation/AnimatorOnScreen.h"
#include "animation/ChainTestHelpers.h"
#include "animation/KeyFrameTestHelpers.h"
#include "core/KeyFrameError.h"
#include "core/Settings.h"

#include <support/AddOnTest.h>
#include <support/TempFolder.h>

#include <VtxUtil.h>
#include <vantix/host/Export.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using testhelpers::ChainSteps;
using testhelpers::HostView;
using testhelpers::KeyFramesOver;
using testhelpers::MakeKeyFrames;
using testhelpers::StyleNumber;
using testhelpers::StyleSwitch;
using testhelpers::TraceSince;
using testhelpers::ViewAtX;

namespace
{

class AnimatorChainTest : public testsupport::AddOnTest
{
};

// An animator that writes down what is done to it.
class LoggingAnimator : public AnimatorAbstract
{
public:
    LoggingAnimator(std::string name, std::vector<std::string>& log, const std::vector<KeyFrame_s>& keyFrames,
                    std::unique_ptr<AnimatorAbstract> inner = nullptr, bool failToDraw = false)
        : AnimatorAbstract(keyFrames, std::move(inner)), m_name(std::move(name)), m_log(log),
          m_failToDraw(failToDraw)
    {
    }
    ~LoggingAnimator() override { m_log.push_back("delete " + m_name); }

    void cancelAnimation() override
    {
        m_log.push_back("cancel " + m_name);
        AnimatorAbstract::cancelAnimation();
    }

protected:
    void drawFrameAtIndex(std::size_t frame) override
    {
        m_log.push_back(m_name + " draws " + std::to_string(frame));
        if (m_failToDraw)
            throw std::runtime_error("cannot draw");
    }

private:
    std::string m_name;
    std::vector<std::string>& m_log;
    bool m_failToDraw;
};

const std::vector<KeyFrame_s> TwoKeyFrames = MakeKeyFrames({{ViewAtX(0), 3}, {ViewAtX(30), 1}});

std::string TooFewKeyFramesMessage()
{
    return "At least two keyFrame views must be established to perform an animation.";
}

// Every animator asked for, shown on screen.
Settings_s Everything()
{
    Settings_s settings;
    settings.timeOptions.animateTime = true;
    settings.animateStreamtraces = true;
    settings.fadeIn = true;
    settings.fadeOut = true;
    return settings;
}

} // namespace

TEST(AnimatorAbstractTest, AFrameRunsFromTheOutermostAnimatorInwards)
{
    std::vector<std::string> log;
    auto inner = std::make_unique<LoggingAnimator>("inner", log, TwoKeyFrames);
    auto middle = std::make_unique<LoggingAnimator>("middle", log, TwoKeyFrames, std::move(inner));
    LoggingAnimator outer("outer", log, TwoKeyFrames, std::move(middle));
    outer.drawFrame(7);
    EXPECT_EQ((std::vector<std::string>{"outer draws 7", "middle draws 7", "inner draws 7"}), log);
}

TEST(AnimatorAbstractTest, AFailingAnimatorStopsTheFrameWithItsOwnException)
{
    std::vector<std::string> log;
    auto inner = std::make_unique<LoggingAnimator>("inner", log, TwoKeyFrames);
    LoggingAnimator outer("outer", log, TwoKeyFrames, std::move(inner), true);
    EXPECT_THROW(outer.drawFrame(2), std::runtime_error);
    EXPECT_EQ((std::vector<std::string>{"outer draws 2"}), log);
}

TEST(AnimatorAbstractTest, CancelReachesEveryAnimator)
{
    std::vector<std::string> log;
    auto inner = std::make_unique<LoggingAnimator>("inner", log, TwoKeyFrames);
    LoggingAnimator outer("outer", log, TwoKeyFrames, std::move(inner));
    outer.cancelAnimation();
    EXPECT_EQ((std::vector<std::string>{"cancel outer", "cancel inner"}), log);
}

TEST(AnimatorAbstractTest, DeletingAChainRestoresFromTheOutsideIn)
{
    std::vector<std::string> log;
    {
        auto inner = std::make_unique<LoggingAnimator>("inner", log, TwoKeyFrames);
        auto middle = std::make_unique<LoggingAnimator>("middle", log, TwoKeyFrames, std::move(inner));
        LoggingAnimator outer("outer", log, TwoKeyFrames, std::move(middle));
    }
    EXPECT_EQ((std::vector<std::string>{"delete outer", "delete middle", "delete inner"}), log);
}

TEST(AnimatorAbstractTest, TooFewKeyFramesAreRefusedAndTheInnerAnimatorIsDeleted)
{
    for (const std::vector<KeyFrame_s>& keyFrames :
         {std::vector<KeyFrame_s>{}, MakeKeyFrames({{ViewAtX(0), 5}})})
    {
        std::vector<std::string> log;
        auto inner = std::make_unique<LoggingAnimator>("inner", log, TwoKeyFrames);
        try
        {
            LoggingAnimator outer("outer", log, keyFrames, std::move(inner));
            ADD_FAILURE() << "no error for " << keyFrames.size() << " key frames";
        }
        catch (const KeyFrameError& error)
        {
            EXPECT_EQ(TooFewKeyFramesMessage(), error.what());
        }
        EXPECT_EQ((std::vector<std::string>{"delete inner"}), log);
    }
}

TEST(AnimatorAbstractTest, TotalFramesCoverTheWholeList)
{
    std::vector<std::string> log;
    EXPECT_EQ(2u,
              LoggingAnimator("a", log, MakeKeyFrames({{ViewAtX(0), 1}, {ViewAtX(1), 1}})).numTotalFrames());
    EXPECT_EQ(16u,
              LoggingAnimator("b", log, MakeKeyFrames({{ViewAtX(0), 10}, {ViewAtX(1), 5}, {ViewAtX(2), 99}}))
                  .numTotalFrames());
}

TEST_F(AnimatorChainTest, OnScreenRedrawsWhateverTheFrameAndCancelsNothing)
{
    AnimatorOnScreen onScreen(TwoKeyFrames);
    vantix::host::setTracing(true);
    onScreen.drawFrame(123456);
    EXPECT_EQ(1, vantix::host::redrawCount());
    onScreen.cancelAnimation();
    EXPECT_EQ((std::vector<std::string>{"VtxUtilRedraw"}), vantix::host::trace());
}

TEST_F(AnimatorChainTest, TheDefaultChainSetsEachFramesViewAndThenRedraws)
{
    const std::unique_ptr<AnimatorInterface> chain =
        AnimatorAbstractFactory::createAnimator(TwoKeyFrames, Settings_s());
    vantix::host::setTracing(true);
    for (std::size_t frame = 0; frame < 4; ++frame)
    {
        chain->drawFrame(frame);
        EXPECT_NEAR(10.0 * double(frame), HostView().x(), 1e-9) << frame;
    }
    EXPECT_TRUE(HostView() == ViewAtX(30));
    EXPECT_EQ(4, vantix::host::redrawCount());

    // Within each frame the whole view is written before the redraw.
    const std::vector<std::string> trace = vantix::host::trace();
    const auto firstRedraw = std::find(trace.begin(), trace.end(), "VtxUtilRedraw");
    ASSERT_NE(trace.end(), firstRedraw);
    EXPECT_EQ("VtxUtilLockFinish", *(firstRedraw - 1));
    EXPECT_EQ(1, std::count(trace.begin(), firstRedraw, "StyleValue.set ThreeDView/ViewWidth"));

    // No export is under way, so a cancel leaves the host as it is.
    chain->cancelAnimation();
    EXPECT_EQ(4, vantix::host::redrawCount());
    EXPECT_TRUE(HostView() == ViewAtX(30));
}

TEST_F(AnimatorChainTest, TheChainIsRefusedBeforeTheHostIsTouched)
{
    Settings_s everything = Everything();
    everything.destination = ToFile;
    const struct
    {
        std::vector<KeyFrame_s> keyFrames;
        Settings_s settings;
        std::string message;
    } cases[] = {
        {MakeKeyFrames({{ViewAtX(0), 5}}), Settings_s(), TooFewKeyFramesMessage()},
        {MakeKeyFrames({{ViewAtX(0), 5}}), everything, TooFewKeyFramesMessage()},
        {{}, Everything(), TooFewKeyFramesMessage()},
    };
    for (const auto& c : cases)
    {
        vantix::host::setTracing(true);
        try
        {
            AnimatorAbstractFactory::createAnimator(c.keyFrames, c.settings);
            ADD_FAILURE() << "no error, expected " << c.message;
        }
        catch (const KeyFrameError& error)
        {
            EXPECT_EQ(c.message, error.what());
        }
        EXPECT_TRUE(vantix::host::trace().empty()) << ::testing::PrintToString(vantix::host::trace());
        EXPECT_TRUE(vantix::host::statusEvents().empty());
    }
}

namespace
{

// Twenty frames fade over two; the time steps 0 to 19 give frame f the time f.
class AnimatorChainOrderTest : public AnimatorChainTest
{
protected:
    void SetUp() override
    {
        AnimatorChainTest::SetUp();
        testhelpers::LoadTimeSteps(0, 19);
        vantix::host::setStyle(testhelpers::TimeAnchorPath, 1.0);
        vantix::host::setStyle(testhelpers::DeltaTimePath, 1.0);
        vantix::host::setExportSetupFromText("ImageWidth", "64");
        vantix::host::setExportSetupFromText("ExportFormat", "RASTERMETAFILE");
        vantix::host::setExportSetupFromText("ExportFName", "\"" + m_file.string() + "\"");
        vantix::host::setTracing(true);
    }

    void TearDown() override
    {
        if (VtxUtilExportIsRecording())
            VtxUtilExportCancel();
        AnimatorChainTest::TearDown();
    }

    // The host as it was before any chain was built.
    static void ExpectHostPutBack(const std::string& what)
    {
        EXPECT_EQ(75.0, StyleNumber(testhelpers::IntensityPath)) << what;
        EXPECT_EQ(25.0, StyleNumber(testhelpers::BackgroundLightPath)) << what;
        EXPECT_TRUE(StyleSwitch(testhelpers::FrameAxisShownPath)) << what;
        EXPECT_EQ(1.0, StyleNumber(testhelpers::TimeAnchorPath)) << what;
        EXPECT_FALSE(VtxUtilExportIsRecording()) << what;
    }

    testsupport::TempFolder m_folder{"vantix-chain"};
    const std::filesystem::path m_file = m_folder.path() / "movie.rm";
};

} // namespace

TEST_F(AnimatorChainOrderTest,
       EachFrameSetsViewLightsAnchorAndTimeBeforeTheOutputAndTheChainRestoresOutsideIn)
{
    const auto with = [](bool time, bool streams, bool fadeIn, bool fadeOut, Destination_e destination)
    {
        Settings_s settings;
        settings.timeOptions.animateTime = time;
        settings.animateStreamtraces = streams;
        settings.fadeIn = fadeIn;
        settings.fadeOut = fadeOut;
        settings.destination = destination;
        return settings;
    };
    using Steps = std::vector<std::string>;
    const struct
    {
        const char* what;
        Settings_s settings;
        std::size_t frame;
        Steps frameSteps;
        Steps teardownSteps;
    } cases[] = {
        {"everything, on screen", with(true, true, true, true, OnScreen), 0,
         Steps{"view", "lights", "anchor", "time", "redraw"}, Steps{"lights", "axis", "anchor"}},
        {"everything, to file", with(true, true, true, true, ToFile), 1,
         Steps{"view", "lights", "anchor", "time", "export"}, Steps{"lights", "axis", "anchor", "finish"}},
        {"time and fade out, last frame", with(true, false, false, true, OnScreen), 19,
         Steps{"view", "lights", "time", "redraw"}, Steps{"lights", "axis"}},
        {"fade out, first frame", with(false, false, false, true, OnScreen), 0, Steps{"view", "redraw"},
         Steps{"lights", "axis"}},
        {"streamtraces", with(false, true, false, false, OnScreen), 7, Steps{"view", "anchor", "redraw"},
         Steps{"anchor"}},
        {"time", with(true, false, false, false, OnScreen), 7, Steps{"view", "time", "redraw"}, Steps{}},
        {"time, to file", with(true, false, false, false, ToFile), 3, Steps{"view", "time", "export"},
         Steps{"finish"}},
        {"nothing but the view", with(false, false, false, false, OnScreen), 7, Steps{"view", "redraw"},
         Steps{}},
    };
    for (const auto& c : cases)
    {
        std::unique_ptr<AnimatorInterface> chain =
            AnimatorAbstractFactory::createAnimator(KeyFramesOver(20), c.settings);
        // Building hides the frame axis when there is a fade, and changes nothing else the frames show.
        const bool fades = c.settings.fadeIn || c.settings.fadeOut;
        EXPECT_EQ(!fades, StyleSwitch(testhelpers::FrameAxisShownPath)) << c.what;

        vantix::host::setSolutionTime(-5.0);
        std::size_t start = vantix::host::trace().size();
        chain->drawFrame(c.frame);
        EXPECT_EQ(c.frameSteps, ChainSteps(TraceSince(start))) << c.what;
        EXPECT_NEAR(10.0 * double(c.frame), HostView().x(), 1e-9) << c.what;
        EXPECT_EQ(c.settings.timeOptions.animateTime ? double(c.frame) : -5.0, vantix::host::solutionTime())
            << c.what;

        start = vantix::host::trace().size();
        chain.reset();
        EXPECT_EQ(c.teardownSteps, ChainSteps(TraceSince(start))) << c.what;
        ExpectHostPutBack(c.what);
        if (c.settings.destination == ToFile)
        {
            EXPECT_EQ(1u, vantix::host::readRasterMetafile(m_file.string()).frames.size()) << c.what;
            std::filesystem::remove(m_file);
        }
    }
}

TEST_F(AnimatorChainOrderTest, ACancelReachesOnlyTheExportAndTheChainStillRestoresEverything)
{
    for (const Destination_e destination : {OnScreen, ToFile})
    {
        Settings_s settings = Everything();
        settings.destination = destination;
        std::unique_ptr<AnimatorInterface> chain =
            AnimatorAbstractFactory::createAnimator(KeyFramesOver(20), settings);
        chain->drawFrame(0);
        chain->drawFrame(1);

        std::size_t start = vantix::host::trace().size();
        chain->cancelAnimation();
        const std::vector<std::string> canceled = TraceSince(start);
        if (destination == OnScreen)
            EXPECT_TRUE(canceled.empty()) << ::testing::PrintToString(canceled);
        else
            EXPECT_EQ(std::vector<std::string>{"cancel"}, ChainSteps(canceled));
        EXPECT_EQ(37.5, StyleNumber(testhelpers::IntensityPath)) << "a cancel is no restore";

        start = vantix::host::trace().size();
        chain.reset();
        EXPECT_EQ((std::vector<std::string>{"lights", "axis", "anchor"}), ChainSteps(TraceSince(start)));
        ExpectHostPutBack(destination == OnScreen ? "on screen" : "to file");
        EXPECT_FALSE(std::filesystem::exists(m_file));
    }
}

TEST_F(AnimatorChainOrderTest, AChainThatCannotBeBuiltPutsBackWhatItsBuiltPartChanged)
{
    // The view animator, built last, is stopped while it computes the views: the fade had already hidden
    // the frame axis.
    vantix::host::scriptCancelAtCheck(3);
    try
    {
        AnimatorAbstractFactory::createAnimator(KeyFramesOver(20), Everything());
        ADD_FAILURE() << "the chain was built";
    }
    catch (const KeyFrameError& error)
    {
        EXPECT_STREQ("Animation canceled.", error.what());
    }
    EXPECT_EQ((std::vector<std::string>{"axis", "view", "lights", "axis", "anchor"}),
              ChainSteps(vantix::host::trace()));
    ExpectHostPutBack("canceled while built");
}
