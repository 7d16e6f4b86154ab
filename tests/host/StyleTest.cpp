// Style settings by name: the host's defaults, typed access, refusals, and the host's API over them.
#include "support/HostTest.h"

#include <vantix/toolbox/StyleValue.h>

#include <limits>
#include <stdexcept>

namespace
{

namespace host = vantix::host;
using host::StyleData;
using vantix::toolbox::StyleValue;
using StyleTest = testsupport::HostTest;

TEST_F(StyleTest, TheHostAnswersEveryPathWithItsDefault)
{
    const std::pair<std::vector<std::string>, StyleData> cases[] = {
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
    for (const auto& [path, value] : cases)
        EXPECT_EQ(value, host::style(path)) << path.back();

    // Through the toolbox, with names in any case, a Boolean as bool or as the SDK's Boolean.
    StyleValue lights("globalthreed", "LIGHTSOURCE");
    double intensity = 0;
    EXPECT_EQ(GetValueReturnCode_Ok,
              lights.getValue(&intensity, -1, -1, lights.initMacroIDsfromStyleValueNames("intensity")));
    StyleValue displayLists(vantix::toolbox::StringList{"Interface", "UseDisplayLists"});
    bool useLists = false;
    char useListsAsBoolean = 0;
    EXPECT_EQ(GetValueReturnCode_Ok,
              displayLists.getValue(&useLists, -1, -1, displayLists.initMacroIDsfromStyleValueNames()));
    EXPECT_EQ(GetValueReturnCode_Ok, displayLists.getValue(&useListsAsBoolean, -1, -1,
                                                           displayLists.initMacroIDsfromStyleValueNames()));
    EXPECT_EQ(std::make_tuple(75.0, true, char(TRUE)),
              std::make_tuple(intensity, useLists, useListsAsBoolean));
}

TEST_F(StyleTest, WritesAreTypedAndCheckedAndResetRestoresTheDefaults)
{
    StyleValue lights("GlobalThreeD", "LightSource");
    const auto intensity = lights.initMacroIDsfromStyleValueNames("Intensity");
    EXPECT_EQ(SetValueReturnCode_Ok, lights.setValue(40.0, nullptr, -1, -1, intensity));
    EXPECT_EQ(SetValueReturnCode_DuplicateValue, lights.setValue(40.0, nullptr, -1, -1, intensity));
    EXPECT_EQ(SetValueReturnCode_Ok,
              lights.setValue(10.0, nullptr, -1, -1, intensity, vantix::toolbox::AssignOp_PlusEquals));
    EXPECT_EQ(StyleData(50.0), host::style({"GlobalThreeD", "LightSource", "Intensity"}));

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
    EXPECT_EQ(StyleData(50.0), host::style({"GlobalThreeD", "LightSource", "Intensity"}));
    bool flag = false;
    EXPECT_EQ(GetValueReturnCode_InvalidType, lights.getValue(&flag, -1, -1, intensity));

    // Unknown names anywhere on the path; a node that is not a setting cannot be read.
    const auto unknownSetting = lights.initMacroIDsfromStyleValueNames("Brightness");
    EXPECT_FALSE(unknownSetting.isValid());
    double value = 0;
    EXPECT_EQ(GetValueReturnCode_InvalidName, lights.getValue(&value, -1, -1, unknownSetting));
    EXPECT_EQ(SetValueReturnCode_InvalidName, lights.setValue(1.0, nullptr, -1, -1, unknownSetting));
    StyleValue unknownBase("NoSuchStyle");
    EXPECT_EQ(GetValueReturnCode_InvalidName,
              unknownBase.getValue(&value, -1, -1, unknownBase.initMacroIDsfromStyleValueNames("Intensity")));
    EXPECT_FALSE(StyleValue("GlobalThreeD").initMacroIDsfromStyleValueNames("LightSource").isValid());
    EXPECT_THROW(host::setStyle({"GlobalThreeD", "LightSource"}, 1.0), std::invalid_argument);
    EXPECT_THROW(host::setStyle({"Interface", "UseDisplayLists"}, 1.0), std::invalid_argument);
    EXPECT_THROW(host::style({"Interface", "Nothing"}), std::invalid_argument);

    host::reset();
    EXPECT_EQ(StyleData(75.0), host::style({"GlobalThreeD", "LightSource", "Intensity"}));
}

} // namespace
