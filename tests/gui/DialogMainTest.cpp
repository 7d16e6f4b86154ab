// The main dialog as a user meets it: the sensitivity of its controls for every kind of selection, the
// selected key frame's fields, the options and destination it shows, closing and relaunching, and help.
// Closing itself when the active frame stops being 3D is in the add-on's workflow test.
//
// The layout of all three dialogs and of the main dialog's menu bar, every control with its kind, label,
// place, callback and tooltip, is checked against the reference tests/gui/reference/dialog_layouts.txt (one
// line per element, indented under the element it is in; the format is in GuiDescription.h). The reference
// was checked line by line against the dialogs' layout tables when it was written; with
// VANTIX_UPDATE_REFERENCE_LAYOUTS set the test writes it anew instead.
#include "gui/DialogExportOptions.h"

#include <support/GuiDescription.h>
#include <support/MainDialogTest.h>
#include <support/TempFolder.h>

#include <cstdlib>
#include <filesystem>

using namespace vantix::vtxutiltools;
using namespace vantix::host;
using ::testing::ElementsAre;
using testsupport::DialogMainTest;

namespace
{

// Apply, Update and the name; Delete, Insert and the frame count; Animate Selected; Clear; Animate All;
// capturing and the destination, for the key frames and the selection; then the name and frame count shown.
TEST_F(DialogMainTest, SensitivityAndFieldsFollowTheListAndTheSelection)
{
    const std::tuple<unsigned long, std::vector<int>, std::string> cases[] = {
        {0, {}, "000001"},  {1, {}, "000101"},     {1, {1}, "110101"},       {3, {}, "000111"},
        {3, {2}, "110111"}, {3, {1, 3}, "011111"}, {3, {1, 2, 3}, "011111"},
    };
    // clang-format off
    const std::vector<std::vector<int>> groups = {{Apply_BTN_D1, Update_BTN_D1, ViewName_TF_D1, ViewName_LBL_D1},
        {Delete_BTN_D1, InsertKeyFrame_BTN_D1, FrameCount_LBL_D1, FrameCount_TF_D1}, {AnimateSelected_BTN_D1},
        {Clear_BTN_D1}, {AnimateAll_BTN_D1}, {AppendKeyFrame_BTN_D1, Destination_OPT_D1, LBL3_LBL_D1}};
    // clang-format on
    for (const auto& [keyFrames, selected, sensitive] : cases)
    {
        dialog().applyDataModel(ListModelKeyFrame());
        ShowKeyFrames(std::vector<unsigned long>(keyFrames, 5), selected);
        EXPECT_EQ(sensitive, Sensitivities(groups))
            << keyFrames << " key frames, " << selected.size() << " selected";
    }
    // The first selected name, and the frame count only when the selection shares it.
    dialog().applyDataModel(ListModelKeyFrame());
    ShowKeyFrames({10, 20, 10, 0}, {});
    const std::tuple<std::vector<int>, std::string, std::string> fields[] = {
        {{1, 2}, "K0", ""},
        {{1, 3}, "K0", "10"},
        {{4}, "K3", "1"}, // a count the field cannot hold: the nearest one it can
        {{}, "K3", "1"},  // nothing selected: the fields keep what they show
    };
    for (const auto& [positions, name, frameCount] : fields)
    {
        selectListItems(KeyFrameList_MLST_D1, positions);
        runOnIdleUntilEmpty();
        EXPECT_EQ(
            (std::vector<std::string>{name, frameCount}),
            (std::vector<std::string>{guiElement(ViewName_TF_D1).text, guiElement(FrameCount_TF_D1).text}));
    }
}

TEST_F(DialogMainTest, HelpsAndIsBuiltOnceKeepingKeyFramesSettingsAndDestinationAcrossCloseAndRelaunch)
{
    pressHelp(Dialog1Manager);                                               // the add-on's own page
    EXPECT_EQ(std::make_pair(std::string("key_frame_animation.html"), true), // shipped with the add-on
              std::make_pair(helpRequests().at(0).page, helpRequests().at(0).found));
    const GuiElement main = guiElement(Dialog1Manager);
    const std::size_t dialogCount = dialogs().size();
    ShowKeyFrames({10, 20}, {2});
    chooseOption(Destination_OPT_D1, 2);
    EXPECT_EQ(ToFile, dialog().settings().destination);
    chooseMenuItem(MenuEntry("Fade &In"));
    pressClose(Dialog1Manager);

    // While the dialog is down, its list is left alone; it is rebuilt when the dialog comes up.
    dialog().keyFrameModel().setName(0, "Renamed");
    EXPECT_EQ("K0", guiElement(KeyFrameList_MLST_D1).items[0]);
    DialogMain::launch();
    runOnIdleUntilEmpty();
    EXPECT_THAT(guiElement(KeyFrameList_MLST_D1).items, ElementsAre("Renamed", "K1"));
    EXPECT_EQ(std::make_tuple(dialogCount, main.children, main.launchCount + 1),
              std::make_tuple(dialogs().size(), guiElement(Dialog1Manager).children,
                              guiElement(Dialog1Manager).launchCount));
    EXPECT_EQ(2, guiElement(Destination_OPT_D1).choice);
    EXPECT_TRUE(guiElement(MenuEntry("Fade &In")).on);

    // The "&Options" toggles show the settings handed over.
    Settings_s settings;
    settings.fadeOut = settings.animateStreamtraces = true;
    dialog().applySettings(settings);
    EXPECT_EQ(
        (std::vector<bool>{false, true, false, true}),
        (std::vector<bool>{guiElement(MenuEntry("Animate &Time Concurrently")).on,
                           guiElement(MenuEntry("Animate &Streamtraces Concurrently")).on,
                           guiElement(MenuEntry("Fade &In")).on, guiElement(MenuEntry("Fade &Out")).on}));
}

TEST_F(DialogMainTest, AllDialogsAreLaidOutAsTheReferenceShows)
{
    chooseMenuItem(MenuEntry("Time &Animation Options..."));
    pressCancel(Dialog3Manager);
    DialogExportOptions::launch([] {});
    // The dimensions shown are those of the active frame on screen.
    chooseOption(Region_OPT_D2, 1);
    chooseRadioButton(Width_RADIO_D2, 1);
    const std::string layout = testsupport::DescribeTree(Dialog1Manager) +
                               testsupport::DescribeTree(Dialog2Manager) +
                               testsupport::DescribeTree(Dialog3Manager);
    pressCancel(Dialog2Manager);

    const std::filesystem::path reference =
        std::filesystem::path(__FILE__).parent_path() / "reference" / "dialog_layouts.txt";
    if (std::getenv("VANTIX_UPDATE_REFERENCE_LAYOUTS"))
        testsupport::WriteFile(reference, layout);
    EXPECT_EQ(testsupport::ReadFile(reference), layout);
}

} // namespace
