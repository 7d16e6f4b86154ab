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

using DialogMessagesTest = testsupport::HostTest;

TEST_F(DialogMessagesTest, ErrorMessagesAreLoggedAndWrittenToStandardErrorAndAResetForgetsThem)
{
    VtxUtilDialogErrMsg("No Key Frames established.");
    testing::internal::CaptureStderr();
    VtxUtilDialogErrMsg("Invalid input.\nInput must be a number.");
    EXPECT_EQ("vantix: error: Invalid input.\n    Input must be a number.\n",
              testing::internal::GetCapturedStderr());
    EXPECT_THAT(host::errorMessages(),
                ElementsAre("No Key Frames established.", "Invalid input.\nInput must be a number."));
    EXPECT_EQ(std::make_pair(Kind::ErrorMessage, 2L),
              std::make_pair(host::userMessages().at(0).kind, host::callCount("VtxUtilDialogErrMsg")));
    host::scriptAnswer(true);
    host::scriptFileName("x");
    host::reset();
    EXPECT_EQ(0u, host::pendingScriptedAnswers());
    EXPECT_THAT(host::userMessages(), IsEmpty());
    EXPECT_FALSE(VtxUtilDialogMessageBox("Yes?", MessageBoxType_YesNo));
}

TEST_F(DialogMessagesTest, MessageBoxesAnswerFromTheScriptOrAsTheAbsentUserWould)
{
    // clang-format off
    const std::tuple<MessageBoxType_e, std::optional<bool>, bool, std::string> cases[] = {
        {MessageBoxType_Information, std::nullopt, true, "note: Go on?"},
        {MessageBoxType_Warning, std::nullopt, true, "warning: Go on?"},
        {MessageBoxType_Error, std::nullopt, true, "error: Go on?"},
        {MessageBoxType_YesNo, true, true, "question: Go on?\n    answered Yes"},
        {MessageBoxType_YesNo, false, false, "question: Go on?\n    answered No"},
        {MessageBoxType_Question, true, true, "question: Go on?\n    answered OK"},
        {MessageBoxType_Question, std::nullopt, false, "question: Go on?\n    answered Cancel (no one to answer)"},
    };
    // clang-format on
    for (const auto& [type, scripted, answer, shown] : cases)
    {
        host::clearUserMessages();
        if (scripted)
            host::scriptAnswer(*scripted);
        testing::internal::CaptureStderr();
        EXPECT_EQ(answer, bool(VtxUtilDialogMessageBox("Go on?", type)));
        EXPECT_EQ("vantix: " + shown + "\n", testing::internal::GetCapturedStderr());
        ASSERT_THAT(host::userMessages(), SizeIs(1));
        const host::UserMessage m = host::userMessages()[0];
        EXPECT_EQ(
            std::make_tuple(Kind::MessageBox, std::string("Go on?"), type, answer, scripted.has_value()),
            std::make_tuple(m.kind, m.text, m.boxType, m.answer, m.scripted))
            << type;
        EXPECT_EQ(0u, host::pendingScriptedAnswers());
    }
    // A notice takes no scripted answer: the next question does.
    host::scriptAnswer(false);
    EXPECT_TRUE(
        VtxUtilDialogMessageBox("The current data set is not transient.", MessageBoxType_Information));
    EXPECT_EQ(1u, host::pendingScriptedAnswers());
    EXPECT_FALSE(VtxUtilDialogMessageBox("Overwrite?", MessageBoxType_YesNo));
}

TEST_F(DialogMessagesTest, FileDialogsHandBackTheScriptedNamesInHostStrings)
{
    host::scriptFileName("/tmp/run1");
    host::scriptFileCancel();
    host::scriptAnswer(true); // questions have their own script
    EXPECT_EQ(3u, host::pendingScriptedAnswers());
    // clang-format off
    const std::tuple<SelectFileOption_e, std::optional<std::string>, std::string, std::string> cases[] = {
        {SelectFileOption_WriteFile, "/tmp/run1", "(write)", "chose \"/tmp/run1\""},
        {SelectFileOption_ReadSingleFile, std::nullopt, "(read)", "cancelled"},
        {SelectFileOption_WriteFile, std::nullopt, "(write)", "cancelled (no one to answer)"},
    };
    // clang-format on
    for (const auto& [option, chosen, mode, outcome] : cases)
    {
        testing::internal::CaptureStderr();
        char unrelated = 0;
        char* name = &unrelated; // must be overwritten
        const bool answered = VtxUtilDialogGetFileName(option, &name, "Key Frame Animation",
                                                       "animation.keyframe", "*.keyframe");
        EXPECT_EQ(std::make_tuple(chosen.has_value(), chosen.has_value(), chosen.has_value()),
                  std::make_tuple(answered, name != nullptr, host::outstandingHostStrings() == 1));
        VtxUtilStringDealloc(&name);
        EXPECT_EQ("vantix: file dialog " + mode +
                      " for Key Frame Animation files *.keyframe, offering \"animation.keyframe\": " +
                      outcome + "\n",
                  testing::internal::GetCapturedStderr());
    }
    EXPECT_EQ(1u, host::pendingScriptedAnswers());
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

TEST_F(DialogMessagesTest, HelpPagesAreFoundInTheHelpFolderAndToldWhereTheyAreOrOpenedWhereABrowserIsAllowed)
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
    // Where a browser is allowed, a page found is opened in it and needs no telling; a missing one starts
    // none.
    const std::string opened = in + "/opened";
    const fs::path browser = folder.path() / "browser";
    WriteFile(browser,
              "#!/bin/sh\necho \"$1\" > '" + opened + ".tmp' && mv '" + opened + ".tmp' '" + opened + "'\n");
    fs::permissions(browser, fs::perms::owner_all);
    const char* before = std::getenv("BROWSER");
    const std::string saved = before ? before : "";
    ::setenv("BROWSER", browser.c_str(), 1);
    host::setHelpBrowserAllowed(true);
    testing::internal::CaptureStderr();
    EXPECT_TRUE(VtxUtilHelp("key_frame_animation.html", FALSE, 0));
    EXPECT_EQ("", testing::internal::GetCapturedStderr());
    EXPECT_FALSE(VtxUtilHelp("missing.html", FALSE, 0));
    const auto requests = host::helpRequests();
    ASSERT_THAT(requests, SizeIs(5));
    EXPECT_EQ(std::make_pair(true, false), std::make_pair(requests[3].opened, requests[4].opened));
    // The browser runs on its own; wait for it a while.
    for (int i = 0; i < 100 && !fs::exists(opened); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(in + "/key_frame_animation.html\n", testsupport::ReadFile(opened));
    if (before)
        ::setenv("BROWSER", saved.c_str(), 1);
    else
        ::unsetenv("BROWSER");

    host::reset();
    EXPECT_EQ(defaultFolder, host::helpFolder());
    EXPECT_THAT(host::helpRequests(), IsEmpty());
}

} // namespace
