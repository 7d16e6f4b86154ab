// The current file of a dialog and the file prompts: the names it keeps and gives extensions to, the
// questions about another extension and about overwriting, and what a cancel or a No leaves alone.
#include "document/CurrentFileManager.h"

#include <support/AddOnTest.h>
#include <support/TempFolder.h>

#include <VtxUtil.h>
#include <vantix/host/Gui.h>
#include <vantix/host/Host.h>

#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

namespace
{

std::string ExtensionQuestion(const std::string& name)
{
    return "You have specified an extension other than the default file extension\n"
           "Are you sure you want to save the file as " +
           name + "\nClick \"No\" to restore the default file extension.";
}

std::string OverwriteQuestion(const std::string& name)
{
    return "The file: " + name + " exists.\nAre you sure you want to overwrite it?";
}

std::vector<std::string> Questions()
{
    std::vector<std::string> questions;
    for (const vantix::host::UserMessage& message : vantix::host::userMessages())
        if (message.kind == vantix::host::UserMessage::Kind::MessageBox)
        {
            EXPECT_EQ(MessageBoxType_YesNo, message.boxType);
            questions.push_back(message.text);
        }
    return questions;
}

class CurrentFileManagerTest : public testsupport::AddOnTest
{
protected:
    std::string path(const std::string& name) const { return (m_folder.path() / name).string(); }

    testsupport::TempFolder m_folder;
    CurrentFileManager m_manager{"animation", "keyframe", "Key Frame Animation"};
};

} // namespace

TEST_F(CurrentFileManagerTest, StartsWithTheDefaultNameGivenItsExtensionAndNothingSelected)
{
    EXPECT_EQ("animation.keyframe", m_manager.fileName());
    EXPECT_EQ("keyframe", m_manager.extension());
    EXPECT_FALSE(m_manager.fileHasBeenSelected());
    // The last dot of the whole name starts the extension, even one in a directory name.
    for (const auto& [given, expected] :
         std::vector<std::pair<std::string, std::string>>{{"run1", "run1.keyframe"},
                                                          {"run1.", "run1.keyframe"},
                                                          {"run1.txt", "run1.keyframe"},
                                                          {"a.b/run", "a.keyframe"}})
        EXPECT_EQ(expected, CurrentFileManager(given, "keyframe", "").fileName()) << given;
}

TEST_F(CurrentFileManagerTest, FileNameExtensionIsWhatFollowsTheLastDot)
{
    for (const auto& [name, extension] : std::vector<std::pair<std::string, std::string>>{
             {"animation", ""}, {"animation.", ""}, {"a.b/run", "b/run"}, {"x.tar.gz", "gz"}, {".kf", "kf"}})
        EXPECT_EQ(extension, getFileNameExtension(name)) << name;
}

TEST_F(CurrentFileManagerTest, SetFileNameKeepsANameWithAnExtensionAndMakesItTheDefault)
{
    m_manager.setFileName("run2");
    EXPECT_EQ("run2.keyframe", m_manager.fileName());
    m_manager.setFileName("data.kf");
    EXPECT_EQ("data.kf", m_manager.fileName());
    EXPECT_EQ("kf", m_manager.extension());
    m_manager.setFileName("run3.");
    EXPECT_EQ("run3.kf", m_manager.fileName());
    m_manager.setExtension("keyframe");
    EXPECT_EQ("run3.keyframe", m_manager.fileName());
    EXPECT_FALSE(m_manager.fileHasBeenSelected());

    m_manager.setExtension("kf");
    EXPECT_FALSE(m_manager.promptForFile(SelectFileOption_ReadSingleFile)); // no one chooses: cancel
    const vantix::host::UserMessage dialog = vantix::host::userMessages().at(0);
    EXPECT_EQ(SelectFileOption_ReadSingleFile, dialog.fileOption);
    EXPECT_EQ("Key Frame Animation", dialog.fileTypeName);
    EXPECT_EQ("run3.kf", dialog.defaultFileName);
    EXPECT_EQ("*.kf", dialog.filter);
}

TEST_F(CurrentFileManagerTest, PromptGivesTheDefaultExtensionAndAsksAboutOthersAndOverwriting)
{
    testsupport::WriteFile(path("old.keyframe"), "#!KeyFrame 1\n");
    testsupport::WriteFile(path("old.txt"), "text\n");
    const struct
    {
        SelectFileOption_e option;
        std::string chosen; // empty: the user cancels
        std::vector<bool> answers;
        bool result;
        std::string fileName;
        std::vector<std::string> questions;
    } cases[] = {
        {SelectFileOption_WriteFile, "", {}, false, "", {}}, // cancelled
        {SelectFileOption_WriteFile, "run1", {}, true, "run1.keyframe", {}},
        {SelectFileOption_WriteFile, "run1.", {}, true, "run1.keyframe", {}},
        {SelectFileOption_WriteFile,
         "run1.KEYFRAME",
         {false},
         true,
         "run1.keyframe",
         {ExtensionQuestion(path("run1.KEYFRAME"))}},
        {SelectFileOption_WriteFile,
         "run1.txt",
         {true},
         true,
         "run1.txt",
         {ExtensionQuestion(path("run1.txt"))}},
        {SelectFileOption_WriteFile, "old", {false}, false, "", {OverwriteQuestion(path("old.keyframe"))}},
        {SelectFileOption_WriteFile,
         "old.keyframe",
         {true},
         true,
         "old.keyframe",
         {OverwriteQuestion(path("old.keyframe"))}},
        {SelectFileOption_WriteFile,
         "old.txt",
         {false, false},
         false,
         "",
         {ExtensionQuestion(path("old.txt")), OverwriteQuestion(path("old.keyframe"))}},
        {SelectFileOption_ReadSingleFile, "old.keyframe", {}, true, "old.keyframe", {}},
        {SelectFileOption_ReadSingleFile,
         "old.txt",
         {true},
         true,
         "old.txt",
         {ExtensionQuestion(path("old.txt"))}},
    };
    for (const auto& c : cases)
    {
        vantix::host::clearUserMessages();
        CurrentFileManager manager("animation", "keyframe", "Key Frame Animation");
        if (c.chosen.empty())
            vantix::host::scriptFileCancel();
        else
            vantix::host::scriptFileName(path(c.chosen));
        for (const bool answer : c.answers)
            vantix::host::scriptAnswer(answer);

        EXPECT_EQ(c.result, manager.promptForFile(c.option)) << c.chosen;

        EXPECT_EQ(c.result ? path(c.fileName) : "animation.keyframe", manager.fileName()) << c.chosen;
        EXPECT_EQ(c.result, manager.fileHasBeenSelected()) << c.chosen;
        EXPECT_THAT(Questions(), ElementsAreArray(c.questions)) << c.chosen;
        EXPECT_EQ(0u, vantix::host::pendingScriptedAnswers()) << c.chosen;
    }
}

TEST_F(CurrentFileManagerTest, HoldsTheHostLockThroughThePromptAndTakesItAgainForEachQuestion)
{
    testsupport::WriteFile(path("old.txt"), "text\n");
    vantix::host::scriptFileName(path("old.txt"));
    vantix::host::scriptAnswer(true);
    vantix::host::scriptAnswer(true);
    vantix::host::setTracing(true);
    EXPECT_TRUE(m_manager.promptForFile(SelectFileOption_WriteFile));
    EXPECT_THAT(vantix::host::trace(),
                ElementsAre("VtxUtilLockStart", "VtxUtilDialogGetFileName", "VtxUtilStringDealloc",
                            "VtxUtilLockStart", "VtxUtilDialogMessageBox", "VtxUtilLockFinish",
                            "VtxUtilLockStart", "VtxUtilDialogMessageBox", "VtxUtilLockFinish",
                            "VtxUtilLockFinish"));
}

TEST_F(CurrentFileManagerTest, OverwriteIsAskedOnlyForAFileThatExists)
{
    testsupport::WriteFile(path("old.keyframe"), "");
    EXPECT_TRUE(fileExists(path("old.keyframe")));
    EXPECT_FALSE(fileExists(path("new.keyframe")));
    EXPECT_TRUE(promptForFileOverwrite(path("new.keyframe")));
    vantix::host::scriptAnswer(true);
    EXPECT_TRUE(promptForFileOverwrite(path("old.keyframe")));
    EXPECT_FALSE(promptForFileOverwrite(path("old.keyframe"))); // no one answers: No
    EXPECT_THAT(Questions(), ElementsAre(OverwriteQuestion(path("old.keyframe")),
                                         OverwriteQuestion(path("old.keyframe"))));
}
