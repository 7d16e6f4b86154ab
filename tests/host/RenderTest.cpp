// Pictures of the page: the projection of a view, reference pictures of a simple scene, surfaces at the
// drawing's limits (slivers, walls around the viewer, nodes that are not numbers, frames off the paper),
// the streamtrace markers and dashes, the frame axis, colours over time, regions of several frames, the
// redraw hook with drawing suspended and PNG files.
//
// The reference pictures in tests/host/reference/ come from this renderer (checked by eye when they were
// made). After a deliberate change of the picture, run the test program with
// VANTIX_UPDATE_REFERENCE_IMAGES=1 to write them again, and look at them before committing them.
#include "support/HostTest.h"
#include "support/ThrownMessage.h"

#include <VtxUtil.h>
#include <vantix/host/Export.h>
#include <vantix/host/Host.h>
#include <vantix/host/Render.h>
#include <vantix/host/Scene.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace
{

namespace fs = std::filesystem;
namespace host = vantix::host;
using host::Image;
using Pixel = std::array<int, 3>;
using ::testing::DoubleEq;
using ::testing::ElementsAre;

// A square of side 2 * half in the plane z = 0, around the z axis, with one scalar value.
host::SurfaceZoneData Square(double half, double value, double time = 0.0, int strand = 0)
{
    const std::vector<host::Point3> corners{
        {-half, -half, 0.0}, {half, -half, 0.0}, {half, half, 0.0}, {-half, half, 0.0}};
    return {"square", time, strand, corners, {{0, 1, 2}, {0, 2, 3}}, std::vector<double>(4, value)};
}

// The unit cube coloured by height, each face with its own nodes so that it is shaded flat.
host::SurfaceZoneData Cube()
{
    host::SurfaceZoneData zone;
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
host::StreamtraceZoneData Line(double fromX, double toX, double y, double z)
{
    host::StreamtraceZoneData zone;
    zone.name = "streamtrace";
    zone.lines.emplace_back();
    for (double x = fromX; x <= toX + 1e-9; x += 0.25)
    {
        zone.lines[0].points.push_back({x, y, z});
        zone.lines[0].times.push_back(x);
    }
    return zone;
}

// Looking straight down the z axis from (0, y, distance), x to the right and y up.
const auto LookDown = [](double width, bool perspective = false, double fieldOfView = 30.0,
                         double distance = 5.0, double y = 0.0) {
    host::setView({0.0, y, distance, 0.0, 0.0, 0.0, width, perspective, fieldOfView});
};

// The pixels of a where b differs by more than the tolerance in a channel; b starts at (left, top) of a.
int DifferentPixels(const Image& a, const Image& b, int tolerance, int left = 0, int top = 0)
{
    int count = 0;
    for (int y = 0; y < b.height; ++y)
        for (int x = 0; x < b.width; ++x)
        {
            const Pixel p = a.pixel(left + x, top + y), q = b.pixel(x, y);
            count += std::abs(p[0] - q[0]) > tolerance || std::abs(p[1] - q[1]) > tolerance ||
                     std::abs(p[2] - q[2]) > tolerance;
        }
    return count;
}

Image SubImage(const Image& image, int left, int top, int width, int height)
{
    Image part{width, height, {}};
    for (int y = top; y < top + height; ++y)
        for (int x = left; x < left + width; ++x)
            for (const int channel : image.pixel(x, y))
                part.rgb.push_back(static_cast<std::uint8_t>(channel));
    return part;
}

class RenderTest : public testsupport::HostTest
{
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        // 64 x 48 pixels at the host's 100 pixels per inch.
        host::setFramePlacement(m_frame, {0.0, 0.0, 0.64, 0.48});
    }

    static Image Render() { return host::renderActiveFrame(64, 48); }

    static void ShowFrameAxis(bool show) { host::setStyle({"ThreeDAxis", "FrameAxis", "Show"}, show); }

    static void SetStreamTiming(double anchor, double delta, bool markers, bool dashes)
    {
        host::setStyle({"StreamAttributes", "StreamTiming", "TimeAnchor"}, anchor);
        host::setStyle({"StreamAttributes", "StreamTiming", "DeltaTime"}, delta);
        host::setStyle({"StreamAttributes", "StreamTiming", "ShowMarkers"}, markers);
        host::setStyle({"StreamAttributes", "StreamTiming", "ShowDashes"}, dashes);
    }
};

// The frame axis, when shown, is in the lower left corner; the projection shows the view width or field of
// view; colours compare across time steps on one range.
TEST_F(RenderTest, TheFrameAxisAndTheProjectionShowTheViewAndColoursCompareAcrossTimeStepsOnOneRange)
{
    host::loadDataSet("square", {Square(0.5, 1.0)});
    LookDown(2.0);
    host::setFramePlacement(m_frame, {0.0, 0.0, 1.6, 1.2});
    const Image shown = host::renderActiveFrame(160, 120);
    ShowFrameAxis(false);
    EXPECT_GT(DifferentPixels(host::renderActiveFrame(160, 120), SubImage(shown, 0, 80, 40, 40), 30, 0, 80),
              20);
    // Looking down the Z axis: X (red) points right, Y (green) up.
    const auto strongest = [&](int channel)
    {
        std::pair<int, std::array<int, 2>> best{-1000, {}};
        for (int y = 80; y < 120; ++y)
            for (int x = 0; x < 40; ++x)
            {
                const Pixel p = shown.pixel(x, y);
                best = std::max(best, {2 * p[channel] - p[(channel + 1) % 3] - p[(channel + 2) % 3], {x, y}});
            }
        return best.second;
    };
    const auto red = strongest(0), green = strongest(1);
    EXPECT_GT(red[0], green[0] + 3) << "X to the right of Y";
    EXPECT_LT(green[1], red[1] - 3) << "Y above X";
    host::setFramePlacement(m_frame, {0.0, 0.0, 0.64, 0.48});

    // The first and last pixels that show something (differ from the background, which is one colour in a
    // row) along row y, or along column x with y < 0.
    const auto covered = [](const Image& image, int x, int y)
    {
        std::pair<int, int> span{-1, -1};
        for (int i = 0; i < (y < 0 ? image.height : image.width); ++i)
        {
            const Pixel p = y < 0 ? image.pixel(x, i) : image.pixel(i, y), q = image.pixel(0, y < 0 ? i : y);
            if (std::abs(p[0] - q[0]) + std::abs(p[1] - q[1]) + std::abs(p[2] - q[2]) > 24)
                span = {span.first < 0 ? i : span.first, i};
        }
        return span;
    };
    // What is covered, of a picture 64 wide: the columns in the middle of what is covered, and the rows.
    using Spans = std::array<int, 4>;
    const std::tuple<const char*, bool, double, double, double, double, int, Spans> cases[] = {
        // clang-format off
        {"orthographic, twice as wide as the square", false, 2.0, 30.0, 5.0, 0.0, 48, {16, 47, 8, 39}},
        {"perspective, 90 degrees from 1 away: 2 wide", true, 2.0, 90.0, 1.0, 0.0, 48, {16, 47, 8, 39}},
        {"up is up, and a square picture as high as wide", false, 2.0, 30.0, 5.0, -0.5, 64, {16, 47, 0, 31}},
        // clang-format on
    };
    for (const auto& [what, perspective, width, fieldOfView, distance, y, height, spans] : cases)
    {
        LookDown(width, perspective, fieldOfView, distance, y);
        const Image image = host::renderActiveFrame(64, height);
        const auto rows = covered(image, 32, -1), columns = covered(image, 0, (rows.first + rows.second) / 2);
        const Spans got{columns.first, columns.second, rows.first, rows.second};
        for (int i = 0; i < 4; ++i)
            EXPECT_NEAR(spans[i], got[i], 1) << what << ", span end " << i;
    }

    // The scalar is 0 everywhere at time 0 and 1 everywhere at time 1: each step alone would have no
    // range at all, over both the first is the bottom of the map and the second its top.
    host::loadDataSet("steps", {Square(0.5, 0.0, 0.0, 1), Square(0.5, 1.0, 1.0, 1)});
    LookDown(2.0);
    host::setSolutionTime(0.0);
    const Pixel low = Render().pixel(32, 24);
    host::setSolutionTime(1.0);
    const Pixel high = Render().pixel(32, 24);
    EXPECT_GT(low[2], low[0] + 60) << "blue at the bottom of the map";
    EXPECT_GT(high[0], high[2] + 60) << "red at the top";
}

TEST_F(RenderTest, OrthographicAndPerspectivePicturesOfASimpleSceneMatchTheirReferences)
{
    SetStreamTiming(0.25, 0.5, true, false);
    host::loadDataSet("cube and streamtrace", {Cube(), Line(-0.5, 1.5, 0.5, 1.3)});
    std::vector<Image> pictures;
    for (const std::string name : {"cube-orthographic", "cube-perspective"})
    {
        host::setStyle({"ThreeDView", "DrawInPerspective"}, name == "cube-perspective");
        const Image image = pictures.emplace_back(Render());
        const fs::path path = fs::path(__FILE__).parent_path() / "reference" / (name + ".png");
        if (std::getenv("VANTIX_UPDATE_REFERENCE_IMAGES"))
        {
            host::writePng(image, path.string());
            continue;
        }
        const Image reference = host::readPng(path.string());
        ASSERT_EQ(std::make_pair(reference.width, reference.height), std::make_pair(64, 48));
        // A little room for rounding in another build of the rasteriser, none for a different picture.
        const int differing = DifferentPixels(reference, image, 12);
        EXPECT_LE(differing, image.width * image.height / 100) << name;
        if (differing > image.width * image.height / 100)
            host::writePng(image, (fs::temp_directory_path() / (name + "-actual.png")).string());
    }
    EXPECT_GT(DifferentPixels(pictures[0], pictures[1], 12), 20) << "the projection makes no difference";
}

// A mesh of many triangles is drawn in parts; together they draw what one pair of triangles draws, whether
// the nodes of a part are numbered close together (kept in 16 bits) or scattered over all the numbers (32).
TEST_F(RenderTest, AMeshDrawnInPartsLeavesNoTriangleOut)
{
    constexpr int Cells = 260, Nodes = (Cells + 1) * (Cells + 1); // 135,200 triangles over 68,121 nodes
    for (const bool scattered : {false, true})
    {
        // 7,919 is prime and no factor of Nodes: multiplying by it numbers the nodes anew.
        const auto number = [scattered](int k)
        { return scattered ? int(std::int64_t(k) * 7919 % Nodes) : k; };
        host::SurfaceZoneData fine{
            "fine square", 0.0, 0, std::vector<host::Point3>(Nodes), {}, std::vector<double>(Nodes, 1.0)};
        for (int j = 0; j <= Cells; ++j)
            for (int i = 0; i <= Cells; ++i)
                fine.nodes[number(j * (Cells + 1) + i)] = {-0.5 + double(i) / Cells, -0.5 + double(j) / Cells,
                                                           0.0};
        for (int j = 0; j < Cells; ++j)
            for (int i = 0; i < Cells; ++i)
            {
                const int a = j * (Cells + 1) + i, b = a + 1, c = a + Cells + 2, d = a + Cells + 1;
                fine.triangles.push_back({number(a), number(b), number(c)});
                fine.triangles.push_back({number(a), number(c), number(d)});
            }
        host::loadDataSet("fine", {fine});
        LookDown(1.5);
        const Image parts = Render();
        host::loadDataSet("square", {Square(0.5, 1.0)});
        LookDown(1.5);
        EXPECT_LE(DifferentPixels(parts, Render(), 2), 4) << (scattered ? "scattered" : "close together");
    }
}

// Surfaces that meet the drawing's limits: a disc of slivers drawn from its centre and from its rim
// covers the same pixels (an edge two triangles share drawn by neither would show the background);
// inside a closed box, whose walls pass beside and behind the viewer, nothing of the background shows;
// a node that is not a number leaves out only its own triangles.
TEST_F(RenderTest, SliversWallsAroundTheViewerAndNodesThatAreNotNumbersLeaveNoGap)
{
    constexpr int Rim = 720;
    constexpr double Pi = 3.14159265358979323846;
    const auto disc = [](bool fromCentre)
    {
        host::SurfaceZoneData zone{"disc", 0.0, 0, {{0.0, 0.0, 0.0}}, {}, {}};
        for (int i = 0; i < Rim; ++i)
            zone.nodes.push_back({0.45 * std::cos(2 * Pi * i / Rim), 0.45 * std::sin(2 * Pi * i / Rim), 0.0});
        for (int i = 0; i < Rim; ++i)
        {
            if (fromCentre)
                zone.triangles.push_back({0, 1 + i, 1 + (i + 1) % Rim});
            else if (i >= 1 && i + 1 < Rim)
                zone.triangles.push_back({1, 1 + i, 2 + i});
        }
        return zone;
    };
    host::loadDataSet("disc", {disc(true)});
    LookDown(1.5);
    const Image fromCentre = Render();
    host::loadDataSet("disc", {disc(false)});
    LookDown(1.5);
    EXPECT_LE(DifferentPixels(fromCentre, Render(), 2), 4);

    // The background alone, from a frame with no data set.
    const UniqueID_t empty = host::addFrame();
    host::setFramePlacement(empty, {0.0, 0.0, 0.64, 0.48});
    const Image background = Render();
    host::activateFrame(m_frame);
    host::SurfaceZoneData box = Cube();
    for (host::Point3& node : box.nodes)
        for (double& coordinate : node)
            coordinate = 20.0 * (coordinate - 0.5);
    host::loadDataSet("box", {box});
    for (const double distance : {5.0, 9.0})
    {
        LookDown(1.0, true, 100.0, distance);
        EXPECT_EQ(0, 64 * 48 - DifferentPixels(background, Render(), 1)) << "from " << distance;
    }

    const double nan = std::nan("");
    host::SurfaceZoneData broken = Square(0.5, 1.0);
    broken.nodes.push_back({nan, 0.0, 0.0});
    broken.nodes.push_back({0.0, nan, 0.0});
    broken.triangles.push_back({0, 4, 2});
    broken.triangles.push_back({5, 1, 3});
    broken.scalar.insert(broken.scalar.end(), {nan, 1.0});
    host::loadDataSet("square", {Square(0.5, 1.0)});
    LookDown(1.5);
    const Image square = Render();
    host::loadDataSet("broken", {broken});
    LookDown(1.5);
    EXPECT_LE(DifferentPixels(square, Render(), 2), 4);
}

// A frame that reaches off the paper shows the part on it as that part looks when the frame is drawn whole.
TEST_F(RenderTest, AFrameReachingOffThePaperShowsItsPartOnThePaperAsDrawnWhole)
{
    SetStreamTiming(0.25, 0.5, true, false);
    host::loadDataSet("cube and streamtrace", {Cube(), Line(-0.5, 1.5, 0.5, 1.3)});
    for (const bool perspective : {false, true})
    {
        host::setStyle({"ThreeDView", "DrawInPerspective"}, perspective);
        host::setFramePlacement(m_frame, {0.0, 0.0, 0.64, 0.48});
        const Image whole = Render();
        // Its left half off the paper's left edge, its lower half off the bottom (the paper is 11 x 8.5).
        host::setFramePlacement(m_frame, {-0.32, 8.26, 0.64, 0.48});
        const Image paper = host::renderRegion(ExportRegion_WorkArea, 1100, 850);
        EXPECT_LE(DifferentPixels(paper, SubImage(whole, 32, 0, 32, 24), 12, 0, 826), 8)
            << (perspective ? "perspective" : "orthographic");
    }
}

TEST_F(RenderTest, MarkersAndDashesShowOnlyWhenAskedForAndMoveWithTheAnchor)
{
    ShowFrameAxis(false);
    host::loadDataSet("line", {Line(-4.0, 4.0, 0.0, 0.0)});
    LookDown(9.0);
    // The dark pixels of the line (rows 22 to 25), or the yellow pixels (of the markers) anywhere.
    const auto IsYellow = [](const Pixel& p) { return p[0] > 200 && p[1] > 170 && p[2] < 90; };
    const auto count = [&](bool yellow)
    {
        const Image image = Render();
        int pixels = 0;
        for (int y = yellow ? 0 : 22; y <= (yellow ? image.height - 1 : 25); ++y)
            for (int x = 0; x < image.width; ++x)
                pixels += yellow ? IsYellow(image.pixel(x, y)) : image.pixel(x, y)[0] < 80;
        return pixels;
    };
    SetStreamTiming(0.0, 1.0, false, false);
    const int plain = count(false);
    EXPECT_EQ(0, count(true));
    SetStreamTiming(0.0, 1.0, true, false);
    EXPECT_GE(count(true), 9) << "markers at x = -4, -3, ..., 4";
    SetStreamTiming(0.0, 0.0, true, false);
    EXPECT_EQ(0, count(true)) << "no delta, no markers";
    SetStreamTiming(0.0, 1.0, false, true);
    EXPECT_NEAR(plain / 2.0, count(false), plain / 8.0) << "half of the line is on";

    for (const auto& [markers, dashes] : {std::pair{true, false}, std::pair{false, true}})
    {
        SCOPED_TRACE(std::string(markers ? "markers " : "") + (dashes ? "dashes" : ""));
        SetStreamTiming(0.0, 1.0, markers, dashes);
        const Image atZero = Render();
        SetStreamTiming(0.5, 1.0, markers, dashes);
        EXPECT_GT(DifferentPixels(atZero, Render(), 30), 4) << "half a step later the picture must change";
        // Markers repeat every delta, dashes every two.
        SetStreamTiming(dashes ? 2.0 : 1.0, 1.0, markers, dashes);
        EXPECT_LE(DifferentPixels(atZero, Render(), 30), 6) << "a whole period later the picture is the same";
        SetStreamTiming(0.0, 1.0, markers, dashes);
        EXPECT_EQ(0, DifferentPixels(atZero, Render(), 0)) << "and back";
    }
}

TEST_F(RenderTest, RegionsArePaperInchesInScreenPixelsAndShowEveryFrameAtItsPlaceInStackingOrder)
{
    // Frame A with the cube, and frame B, with no data set, to its right and lower, and on top.
    host::loadDataSet("cube", {Cube()});
    host::setFramePlacement(m_frame, {1.0, 0.5, 0.64, 0.48});
    const UniqueID_t frameB = host::addFrame();
    host::setFramePlacement(frameB, {1.8, 0.7, 0.4, 0.6});
    const Image b = host::renderActiveFrame(40, 60);
    for (int y = 0; y < b.height; ++y)
        for (int x = 1; x < b.width; ++x)
            ASSERT_EQ(b.pixel(0, y), b.pixel(x, y)) << "a frame without a data set shows its background only";
    EXPECT_NE(b.pixel(0, 0), b.pixel(0, 59)) << "the background runs from top to bottom";
    host::activateFrame(m_frame);
    const Image a = Render();
    // Each region's size (all frames: 1.0 to 2.2 by 0.5 to 1.3 inches), and where the frames' top left
    // corners land in it.
    for (const auto& [region, width, height, ax, ay, bx, by] :
         {std::tuple{ExportRegion_CurrentFrame, 64, 48, 0, 0, -1, -1},
          std::tuple{ExportRegion_AllFrames, 120, 80, 0, 0, 80, 20},
          std::tuple{ExportRegion_WorkArea, 1100, 850, 100, 50, 180, 70}})
    {
        EXPECT_THAT(host::regionPixelSize(region), ElementsAre(DoubleEq(width), DoubleEq(height))) << region;
        const Image page = host::renderRegion(region, width, height);
        ASSERT_EQ(std::make_pair(width, height), std::make_pair(page.width, page.height));
        // Drawn at another place of the framebuffer, an edge pixel may round the other way; a frame one
        // pixel off would differ all along its edges.
        EXPECT_LE(DifferentPixels(page, a, 40, ax, ay), 8) << region;
        if (bx < 0)
            continue;
        EXPECT_LE(DifferentPixels(page, b, 40, bx, by), 8) << region;
        // The paper around the frames is white.
        EXPECT_EQ((Pixel{255, 255, 255}), page.pixel(ax + 70, ay + 5)) << region;
        EXPECT_EQ((Pixel{255, 255, 255}), page.pixel(ax + 10, ay + 70)) << region;
    }
    // Overlapping frames: B, which looks the same anywhere, over the middle of A.
    host::setFramePlacement(frameB, {1.2, 0.7, 0.4, 0.6});
    EXPECT_LE(DifferentPixels(host::renderRegion(ExportRegion_AllFrames, 64, 80), b, 40, 20, 20), 8)
        << "B, on top, covers A";
    VtxUtilFramePushTop(); // B to the bottom: A on top
    const Image page = host::renderRegion(ExportRegion_AllFrames, 64, 80);
    EXPECT_GT(DifferentPixels(page, SubImage(b, 0, 0, 40, 28), 20, 20, 20), 100) << "A, now on top, covers B";
    EXPECT_LE(DifferentPixels(page, SubImage(b, 0, 28, 40, 32), 40, 20, 48), 8) << "below A, B still shows";

    host::reset();
    EXPECT_EQ(0.0, host::regionPixelSize(ExportRegion_CurrentFrame)[0]);
    EXPECT_THROW(host::renderRegion(ExportRegion_AllFrames, 10, 10), std::logic_error);
    host::addFrame();
    EXPECT_THROW(host::renderRegion(ExportRegion_CurrentFrame, 0, 10), std::invalid_argument);
    EXPECT_THROW(host::renderRegion(ExportRegion_CurrentFrame, 10, -1), std::invalid_argument);
    EXPECT_THROW(host::renderRegion(static_cast<ExportRegion_e>(9), 10, 10), std::invalid_argument);
}

// Drawing suspensions nest: until the last is undone, redraws are skipped and draw nothing.
TEST_F(RenderTest, ARedrawDrawsTheActiveFrameAtItsScreenSizeWhenAskedToUnlessDrawingIsSuspended)
{
    host::loadDataSet("cube", {Cube()});
    EXPECT_TRUE(VtxUtilRedraw(TRUE));
    EXPECT_TRUE(host::screenImage().empty()) << "off after reset: a redraw is only counted";
    host::setRenderOnRedraw(true);
    VtxUtilRedraw(TRUE);
    const Image screen = host::screenImage();
    ASSERT_EQ(std::make_pair(64, 48), std::make_pair(screen.width, screen.height));
    EXPECT_EQ(0, DifferentPixels(screen, Render(), 0));
    host::ViewState view = host::view();
    view.psi = 10.0;
    host::setView(view);
    VtxUtilDrawGraphics(FALSE);
    VtxUtilDrawGraphics(FALSE);
    EXPECT_EQ(2, host::drawSuspensionDepth());
    EXPECT_TRUE(VtxUtilRedraw(TRUE));
    VtxUtilDrawGraphics(TRUE);
    EXPECT_TRUE(VtxUtilRedraw(TRUE));
    EXPECT_EQ(0, DifferentPixels(screen, host::screenImage(), 0));
    VtxUtilDrawGraphics(TRUE);
    VtxUtilRedraw(TRUE);
    EXPECT_GT(DifferentPixels(screen, host::screenImage(), 20), 0) << "the next redraw shows the new view";
    EXPECT_EQ(std::make_pair(3, 2), std::make_pair(host::redrawCount(), host::skippedRedrawCount()));
    VtxUtilDrawGraphics(TRUE);
    EXPECT_THAT(host::hostErrors(), ElementsAre(::testing::HasSubstr("not suspended")));
    host::clearHostErrors();
    host::reset();
    host::addFrame();
    VtxUtilRedraw(TRUE);
    EXPECT_TRUE(host::screenImage().empty()) << "reset switches it off";
}

TEST_F(RenderTest, PngFilesKeepThePictureExactly)
{
    host::loadDemoDataSet();
    const fs::path path = fs::temp_directory_path() / "vantix-render-test.png",
                   notPng = fs::temp_directory_path() / "vantix-render-test.txt";
    // Odd sizes, so that no row padding may creep in; and a picture compressed in slices side by side.
    for (const auto& [width, height] : {std::pair{37, 23}, std::pair{1001, 701}})
    {
        const Image image = host::renderActiveFrame(width, height);
        host::writePng(image, path.string());
        const Image back = host::readPng(path.string());
        EXPECT_EQ(std::make_tuple(width, height, image.rgb),
                  std::make_tuple(back.width, back.height, back.rgb));
    }
    const Image image = host::renderActiveFrame(37, 23);
    std::ofstream(notPng) << "not a picture";
    EXPECT_THROW_MSG(host::readPng(notPng.string()), std::runtime_error,
                     "cannot read PNG file '" + notPng.string() + "': it is not a PNG file");
    fs::remove(notPng);
    EXPECT_THROW(host::writePng(image, "/nonexistent-folder/x.png"), std::runtime_error);
    EXPECT_THROW(host::writePng(Image{}, path.string()), std::runtime_error);
    fs::remove(path);
}

} // namespace
