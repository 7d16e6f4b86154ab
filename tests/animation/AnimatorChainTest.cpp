#include "animation/AnimatorAbstract.h"
#include "animation/AnimatorAbstractFactory.h"
#include "animation/AnimatorKeyFrame.h"
#include "animation/AnimatorOnScreen.h"
#include "animation/KeyFrameTestHelpers.h"
#include "core/KeyFrameError.h"
#include "core/Settings.h"

#include <support/AddOnTest.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using testhelpers::HostView;
using testhelpers::MakeKeyFrames;
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
    Settings_s toFile;
    toFile.destination = ToFile;
    const struct
    {
        std::vector<KeyFrame_s> keyFrames;
        Settings_s settings;
        std::string message;
    } cases[] = {
        {MakeKeyFrames({{ViewAtX(0), 5}}), Settings_s(), TooFewKeyFramesMessage()},
        {TwoKeyFrames, toFile, "Export of an animation to a file is not available yet."},
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
