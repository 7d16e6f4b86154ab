// The page: frame sizes, the work area, unit conversion and the lightweight walk's misuse, through the SDK
// and the host's API (the walk itself: the add-on's frame popper tests).
#include "support/HostTest.h"

#include <stdexcept>

namespace
{

namespace host = vantix::host;
using namespace ::testing;

using PageTest = testsupport::HostTest;

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
    // clang-format off
    const std::tuple<int, int, double, double> cases[] = {
        {Units_Inches, Units_Pixels, 2.5, 240.0}, {Units_Pixels, Units_Inches, 240.0, 2.5},
        {Units_Inches, Units_Inches, 2.5, 2.5}, {Units_Inches, Units_Pixels, -1.0, -96.0}};
    // clang-format on
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
