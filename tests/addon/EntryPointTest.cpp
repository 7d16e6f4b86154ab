// The add-on as the host loads it: its option in the host's "Animate" menu, usable exactly while the active
// frame is a 3D Cartesian plot with data, kept so through one update per burst of state changes.
#include <support/MainDialogTest.h>

#include <vantix/host/Events.h>
#include <vantix/host/Scene.h>

#include <algorithm>

using namespace vantix::host;

namespace
{

class EntryPointTest : public testsupport::DialogMainTest
{
protected:
    static HostMenuOption Option()
    {
        const std::vector<HostMenuOption> options = hostMenuOptions();
        const auto option =
            std::find_if(options.begin(), options.end(),
                         [](const HostMenuOption& o) { return o.label == "&Key Frame Animation..."; });
        EXPECT_NE(options.end(), option);
        return option == options.end() ? HostMenuOption() : *option;
    }
};

TEST_F(EntryPointTest, TheMenuOptionIsUsableOnA3DFrameWithData)
{
    EXPECT_EQ("Animate", Option().menu);
    runOnIdleUntilEmpty();
    EXPECT_FALSE(Option().sensitive) << "no data";
    loadDemoDataSet();
    runOnIdleUntilEmpty();
    EXPECT_TRUE(Option().sensitive);
    setPlotType(PlotType_Cartesian2D);
    runOnIdleUntilEmpty();
    EXPECT_FALSE(Option().sensitive);
    setPlotType(PlotType_Cartesian3D);
    runOnIdleUntilEmpty();
    EXPECT_FALSE(DialogMain::isVisible()) << "closed when the frame stopped being 3D";
    chooseHostMenuOption("Animate", "Key Frame Animation...");
    EXPECT_TRUE(DialogMain::isVisible());
    deleteFrame(m_frame);
    runOnIdleUntilEmpty();
    EXPECT_FALSE(Option().sensitive) << "no frame";
    addFrame();
}

TEST_F(EntryPointTest, OnlyTheChangesThatMatterQueueOneUpdatePerBurst)
{
    runOnIdleUntilEmpty();
    for (const int code : {0, 1, 4, 10, 43, 45, 49, 52})
        raiseStateChange(static_cast<StateChange_e>(code));
    EXPECT_EQ(0u, pendingOnIdleCalls());
    for (const StateChange_e code : {StateChange_ZonesDeleted, StateChange_DataSetLoaded})
    {
        for (int i = 0; i < 10; ++i)
            raiseStateChange(code);
        EXPECT_EQ(1u, pendingOnIdleCalls()) << code;
        runOnIdleUntilEmpty();
    }
}

} // namespace
