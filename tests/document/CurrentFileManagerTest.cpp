// The current file of a dialog and the file prompts: the names it keeps and gives extensions to, the
// questions about another extension and about overwriting, and what a cancel or a No leaves alone.
#include "document/CurrentFileManager.h"

#include <support/AddOnTest.h>
#include <support/TempFolder.h>

#include <array>

using namespace vantix::vtxutiltools;
using Texts = std::vector<std::string>;

namespace
{

class CurrentFileManagerTest : public testsupport::AddOnTest
{
protected:
    std::string path(const std::string& name) const { return (m_folder.path() / name).string(); }

    testsupport::TempFolder m_folder;
    CurrentFileManager m_manager{"animation", "keyframe", "Key Frame Animation"};
};

} // namespace

TEST_F(CurrentFileManagerTest, TheExtensionFollowsTheLastDotOfTheWholeNameAndANameWithoutOneGetsTheDefault)
{
    EXPECT_EQ("animation.keyframe", m_manager.fileName());
    // clang-format off
    for (const auto& [name, extension, given] : std::vector<std::array<std::string, 3>>{
        {"run1", "", "run1.keyframe"}, {"run1.", "", "run1.keyframe"}, {"x.tar.gz", "gz", "x.tar.keyframe"},
        {"run1.txt", "txt", "run1.keyframe"}, {"a.b/run", "b/run", "a.keyframe"}, {".kf", "kf", ".keyframe"}})
    // clang-format on
    {
        EXPECT_EQ(extension, getFileNameExtension(name)) << name;
        EXPECT_EQ(given, CurrentFileManager(name, "keyframe", "").fileName()) << name;
    }
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
    EXPECT_EQ(std::make_tuple(SelectFileOption_ReadSingleFile, "Key Frame Animation", "run3.kf", "*.kf"),
              std::make_tuple(dialog.fileOption, dialog.fileTypeName, dialog.defaultFileName, dialog.filter));
}

TEST_F(CurrentFileManagerTest, PromptGivesTheDefaultExtensionAndAsksAboutOthersAndOverwriting)
{
    testsupport::WriteFile(path("old.keyframe"), "#!KeyFrame 1\n");
    testsupport::WriteFile(path("old.txt"), "text\n");
    const auto extension = [&](const std::string& name)
    {
        return "You have specified an extension other than the default file extension\n"
               "Are you sure you want to save the file as " +
               path(name) + "\nClick \"No\" to restore the default file extension.";
    };
    const auto overwrite = [&](const std::string& name)
    { return "The file: " + path(name) + " exists.\nAre you sure you want to overwrite it?"; };
    const SelectFileOption_e write = SelectFileOption_WriteFile, read = SelectFileOption_ReadSingleFile;
    // chosen: "" when the user cancels; fileName: "" when nothing is chosen and the current file stays.
    // clang-format off
    for (const auto& [option, chosen, answers, fileName, questions] :
         std::vector<std::tuple<SelectFileOption_e, std::string, std::vector<bool>, std::string, Texts>>{
             {write, "", {}, "", {}},
             {write, "run1", {}, "run1.keyframe", {}},
             {write, "run1.KEYFRAME", {false}, "run1.keyframe", {extension("run1.KEYFRAME")}},
             {write, "run1.txt", {true}, "run1.txt", {extension("run1.txt")}},
             {write, "old", {false}, "", {overwrite("old.keyframe")}},
             {write, "old.keyframe", {true}, "old.keyframe", {overwrite("old.keyframe")}},
             {write, "old.txt", {false, false}, "", {extension("old.txt"), overwrite("old.keyframe")}},
             // Unanswered, a question is answered No.
             {write, "old.keyframe", {}, "", {overwrite("old.keyframe")}},
             {read, "old.keyframe", {}, "old.keyframe", {}},
             {read, "old.txt", {true}, "old.txt", {extension("old.txt")}}})
    // clang-format on
    {
        SCOPED_TRACE(chosen);
        vantix::host::clearUserMessages();
        CurrentFileManager manager("animation", "keyframe", "Key Frame Animation");
        if (chosen.empty())
            vantix::host::scriptFileCancel();
        else
            vantix::host::scriptFileName(path(chosen));
        for (const bool answer : answers)
            vantix::host::scriptAnswer(answer);

        EXPECT_EQ(!fileName.empty(), manager.promptForFile(option));
        EXPECT_EQ(fileName.empty() ? "animation.keyframe" : path(fileName), manager.fileName());
        EXPECT_EQ(!fileName.empty(), manager.fileHasBeenSelected());
        Texts asked;
        for (const vantix::host::UserMessage& message : vantix::host::userMessages())
            if (message.kind == vantix::host::UserMessage::Kind::MessageBox &&
                message.boxType == MessageBoxType_YesNo)
                asked.push_back(message.text);
        EXPECT_EQ(questions, asked);
        EXPECT_EQ(0u, vantix::host::pendingScriptedAnswers());
    }
}
