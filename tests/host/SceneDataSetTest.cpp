// Data sets through the SDK and the host's API: zones, their times, strands and enabled flags, zone sets
// and their release, the zones a solution time shows, and fitting the view on loading.
#include "support/HostTest.h"
#include "support/ThrownMessage.h"

#include <vantix/host/Render.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace
{

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using namespace vantix::host;

// A triangle named "t" in the plane z = height, as a zone of a strand at a time.
SurfaceZoneData Triangle(double time, int strand, double height = 0.0, std::vector<double> scalar = {})
{
    return {"t", time, strand, {{0, 0, height}, {1, 0, height}, {0, 1, height}}, {{0, 1, 2}}, scalar};
}

class SceneDataSetTest : public testsupport::HostTest
{
protected:
    // The members of the enabled-zone set, read and released through the SDK.
    static std::vector<int> EnabledZonesThroughTheSdk()
    {
        Set_pa set = nullptr;
        EXPECT_TRUE(VtxUtilZoneGetEnabled(&set));
        std::vector<int> members;
        for (LgIndex_t m = VtxUtilSetGetNextMember(set, 0); m != 0; m = VtxUtilSetGetNextMember(set, m))
            members.push_back(static_cast<int>(m));
        VtxUtilSetDealloc(&set);
        return members;
    }

    // Asks for a zone's time and strand, expecting zeros and the two errors, which end in `but`.
    static void ExpectNoZone(int zone, const std::string& but)
    {
        EXPECT_EQ(0.0, VtxUtilZoneGetSolutionTime(zone));
        EXPECT_EQ(0, VtxUtilZoneGetStrandID(zone));
        const std::string asked = " was asked for zone " + std::to_string(zone) + ", but " + but;
        EXPECT_THAT(hostErrors(),
                    ElementsAre("VtxUtilZoneGetSolutionTime" + asked, "VtxUtilZoneGetStrandID" + asked));
        clearHostErrors();
    }
};

TEST_F(SceneDataSetTest, TheDemoIsATransientStrandWithAStaticGroundAndStreamtraces)
{
    loadDemoDataSet();
    const auto zones = vantix::host::zones();
    ASSERT_EQ(26u, zones.size());
    const std::size_t triangles = zones[0].elementCount; // every time step has the same mesh
    for (int zone = 1; zone <= 24; ++zone)
    {
        const ZoneInfo& info = zones[static_cast<std::size_t>(zone - 1)];
        EXPECT_EQ(std::make_tuple(zone, true, true, zone - 1.0, 1, triangles),
                  std::make_tuple(info.number, info.isSurface, info.hasScalar,
                                  VtxUtilZoneGetSolutionTime(zone), VtxUtilZoneGetStrandID(zone),
                                  info.elementCount));
    }
    // A static ground without the scalar, and static streamtraces.
    EXPECT_EQ(std::make_tuple(true, false, 0, false, 0),
              std::make_tuple(zones[24].isSurface, zones[24].hasScalar, VtxUtilZoneGetStrandID(25),
                              zones[25].isSurface, VtxUtilZoneGetStrandID(26)));
    EXPECT_GE(zones[25].elementCount, 10u);
    EXPECT_GT(triangles, 5000u);
    EXPECT_LT(triangles + zones[24].elementCount, 50000u) << "the demo must stay quick to draw";
    // Drawing hands the meshes over to the renderer; the host still knows their sizes.
    renderRegion(ExportRegion_CurrentFrame, 32, 24);
    EXPECT_EQ(triangles, vantix::host::zones()[0].elementCount);
    EXPECT_EQ(zones[24].nodeCount, vantix::host::zones()[24].nodeCount);

    // One time step at a time, with the static zones.
    EXPECT_THAT(shownZones(), ElementsAre(1, 25, 26));
    setSolutionTime(6.5);
    EXPECT_THAT(shownZones(), ElementsAre(7, 25, 26));
    EXPECT_LT(scalarRange()[0], scalarRange()[1]);
}

TEST_F(SceneDataSetTest, TheHostCountsSetsUntilTheyAreReleasedAndRefusesAForeignRelease)
{
    loadDataSet("one", {Triangle(0, 0)});
    Set_pa first = nullptr, second = nullptr, none = nullptr;
    ASSERT_TRUE(VtxUtilZoneGetEnabled(&first) && VtxUtilZoneGetEnabled(&second));
    EXPECT_EQ(std::make_pair(true, 2L), std::make_pair(first != second, outstandingSets()));
    Set_pa copy = first;
    VtxUtilSetDealloc(&first);
    EXPECT_EQ(std::make_tuple(Set_pa(nullptr), 1L, std::size_t(0)),
              std::make_tuple(first, outstandingSets(), hostErrors().size()));
    VtxUtilSetDealloc(&copy); // released twice
    VtxUtilSetDealloc(&none); // nothing to release
    EXPECT_EQ(0, VtxUtilSetGetNextMember(none, 0));
    EXPECT_EQ(1, outstandingSets());
    EXPECT_THAT(hostErrors(),
                ElementsAre("VtxUtilSetDealloc was given a set the host does not hold (released twice?)"));
    clearHostErrors();

    // A set left behind is counted until reset clears the state it belonged to.
    reset();
    EXPECT_EQ(0, outstandingSets());
    addFrame();
}

TEST_F(SceneDataSetTest, AZoneTheFrameDoesNotHaveAnswersZeroAndIsReported)
{
    Set_pa set = nullptr;
    EXPECT_EQ(std::make_tuple(FALSE, FALSE, false, true, true),
              std::make_tuple(VtxUtilDataSetIsAvailable(), VtxUtilZoneGetEnabled(&set), hasDataSet(),
                              zones().empty(), shownZones().empty()));
    EXPECT_EQ(nullptr, set);
    ExpectNoZone(1, "the active frame has no data set");

    loadDataSet("two", {Triangle(4.5, 3), Triangle(1, 0)});
    EXPECT_EQ(
        std::make_tuple(4.5, 3, 0),
        std::make_tuple(VtxUtilZoneGetSolutionTime(1), VtxUtilZoneGetStrandID(1), VtxUtilZoneGetStrandID(2)));
    for (const int zone : {0, -1, 3, 1000})
        ExpectNoZone(zone, "the data set has zones 1 to 2");
}

TEST_F(SceneDataSetTest, TheTimeShowsPerStrandTheLatestEnabledZoneNotAfterItAndTheSetHoldsTheEnabledOnes)
{
    // Strand 1 at 0, 1, 2 (given out of order), strand 2 at 0.5 and 1.5, and a static zone.
    loadDataSet("strands", {Triangle(1, 1), Triangle(0, 1), Triangle(2, 1), Triangle(1.5, 2),
                            Triangle(0.5, 2), Triangle(7, 0)});
    struct Case
    {
        double time;
        std::vector<int> enabled, shown;
    };
    const std::vector<int> all = {1, 2, 3, 4, 5, 6};
    const Case cases[] = {
        {-5.0, all, {2, 5, 6}}, // before every time: each strand's earliest
        {0.5, all, {2, 5, 6}},          {0.99, all, {2, 5, 6}},
        {1.0, all, {1, 5, 6}},          {1.5, all, {1, 4, 6}},
        {2.0, all, {3, 4, 6}},          {100.0, all, {3, 4, 6}},
        {1.0, {2, 3, 4, 5, 6}, {5, 6}}, // a disabled zone is not replaced by another step of its strand
        {1.0, {2, 3, 4, 5}, {5}},       {0.0, {2, 3, 4, 5}, {2, 5}},
        {1.0, {1, 3, 4, 6}, {1, 6}},    {1.0, {}, {}},
    };
    for (const Case& c : cases)
    {
        for (int zone = 1; zone <= 6; ++zone)
            setZoneEnabled(zone, std::count(c.enabled.begin(), c.enabled.end(), zone) == 1);
        setSolutionTime(c.time);
        EXPECT_THAT(shownZones(), ElementsAreArray(c.shown)) << "time " << c.time;
        EXPECT_THAT(EnabledZonesThroughTheSdk(), ElementsAreArray(c.enabled)) << "time " << c.time;
    }
    EXPECT_THROW_MSG(setZoneEnabled(7, false), std::out_of_range, "the data set has no zone 7");
}

TEST_F(SceneDataSetTest,
       LoadingGoesToTheEarliestTimeFitsTheViewKeepingTheAnglesAndSpansTheColoursOverEveryTime)
{
    const ViewState before = view();
    SurfaceZoneData box = Triangle(3, 1, 0, {1, 2, 3});
    box.nodes = {{0, 0, 0}, {4, 0, 0}, {4, 2, 6}}; // bounding box 0..4, 0..2, 0..6
    loadDataSet("box", {box, Triangle(5, 1, 0, {-4, 0, 0})});
    const ViewState after = view();
    EXPECT_EQ(3.0, solutionTime());
    EXPECT_THAT(scalarRange(), ElementsAre(-4.0, 3.0));
    EXPECT_EQ(
        std::make_tuple(2.0, 1.0, 3.0, before.psi, before.theta, before.alpha),
        std::make_tuple(after.originX, after.originY, after.originZ, after.psi, after.theta, after.alpha));

    // The viewer is on the view axis through the centre, outside the box.
    const std::vector<double> m = viewMatrix();
    const double d[3] = {after.x - after.originX, after.y - after.originY, after.z - after.originZ};
    const double distance = std::sqrt(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]);
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(m[6 + i] * distance, d[i], 1e-9);
    EXPECT_GT(distance, std::sqrt(4.0 * 4.0 + 2.0 * 2.0 + 6.0 * 6.0) / 2.0);

    // The width shows the whole box seen from the view, but not much more.
    const FramePlacement frame = framePlacement(activeFrame());
    double halfWidth = 0.0, halfHeight = 0.0;
    for (int corner = 0; corner < 8; ++corner)
    {
        const double p[3] = {corner & 1 ? 2.0 : -2.0, corner & 2 ? 1.0 : -1.0, corner & 4 ? 3.0 : -3.0};
        halfWidth = std::max(halfWidth, std::abs(m[0] * p[0] + m[1] * p[1] + m[2] * p[2]));
        halfHeight = std::max(halfHeight, std::abs(m[3] * p[0] + m[4] * p[1] + m[5] * p[2]));
    }
    const double needed = 2.0 * std::max(halfWidth, halfHeight * frame.width / frame.height);
    EXPECT_GE(after.width, needed);
    EXPECT_LE(after.width, 1.2 * needed);
}

TEST_F(SceneDataSetTest, ADataSetThatDoesNotFitTogetherIsRefusedAndOneThatDoesMakesAFrameWhenNeeded)
{
    const SurfaceZoneData badIndex{"t", 0, 0, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 3}}, {}};
    const StreamtraceZoneData badTimes{"s", 0, 0, {{{{0, 0, 0}, {1, 0, 0}}, {0.0}}}};
    const StreamtraceZoneData backwards{"s", 0, 0, {{{{0, 0, 0}, {1, 0, 0}}, {1.0, 0.0}}}};
    const std::pair<std::vector<ZoneData>, const char*> cases[] = {
        {{}, "a data set needs at least one zone"},
        {{badIndex}, "surface zone 't' refers to a node it does not have"},
        {{Triangle(0, 0, 0, {1, 2})}, "surface zone 't' has 2 scalar values for 3 nodes"},
        {{badTimes}, "streamtrace zone 's' has a line whose times do not match its points"},
        {{backwards}, "streamtrace zone 's' has a line whose times go backwards"},
    };
    for (const auto& c : cases)
    {
        EXPECT_THROW_MSG(loadDataSet("bad", c.first), std::invalid_argument, c.second);
        EXPECT_FALSE(VtxUtilDataSetIsAvailable()) << c.second;
    }
    // A page without a frame gets one for the data set.
    reset();
    loadDataSet("one", {Triangle(0, 0)});
    EXPECT_EQ(std::make_tuple(std::size_t(1), TRUE, PlotType_Cartesian3D),
              std::make_tuple(frameStack().size(), VtxUtilDataSetIsAvailable(), VtxUtilFrameGetPlotType()));
}

} // namespace
