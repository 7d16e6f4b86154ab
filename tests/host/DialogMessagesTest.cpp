// The host's messages, questions and file dialogs: scripted answers, the defaults for an absent user, the
// log and standard error, host strings; and help pages.
#include "support/HostTest.h"
#include "support/TempFolder.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <thread>

namespace
{

namespace fs = std::filesystem;
namespace host = vantix::host;
using namespace ::testing;
using testsupport::TempFolder;
using testsupport::WriteFile;
using Kind = vantix::host::UserMessage::Kind;

class DialogMessagesTest : public testsupport::HostTest
{
protected:
    // The file dialog as the add-on's current file manager calls it, with the name released.
    static std::optional<std::string> AskForFile(SelectFileOption_e option)
    {
        char* name = reinterpret_cast<char*>(&option); // must be overwritten
        std::optional<std::string> chosen;
        if (VtxUtilDialogGetFileName(option, &name, "Key Frame Animation", "animation.keyframe",
                                     "*.keyframe"))
            chosen = name;
        EXPECT_EQ(chosen.has_value(), host::outstandingHostStrings() == 1);
        EXPECT_EQ(chosen.has_value(), name != nullptr);
        VtxUtilStringDealloc(&name);
        return chosen;
    }
};

TEST_F(DialogMessagesTest, ErrorMessagesAreLoggedInOrder)
{
    VtxUtilDialogErrMsg("No Key Frames established.");
    VtxUtilDialogErrMsg("Selected items must be a continuous range.");
    EXPECT_THAT(host::errorMessages(),
                ElementsAre("No Key Frames established.", "Selected items must be a continuous range."));
    EXPECT_EQ(Kind::ErrorMessage, host::userMessages().at(0).kind);
    host::clearUserMessages();
    EXPECT_THAT(host::userMessages(), IsEmpty());
    EXPECT_EQ(2, host::callCount("VtxUtilDialogErrMsg"));
}

TEST_F(DialogMessagesTest, MessageBoxesAnswerFromTheScriptOrAsTheAbsentUserWould)
{
    const std::tuple<MessageBoxType_e, std::optional<bool>, bool> cases[] = {
        {MessageBoxType_Information, std::nullopt, true},
        {MessageBoxType_Warning, std::nullopt, true},
        {MessageBoxType_Error, std::nullopt, true},
        {MessageBoxType_YesNo, true, true},
        {MessageBoxType_YesNo, false, false},
        {MessageBoxType_YesNo, std::nullopt, false},
        {MessageBoxType_Question, true, true},
        {MessageBoxType_Question, std::nullopt, false},
    };
    for (const auto& [type, scripted, answer] : cases)
    {
        host::clearUserMessages();
        if (scripted)
            host::scriptAnswer(*scripted);
        EXPECT_EQ(answer, bool(VtxUtilDialogMessageBox("Are you sure?", type)));
        ASSERT_THAT(host::userMessages(), SizeIs(1));
        const host::UserMessage m = host::userMessages()[0];
        EXPECT_EQ(std::make_tuple(Kind::MessageBox, std::string("Are you sure?"), type, answer,
                                  scripted.has_value()),
                  std::make_tuple(m.kind, m.text, m.boxType, m.answer, m.scripted))
            << type;
        EXPECT_EQ(0u, host::pendingScriptedAnswers());
    }
}

TEST_F(DialogMessagesTest, NoticesDoNotUseTheScriptedAnswers)
{
    host::scriptAnswer(false);
    host::scriptAnswer(true);
    EXPECT_TRUE(
        VtxUtilDialogMessageBox("The current data set is not transient.", MessageBoxType_Information));
    EXPECT_EQ(2u, host::pendingScriptedAnswers());
    EXPECT_FALSE(VtxUtilDialogMessageBox("Overwrite?", MessageBoxType_YesNo));
    EXPECT_TRUE(VtxUtilDialogMessageBox("Keep the extension?", MessageBoxType_YesNo));
    EXPECT_EQ(0u, host::pendingScriptedAnswers());
}

TEST_F(DialogMessagesTest, FileDialogsHandBackTheScriptedNamesInHostStrings)
{
    host::scriptFileName("/tmp/run1");
    host::scriptFileCancel();
    host::scriptFileName("with blanks and 'quotes'.keyframe");
    host::scriptAnswer(true); // questions have their own script
    EXPECT_EQ(4u, host::pendingScriptedAnswers());
    // clang-format off
    const std::tuple<SelectFileOption_e, std::optional<std::string>, bool> cases[] = {
        {SelectFileOption_WriteFile, "/tmp/run1", true},
        {SelectFileOption_ReadSingleFile, std::nullopt, true},
        {SelectFileOption_ReadSingleFile, "with blanks and 'quotes'.keyframe", true},
        {SelectFileOption_WriteFile, std::nullopt, false}, // nothing scripted: the user is not there
    };
    // clang-format on
    for (const auto& [option, chosen, scripted] : cases)
    {
        host::clearUserMessages();
        EXPECT_EQ(chosen, AskForFile(option));
        const host::UserMessage m = host::userMessages().at(0);
        EXPECT_EQ(
            std::make_tuple(Kind::FileDialog, option, chosen.has_value(), scripted, chosen.value_or("")),
            std::make_tuple(m.kind, m.fileOption, m.answer, m.scripted, m.fileName));
        EXPECT_EQ(std::make_tuple("Key Frame Animation", "animation.keyframe", "*.keyframe"),
                  std::make_tuple(m.fileTypeName, m.defaultFileName, m.filter));
    }
    EXPECT_EQ(1u, host::pendingScriptedAnswers());
}

TEST_F(DialogMessagesTest, AResetForgetsTheScriptAndTheLog)
{
    host::scriptAnswer(true);
    host::scriptFileName("x");
    VtxUtilDialogErrMsg("old");
    host::reset();
    EXPECT_EQ(0u, host::pendingScriptedAnswers());
    EXPECT_THAT(host::userMessages(), IsEmpty());
    EXPECT_FALSE(VtxUtilDialogMessageBox("Yes?", MessageBoxType_YesNo));
}

TEST_F(DialogMessagesTest, EveryMessageAndAnswerIsWrittenToStandardError)
{
    host::scriptAnswer(true);
    host::scriptFileName("out.avi");
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
    const SelectFileOption_e write = SelectFileOption_WriteFile;
    const std::pair<std::function<Boolean()>, std::string> cases[] = {
        {[] { return VtxUtilDialogErrMsg(nullptr), FALSE; },
         "VtxUtilDialogErrMsg was given no message (null)"},
        {[] { return VtxUtilDialogMessageBox(nullptr, MessageBoxType_Information); },
         "VtxUtilDialogMessageBox was given no message (null)"},
        {[] { return VtxUtilDialogMessageBox("x", MessageBoxType_e(7)); },
         "VtxUtilDialogMessageBox was given the unknown message box type 7"},
        {[&] { return VtxUtilDialogGetFileName(SelectFileOption_e(1), &name, "", "", ""); },
         "VtxUtilDialogGetFileName was given the unknown file dialog option 1"},
        {[&] { return VtxUtilDialogGetFileName(write, nullptr, "", "", ""); },
         "VtxUtilDialogGetFileName was given nowhere to put the file name"},
        {[] { return VtxUtilHelp(nullptr, FALSE, 0); }, "VtxUtilHelp was given no help page"},
    };
    host::scriptFileName("unused");
    for (const auto& [misuse, error] : cases)
    {
        EXPECT_FALSE(misuse());
        EXPECT_THAT(host::hostErrors(), ElementsAre(error));
        host::clearHostErrors();
    }
    EXPECT_THAT(host::userMessages(), IsEmpty()) << "nothing refused is shown";
    EXPECT_EQ(1u, host::pendingScriptedAnswers()) << "nor does it use the script";
    EXPECT_EQ(nullptr, name);
}

TEST_F(DialogMessagesTest, HelpPagesAreFoundInTheHelpFolderAndToldWhereTheyAre)
{
    const TempFolder folder("vantix-help");
    const std::string in = folder.path().string();
    WriteFile(folder.path() / "key_frame_animation.html", "<html></html>");
    const std::string defaultFolder = host::helpFolder();
    EXPECT_EQ((fs::path(__FILE__).parent_path() / ".." / ".." / "docs" / "help").lexically_normal().string(),
              defaultFolder);
    host::setHelpFolder(in);
    const std::tuple<std::string, Boolean, bool, std::string> cases[] = {
        {"key_frame_animation.html", FALSE, true, in + "/key_frame_animation.html"},
        {"export_options.html", FALSE, false, in + "/export_options.html"},
        {"https://example.org/help", TRUE, true, "https://example.org/help"},
    };
    for (const auto& [page, isURL, found, location] : cases)
    {
        testing::internal::CaptureStderr();
        EXPECT_EQ(found, bool(VtxUtilHelp(page.c_str(), isURL, 0)));
        EXPECT_EQ("vantix: help: " +
                      (found ? page + " is at " + location : "there is no help page " + page + " in " + in) +
                      "\n",
                  testing::internal::GetCapturedStderr());
        const host::HelpRequest r = host::helpRequests().back();
        EXPECT_EQ(std::make_tuple(page, bool(isURL), location, found, false),
                  std::make_tuple(r.page, r.isURL, r.location, r.found, r.opened))
            << "a reset host never starts a browser";
    }
    EXPECT_THAT(host::helpRequests(), SizeIs(3));
    host::reset();
    EXPECT_EQ(defaultFolder, host::helpFolder());
    EXPECT_THAT(host::helpRequests(), IsEmpty());
}

TEST_F(DialogMessagesTest, WhereABrowserIsAllowedTheBrowserIsStartedOnThePage)
{
    const TempFolder folder("vantix-browser");
    const fs::path page = folder.path() / "time_animation_options.html";
    const std::string opened = (folder.path() / "opened").string();
    const fs::path browser = folder.path() / "browser";
    WriteFile(page, "<html></html>");
    WriteFile(browser,
              "#!/bin/sh\necho \"$1\" > '" + opened + ".tmp' && mv '" + opened + ".tmp' '" + opened + "'\n");
    fs::permissions(browser, fs::perms::owner_all);
    const char* before = std::getenv("BROWSER");
    const std::string saved = before ? before : "";
    ::setenv("BROWSER", browser.c_str(), 1);
    host::setHelpFolder(folder.path().string());
    host::setHelpBrowserAllowed(true);

    testing::internal::CaptureStderr();
    EXPECT_TRUE(VtxUtilHelp("time_animation_options.html", FALSE, 0));
    EXPECT_EQ("", testing::internal::GetCapturedStderr()) << "an opened page needs no telling";
    EXPECT_FALSE(VtxUtilHelp("missing.html", FALSE, 0)) << "a missing page starts no browser";
    const auto requests = host::helpRequests();
    ASSERT_THAT(requests, SizeIs(2));
    EXPECT_EQ(std::make_pair(true, false), std::make_pair(requests[0].opened, requests[1].opened));

    // The browser runs on its own; wait for it a while.
    for (int i = 0; i < 100 && !fs::exists(opened); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(page.string() + "\n", testsupport::ReadFile(opened));

    if (before)
        ::setenv("BROWSER", saved.c_str(), 1);
    else
        ::unsetenv("BROWSER");
}

} // namespace
