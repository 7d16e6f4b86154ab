#include "animation/FramePopper.h"
#include "animation/FramePopperAbstractFactory.h"
#include "animation/FramePopperLightweight.h"

#include <support/AddOnTest.h>

#include <VtxUtil.h>

#include <memory>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;

namespace
{

// Three frames: A active but not on top, B on top, C between them. From the top down the stack is B, C, A.
class FramePopperTest : public testsupport::AddOnTest
{
protected:
    void SetUp() override
    {
        AddOnTest::SetUp();
        m_a = m_frame;
        m_c = vantix::host::addFrame();
        m_b = vantix::host::addFrame();
        vantix::host::activateFrame(m_a);
        m_stack = vantix::host::frameStack();
        ASSERT_EQ((std::vector<UniqueID_t>{m_a, m_c, m_b}), m_stack);
    }

    // The active frame first, then after each next() that answered true; the answers go to answers.
    static std::vector<UniqueID_t> Walk(FramePopperAbstract& popper, std::vector<bool>& answers)
    {
        std::vector<UniqueID_t> visited = {vantix::host::activeFrame()};
        for (;;)
        {
            const bool more = popper.next();
            answers.push_back(more);
            if (!more)
                return visited;
            visited.push_back(vantix::host::activeFrame());
        }
    }

    UniqueID_t m_a = 0;
    UniqueID_t m_b = 0;
    UniqueID_t m_c = 0;
    std::vector<UniqueID_t> m_stack;
};

} // namespace

TEST_F(FramePopperTest, EachPopperVisitsEveryFrameOnceFromTheTopAndPutsTheHostBack)
{
    for (const bool full : {true, false})
    {
        const std::string which = full ? "full" : "lightweight";
        std::vector<bool> answers;
        {
            std::unique_ptr<FramePopperAbstract> popper = FramePopperAbstractFactory::getFramePopper(full);
            EXPECT_EQ(full, dynamic_cast<FramePopper*>(popper.get()) != nullptr) << which;
            EXPECT_EQ(!full, dynamic_cast<FramePopperLightweight*>(popper.get()) != nullptr) << which;
            EXPECT_EQ((std::vector<UniqueID_t>{m_b, m_c, m_a}), Walk(*popper, answers)) << which;
            EXPECT_EQ((std::vector<bool>{true, true, false}), answers) << which;
            // Once the walk is over it stays over.
            EXPECT_FALSE(popper->next()) << which;
            EXPECT_EQ(1, vantix::host::lockDepth(AddOnID)) << which;
            EXPECT_EQ(full ? 1 : 0, vantix::host::drawSuspensionDepth()) << which;
        }
        EXPECT_EQ(m_a, vantix::host::activeFrame()) << which;
        EXPECT_EQ(m_stack, vantix::host::frameStack()) << which;
        EXPECT_EQ(0, vantix::host::lockDepth(AddOnID)) << which;
        EXPECT_EQ(0, vantix::host::drawSuspensionDepth()) << which;
    }
}

TEST_F(FramePopperTest, APopperStoppedEarlyOrAtOnceStillCompletesTheWalkAndReactivatesTheStart)
{
    for (const int steps : {0, 1})
    {
        for (const bool full : {true, false})
        {
            const std::string which =
                std::string(full ? "full" : "lightweight") + " after " + std::to_string(steps) + " steps";
            const long pushesBefore = vantix::host::callCount("VtxUtilFramePushTop");
            const long stepsBefore = vantix::host::callCount("VtxUtilFrameLightweightPopNext");
            {
                std::unique_ptr<FramePopperAbstract> popper =
                    FramePopperAbstractFactory::getFramePopper(full);
                for (int i = 0; i < steps; ++i)
                    EXPECT_TRUE(popper->next()) << which;
            }
            // The full popper turns the whole stack once; the lightweight one steps to the end of its walk.
            EXPECT_EQ(full ? 3 : 0, vantix::host::callCount("VtxUtilFramePushTop") - pushesBefore) << which;
            EXPECT_EQ(full ? 0 : 3, vantix::host::callCount("VtxUtilFrameLightweightPopNext") - stepsBefore)
                << which;
            EXPECT_EQ(m_a, vantix::host::activeFrame()) << which;
            EXPECT_EQ(m_stack, vantix::host::frameStack()) << which;
        }
    }
}

TEST_F(FramePopperTest, TheFullPopperEndsTheWalkAtOnceOnASingleFrame)
{
    vantix::host::reset();
    const UniqueID_t only = vantix::host::addFrame();
    FramePopper popper;
    EXPECT_EQ(only, vantix::host::activeFrame());
    EXPECT_FALSE(popper.next());
    EXPECT_EQ(only, vantix::host::activeFrame());
}

TEST_F(FramePopperTest, APageWithoutFramesHasNothingToVisit)
{
    vantix::host::reset();
    for (const bool full : {true, false})
    {
        std::unique_ptr<FramePopperAbstract> popper = FramePopperAbstractFactory::getFramePopper(full);
        EXPECT_FALSE(popper->next()) << full;
    }
    EXPECT_THAT(vantix::host::hostErrors(), ::testing::IsEmpty());
}

TEST_F(FramePopperTest, TheActivePoppersAreCounted)
{
    EXPECT_EQ(0, FramePopperAbstract::numActivePoppers());
    {
        FramePopper full;
        EXPECT_EQ(1, FramePopperAbstract::numActivePoppers());
        {
            std::unique_ptr<FramePopperAbstract> lightweight =
                FramePopperAbstractFactory::getFramePopper(false);
            EXPECT_EQ(2, FramePopperAbstract::numActivePoppers());
            EXPECT_EQ(2, vantix::host::lockDepth(AddOnID));
        }
        EXPECT_EQ(1, FramePopperAbstract::numActivePoppers());
    }
    EXPECT_EQ(0, FramePopperAbstract::numActivePoppers());
}
