// The page: frame positions and sizes, the work area, unit conversion and the lightweight walk over the
// frames, through the SDK and the host's API.
#include "support/HostTest.h"

#include <array>
#include <stdexcept>

namespace
{

namespace host = vantix::host;
using namespace ::testing;
using Place = std::array<double, 4>; // x, y, width, height

class PageTest : public testsupport::HostTest
{
protected:
    // Frames A (bottom), B and C (top) with their own places; A is made active again.
    void makeThreeFrames()
    {
        m_a = m_frame;
        m_b = host::addFrame();
        m_c = host::addFrame();
        host::setFramePlacement(m_a, {0.5, 0.25, 4.0, 3.0});
        host::setFramePlacement(m_b, {5.0, 1.0, 2.0, 6.0});
        host::setFramePlacement(m_c, {1.0, 4.0, 3.5, 4.0});
        host::activateFrame(m_a);
    }

    static Place ActivePlace()
    {
        Place p;
        VtxUtilFrameGetPosAndSize(&p[0], &p[1], &p[2], &p[3]);
        return p;
    }

    UniqueID_t m_a = 0, m_b = 0, m_c = 0;
};

TEST_F(PageTest, TheActiveFramesPositionAndSizeAreItsPlaceOnThePaper)
{
    EXPECT_EQ((Place{0.25, 0.25, 10.5, 8.0}), ActivePlace());
    makeThreeFrames();
    for (const auto& [frame, place] :
         {std::make_pair(m_a, Place{0.5, 0.25, 4.0, 3.0}), std::make_pair(m_b, Place{5.0, 1.0, 2.0, 6.0}),
          std::make_pair(m_c, Place{1.0, 4.0, 3.5, 4.0})})
    {
        host::activateFrame(frame);
        EXPECT_EQ(place, ActivePlace());
        const host::FramePlacement p = host::framePlacement(frame);
        EXPECT_EQ(place, (Place{p.x, p.y, p.width, p.height}));
    }
}

TEST_F(PageTest, FramePlacementsAndThePaperRefuseSizesThatAreNotPositive)
{
    EXPECT_THROW(host::setFramePlacement(m_frame, {0, 0, 0.0, 1.0}), std::invalid_argument);
    EXPECT_THROW(host::setFramePlacement(m_frame, {0, 0, 1.0, -1.0}), std::invalid_argument);
    EXPECT_THROW(host::setFramePlacement(m_frame + 100, {0, 0, 1.0, 1.0}), std::invalid_argument);
    EXPECT_THROW(host::setPaperSize(0.0, 8.5), std::invalid_argument);
    EXPECT_THROW(host::setPixelsPerInch(0.0), std::invalid_argument);
    EXPECT_EQ(10.5, host::framePlacement(m_frame).width);
}

TEST_F(PageTest, TheWorkAreaIsThePaperInScreenPixels)
{
    const std::tuple<double, double, double, std::pair<int, int>> cases[] = {
        {11.0, 8.5, 100.0, {1100, 850}}, {11.0, 8.5, 96.0, {1056, 816}}, {8.5, 11.0, 72.0, {612, 792}},
        {10.0, 7.5, 128.0, {1280, 960}}, {3.3, 2.2, 33.3, {110, 73}}, // rounded to the nearest pixel: 109.89
                                                                      // and 73.26
    };
    for (const auto& [paperWidth, paperHeight, pixelsPerInch, size] : cases)
    {
        host::setPaperSize(paperWidth, paperHeight);
        host::setPixelsPerInch(pixelsPerInch);
        std::pair<int, int> workArea;
        VtxUtilWorkAreaGetDimensions(&workArea.first, &workArea.second);
        EXPECT_EQ(size, workArea) << pixelsPerInch;
    }
    host::reset();
    EXPECT_THAT(host::paperSize(), ElementsAre(11.0, 8.5));
    EXPECT_EQ(100.0, host::pixelsPerInch());
}

TEST_F(PageTest, DimensionsConvertBetweenInchesAndPixels)
{
    host::setPixelsPerInch(96.0);
    const std::tuple<int, int, double, double> cases[] = {
        {Units_Inches, Units_Pixels, 2.5, 240.0},  {Units_Pixels, Units_Inches, 240.0, 2.5},
        {Units_Inches, Units_Inches, 2.5, 2.5},    {Units_Pixels, Units_Pixels, 240.0, 240.0},
        {Units_Inches, Units_Pixels, -1.0, -96.0}, {Units_Inches, Units_Pixels, 0.0, 0.0},
    };
    for (const auto& [from, to, value, expected] : cases)
    {
        EXPECT_DOUBLE_EQ(expected, VtxUtilConvertXDimension(from, to, value)) << from << " " << to;
        EXPECT_DOUBLE_EQ(expected, VtxUtilConvertYDimension(from, to, value)) << from << " " << to;
    }
}

TEST_F(PageTest, AnUnknownUnitCodeIsReportedAndTheValueComesBackUnchanged)
{
    for (const auto& [from, to] : {std::make_pair(0, int(Units_Pixels)), std::make_pair(int(Units_Inches), 7),
                                   std::make_pair(1, 2), std::make_pair(-3, int(Units_Inches))})
    {
        EXPECT_EQ(12.5, VtxUtilConvertXDimension(from, to, 12.5));
        EXPECT_EQ(12.5, VtxUtilConvertYDimension(from, to, 12.5));
        const std::string codes =
            " was given the unknown unit codes " + std::to_string(from) + " and " + std::to_string(to);
        EXPECT_THAT(host::hostErrors(), ElementsAre(HasSubstr("VtxUtilConvertXDimension" + codes),
                                                    HasSubstr("VtxUtilConvertYDimension" + codes)));
        host::clearHostErrors();
    }
}

TEST_F(PageTest, TheLightweightWalkVisitsEveryFrameFromTheTopAndRestoresTheActiveFrame)
{
    makeThreeFrames();
    const auto stack = host::frameStack();
    for (const UniqueID_t startingFrame : {m_a, m_b, m_c})
    {
        host::activateFrame(startingFrame);
        std::vector<std::pair<UniqueID_t, Place>> visited;
        ASSERT_TRUE(VtxUtilFrameLightweightPopStart());
        do
        {
            visited.emplace_back(VtxUtilFrameGetUniqueID(), ActivePlace());
            EXPECT_THAT(host::frameStack(), ElementsAreArray(stack)) << "the stacking order never changes";
        } while (VtxUtilFrameLightweightPopNext());
        EXPECT_FALSE(VtxUtilFrameLightweightPopNext()) << "and stays at the end";
        VtxUtilFrameLightweightPopEnd();
        EXPECT_THAT(visited, ElementsAre(std::make_pair(m_c, Place{1.0, 4.0, 3.5, 4.0}),
                                         std::make_pair(m_b, Place{5.0, 1.0, 2.0, 6.0}),
                                         std::make_pair(m_a, Place{0.5, 0.25, 4.0, 3.0})));
        EXPECT_EQ(startingFrame, host::activeFrame());
        EXPECT_THAT(host::frameStack(), ElementsAreArray(stack));
    }
}

TEST_F(PageTest, TheLightweightWalkOverOneFrameEndsAtOnceAndOverNoFrameDoesNotStart)
{
    ASSERT_TRUE(VtxUtilFrameLightweightPopStart());
    EXPECT_EQ(m_frame, VtxUtilFrameGetUniqueID());
    EXPECT_FALSE(VtxUtilFrameLightweightPopNext());
    VtxUtilFrameLightweightPopEnd();
    EXPECT_EQ(m_frame, host::activeFrame());
    host::reset();
    EXPECT_FALSE(VtxUtilFrameLightweightPopStart());
}

TEST_F(PageTest, AWalkStepOrEndWithoutAStartIsReported)
{
    EXPECT_FALSE(VtxUtilFrameLightweightPopNext());
    VtxUtilFrameLightweightPopEnd();
    ASSERT_TRUE(VtxUtilFrameLightweightPopStart());
    ASSERT_TRUE(VtxUtilFrameLightweightPopStart());
    VtxUtilFrameLightweightPopEnd();
    EXPECT_THAT(
        host::hostErrors(),
        ElementsAre(
            HasSubstr("VtxUtilFrameLightweightPopNext was called with no lightweight frame walk open"),
            HasSubstr("VtxUtilFrameLightweightPopEnd was called with no lightweight frame walk open"),
            HasSubstr("started while one was open")));
    host::clearHostErrors();
    EXPECT_EQ(m_frame, host::activeFrame());
}

} // namespace
