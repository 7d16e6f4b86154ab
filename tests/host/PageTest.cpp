// The page: frame positions and sizes, the work area, unit conversion and the lightweight walk over the
// frames, through the SDK and the host's API.
#include "support/HostTest.h"

#include <VtxUtil.h>
#include <vantix/host/Host.h>
#include <vantix/host/Scene.h>

#include <stdexcept>

namespace
{

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testsupport::HostTest;
using vantix::host::FramePlacement;

class PageTest : public HostTest
{
protected:
    // Frames A (bottom), B and C (top) with their own places; A is made active again.
    void makeThreeFrames()
    {
        m_a = m_frame;
        m_b = vantix::host::addFrame();
        m_c = vantix::host::addFrame();
        vantix::host::setFramePlacement(m_a, {0.5, 0.25, 4.0, 3.0});
        vantix::host::setFramePlacement(m_b, {5.0, 1.0, 2.0, 6.0});
        vantix::host::setFramePlacement(m_c, {1.0, 4.0, 3.5, 4.0});
        vantix::host::activateFrame(m_a);
    }

    FramePlacement activePlacementThroughTheSdk()
    {
        FramePlacement p;
        VtxUtilFrameGetPosAndSize(&p.x, &p.y, &p.width, &p.height);
        return p;
    }

    UniqueID_t m_a = 0, m_b = 0, m_c = 0;
};

TEST_F(PageTest, TheActiveFramesPositionAndSizeAreItsPlaceOnThePaper)
{
    const FramePlacement fresh = activePlacementThroughTheSdk();
    EXPECT_EQ(0.25, fresh.x);
    EXPECT_EQ(0.25, fresh.y);
    EXPECT_EQ(10.5, fresh.width);
    EXPECT_EQ(8.0, fresh.height);

    makeThreeFrames();
    for (const UniqueID_t frame : {m_a, m_b, m_c})
    {
        vantix::host::activateFrame(frame);
        const FramePlacement expected = vantix::host::framePlacement(frame);
        const FramePlacement p = activePlacementThroughTheSdk();
        EXPECT_EQ(expected.x, p.x);
        EXPECT_EQ(expected.y, p.y);
        EXPECT_EQ(expected.width, p.width);
        EXPECT_EQ(expected.height, p.height);
    }
}

TEST_F(PageTest, FramePlacementsAndThePaperRefuseSizesThatAreNotPositive)
{
    EXPECT_THROW(vantix::host::setFramePlacement(m_frame, {0, 0, 0.0, 1.0}), std::invalid_argument);
    EXPECT_THROW(vantix::host::setFramePlacement(m_frame, {0, 0, 1.0, -1.0}), std::invalid_argument);
    EXPECT_THROW(vantix::host::setFramePlacement(m_frame + 100, {0, 0, 1.0, 1.0}), std::invalid_argument);
    EXPECT_THROW(vantix::host::setPaperSize(0.0, 8.5), std::invalid_argument);
    EXPECT_THROW(vantix::host::setPixelsPerInch(0.0), std::invalid_argument);
    EXPECT_EQ(10.5, vantix::host::framePlacement(m_frame).width);
}

TEST_F(PageTest, TheWorkAreaIsThePaperInScreenPixels)
{
    struct Case
    {
        double paperWidth, paperHeight, pixelsPerInch;
        int width, height;
    };
    const Case cases[] = {
        {11.0, 8.5, 100.0, 1100, 850}, {11.0, 8.5, 96.0, 1056, 816}, {8.5, 11.0, 72.0, 612, 792},
        {10.0, 7.5, 128.0, 1280, 960}, {3.3, 2.2, 33.3, 110, 73}, // rounded to the nearest pixel: 109.89
                                                                  // and 73.26
    };
    for (const Case& c : cases)
    {
        vantix::host::setPaperSize(c.paperWidth, c.paperHeight);
        vantix::host::setPixelsPerInch(c.pixelsPerInch);
        int width = 0, height = 0;
        VtxUtilWorkAreaGetDimensions(&width, &height);
        EXPECT_EQ(c.width, width) << c.pixelsPerInch;
        EXPECT_EQ(c.height, height) << c.pixelsPerInch;
    }
    vantix::host::reset();
    EXPECT_THAT(vantix::host::paperSize(), ElementsAre(11.0, 8.5));
    EXPECT_EQ(100.0, vantix::host::pixelsPerInch());
    vantix::host::addFrame();
}

TEST_F(PageTest, DimensionsConvertBetweenInchesAndPixels)
{
    vantix::host::setPixelsPerInch(96.0);
    struct Case
    {
        int from, to;
        double value, expected;
    };
    const Case cases[] = {
        {Units_Inches, Units_Pixels, 2.5, 240.0},  {Units_Pixels, Units_Inches, 240.0, 2.5},
        {Units_Inches, Units_Inches, 2.5, 2.5},    {Units_Pixels, Units_Pixels, 240.0, 240.0},
        {Units_Inches, Units_Pixels, -1.0, -96.0}, {Units_Inches, Units_Pixels, 0.0, 0.0},
    };
    for (const Case& c : cases)
    {
        EXPECT_DOUBLE_EQ(c.expected, VtxUtilConvertXDimension(c.from, c.to, c.value))
            << c.from << " " << c.to;
        EXPECT_DOUBLE_EQ(c.expected, VtxUtilConvertYDimension(c.from, c.to, c.value))
            << c.from << " " << c.to;
    }
    EXPECT_THAT(vantix::host::hostErrors(), IsEmpty());
}

TEST_F(PageTest, AnUnknownUnitCodeIsReportedAndTheValueComesBackUnchanged)
{
    const int codes[][2] = {{0, Units_Pixels}, {Units_Inches, 7}, {1, 2}, {-3, Units_Inches}};
    for (const auto& code : codes)
    {
        EXPECT_EQ(12.5, VtxUtilConvertXDimension(code[0], code[1], 12.5));
        EXPECT_EQ(12.5, VtxUtilConvertYDimension(code[0], code[1], 12.5));
        const auto errors = vantix::host::hostErrors();
        ASSERT_EQ(2u, errors.size());
        EXPECT_THAT(errors[0], HasSubstr("VtxUtilConvertXDimension was given the unknown unit codes " +
                                         std::to_string(code[0]) + " and " + std::to_string(code[1])));
        EXPECT_THAT(errors[1], HasSubstr("VtxUtilConvertYDimension"));
        vantix::host::clearHostErrors();
    }
}

TEST_F(PageTest, TheLightweightWalkVisitsEveryFrameFromTheTopAndRestoresTheActiveFrame)
{
    makeThreeFrames();
    const auto stack = vantix::host::frameStack();
    for (const UniqueID_t startingFrame : {m_a, m_b, m_c})
    {
        vantix::host::activateFrame(startingFrame);
        std::vector<UniqueID_t> visited;
        std::vector<double> widths;
        ASSERT_TRUE(VtxUtilFrameLightweightPopStart());
        do
        {
            visited.push_back(VtxUtilFrameGetUniqueID());
            widths.push_back(activePlacementThroughTheSdk().width);
            EXPECT_THAT(vantix::host::frameStack(), ElementsAreArray(stack))
                << "the stacking order never changes";
        } while (VtxUtilFrameLightweightPopNext());
        EXPECT_FALSE(VtxUtilFrameLightweightPopNext()) << "and stays at the end";
        VtxUtilFrameLightweightPopEnd();

        EXPECT_THAT(visited, ElementsAre(m_c, m_b, m_a));
        EXPECT_THAT(widths, ElementsAre(3.5, 2.0, 4.0));
        EXPECT_EQ(startingFrame, vantix::host::activeFrame());
        EXPECT_THAT(vantix::host::frameStack(), ElementsAreArray(stack));
    }
    EXPECT_THAT(vantix::host::hostErrors(), IsEmpty());
}

TEST_F(PageTest, TheLightweightWalkOverOneFrameEndsAtOnce)
{
    ASSERT_TRUE(VtxUtilFrameLightweightPopStart());
    EXPECT_EQ(m_frame, VtxUtilFrameGetUniqueID());
    EXPECT_FALSE(VtxUtilFrameLightweightPopNext());
    VtxUtilFrameLightweightPopEnd();
    EXPECT_EQ(m_frame, vantix::host::activeFrame());

    vantix::host::reset();
    EXPECT_FALSE(VtxUtilFrameLightweightPopStart()) << "an empty page has nothing to walk";
    vantix::host::addFrame();
}

TEST_F(PageTest, AWalkStepOrEndWithoutAStartIsReported)
{
    EXPECT_FALSE(VtxUtilFrameLightweightPopNext());
    VtxUtilFrameLightweightPopEnd();
    ASSERT_TRUE(VtxUtilFrameLightweightPopStart());
    ASSERT_TRUE(VtxUtilFrameLightweightPopStart());
    VtxUtilFrameLightweightPopEnd();
    EXPECT_THAT(
        vantix::host::hostErrors(),
        ElementsAre(
            HasSubstr("VtxUtilFrameLightweightPopNext was called with no lightweight frame walk open"),
            HasSubstr("VtxUtilFrameLightweightPopEnd was called with no lightweight frame walk open"),
            HasSubstr("started while one was open")));
    vantix::host::clearHostErrors();
    EXPECT_EQ(m_frame, vantix::host::activeFrame());
}

TEST_F(PageTest, TheBoxAroundAllFramesComesFromTheWalk)
{
    // What an export of all frames does to find its size: walk the frames, gather their boxes.
    makeThreeFrames();
    vantix::host::setPixelsPerInch(50.0);
    double left = 1e9, top = 1e9, right = -1e9, bottom = -1e9;
    ASSERT_TRUE(VtxUtilFrameLightweightPopStart());
    do
    {
        const FramePlacement p = activePlacementThroughTheSdk();
        left = std::min(left, p.x);
        top = std::min(top, p.y);
        right = std::max(right, p.x + p.width);
        bottom = std::max(bottom, p.y + p.height);
    } while (VtxUtilFrameLightweightPopNext());
    VtxUtilFrameLightweightPopEnd();
    EXPECT_EQ(325.0, VtxUtilConvertXDimension(Units_Inches, Units_Pixels, right - left)); // 0.5 to 7.0
    EXPECT_EQ(387.5, VtxUtilConvertYDimension(Units_Inches, Units_Pixels, bottom - top)); // 0.25 to 8.0
}

} // namespace
