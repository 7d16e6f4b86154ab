// Pictures of the page: the projection of a view, reference pictures of a simple scene, the lights, the
// streamtrace markers and dashes, the frame axis, colours over time, regions of several frames, the
// redraw hook and PNG files.
//
// The reference pictures in tests/host/reference/ come from this renderer (checked by eye when they were
// made). After a deliberate change of the picture, run the test program with
// VANTIX_UPDATE_REFERENCE_IMAGES=1 to write them again, and look at them before committing them.
#include "support/HostTest.h"

#include <VtxUtil.h>
#include <vantix/host/Export.h>
#include <vantix/host/Host.h>
#include <vantix/host/Render.h>
#include <vantix/host/Scene.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace
{

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testsupport::HostTest;
using vantix::host::Image;
using vantix::host::StreamtraceZoneData;
using vantix::host::SurfaceZoneData;

namespace fs = std::filesystem;

const fs::path ReferenceFolder = fs::path(__FILE__).parent_path() / "reference";

// A square of side 2 * half in the plane z = height, around the z axis, with one scalar value.
SurfaceZoneData Square(double half, double height, double value, double time = 0.0, int strand = 0)
{
    SurfaceZoneData zone;
    zone.name = "square";
    zone.solutionTime = time;
    zone.strandId = strand;
    zone.nodes = {{-half, -half, height}, {half, -half, height}, {half, half, height}, {-half, half, height}};
    zone.triangles = {{0, 1, 2}, {0, 2, 3}};
    zone.scalar = {value, value, value, value};
    return zone;
}

// The unit cube coloured by height, each face with its own nodes so that it is shaded flat.
SurfaceZoneData Cube()
{
    SurfaceZoneData zone;
    zone.name = "cube";
    // Corner i is at (i & 1, (i >> 1) & 1, (i >> 2) & 1); each face's corners counter-clockwise from outside.
    const int faces[6][4] = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4},
                             {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
    for (const auto& face : faces)
    {
        const int first = static_cast<int>(zone.nodes.size());
        for (const int i : face)
        {
            zone.nodes.push_back({double(i & 1), double((i >> 1) & 1), double((i >> 2) & 1)});
            zone.scalar.push_back(double((i >> 2) & 1));
        }
        zone.triangles.push_back({first, first + 1, first + 2});
        zone.triangles.push_back({first, first + 2, first + 3});
    }
    return zone;
}

// A straight streamtrace along x at height z, reached by the flow at time x.
StreamtraceZoneData Line(double fromX, double toX, double y, double z)
{
    StreamtraceZoneData zone;
    zone.name = "streamtrace";
    vantix::host::StreamtraceData line;
    for (double x = fromX; x <= toX + 1e-9; x += 0.25)
    {
        line.points.push_back({x, y, z});
        line.times.push_back(x);
    }
    zone.lines.push_back(line);
    return zone;
}

// Looking straight down the z axis from height distance, x to the right and y up.
void LookDown(double width, bool perspective, double fieldOfView, double distance)
{
    vantix::host::ViewState view;
    view.width = width;
    view.perspective = perspective;
    view.fieldOfView = fieldOfView;
    view.z = distance;
    vantix::host::setView(view);
}

bool Differs(const std::array<int, 3>& p, const std::array<int, 3>& q)
{
    return std::abs(p[0] - q[0]) + std::abs(p[1] - q[1]) + std::abs(p[2] - q[2]) > 24;
}

// Whether something is drawn at a pixel: it differs from the picture of the empty frame.
bool Covered(const Image& image, const Image& empty, int x, int y)
{
    return Differs(image.pixel(x, y), empty.pixel(x, y));
}

// The columns of a row that show something.
std::pair<int, int> CoveredColumns(const Image& image, const Image& empty, int row)
{
    int first = -1, last = -1;
    for (int x = 0; x < image.width; ++x)
        if (Covered(image, empty, x, row))
        {
            if (first < 0)
                first = x;
            last = x;
        }
    return {first, last};
}

double MeanBrightness(const Image& image)
{
    double sum = 0.0;
    for (const std::uint8_t value : image.rgb)
        sum += value;
    return sum / static_cast<double>(image.rgb.size());
}

int DifferentPixels(const Image& a, const Image& b, int tolerance)
{
    EXPECT_EQ(a.width, b.width);
    EXPECT_EQ(a.height, b.height);
    int count = 0;
    for (int y = 0; y < std::min(a.height, b.height); ++y)
        for (int x = 0; x < std::min(a.width, b.width); ++x)
        {
            const auto p = a.pixel(x, y), q = b.pixel(x, y);
            if (std::abs(p[0] - q[0]) > tolerance || std::abs(p[1] - q[1]) > tolerance ||
                std::abs(p[2] - q[2]) > tolerance)
                ++count;
        }
    return count;
}

Image SubImage(const Image& image, int left, int top, int width, int height)
{
    Image part;
    part.width = width;
    part.height = height;
    for (int y = top; y < top + height; ++y)
        for (int x = left; x < left + width; ++x)
            for (const int channel : image.pixel(x, y))
                part.rgb.push_back(static_cast<std::uint8_t>(channel));
    return part;
}

int CountPixels(const Image& image, bool (*match)(const std::array<int, 3>&))
{
    int count = 0;
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x)
            count += match(image.pixel(x, y)) ? 1 : 0;
    return count;
}

bool IsMarkerYellow(const std::array<int, 3>& p)
{
    return p[0] > 200 && p[1] > 170 && p[2] < 90;
}

class RenderTest : public HostTest
{
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        // 64 x 48 pixels at the host's 100 pixels per inch.
        vantix::host::setFramePlacement(m_frame, {0.0, 0.0, 0.64, 0.48});
    }

    void setStreamTiming(double anchor, double delta, bool markers, bool dashes)
    {
        vantix::host::setStyle({"StreamAttributes", "StreamTiming", "TimeAnchor"}, anchor);
        vantix::host::setStyle({"StreamAttributes", "StreamTiming", "DeltaTime"}, delta);
        vantix::host::setStyle({"StreamAttributes", "StreamTiming", "ShowMarkers"}, markers);
        vantix::host::setStyle({"StreamAttributes", "StreamTiming", "ShowDashes"}, dashes);
    }

    void setLights(double intensity, double background)
    {
        vantix::host::setStyle({"GlobalThreeD", "LightSource", "Intensity"}, intensity);
        vantix::host::setStyle({"GlobalThreeD", "LightSource", "BackgroundLight"}, background);
    }

    void expectMatchesReference(const Image& image, const std::string& name)
    {
        const fs::path path = ReferenceFolder / (name + ".png");
        if (std::getenv("VANTIX_UPDATE_REFERENCE_IMAGES"))
        {
            vantix::host::writePng(image, path.string());
            std::printf("wrote the reference picture %s\n", path.string().c_str());
            return;
        }
        const Image reference = vantix::host::readPng(path.string());
        ASSERT_EQ(reference.width, image.width) << name;
        ASSERT_EQ(reference.height, image.height) << name;
        // A little room for rounding in another build of the rasteriser, none for a different picture.
        const int differing = DifferentPixels(reference, image, 12);
        EXPECT_LE(differing, image.width * image.height / 100) << name;
        if (differing > image.width * image.height / 100)
            vantix::host::writePng(image, (fs::temp_directory_path() / (name + "-actual.png")).string());
    }
};

TEST_F(RenderTest, TheProjectionShowsTheViewWidthOrTheFieldOfView)
{
    vantix::host::setStyle({"ThreeDAxis", "FrameAxis", "Show"}, false);
    const Image empty = vantix::host::renderActiveFrame(64, 48);
    vantix::host::loadDataSet("square", {Square(0.5, 0.0, 1.0)});
    struct Case
    {
        const char* what;
        bool perspective;
        double width, fieldOfView, distance;
        int first, last; // covered columns of the middle row, of 64
    };
    const Case cases[] = {
        {"orthographic, twice as wide as the square", false, 2.0, 30.0, 5.0, 16, 47},
        {"orthographic, four times as wide", false, 4.0, 30.0, 5.0, 24, 39},
        {"orthographic, the viewer's distance does not matter", false, 2.0, 30.0, 50.0, 16, 47},
        {"perspective, 90 degrees from 1 away sees 2 wide", true, 2.0, 90.0, 1.0, 16, 47},
        {"perspective, 90 degrees from 2 away sees 4 wide", true, 2.0, 90.0, 2.0, 24, 39},
        {"perspective, 53.13 degrees from 2 away sees 2 wide", true, 2.0, 53.130102354, 2.0, 16, 47},
    };
    for (const Case& c : cases)
    {
        LookDown(c.width, c.perspective, c.fieldOfView, c.distance);
        const Image image = vantix::host::renderActiveFrame(64, 48);
        const auto [first, last] = CoveredColumns(image, empty, 24);
        EXPECT_NEAR(c.first, first, 1) << c.what;
        EXPECT_NEAR(c.last, last, 1) << c.what;
    }
}

TEST_F(RenderTest, ThePictureTakesItsHeightFromItsAspect)
{
    vantix::host::setStyle({"ThreeDAxis", "FrameAxis", "Show"}, false);
    const Image emptySquare = vantix::host::renderActiveFrame(64, 64),
                emptyWide = vantix::host::renderActiveFrame(64, 32);
    vantix::host::loadDataSet("square", {Square(0.5, 0.0, 1.0)});
    LookDown(2.0, false, 30.0, 5.0);
    // 2 wide: a 64 x 64 picture is 2 high (the square covers half of it), a 64 x 32 one 1 high (all).
    const Image square = vantix::host::renderActiveFrame(64, 64);
    EXPECT_FALSE(Covered(square, emptySquare, 32, 14));
    EXPECT_TRUE(Covered(square, emptySquare, 32, 18));
    EXPECT_TRUE(Covered(square, emptySquare, 32, 45));
    EXPECT_FALSE(Covered(square, emptySquare, 32, 49));
    const Image wide = vantix::host::renderActiveFrame(64, 32);
    EXPECT_TRUE(Covered(wide, emptyWide, 32, 0));
    EXPECT_TRUE(Covered(wide, emptyWide, 32, 31));
    // Up is up: with the viewer below a small square, the square shows in the upper half.
    vantix::host::loadDataSet("small square", {Square(0.25, 0.0, 1.0)});
    LookDown(2.0, false, 30.0, 5.0);
    vantix::host::ViewState view = vantix::host::view();
    view.y = -0.5;
    vantix::host::setView(view);
    const Image shifted = vantix::host::renderActiveFrame(64, 64);
    EXPECT_TRUE(Covered(shifted, emptySquare, 32, 16));
    EXPECT_FALSE(Covered(shifted, emptySquare, 32, 40));
}

TEST_F(RenderTest, OrthographicAndPerspectivePicturesOfASimpleSceneMatchTheirReferences)
{
    setStreamTiming(0.25, 0.5, true, false);
    vantix::host::loadDataSet("cube and streamtrace", {Cube(), Line(-0.5, 1.5, 0.5, 1.3)});
    const Image orthographic = vantix::host::renderActiveFrame(64, 48);
    expectMatchesReference(orthographic, "cube-orthographic");
    vantix::host::setStyle({"ThreeDView", "DrawInPerspective"}, true);
    const Image perspective = vantix::host::renderActiveFrame(64, 48);
    expectMatchesReference(perspective, "cube-perspective");
    EXPECT_GT(DifferentPixels(orthographic, perspective, 12), 20) << "the projection makes no difference";
}

TEST_F(RenderTest, TheLightsReachThePictureAndBothAtZeroMakeItBlack)
{
    vantix::host::loadDemoDataSet();
    setStreamTiming(0.0, 1.0, true, true);
    const double full = MeanBrightness(vantix::host::renderActiveFrame(64, 48));
    struct Case
    {
        double intensity, background;
        double lowest, highest; // of the mean brightness, as fractions of the default lights'
    };
    const Case cases[] = {
        {75.0, 25.0, 1.0, 1.0}, {37.5, 12.5, 0.35, 0.65}, {0.0, 25.0, 0.05, 0.6},
        {75.0, 0.0, 0.5, 0.95}, {100.0, 50.0, 1.0, 2.0},
    };
    for (const Case& c : cases)
    {
        setLights(c.intensity, c.background);
        const double brightness = MeanBrightness(vantix::host::renderActiveFrame(64, 48));
        EXPECT_GE(brightness, c.lowest * full - 1e-9) << c.intensity << " " << c.background;
        EXPECT_LE(brightness, c.highest * full + 1e-9) << c.intensity << " " << c.background;
    }
    setLights(0.0, 0.0);
    const Image black = vantix::host::renderActiveFrame(64, 48);
    EXPECT_EQ(0.0, MeanBrightness(black)) << "a fade to black must reach black, background and lines too";
}

TEST_F(RenderTest, MovingTheAnchorMovesTheMarkersAndTheDashes)
{
    vantix::host::setStyle({"ThreeDAxis", "FrameAxis", "Show"}, false);
    vantix::host::loadDataSet("line", {Line(-4.0, 4.0, 0.0, 0.0)});
    LookDown(9.0, false, 30.0, 5.0);
    struct Case
    {
        bool markers, dashes;
    };
    for (const Case c : {Case{true, false}, Case{false, true}, Case{true, true}})
    {
        SCOPED_TRACE(std::string(c.markers ? "markers " : "") + (c.dashes ? "dashes" : ""));
        setStreamTiming(0.0, 1.0, c.markers, c.dashes);
        const Image atZero = vantix::host::renderActiveFrame(64, 48);
        setStreamTiming(0.5, 1.0, c.markers, c.dashes);
        const Image moved = vantix::host::renderActiveFrame(64, 48);
        EXPECT_GT(DifferentPixels(atZero, moved, 30), 4) << "half a step later the picture must change";
        // Markers repeat every delta, dashes every two.
        setStreamTiming(c.dashes ? 2.0 : 1.0, 1.0, c.markers, c.dashes);
        const Image period = vantix::host::renderActiveFrame(64, 48);
        EXPECT_LE(DifferentPixels(atZero, period, 30), 6) << "a whole period later the picture is the same";
        setStreamTiming(0.0, 1.0, c.markers, c.dashes);
        EXPECT_EQ(0, DifferentPixels(atZero, vantix::host::renderActiveFrame(64, 48), 0)) << "and back";
    }
}

TEST_F(RenderTest, MarkersAndDashesShowOnlyWhenAskedFor)
{
    vantix::host::setStyle({"ThreeDAxis", "FrameAxis", "Show"}, false);
    vantix::host::loadDataSet("line", {Line(-4.0, 4.0, 0.0, 0.0)});
    LookDown(9.0, false, 30.0, 5.0);
    const auto lineRowDarkPixels = [](const Image& image)
    {
        int dark = 0;
        for (int x = 0; x < image.width; ++x)
            for (int y = 22; y <= 25; ++y)
                dark += image.pixel(x, y)[0] < 80 ? 1 : 0;
        return dark;
    };
    setStreamTiming(0.0, 1.0, false, false);
    const Image plain = vantix::host::renderActiveFrame(64, 48);
    EXPECT_EQ(0, CountPixels(plain, IsMarkerYellow));
    setStreamTiming(0.0, 1.0, true, false);
    // Markers at x = -4, -3, ..., 4: nine of them.
    EXPECT_GE(CountPixels(vantix::host::renderActiveFrame(64, 48), IsMarkerYellow), 9);
    setStreamTiming(0.0, 0.0, true, false);
    EXPECT_EQ(0, CountPixels(vantix::host::renderActiveFrame(64, 48), IsMarkerYellow))
        << "no delta, no markers";
    setStreamTiming(0.0, 1.0, false, true);
    const int dashed = lineRowDarkPixels(vantix::host::renderActiveFrame(64, 48));
    EXPECT_NEAR(lineRowDarkPixels(plain) / 2.0, dashed, lineRowDarkPixels(plain) / 8.0)
        << "half of the line is on";
}

TEST_F(RenderTest, TheFrameAxisAppearsInTheLowerLeftCornerWhenShown)
{
    vantix::host::loadDataSet("square", {Square(0.5, 0.0, 1.0)});
    LookDown(2.0, false, 30.0, 5.0);
    vantix::host::setFramePlacement(m_frame, {0.0, 0.0, 1.6, 1.2});
    vantix::host::setStyle({"ThreeDAxis", "FrameAxis", "Show"}, true);
    const Image shown = vantix::host::renderActiveFrame(160, 120);
    vantix::host::setStyle({"ThreeDAxis", "FrameAxis", "Show"}, false);
    const Image hidden = vantix::host::renderActiveFrame(160, 120);
    const Image cornerShown = SubImage(shown, 0, 80, 40, 40), cornerHidden = SubImage(hidden, 0, 80, 40, 40);
    EXPECT_GT(DifferentPixels(cornerShown, cornerHidden, 30), 20);
    EXPECT_EQ(0, DifferentPixels(SubImage(shown, 40, 0, 120, 120), SubImage(hidden, 40, 0, 120, 120), 0))
        << "nothing else changes";
    EXPECT_EQ(0, DifferentPixels(SubImage(shown, 0, 0, 40, 80), SubImage(hidden, 0, 0, 40, 80), 0));
    // Looking down the Z axis: X (red) points right, Y (green) up.
    const auto strongest = [](const Image& image, int channel)
    {
        int best = -1000;
        std::array<int, 2> at{};
        for (int y = 0; y < image.height; ++y)
            for (int x = 0; x < image.width; ++x)
            {
                const auto p = image.pixel(x, y);
                const int lead = 2 * p[channel] - p[(channel + 1) % 3] - p[(channel + 2) % 3];
                if (lead > best)
                    best = lead, at = {x, y};
            }
        return at;
    };
    const auto red = strongest(cornerShown, 0), green = strongest(cornerShown, 1);
    EXPECT_GT(red[0], green[0] + 3) << "X to the right of Y";
    EXPECT_LT(green[1], red[1] - 3) << "Y above X";
}

TEST_F(RenderTest, AFrameWithoutADataSetShowsItsBackgroundOnly)
{
    const Image image = vantix::host::renderActiveFrame(64, 48);
    for (int y = 0; y < image.height; ++y)
        for (int x = 1; x < image.width; ++x)
            ASSERT_EQ(image.pixel(0, y), image.pixel(x, y)) << "row " << y << " is not one colour";
    EXPECT_NE(image.pixel(0, 0), image.pixel(0, 47)) << "the background runs from top to bottom";
}

TEST_F(RenderTest, ColoursCompareAcrossTimeStepsOnOneRange)
{
    // The scalar is 0 everywhere at time 0 and 1 everywhere at time 1: each step alone would have no
    // range at all, over both the first is the bottom of the map and the second its top.
    vantix::host::setStyle({"ThreeDAxis", "FrameAxis", "Show"}, false);
    vantix::host::loadDataSet("steps", {Square(0.5, 0.0, 0.0, 0.0, 1), Square(0.5, 0.0, 1.0, 1.0, 1)});
    LookDown(2.0, false, 30.0, 5.0);
    vantix::host::setSolutionTime(0.0);
    const auto low = vantix::host::renderActiveFrame(64, 48).pixel(32, 24);
    vantix::host::setSolutionTime(1.0);
    const auto high = vantix::host::renderActiveFrame(64, 48).pixel(32, 24);
    EXPECT_GT(low[2], low[0] + 60) << "blue at the bottom of the map";
    EXPECT_GT(high[0], high[2] + 60) << "red at the top";
}

TEST_F(RenderTest, TheSolutionTimeChangesTheDemoPicture)
{
    vantix::host::loadDemoDataSet();
    const Image first = vantix::host::renderActiveFrame(96, 72);
    vantix::host::setSolutionTime(6.0);
    const Image later = vantix::host::renderActiveFrame(96, 72);
    EXPECT_GT(DifferentPixels(first, later, 20), 30);
}

class RenderRegionTest : public RenderTest
{
protected:
    // Frame A (with the cube) at the left, frame B (no data set) to its right and lower, and on top.
    void makeTwoFrames()
    {
        vantix::host::loadDataSet("cube", {Cube()});
        m_a = m_frame;
        vantix::host::setFramePlacement(m_a, {1.0, 0.5, 0.64, 0.48});
        m_b = vantix::host::addFrame();
        vantix::host::setFramePlacement(m_b, {1.8, 0.7, 0.4, 0.6});
        vantix::host::activateFrame(m_a);
    }

    Image alone(UniqueID_t frame, int width, int height)
    {
        const UniqueID_t active = vantix::host::activeFrame();
        vantix::host::activateFrame(frame);
        Image image = vantix::host::renderActiveFrame(width, height);
        vantix::host::activateFrame(active);
        return image;
    }

    UniqueID_t m_a = 0, m_b = 0;
};

TEST_F(RenderRegionTest, RegionSizesArePaperInchesInScreenPixels)
{
    makeTwoFrames();
    struct Case
    {
        ExportRegion_e region;
        double width, height;
    };
    const Case cases[] = {
        {ExportRegion_CurrentFrame, 64.0, 48.0},
        {ExportRegion_AllFrames, 120.0, 80.0}, // 1.0 to 2.2 by 0.5 to 1.3 inches
        {ExportRegion_WorkArea, 1100.0, 850.0},
    };
    for (const Case& c : cases)
    {
        const auto size = vantix::host::regionPixelSize(c.region);
        EXPECT_DOUBLE_EQ(c.width, size[0]) << c.region;
        EXPECT_DOUBLE_EQ(c.height, size[1]) << c.region;
    }
    vantix::host::setPixelsPerInch(50.0);
    EXPECT_DOUBLE_EQ(60.0, vantix::host::regionPixelSize(ExportRegion_AllFrames)[0]);
    vantix::host::reset();
    EXPECT_EQ(0.0, vantix::host::regionPixelSize(ExportRegion_CurrentFrame)[0]);
    EXPECT_THROW(vantix::host::renderRegion(ExportRegion_AllFrames, 10, 10), std::logic_error);
    vantix::host::addFrame();
}

TEST_F(RenderRegionTest, AllFramesAndTheWorkAreaShowEveryFrameAtItsPlace)
{
    makeTwoFrames();
    const Image a = alone(m_a, 64, 48), b = alone(m_b, 40, 60);
    struct Case
    {
        ExportRegion_e region;
        int width, height;
        int ax, ay, bx, by; // where the frames' top left corners land
    };
    const Case cases[] = {
        {ExportRegion_AllFrames, 120, 80, 0, 0, 80, 20},
        {ExportRegion_WorkArea, 1100, 850, 100, 50, 180, 70},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.region);
        const Image page = vantix::host::renderRegion(c.region, c.width, c.height);
        ASSERT_EQ(c.width, page.width);
        ASSERT_EQ(c.height, page.height);
        // Drawn at another place of the framebuffer, an edge pixel may round the other way; a frame one
        // pixel off would differ all along its edges.
        EXPECT_LE(DifferentPixels(SubImage(page, c.ax, c.ay, 64, 48), a, 40), 8);
        EXPECT_LE(DifferentPixels(SubImage(page, c.bx, c.by, 40, 60), b, 40), 8);
        // The paper around the frames is white.
        EXPECT_EQ((std::array<int, 3>{255, 255, 255}), page.pixel(c.ax + 70, c.ay + 5));
        EXPECT_EQ((std::array<int, 3>{255, 255, 255}), page.pixel(c.ax + 10, c.ay + 70));
    }
}

TEST_F(RenderRegionTest, OverlappingFramesAreDrawnInStackingOrder)
{
    makeTwoFrames();
    vantix::host::setFramePlacement(m_b, {1.2, 0.7, 0.4, 0.6}); // over the middle of A
    const Image b = alone(m_b, 40, 60);
    Image page = vantix::host::renderRegion(ExportRegion_AllFrames, 64, 80);
    EXPECT_LE(DifferentPixels(SubImage(page, 20, 20, 40, 60), b, 40), 8) << "B, on top, covers A";

    VtxUtilFramePushTop(); // B to the bottom: A on top
    page = vantix::host::renderRegion(ExportRegion_AllFrames, 64, 80);
    EXPECT_GT(DifferentPixels(SubImage(page, 20, 20, 40, 28), SubImage(b, 0, 0, 40, 28), 20), 100)
        << "A, now on top, covers B";
    EXPECT_LE(DifferentPixels(SubImage(page, 20, 48, 40, 32), SubImage(b, 0, 28, 40, 32), 40), 8)
        << "below A, B still shows";
}

TEST_F(RenderRegionTest, SupersamplingSmoothsEdgesAndKeepsTheSize)
{
    vantix::host::loadDataSet("cube", {Cube()});
    const Image plain = vantix::host::renderRegion(ExportRegion_CurrentFrame, 64, 48, 1);
    const Image smooth = vantix::host::renderRegion(ExportRegion_CurrentFrame, 64, 48, 4);
    ASSERT_EQ(64, smooth.width);
    ASSERT_EQ(48, smooth.height);
    const int changed = DifferentPixels(plain, smooth, 24);
    EXPECT_GT(changed, 0) << "edges are averaged";
    EXPECT_LT(changed, 64 * 48 / 5) << "but the picture is the same";
}

TEST_F(RenderRegionTest, ABadSizeIsRefused)
{
    EXPECT_THROW(vantix::host::renderRegion(ExportRegion_CurrentFrame, 0, 10), std::invalid_argument);
    EXPECT_THROW(vantix::host::renderRegion(ExportRegion_CurrentFrame, 10, -1), std::invalid_argument);
    EXPECT_THROW(vantix::host::renderRegion(static_cast<ExportRegion_e>(9), 10, 10), std::invalid_argument);
}

TEST_F(RenderTest, ARedrawDrawsTheActiveFrameAtItsScreenSizeWhenAskedTo)
{
    vantix::host::loadDataSet("cube", {Cube()});
    VtxUtilRedraw(TRUE);
    EXPECT_TRUE(vantix::host::screenImage().empty()) << "off after reset: a redraw is only counted";

    vantix::host::setRenderOnRedraw(true);
    EXPECT_TRUE(vantix::host::screenImage().empty());
    VtxUtilRedraw(TRUE);
    const Image screen = vantix::host::screenImage();
    ASSERT_EQ(64, screen.width);
    ASSERT_EQ(48, screen.height);
    EXPECT_EQ(0, DifferentPixels(screen, vantix::host::renderActiveFrame(64, 48), 0));

    // Suspended drawing draws nothing; resumed, the next redraw shows the new view.
    vantix::host::ViewState view = vantix::host::view();
    view.psi = 10.0;
    vantix::host::setView(view);
    VtxUtilDrawGraphics(FALSE);
    VtxUtilRedraw(TRUE);
    EXPECT_EQ(0, DifferentPixels(screen, vantix::host::screenImage(), 0));
    VtxUtilDrawGraphics(TRUE);
    VtxUtilRedraw(TRUE);
    EXPECT_GT(DifferentPixels(screen, vantix::host::screenImage(), 20), 0);

    vantix::host::reset();
    vantix::host::addFrame();
    VtxUtilRedraw(TRUE);
    EXPECT_TRUE(vantix::host::screenImage().empty()) << "reset switches it off";
    EXPECT_THAT(vantix::host::hostErrors(), IsEmpty());
}

TEST_F(RenderTest, PngFilesKeepThePictureExactly)
{
    vantix::host::loadDemoDataSet();
    const Image image = vantix::host::renderActiveFrame(37, 23); // odd sizes: no row padding may creep in
    const fs::path path = fs::temp_directory_path() / "vantix-render-test.png";
    vantix::host::writePng(image, path.string());
    const Image back = vantix::host::readPng(path.string());
    EXPECT_EQ(37, back.width);
    EXPECT_EQ(23, back.height);
    EXPECT_EQ(image.rgb, back.rgb);
    fs::remove(path);

    const fs::path notPng = fs::temp_directory_path() / "vantix-render-test.txt";
    std::ofstream(notPng) << "not a picture";
    try
    {
        vantix::host::readPng(notPng.string());
        ADD_FAILURE() << "read a text file as a picture";
    }
    catch (const std::runtime_error& error)
    {
        EXPECT_THAT(error.what(),
                    HasSubstr("cannot read PNG file '" + notPng.string() + "': it is not a PNG file"));
    }
    fs::remove(notPng);
    EXPECT_THROW(vantix::host::writePng(image, "/nonexistent-folder/x.png"), std::runtime_error);
    EXPECT_THROW(vantix::host::writePng(Image{}, path.string()), std::runtime_error);
}

} // namespace
