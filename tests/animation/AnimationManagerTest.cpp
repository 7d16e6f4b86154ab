#include "animation/AnimationManager.h"
#include "animation/KeyFrameTestHelpers.h"
#include "core/Settings.h"

#include <support/AddOnTest.h>

#include <cmath>
#include <stdexcept>
#include <vector>

using namespace vantix::vtxutiltools;
using testhelpers::HostView;
using testhelpers::MakeKeyFrames;
using testhelpers::ViewAtX;

namespace
{

class AnimationManagerTest : public testsupport::AddOnTest
{
};

// Frame counts 10, 5 and 3: key frames at frames 0, 10 and 15, the view of frame f at X = 10 f.
const std::vector<KeyFrame_s> KeyFrames =
    MakeKeyFrames({{ViewAtX(0), 10}, {ViewAtX(100), 5}, {ViewAtX(150), 3}});

std::vector<int> FramesFromTo(int first, int last)
{
    std::vector<int> frames;
    for (int frame = first; frame <= last; ++frame)
        frames.push_back(frame);
    return frames;
}

} // namespace

TEST_F(AnimationManagerTest, DrawsTheFramesOfTheChosenKeyFrames)
{
    const struct
    {
        std::size_t first;
        std::size_t span;
        std::vector<int> frames;
    } cases[] = {
        {0, 3, FramesFromTo(0, 15)}, // the whole list
        {2, 3, FramesFromTo(0, 15)}, // the whole list, whatever the first key frame
        {1, 1, FramesFromTo(10, 15)}, {0, 1, FramesFromTo(0, 10)}, {1, 0, {10}}, {0, 0, {0}}, {2, 0, {15}},
        {0, 2, FramesFromTo(0, 15)},
    };
    for (const auto& c : cases)
    {
        AnimationManager manager(KeyFrames, c.first, c.span, Settings_s());
        EXPECT_EQ(c.frames.size(), manager.numFrames()) << "first " << c.first << " span " << c.span;
        std::vector<int> drawn;
        while (manager.hasNextFrame() && drawn.size() <= c.frames.size())
        {
            manager.drawNextFrame();
            drawn.push_back(int(std::lround(HostView().x() / 10.0)));
        }
        EXPECT_EQ(c.frames, drawn) << "first " << c.first << " span " << c.span;
    }
}

TEST_F(AnimationManagerTest, ARangePastTheListFailsAtTheFirstFrameThatDoesNotExist)
{
    AnimationManager manager(KeyFrames, 1, 2, Settings_s());
    EXPECT_EQ(9u, manager.numFrames());
    for (int frame = 10; frame <= 15; ++frame)
        manager.drawNextFrame();
    EXPECT_TRUE(manager.hasNextFrame());
    EXPECT_THROW(manager.drawNextFrame(), std::out_of_range);
    // The frame that failed is not counted as drawn.
    EXPECT_TRUE(manager.hasNextFrame());
    EXPECT_THROW(manager.drawNextFrame(), std::out_of_range);

    EXPECT_THROW(AnimationManager(KeyFrames, 4, 0, Settings_s()), std::out_of_range);
    EXPECT_THROW(AnimationManager(KeyFrames, 3, 1, Settings_s()), std::out_of_range);
}
