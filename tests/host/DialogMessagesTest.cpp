// The host's messages, questions and file dialogs: scripted answers, the defaults for an absent user, the
// log and standard error, host strings; and help pages.
#include "support/HostTest.h"
#include "support/TempFolder.h"

#include <VtxUtil.h>
#include <vantix/host/Gui.h>
#include <vantix/host/Host.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace
{

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using testsupport::HostTest;
using testsupport::ReadFile;
using testsupport::TempFolder;
using testsupport::WriteFile;
using vantix::host::UserMessage;

class DialogMessagesTest : public HostTest
{
protected:
    // The file dialog as the add-on's current file manager calls it, with the name released.
    static std::optional<std::string> AskForFile(SelectFileOption_e option)
    {
        char* name = reinterpret_cast<char*>(&option); // must be overwritten
        const Boolean chosen = VtxUtilDialogGetFileName(option, &name, "Key Frame Animation",
                                                        "animation.keyframe", "*.keyframe");
        std::optional<std::string> result;
        if (chosen)
        {
            EXPECT_NE(nullptr, name);
            result = name;
            EXPECT_EQ(1, vantix::host::outstandingHostStrings());
            VtxUtilStringDealloc(&name);
        }
        else
            EXPECT_EQ(nullptr, name);
        EXPECT_EQ(0, vantix::host::outstandingHostStrings());
        return result;
    }
};

TEST_F(DialogMessagesTest, ErrorMessagesAreLoggedInOrder)
{
    VtxUtilDialogErrMsg("No Key Frames established.");
    VtxUtilDialogErrMsg("Selected items must be a continuous range.");
    EXPECT_THAT(vantix::host::errorMessages(),
                ElementsAre("No Key Frames established.", "Selected items must be a continuous range."));
    const auto log = vantix::host::userMessages();
    ASSERT_THAT(log, SizeIs(2));
    EXPECT_EQ(UserMessage::Kind::ErrorMessage, log[0].kind);
    vantix::host::clearUserMessages();
    EXPECT_THAT(vantix::host::userMessages(), IsEmpty());
    EXPECT_EQ(2, vantix::host::callCount("VtxUtilDialogErrMsg"));
}

TEST_F(DialogMessagesTest, MessageBoxesAnswerFromTheScriptOrAsTheAbsentUserWould)
{
    const struct
    {
        MessageBoxType_e type;
        std::optional<bool> scripted;
        bool answer;
    } cases[] = {
        {MessageBoxType_Information, std::nullopt, true},
        {MessageBoxType_Warning, std::nullopt, true},
        {MessageBoxType_Error, std::nullopt, true},
        {MessageBoxType_YesNo, true, true},
        {MessageBoxType_YesNo, false, false},
        {MessageBoxType_YesNo, std::nullopt, false},
        {MessageBoxType_Question, true, true},
        {MessageBoxType_Question, std::nullopt, false},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(std::to_string(c.type) + (c.scripted ? (*c.scripted ? " yes" : " no") : " unscripted"));
        vantix::host::clearUserMessages();
        if (c.scripted)
            vantix::host::scriptAnswer(*c.scripted);
        EXPECT_EQ(c.answer, bool(VtxUtilDialogMessageBox("Are you sure?", c.type)));
        const auto log = vantix::host::userMessages();
        ASSERT_THAT(log, SizeIs(1));
        EXPECT_EQ(UserMessage::Kind::MessageBox, log[0].kind);
        EXPECT_EQ("Are you sure?", log[0].text);
        EXPECT_EQ(c.type, log[0].boxType);
        EXPECT_EQ(c.answer, log[0].answer);
        EXPECT_EQ(c.scripted.has_value(), log[0].scripted);
        EXPECT_EQ(0u, vantix::host::pendingScriptedAnswers());
    }
}

TEST_F(DialogMessagesTest, NoticesDoNotUseTheScriptedAnswers)
{
    vantix::host::scriptAnswer(false);
    vantix::host::scriptAnswer(true);
    EXPECT_TRUE(
        VtxUtilDialogMessageBox("The current data set is not transient.", MessageBoxType_Information));
    EXPECT_EQ(2u, vantix::host::pendingScriptedAnswers());
    EXPECT_FALSE(VtxUtilDialogMessageBox("Overwrite?", MessageBoxType_YesNo));
    EXPECT_TRUE(VtxUtilDialogMessageBox("Keep the extension?", MessageBoxType_YesNo));
    EXPECT_EQ(0u, vantix::host::pendingScriptedAnswers());
}

TEST_F(DialogMessagesTest, FileDialogsHandBackTheScriptedNamesInHostStrings)
{
    vantix::host::scriptFileName("/tmp/run1");
    vantix::host::scriptFileCancel();
    vantix::host::scriptFileName("with blanks and 'quotes'.keyframe");
    vantix::host::scriptAnswer(true); // questions have their own script
    EXPECT_EQ(4u, vantix::host::pendingScriptedAnswers());

    EXPECT_EQ(std::optional<std::string>("/tmp/run1"), AskForFile(SelectFileOption_WriteFile));
    EXPECT_EQ(std::nullopt, AskForFile(SelectFileOption_ReadSingleFile));
    EXPECT_EQ(std::optional<std::string>("with blanks and 'quotes'.keyframe"),
              AskForFile(SelectFileOption_ReadSingleFile));
    EXPECT_EQ(std::nullopt, AskForFile(SelectFileOption_WriteFile))
        << "nothing scripted: the user is not there";
    EXPECT_EQ(1u, vantix::host::pendingScriptedAnswers());

    const auto log = vantix::host::userMessages();
    ASSERT_THAT(log, SizeIs(4));
    const struct
    {
        SelectFileOption_e option;
        bool answer, scripted;
        std::string fileName;
    } expected[] = {
        {SelectFileOption_WriteFile, true, true, "/tmp/run1"},
        {SelectFileOption_ReadSingleFile, false, true, ""},
        {SelectFileOption_ReadSingleFile, true, true, "with blanks and 'quotes'.keyframe"},
        {SelectFileOption_WriteFile, false, false, ""},
    };
    for (std::size_t i = 0; i < log.size(); ++i)
    {
        SCOPED_TRACE(i);
        EXPECT_EQ(UserMessage::Kind::FileDialog, log[i].kind);
        EXPECT_EQ(expected[i].option, log[i].fileOption);
        EXPECT_EQ(expected[i].answer, log[i].answer);
        EXPECT_EQ(expected[i].scripted, log[i].scripted);
        EXPECT_EQ(expected[i].fileName, log[i].fileName);
        EXPECT_EQ("Key Frame Animation", log[i].fileTypeName);
        EXPECT_EQ("animation.keyframe", log[i].defaultFileName);
        EXPECT_EQ("*.keyframe", log[i].filter);
    }
}

TEST_F(DialogMessagesTest, AResetForgetsTheScriptAndTheLog)
{
    vantix::host::scriptAnswer(true);
    vantix::host::scriptFileName("x");
    VtxUtilDialogErrMsg("old");
    vantix::host::reset();
    vantix::host::addFrame();
    EXPECT_EQ(0u, vantix::host::pendingScriptedAnswers());
    EXPECT_THAT(vantix::host::userMessages(), IsEmpty());
    EXPECT_FALSE(VtxUtilDialogMessageBox("Yes?", MessageBoxType_YesNo));
}

TEST_F(DialogMessagesTest, EveryMessageAndAnswerIsWrittenToStandardError)
{
    vantix::host::scriptAnswer(true);
    vantix::host::scriptFileName("out.avi");
    testing::internal::CaptureStderr();
    VtxUtilDialogErrMsg("Invalid input.\nInput must be a number.");
    VtxUtilDialogMessageBox("Neither markers nor dashes.", MessageBoxType_Information);
    VtxUtilDialogMessageBox("Overwrite it?", MessageBoxType_YesNo);
    VtxUtilDialogMessageBox("Go on?", MessageBoxType_Question);
    char* name = nullptr;
    VtxUtilDialogGetFileName(SelectFileOption_WriteFile, &name, "Movie", "export.avi", "*.avi");
    VtxUtilStringDealloc(&name);
    VtxUtilDialogGetFileName(SelectFileOption_ReadSingleFile, &name, "Movie", "export.avi", "*.avi");
    EXPECT_EQ(
        "vantix: error: Invalid input.\n"
        "    Input must be a number.\n"
        "vantix: note: Neither markers nor dashes.\n"
        "vantix: question: Overwrite it?\n"
        "    answered Yes\n"
        "vantix: question: Go on?\n"
        "    answered Cancel (no one to answer)\n"
        "vantix: file dialog (write) for Movie files *.avi, offering \"export.avi\": chose \"out.avi\"\n"
        "vantix: file dialog (read) for Movie files *.avi, offering \"export.avi\": cancelled (no one to "
        "answer)\n",
        testing::internal::GetCapturedStderr());
}

TEST_F(DialogMessagesTest, MisusedMessagesAreReported)
{
    char* name = nullptr;
    const struct
    {
        const char* what;
        std::function<void()> misuse;
        std::string error;
    } cases[] = {
        {"null error message", [] { VtxUtilDialogErrMsg(nullptr); },
         "VtxUtilDialogErrMsg was given no message (null)"},
        {"null message box",
         [] { EXPECT_FALSE(VtxUtilDialogMessageBox(nullptr, MessageBoxType_Information)); },
         "VtxUtilDialogMessageBox was given no message (null)"},
        {"unknown box type", [] { EXPECT_FALSE(VtxUtilDialogMessageBox("x", MessageBoxType_e(7))); },
         "VtxUtilDialogMessageBox was given the unknown message box type 7"},
        {"unknown file option",
         [&] { EXPECT_FALSE(VtxUtilDialogGetFileName(SelectFileOption_e(1), &name, "", "", "")); },
         "VtxUtilDialogGetFileName was given the unknown file dialog option 1"},
        {"nowhere to put the name",
         [] { EXPECT_FALSE(VtxUtilDialogGetFileName(SelectFileOption_WriteFile, nullptr, "", "", "")); },
         "VtxUtilDialogGetFileName was given nowhere to put the file name"},
        {"no help page", [] { EXPECT_FALSE(VtxUtilHelp(nullptr, FALSE, 0)); },
         "VtxUtilHelp was given no help page"},
    };
    vantix::host::scriptFileName("unused");
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.what);
        c.misuse();
        EXPECT_THAT(vantix::host::hostErrors(), ElementsAre(c.error));
        vantix::host::clearHostErrors();
    }
    EXPECT_THAT(vantix::host::userMessages(), IsEmpty()) << "nothing refused is shown";
    EXPECT_EQ(1u, vantix::host::pendingScriptedAnswers()) << "nor does it use the script";
    EXPECT_EQ(nullptr, name);
}

TEST_F(DialogMessagesTest, HelpPagesAreFoundInTheHelpFolderAndToldWhereTheyAre)
{
    const TempFolder folder("vantix-help");
    WriteFile(folder.path() / "key_frame_animation.html", "<html></html>");
    const std::string defaultFolder = vantix::host::helpFolder();
    EXPECT_EQ((fs::path(__FILE__).parent_path() / ".." / ".." / "docs" / "help").lexically_normal().string(),
              defaultFolder);
    vantix::host::setHelpFolder(folder.path().string());

    const struct
    {
        const char* page;
        Boolean isURL;
        bool found;
        std::string location;
        std::string told;
    } cases[] = {
        {"key_frame_animation.html", FALSE, true, (folder.path() / "key_frame_animation.html").string(),
         "vantix: help: key_frame_animation.html is at " +
             (folder.path() / "key_frame_animation.html").string()},
        {"export_options.html", FALSE, false, (folder.path() / "export_options.html").string(),
         "vantix: help: there is no help page export_options.html in " + folder.path().string()},
        {"https://example.org/help", TRUE, true, "https://example.org/help",
         "vantix: help: https://example.org/help is at https://example.org/help"},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.page);
        testing::internal::CaptureStderr();
        EXPECT_EQ(c.found, bool(VtxUtilHelp(c.page, c.isURL, 0)));
        EXPECT_EQ(c.told + "\n", testing::internal::GetCapturedStderr());
        const auto requests = vantix::host::helpRequests();
        ASSERT_FALSE(requests.empty());
        EXPECT_EQ(c.page, requests.back().page);
        EXPECT_EQ(bool(c.isURL), requests.back().isURL);
        EXPECT_EQ(c.location, requests.back().location);
        EXPECT_EQ(c.found, requests.back().found);
        EXPECT_FALSE(requests.back().opened) << "a reset host never starts a browser";
    }
    EXPECT_THAT(vantix::host::helpRequests(), SizeIs(3));

    vantix::host::reset();
    EXPECT_EQ(defaultFolder, vantix::host::helpFolder());
    EXPECT_THAT(vantix::host::helpRequests(), IsEmpty());
}

TEST_F(DialogMessagesTest, WhereABrowserIsAllowedTheBrowserIsStartedOnThePage)
{
    const TempFolder folder("vantix-browser");
    const fs::path page = folder.path() / "time_animation_options.html";
    const fs::path opened = folder.path() / "opened";
    const fs::path browser = folder.path() / "browser";
    WriteFile(page, "<html></html>");
    WriteFile(browser, "#!/bin/sh\necho \"$1\" > '" + opened.string() + ".tmp' && mv '" + opened.string() +
                           ".tmp' '" + opened.string() + "'\n");
    fs::permissions(browser, fs::perms::owner_all);
    const char* before = std::getenv("BROWSER");
    const std::string saved = before ? before : "";
    ::setenv("BROWSER", browser.c_str(), 1);
    vantix::host::setHelpFolder(folder.path().string());
    vantix::host::setHelpBrowserAllowed(true);

    testing::internal::CaptureStderr();
    EXPECT_TRUE(VtxUtilHelp("time_animation_options.html", FALSE, 0));
    EXPECT_EQ("", testing::internal::GetCapturedStderr()) << "an opened page needs no telling";
    EXPECT_FALSE(VtxUtilHelp("missing.html", FALSE, 0)) << "a missing page starts no browser";
    const auto requests = vantix::host::helpRequests();
    ASSERT_THAT(requests, SizeIs(2));
    EXPECT_TRUE(requests[0].opened);
    EXPECT_FALSE(requests[1].opened);

    // The browser runs on its own; wait for it a while.
    for (int i = 0; i < 100 && !fs::exists(opened); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(page.string() + "\n", ReadFile(opened));

    if (before)
        ::setenv("BROWSER", saved.c_str(), 1);
    else
        ::unsetenv("BROWSER");
}

} // namespace
