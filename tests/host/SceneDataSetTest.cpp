// Data sets through the SDK and the host's API: zones, their times, strands and enabled flags, zone sets
// and their release, the zones a solution time shows, and fitting the view on loading.
#include "support/HostTest.h"

#include <VtxUtil.h>
#include <vantix/host/Host.h>
#include <vantix/host/Scene.h>

#include <cmath>
#include <stdexcept>

namespace
{

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testsupport::HostTest;
using vantix::host::StreamtraceZoneData;
using vantix::host::SurfaceZoneData;
using vantix::host::ZoneData;

// A triangle in the plane z = height, as a zone of a strand at a time.
SurfaceZoneData Triangle(double time, int strand, double height = 0.0, std::vector<double> scalar = {})
{
    SurfaceZoneData zone;
    zone.name = "triangle at " + std::to_string(time);
    zone.solutionTime = time;
    zone.strandId = strand;
    zone.nodes = {{0, 0, height}, {1, 0, height}, {0, 1, height}};
    zone.triangles = {{0, 1, 2}};
    zone.scalar = std::move(scalar);
    return zone;
}

std::vector<int> EnabledZonesThroughTheSdk()
{
    Set_pa set = nullptr;
    EXPECT_TRUE(VtxUtilZoneGetEnabled(&set));
    std::vector<int> members;
    for (LgIndex_t member = VtxUtilSetGetNextMember(set, 0); member != 0;
         member = VtxUtilSetGetNextMember(set, member))
        members.push_back(static_cast<int>(member));
    VtxUtilSetDealloc(&set);
    EXPECT_EQ(nullptr, set);
    return members;
}

class SceneDataSetTest : public HostTest
{
};

TEST_F(SceneDataSetTest, AFrameWithoutADataSetHasNoZones)
{
    EXPECT_FALSE(VtxUtilDataSetIsAvailable());
    Set_pa set = nullptr;
    EXPECT_FALSE(VtxUtilZoneGetEnabled(&set));
    EXPECT_EQ(nullptr, set);
    EXPECT_EQ(0, vantix::host::outstandingSets());
    EXPECT_THAT(vantix::host::zones(), IsEmpty());
    EXPECT_FALSE(vantix::host::hasDataSet());

    EXPECT_EQ(0.0, VtxUtilZoneGetSolutionTime(1));
    EXPECT_EQ(0, VtxUtilZoneGetStrandID(1));
    EXPECT_THAT(vantix::host::hostErrors(),
                ElementsAre(HasSubstr("the active frame has no data set"), HasSubstr("no data set")));
    vantix::host::clearHostErrors();
}

TEST_F(SceneDataSetTest, TheDemoIsATransientStrandWithAStaticGroundAndStreamtraces)
{
    vantix::host::loadDemoDataSet();
    EXPECT_TRUE(VtxUtilDataSetIsAvailable());
    const auto zones = vantix::host::zones();
    ASSERT_EQ(26u, zones.size());
    std::size_t triangles = 0;
    for (int step = 0; step < 24; ++step)
    {
        const auto& zone = zones[static_cast<std::size_t>(step)];
        EXPECT_EQ(step + 1, zone.number);
        EXPECT_TRUE(zone.isSurface);
        EXPECT_TRUE(zone.hasScalar);
        EXPECT_EQ(step, VtxUtilZoneGetSolutionTime(step + 1));
        EXPECT_EQ(1, VtxUtilZoneGetStrandID(step + 1));
        EXPECT_EQ(zones[0].elementCount, zone.elementCount) << "every step has the same mesh";
        triangles = zone.elementCount;
    }
    EXPECT_TRUE(zones[24].isSurface);
    EXPECT_FALSE(zones[24].hasScalar);
    EXPECT_EQ(0, VtxUtilZoneGetStrandID(25));
    EXPECT_FALSE(zones[25].isSurface);
    EXPECT_EQ(0, VtxUtilZoneGetStrandID(26));
    EXPECT_GE(zones[25].elementCount, 10u);
    EXPECT_GT(triangles, 5000u);
    EXPECT_LT(triangles + zones[24].elementCount, 50000u) << "the demo must stay quick to draw";

    // One time step at a time, with the static zones.
    EXPECT_THAT(vantix::host::shownZones(), ElementsAre(1, 25, 26));
    vantix::host::setSolutionTime(6.5);
    EXPECT_THAT(vantix::host::shownZones(), ElementsAre(7, 25, 26));
    const auto range = vantix::host::scalarRange();
    EXPECT_LT(range[0], range[1]);
}

TEST_F(SceneDataSetTest, TheEnabledSetHoldsExactlyTheEnabledZones)
{
    vantix::host::loadDataSet(
        "five", {Triangle(0, 1), Triangle(1, 1), Triangle(2, 1), Triangle(0, 0), Triangle(3, 1)});
    struct Case
    {
        std::vector<int> disabled;
        std::vector<int> expected;
    };
    const Case cases[] = {
        {{}, {1, 2, 3, 4, 5}},
        {{2, 5}, {1, 3, 4}},
        {{1}, {2, 3, 4, 5}},
        {{1, 2, 3, 4, 5}, {}},
    };
    for (const Case& c : cases)
    {
        for (int zone = 1; zone <= 5; ++zone)
            vantix::host::setZoneEnabled(zone, true);
        for (const int zone : c.disabled)
            vantix::host::setZoneEnabled(zone, false);
        EXPECT_THAT(EnabledZonesThroughTheSdk(), ElementsAreArray(c.expected));
        EXPECT_EQ(0, vantix::host::outstandingSets());
    }
    EXPECT_THROW(vantix::host::setZoneEnabled(6, false), std::out_of_range);
}

TEST_F(SceneDataSetTest, TheHostCountsSetsUntilTheyAreReleasedAndRefusesAForeignRelease)
{
    vantix::host::loadDataSet("one", {Triangle(0, 0)});
    Set_pa first = nullptr, second = nullptr;
    ASSERT_TRUE(VtxUtilZoneGetEnabled(&first));
    ASSERT_TRUE(VtxUtilZoneGetEnabled(&second));
    EXPECT_NE(first, second);
    EXPECT_EQ(2, vantix::host::outstandingSets());

    Set_pa copy = first;
    VtxUtilSetDealloc(&first);
    EXPECT_EQ(nullptr, first);
    EXPECT_EQ(1, vantix::host::outstandingSets());
    EXPECT_THAT(vantix::host::hostErrors(), IsEmpty());

    VtxUtilSetDealloc(&copy); // released twice
    EXPECT_EQ(1, vantix::host::outstandingSets());
    EXPECT_THAT(vantix::host::hostErrors(), ElementsAre(HasSubstr("does not hold")));
    vantix::host::clearHostErrors();

    Set_pa none = nullptr;
    VtxUtilSetDealloc(&none);
    EXPECT_EQ(0, VtxUtilSetGetNextMember(none, 0));
    VtxUtilSetDealloc(&second);
    EXPECT_EQ(0, vantix::host::outstandingSets());

    // A set left behind is counted until reset clears the state it belonged to.
    Set_pa leaked = nullptr;
    ASSERT_TRUE(VtxUtilZoneGetEnabled(&leaked));
    EXPECT_EQ(1, vantix::host::outstandingSets());
    vantix::host::reset();
    EXPECT_EQ(0, vantix::host::outstandingSets());
    vantix::host::addFrame();
}

TEST_F(SceneDataSetTest, AZoneNumberOutOfRangeAnswersZeroAndIsReported)
{
    vantix::host::loadDataSet("two", {Triangle(4.5, 3), Triangle(1, 0)});
    EXPECT_EQ(4.5, VtxUtilZoneGetSolutionTime(1));
    EXPECT_EQ(3, VtxUtilZoneGetStrandID(1));
    EXPECT_EQ(0, VtxUtilZoneGetStrandID(2));
    EXPECT_THAT(vantix::host::hostErrors(), IsEmpty());

    for (const EntIndex_t zone : {0, -1, 3, 1000})
    {
        EXPECT_EQ(0.0, VtxUtilZoneGetSolutionTime(zone)) << zone;
        EXPECT_EQ(0, VtxUtilZoneGetStrandID(zone)) << zone;
        const auto errors = vantix::host::hostErrors();
        ASSERT_EQ(2u, errors.size()) << zone;
        EXPECT_THAT(errors[0],
                    HasSubstr("VtxUtilZoneGetSolutionTime was asked for zone " + std::to_string(zone)));
        EXPECT_THAT(errors[1], HasSubstr("the data set has zones 1 to 2"));
        vantix::host::clearHostErrors();
    }
}

TEST_F(SceneDataSetTest, TheSolutionTimeShowsPerStrandTheLatestZoneNotAfterIt)
{
    // Strand 1 at 0, 1, 2 (given out of order), strand 2 at 0.5 and 1.5, and a static zone.
    vantix::host::loadDataSet("strands", {Triangle(1, 1), Triangle(0, 1), Triangle(2, 1), Triangle(1.5, 2),
                                          Triangle(0.5, 2), Triangle(7, 0)});
    struct Case
    {
        double time;
        std::vector<int> shown;
    };
    const Case cases[] = {
        {-5.0, {2, 5, 6}}, // before every time: each strand's earliest
        {0.0, {2, 5, 6}},  {0.49, {2, 5, 6}}, {0.5, {2, 5, 6}}, {0.99, {2, 5, 6}},
        {1.0, {1, 5, 6}},  {1.5, {1, 4, 6}},  {2.0, {3, 4, 6}}, {100.0, {3, 4, 6}},
    };
    for (const Case& c : cases)
    {
        vantix::host::setSolutionTime(c.time);
        EXPECT_THAT(vantix::host::shownZones(), ElementsAreArray(c.shown)) << "time " << c.time;
    }
}

TEST_F(SceneDataSetTest, ADisabledZoneIsNeverShownNorReplacedByAnotherStep)
{
    vantix::host::loadDataSet("steps", {Triangle(0, 1), Triangle(1, 1), Triangle(0, 0)});
    vantix::host::setSolutionTime(1.0);
    EXPECT_THAT(vantix::host::shownZones(), ElementsAre(2, 3));
    vantix::host::setZoneEnabled(2, false);
    EXPECT_THAT(vantix::host::shownZones(), ElementsAre(3));
    vantix::host::setZoneEnabled(3, false);
    EXPECT_THAT(vantix::host::shownZones(), IsEmpty());
    vantix::host::setSolutionTime(0.0);
    EXPECT_THAT(vantix::host::shownZones(), ElementsAre(1));
}

TEST_F(SceneDataSetTest, LoadingCentresTheRotationOriginAndFitsTheViewKeepingTheAngles)
{
    vantix::host::ViewState before = vantix::host::view();
    SurfaceZoneData box = Triangle(3, 1, 2.0);
    box.nodes = {{0, 0, 0}, {4, 0, 0}, {4, 2, 6}}; // bounding box 0..4, 0..2, 0..6
    vantix::host::loadDataSet("box", {box, Triangle(5, 1)});
    const vantix::host::ViewState after = vantix::host::view();

    EXPECT_EQ(3.0, vantix::host::solutionTime()) << "the earliest zone time";
    EXPECT_DOUBLE_EQ(2.0, after.originX);
    EXPECT_DOUBLE_EQ(1.0, after.originY);
    EXPECT_DOUBLE_EQ(3.0, after.originZ);
    EXPECT_EQ(before.psi, after.psi);
    EXPECT_EQ(before.theta, after.theta);
    EXPECT_EQ(before.alpha, after.alpha);

    // The viewer is on the view axis through the centre, outside the box.
    const std::vector<double> m = vantix::host::viewMatrix();
    const double d[3] = {after.x - after.originX, after.y - after.originY, after.z - after.originZ};
    const double distance = std::sqrt(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]);
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(m[6 + i] * distance, d[i], 1e-9);
    EXPECT_GT(distance, std::sqrt(4.0 * 4.0 + 2.0 * 2.0 + 6.0 * 6.0) / 2.0);

    // The width shows the whole box seen from the view, but not much more.
    const vantix::host::FramePlacement frame = vantix::host::framePlacement(vantix::host::activeFrame());
    const double aspect = frame.width / frame.height;
    double halfWidth = 0.0, halfHeight = 0.0;
    for (int corner = 0; corner < 8; ++corner)
    {
        const double p[3] = {corner & 1 ? 2.0 : -2.0, corner & 2 ? 1.0 : -1.0, corner & 4 ? 3.0 : -3.0};
        halfWidth = std::max(halfWidth, std::abs(m[0] * p[0] + m[1] * p[1] + m[2] * p[2]));
        halfHeight = std::max(halfHeight, std::abs(m[3] * p[0] + m[4] * p[1] + m[5] * p[2]));
    }
    const double needed = 2.0 * std::max(halfWidth, halfHeight * aspect);
    EXPECT_GE(after.width, needed);
    EXPECT_LE(after.width, 1.2 * needed);
}

TEST_F(SceneDataSetTest, LoadingMakesAFrameWhenThePageHasNone)
{
    vantix::host::reset();
    vantix::host::loadDataSet("one", {Triangle(0, 0)});
    ASSERT_EQ(1u, vantix::host::frameStack().size());
    EXPECT_TRUE(VtxUtilDataSetIsAvailable());
    EXPECT_EQ(PlotType_Cartesian3D, VtxUtilFrameGetPlotType());
}

TEST_F(SceneDataSetTest, TheScalarRangeSpansEveryTimeStep)
{
    vantix::host::loadDataSet("range",
                              {Triangle(0, 1, 0, {1, 2, 3}), Triangle(1, 1, 0, {-4, 0, 0}), Triangle(0, 0)});
    EXPECT_THAT(vantix::host::scalarRange(), ElementsAre(-4.0, 3.0));
}

TEST_F(SceneDataSetTest, ADataSetThatDoesNotFitTogetherIsRefused)
{
    SurfaceZoneData badIndex = Triangle(0, 0);
    badIndex.triangles = {{0, 1, 3}};
    SurfaceZoneData badScalar = Triangle(0, 0, 0, {1, 2});
    StreamtraceZoneData badTimes;
    badTimes.lines = {{{{0, 0, 0}, {1, 0, 0}}, {0.0}}};
    StreamtraceZoneData backwards;
    backwards.lines = {{{{0, 0, 0}, {1, 0, 0}}, {1.0, 0.0}}};
    struct Case
    {
        std::vector<ZoneData> zones;
        const char* reason;
    };
    const Case cases[] = {
        {{}, "at least one zone"},
        {{badIndex}, "refers to a node it does not have"},
        {{badScalar}, "2 scalar values for 3 nodes"},
        {{badTimes}, "times do not match its points"},
        {{backwards}, "times go backwards"},
    };
    for (const Case& c : cases)
    {
        try
        {
            vantix::host::loadDataSet("bad", c.zones);
            ADD_FAILURE() << "accepted: " << c.reason;
        }
        catch (const std::invalid_argument& error)
        {
            EXPECT_THAT(error.what(), HasSubstr(c.reason));
        }
        EXPECT_FALSE(VtxUtilDataSetIsAvailable()) << c.reason;
    }
}

} // namespace
