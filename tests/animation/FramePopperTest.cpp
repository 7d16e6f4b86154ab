// The frame poppers: the full one turns the frame stack over, the lightweight one walks it with the host's
// lightweight pop; both visit every frame once from the top, finish the walk however early they are let go,
// and put the active frame, the stack, the lock and the drawing back.
#include "animation/FramePopper.h"
#include "animation/ChainTestHelpers.h"
#include "animation/FramePopperAbstractFactory.h"

#include <memory>

using namespace testhelpers;

// Three frames: A active but not on top, B on top, C between them. From the top down the stack is B, C, A.
class FramePopperTest : public AnimationTest
{
protected:
    void SetUp() override
    {
        AnimationTest::SetUp();
        m_c = vantix::host::addFrame();
        m_b = vantix::host::addFrame();
        vantix::host::activateFrame(m_frame);
        m_stack = vantix::host::frameStack();
        ASSERT_EQ((std::vector<UniqueID_t>{m_frame, m_c, m_b}), m_stack);
    }

    UniqueID_t m_b = 0, m_c = 0;
    std::vector<UniqueID_t> m_stack;
};

TEST_F(FramePopperTest, EachPopperVisitsEveryFrameOnceFromTheTopAndPutsTheHostBackWhereverItStopped)
{
    using LockAndSuspension = std::pair<int, int>;
    for (const bool full : {true, false})
        for (const std::size_t steps : {0, 1, 3}) // 3: the whole walk, whose last step answers false
        {
            SCOPED_TRACE((full ? "full after " : "lightweight after ") + std::to_string(steps));
            const long pushes = Calls("VtxUtilFramePushTop"), pops = Calls("VtxUtilFrameLightweightPopNext");
            {
                const std::unique_ptr<FramePopperAbstract> popper =
                    FramePopperAbstractFactory::getFramePopper(full);
                std::vector<UniqueID_t> visited = {vantix::host::activeFrame()},
                                        expected = {m_b, m_c, m_frame};
                for (std::size_t step = 0; step < steps; ++step)
                    if (popper->next())
                        visited.push_back(vantix::host::activeFrame());
                expected.resize(std::min<std::size_t>(steps + 1, 3));
                EXPECT_EQ(expected, visited);
                // Once the walk is over it stays over.
                EXPECT_TRUE(steps < 3 || !popper->next());
                EXPECT_EQ(
                    LockAndSuspension(1, full ? 1 : 0),
                    LockAndSuspension(vantix::host::lockDepth(AddOnID), vantix::host::drawSuspensionDepth()));
            }
            // The full popper turns the whole stack once; the lightweight one steps to the end of its walk.
            EXPECT_EQ(full ? 3 : 0, Calls("VtxUtilFramePushTop") - pushes);
            EXPECT_TRUE(steps == 3 || Calls("VtxUtilFrameLightweightPopNext") - pops == (full ? 0 : 3));
            EXPECT_EQ(m_frame, vantix::host::activeFrame());
            EXPECT_EQ(m_stack, vantix::host::frameStack());
            EXPECT_EQ(LockAndSuspension(0, 0), LockAndSuspension(vantix::host::lockDepth(AddOnID),
                                                                 vantix::host::drawSuspensionDepth()));
        }
}

TEST_F(FramePopperTest, ASingleFrameOrNoneLeavesNothingToVisit)
{
    for (const bool oneFrame : {true, false})
        for (const bool full : {true, false})
        {
            vantix::host::reset();
            const UniqueID_t only = oneFrame ? vantix::host::addFrame() : 0;
            EXPECT_FALSE(FramePopperAbstractFactory::getFramePopper(full)->next()) << oneFrame << full;
            EXPECT_EQ(only, vantix::host::activeFrame()) << oneFrame << full;
            EXPECT_THAT(vantix::host::hostErrors(), ::testing::IsEmpty());
        }
}
