// Style settings by name: the host's defaults, typed access, refusals, and the host's API over them.
#include "support/HostTest.h"

#include <vantix/host/Host.h>
#include <vantix/toolbox/StyleValue.h>

#include <cmath>
#include <limits>
#include <stdexcept>

namespace
{

using testsupport::HostTest;
using vantix::host::StyleData;
using vantix::toolbox::StringList;
using vantix::toolbox::StyleValue;

class StyleTest : public HostTest
{
};

TEST_F(StyleTest, TheHostAnswersEveryPathWithItsDefault)
{
    struct Case
    {
        std::vector<std::string> path;
        StyleData value;
    };
    const Case cases[] = {
        {{"Interface", "UseDisplayLists"}, true},
        {{"GlobalThreeD", "LightSource", "Intensity"}, 75.0},
        {{"GlobalThreeD", "LightSource", "BackgroundLight"}, 25.0},
        {{"ThreeDAxis", "FrameAxis", "Show"}, true},
        {{"StreamAttributes", "StreamTiming", "TimeAnchor"}, 0.0},
        {{"StreamAttributes", "StreamTiming", "DeltaTime"}, 1.0},
        {{"StreamAttributes", "StreamTiming", "ShowMarkers"}, false},
        {{"StreamAttributes", "StreamTiming", "ShowDashes"}, false},
        {{"ThreeDView", "DrawInPerspective"}, false},
        {{"ThreeDView", "FieldOfView"}, 30.0},
        {{"GlobalThreeD", "RotateOrigin", "X"}, 0.0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.value, vantix::host::style(c.path)) << c.path.back();

    // Through the toolbox, with names in any case.
    StyleValue lights("globalthreed", "LIGHTSOURCE");
    double intensity = 0;
    EXPECT_EQ(GetValueReturnCode_Ok,
              lights.getValue(&intensity, -1, -1, lights.initMacroIDsfromStyleValueNames("intensity")));
    EXPECT_EQ(75.0, intensity);

    StyleValue displayLists(StringList{"Interface", "UseDisplayLists"});
    bool useLists = false;
    char useListsAsBoolean = 0;
    EXPECT_EQ(GetValueReturnCode_Ok,
              displayLists.getValue(&useLists, -1, -1, displayLists.initMacroIDsfromStyleValueNames()));
    EXPECT_EQ(GetValueReturnCode_Ok, displayLists.getValue(&useListsAsBoolean, -1, -1,
                                                           displayLists.initMacroIDsfromStyleValueNames()));
    EXPECT_TRUE(useLists);
    EXPECT_EQ(TRUE, useListsAsBoolean);
}

TEST_F(StyleTest, WritesAreTypedAndCheckedAndResetRestoresTheDefaults)
{
    StyleValue lights("GlobalThreeD", "LightSource");
    const auto intensity = lights.initMacroIDsfromStyleValueNames("Intensity");
    EXPECT_EQ(SetValueReturnCode_Ok, lights.setValue(40.0, nullptr, -1, -1, intensity));
    EXPECT_EQ(SetValueReturnCode_DuplicateValue, lights.setValue(40.0, nullptr, -1, -1, intensity));
    EXPECT_EQ(SetValueReturnCode_Ok,
              lights.setValue(10.0, nullptr, -1, -1, intensity, vantix::toolbox::AssignOp_PlusEquals));
    EXPECT_EQ(StyleData(50.0), vantix::host::style({"GlobalThreeD", "LightSource", "Intensity"}));

    // Refusals leave the value alone.
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(SetValueReturnCode_InvalidValue, lights.setValue(notANumber, nullptr, -1, -1, intensity));
    EXPECT_EQ(SetValueReturnCode_InvalidValue,
              lights.setValue(0.0, nullptr, -1, -1, intensity, vantix::toolbox::AssignOp_DivideEquals));
    EXPECT_EQ(SetValueReturnCode_InvalidType, lights.setValue(true, nullptr, -1, -1, intensity));
    EXPECT_EQ(SetValueReturnCode_InvalidType, lights.setValue(3, nullptr, -1, -1, intensity));
    EXPECT_EQ(SetValueReturnCode_ContextError, lights.setValue(1.0, nullptr, 0, -1, intensity));
    int dummySet = 0;
    EXPECT_EQ(SetValueReturnCode_ContextError,
              lights.setValue(1.0, reinterpret_cast<Set_pa>(&dummySet), -1, -1, intensity));
    EXPECT_EQ(StyleData(50.0), vantix::host::style({"GlobalThreeD", "LightSource", "Intensity"}));

    bool flag = false;
    EXPECT_EQ(GetValueReturnCode_InvalidType, lights.getValue(&flag, -1, -1, intensity));

    // Unknown names anywhere on the path.
    const auto unknownSetting = lights.initMacroIDsfromStyleValueNames("Brightness");
    EXPECT_FALSE(unknownSetting.isValid());
    double value = 0;
    EXPECT_EQ(GetValueReturnCode_InvalidName, lights.getValue(&value, -1, -1, unknownSetting));
    EXPECT_EQ(SetValueReturnCode_InvalidName, lights.setValue(1.0, nullptr, -1, -1, unknownSetting));
    StyleValue unknownBase("NoSuchStyle");
    EXPECT_EQ(GetValueReturnCode_InvalidName,
              unknownBase.getValue(&value, -1, -1, unknownBase.initMacroIDsfromStyleValueNames("Intensity")));
    // A node that is not a setting cannot be read.
    StyleValue global("GlobalThreeD");
    EXPECT_FALSE(global.initMacroIDsfromStyleValueNames("LightSource").isValid());

    EXPECT_THROW(vantix::host::setStyle({"GlobalThreeD", "LightSource"}, 1.0), std::invalid_argument);
    EXPECT_THROW(vantix::host::setStyle({"Interface", "UseDisplayLists"}, 1.0), std::invalid_argument);
    EXPECT_THROW(vantix::host::style({"Interface", "Nothing"}), std::invalid_argument);

    vantix::host::reset();
    EXPECT_EQ(StyleData(75.0), vantix::host::style({"GlobalThreeD", "LightSource", "Intensity"}));
    m_frame = vantix::host::addFrame();
}

TEST_F(StyleTest, WritesAreTracedByPath)
{
    vantix::host::setTracing(true);
    StyleValue timing("StreamAttributes", "StreamTiming");
    timing.setValue(2.5, nullptr, -1, -1, timing.initMacroIDsfromStyleValueNames("TimeAnchor"));
    VtxUtilRedraw(TRUE);
    EXPECT_THAT(
        vantix::host::trace(),
        ::testing::ElementsAre("StyleValue.set StreamAttributes/StreamTiming/TimeAnchor", "VtxUtilRedraw"));
    EXPECT_EQ(1, vantix::host::callCount("VtxUtilRedraw"));
    EXPECT_EQ(0, vantix::host::callCount("VtxUtilViewRotate3D"));
    EXPECT_THROW(vantix::host::callCount("VtxUtilNoSuchFunction"), std::invalid_argument);
}

} // namespace
