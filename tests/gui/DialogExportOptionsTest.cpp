// The export options dialog launched over the main dialog, driven as its user drives it: its layout, what
// it shows of the host's export setup, its sensitivities and image size, what OK writes and records, the
// ways out that apply nothing, and the host lock it holds while it is up.
#include "gui/DialogExportOptions.h"

#include <support/MainDialogTest.h>
#include <support/TempFolder.h>

using namespace vantix::host;
using ::testing::IsEmpty;
using vantix::vtxutiltools::AddOnID;
using Texts = std::vector<std::string>;
using Ints = std::vector<int>;

namespace
{

// The host's export settings, in the order the dialog's OK test reads them.
// clang-format off
const char* const SetupNames[] = {"ExportFormat", "AVICompression", "FlashImageType", "FlashCompressionType",
    "UseSuperSampleAntiAliasing", "SuperSampleFactor", "ExportRegion", "ImageWidth", "AnimationSpeed", "ExportFName"};
// clang-format on

class DialogExportOptionsTest : public testsupport::DialogMainTest
{
protected:
    void SetUp() override
    {
        DialogMainTest::SetUp();
        setPixelsPerInch(100.0);
        setFramePlacement(m_frame, {1.0, 1.0, 10.0, 6.67}); // 1000 x 667 pixels
        Relaunch();
        // The dialog keeps the width choice and the entered width from one launch to the next.
        chooseRadioButton(Width_RADIO_D2, 2);
        enterText(Width_TF_D2, "640");
    }

    void TearDown() override
    {
        Relaunch(false);
        DialogMainTest::TearDown();
    }

    void Relaunch(bool launch = true)
    {
        if (Dialog2Manager != GuiId_None && guiElement(Dialog2Manager).up)
            pressCancel(Dialog2Manager);
        if (launch)
            DialogExportOptions::launch([this] { m_lockDepthsInAction.push_back(lockDepth(AddOnID)); });
    }

    static void SetToggle(bool on)
    {
        if (guiElement(Antialiasing_TOG_D2).on != on)
            clickToggle(Antialiasing_TOG_D2);
    }

    // A field's text or a label, or the entry or button chosen.
    static std::string Shown(int control)
    {
        const GuiElement e = guiElement(control);
        return e.kind == GuiKind::TextField ? e.text
               : e.kind == GuiKind::Label   ? e.label
                                            : std::to_string(e.choice);
    }

    std::vector<int> m_lockDepthsInAction; // one per run of the action
};

// The format, the width choice and antialiasing grey out what they leave unused: the AVI compression, the
// Flash options, the width field, the animation speed and the supersample factor, in this order. The image
// size shown is the region's, or the entered width with the region's aspect. The dialog shows the host's
// export setup within its bounds. Help, Cancel, closing and a cancelled file prompt apply nothing and run
// nothing.
TEST_F(DialogExportOptionsTest, GreysOutUnusedChoicesShowsTheSetupAndImageSizeAndLeavesWithoutApplying)
{
    setFramePlacement(addFrame(PlotType_Cartesian3D), {0.5, 2.0, 4.0, 6.0}); // both: 10.5 x 7 inches
    activateFrame(m_frame);
    // clang-format off
    const std::vector<Ints> groups = {{AVICompression_LBL_D2, AVICompression_OPT_D2},
        {ImageType_LBL_D2, ImageType_OPT_D2, Optimization_RADIO_D2}, {Width_TF_D2},
        {AnimationSpeed_TF_D2, AnimationSpeed_LBL_D2}, {SupersampleFactor_LBL_D2, SupersampleFactor_TF_D2}};
    // clang-format on
    const std::tuple<int, int, bool, int, std::string, std::string> cases[] = {
        {1, 1, false, 1, "10010", "Dimensions: 1000 x 667"},
        {2, 2, true, 1, "00111", "Dimensions: 640 x 426"},
        {3, 1, true, 2, "01011", "Dimensions: 1050 x 700"},
        {5, 1, false, 3, "00000", "Dimensions: 1100 x 850"},
        {6, 2, true, 3, "00111", "Dimensions: 640 x 494"},
    };
    for (const auto& [format, widthChoice, antialiasing, region, sensitive, dimensions] : cases)
    {
        chooseOption(Format_OPT_D2, format);
        chooseRadioButton(Width_RADIO_D2, widthChoice);
        SetToggle(antialiasing);
        chooseOption(Region_OPT_D2, region);
        // The dialog's own lock is held, as before every callback.
        EXPECT_EQ(std::make_tuple(sensitive, dimensions, 1),
                  std::make_tuple(Sensitivities(groups), Shown(ImageDimensions_LBL_D2), lockDepth(AddOnID)));
    }
    // The same dialog comes up again, and, as the host's export setup has no region until OK, with the
    // region chosen.
    const std::pair<Ints, std::size_t> before(guiElement(Dialog2Manager).children, dialogs().size());
    Relaunch();
    EXPECT_EQ(before, std::make_pair(guiElement(Dialog2Manager).children, dialogs().size()));
    EXPECT_EQ(3, guiElement(Region_OPT_D2).choice);
    // A width out of bounds is refused and the field shows the last good one; the other fields' bounds show
    // in what the dialog makes of the host's export setup when it comes up.
    EXPECT_TRUE(enterText(Width_TF_D2, "3"));
    EXPECT_EQ((Texts{"Invalid input. Input must be a number between 4 and 32766.", "640"}),
              (Texts{errorMessages().back(), Shown(Width_TF_D2)}));

    const std::tuple<std::string, StyleData, int, std::string> setups[] = {
        {"AnimationSpeed", 0.37, AnimationSpeed_TF_D2, "0.37"},
        {"SuperSampleFactor", 1, SupersampleFactor_TF_D2, "2"},
        {"ExportFormat", 22, Format_OPT_D2, "6"},
        {"AVICompression", 2, AVICompression_OPT_D2, "2"},
        {"AVICompression", 0, AVICompression_OPT_D2, "2"}, // not offered either
        {"FlashImageType", 1, ImageType_OPT_D2, "2"},
        {"FlashCompressionType", 1, Optimization_RADIO_D2, "2"},
        {"FlashCompressionType", 0, Optimization_RADIO_D2, "1"},
    };
    for (const auto& [setting, value, control, shown] : setups)
    {
        setStyle({"ExportSetup", setting}, value);
        Relaunch();
        EXPECT_EQ(shown, Shown(control)) << setting;
    }

    pressHelp(Dialog2Manager);
    EXPECT_EQ("export_options.html", helpRequests().back().page);
    setMacroRecording(true);
    Relaunch();
    scriptFileCancel();
    pressOk(Dialog2Manager);
    EXPECT_EQ((Ints{1, 1}), (Ints{guiElement(Dialog2Manager).up, lockDepth(AddOnID)}));
    pressCancel(Dialog2Manager);
    EXPECT_EQ((Ints{0, 0}), (Ints{guiElement(Dialog2Manager).up, lockDepth(AddOnID)}));
    Relaunch();
    closeDialog(Dialog2Manager);
    EXPECT_EQ((Ints{0, 0}), (Ints{guiElement(Dialog2Manager).up, lockDepth(AddOnID)}));
    EXPECT_THAT(m_lockDepthsInAction, IsEmpty());
    EXPECT_EQ(0, callCount("VtxUtilExportSetup"));
    EXPECT_THAT(recordedMacroLines(), IsEmpty());
}

TEST_F(DialogExportOptionsTest, OkWritesEveryChoiceToTheExportSetupRecordsItAndRunsTheActionUnlocked)
{
    const testsupport::TempFolder folder;
    // Format, extension and keyword, recording and antialiasing; the host's format, AVI compression, Flash
    // image type and Flash compression afterwards, and the lines recorded for the format's own options.
    const std::tuple<int, std::string, std::string, bool, bool, Ints, Texts> cases[] = {
        // clang-format off
        {1, "avi", "AVI", true, true, {14, 2, 0, 0}, {"AVICompression = LOSSLESSUNCOMPRESSED"}},
        {2, "flv", "FLV", true, false, {20, 0, 0, 0}, {}},
        {3, "swf", "FLASH", true, true, {17, 0, 2, 1}, {"FlashImageType = 256COLOR", "FlashCompressionType = SMALLESTSIZE"}},
        {4, "mp4", "MPEG4", false, true, {21, 0, 0, 0}, {}},
        {6, "wmv", "WMV", true, true, {22, 0, 0, 0}, {}},
        // clang-format on
    };
    for (const auto& [format, extension, keyword, recording, antialiasing, values, formatLines] : cases)
    {
        // Every field can be typed into with AVI and antialiasing, and the format's options start at 0.
        const StyleData preset[] = {14, 0, 0, 0, true, 3};
        for (std::size_t i = 0; i < std::size(preset); ++i)
            setStyle({"ExportSetup", SetupNames[i]}, preset[i]);
        Relaunch();
        enterText(AnimationSpeed_TF_D2, "12.5");
        enterText(SupersampleFactor_TF_D2, "5");
        chooseOption(AVICompression_OPT_D2, 2);
        chooseOption(Format_OPT_D2, 3); // Flash (SWF): its options can be chosen
        chooseOption(ImageType_OPT_D2, 3);
        chooseRadioButton(Optimization_RADIO_D2, 2);
        chooseOption(Format_OPT_D2, format);
        chooseOption(Region_OPT_D2, 3);
        SetToggle(antialiasing);
        setMacroRecording(recording);
        const std::size_t linesBefore = recordedMacroLines().size();
        const std::string file = (folder.path() / ("my export." + extension)).string();
        scriptFileName(file);
        pressOk(Dialog2Manager);

        EXPECT_EQ("*." + extension, userMessages().back().filter);
        EXPECT_FALSE(guiElement(Dialog2Manager).up);
        Texts expected = {"ExportFormat = " + keyword};
        expected.insert(expected.end(), formatLines.begin(), formatLines.end());
        expected.insert(expected.end(),
                        {"ExportRegion = WORKAREA", "ImageWidth = 640", "AnimationSpeed = 12.5",
                         "UseSuperSampleAntiAliasing = " + Texts{"false", "true"}[antialiasing]});
        if (antialiasing)
            expected.push_back("SuperSampleFactor = 5");
        expected.push_back("ExportFName = \"" + file + "\"");
        for (std::string& line : expected)
            line = "$!EXPORTSETUP " + line;
        const Texts lines = recordedMacroLines();
        EXPECT_EQ(recording ? expected : Texts{}, Texts(lines.begin() + linesBefore, lines.end()));

        std::vector<StyleData> setup, expectedSetup(values.begin(), values.end());
        expectedSetup.insert(expectedSetup.end(), {antialiasing, antialiasing ? 5 : 3, 2, 640, 12.5, file});
        for (const char* name : SetupNames)
            setup.push_back(style({"ExportSetup", name}));
        EXPECT_EQ(expectedSetup, setup) << keyword;
    }
    EXPECT_EQ(Ints(std::size(cases), 0), m_lockDepthsInAction);
}

} // namespace
