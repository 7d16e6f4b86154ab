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
using ::testing::internal::CaptureStderr;
using ::testing::internal::GetCapturedStderr;

using DialogMessagesTest = testsupport::HostTest;

TEST_F(DialogMessagesTest, MessagesAreLoggedAndWrittenToStandardErrorAndQuestionsAnswerFromTheScriptOrAsNoOne)
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
        CaptureStderr();
        EXPECT_EQ(answer, bool(VtxUtilDialogMessageBox("Go on?", type)));
        EXPECT_EQ("vantix: " + shown + "\n", GetCapturedStderr());
        const host::UserMessage m = host::userMessages().at(0);
        EXPECT_EQ(std::make_tuple(Kind::MessageBox, "Go on?", type, answer, scripted.has_value(), 1ul, 0ul),
                  std::make_tuple(m.kind, m.text, m.boxType, m.answer, m.scripted,
                                  host::userMessages().size(), host::pendingScriptedAnswers()))
            << type;
    }
    // A notice takes no scripted answer: the next question does.
    host::scriptAnswer(false);
    EXPECT_TRUE(
        VtxUtilDialogMessageBox("The current data set is not transient.", MessageBoxType_Information));
    EXPECT_EQ(1u, host::pendingScriptedAnswers());
    EXPECT_FALSE(VtxUtilDialogMessageBox("Overwrite?", MessageBoxType_YesNo));

    // An error message takes no answer; the lines after the first are indented under it.
    host::clearUserMessages();
    VtxUtilDialogErrMsg("No Key Frames established.");
    CaptureStderr();
    VtxUtilDialogErrMsg("Invalid input.\nInput must be a number.");
    EXPECT_EQ("vantix: error: Invalid input.\n    Input must be a number.\n", GetCapturedStderr());
    EXPECT_THAT(host::errorMessages(),
                ElementsAre("No Key Frames established.", "Invalid input.\nInput must be a number."));
    EXPECT_EQ(std::make_pair(Kind::ErrorMessage, 2L),
              std::make_pair(host::userMessages().at(0).kind, host::callCount("VtxUtilDialogErrMsg")));
}

TEST_F(DialogMessagesTest, FileDialogsHandBackTheScriptedNamesInHostStringsAndAResetForgetsTheScript)
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
        CaptureStderr();
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
                  GetCapturedStderr());
    }
    EXPECT_EQ(1u, host::pendingScriptedAnswers());
    // A reset forgets the script and the messages.
    host::scriptFileName("x");
    host::reset();
    EXPECT_EQ(std::make_pair(0ul, 0ul),
              std::make_pair(host::pendingScriptedAnswers(), host::userMessages().size()));
    EXPECT_FALSE(VtxUtilDialogMessageBox("Yes?", MessageBoxType_YesNo));
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

// Standard error tells where a page found is, unless a browser, where one is allowed, opened it; a missing
// page starts no browser.
TEST_F(DialogMessagesTest, HelpPagesAreFoundInTheHelpFolderAndToldWhereTheyAreOrOpenedWhereABrowserIsAllowed)
{
    const TempFolder folder("vantix-help");
    const std::string in = folder.path().string(), opened = in + "/opened";
    WriteFile(folder.path() / "key_frame_animation.html", "<html></html>");
    const fs::path browser = folder.path() / "browser";
    WriteFile(browser,
              "#!/bin/sh\necho \"$1\" > '" + opened + ".tmp' && mv '" + opened + ".tmp' '" + opened + "'\n");
    fs::permissions(browser, fs::perms::owner_all);
    const char* const before = std::getenv("BROWSER");
    const std::string saved = before ? before : "";
    ::setenv("BROWSER", browser.c_str(), 1);
    const std::string defaultFolder = host::helpFolder();
    EXPECT_EQ((fs::path(__FILE__).parent_path() / ".." / ".." / "docs" / "help").lexically_normal().string(),
              defaultFolder);
    host::setHelpFolder(in);
    // The page, whether it is an address, whether a browser is allowed (a reset host allows none), whether
    // it is found, and where.
    const std::tuple<std::string, Boolean, bool, bool, std::string> cases[] = {
        {"key_frame_animation.html", FALSE, false, true, in + "/key_frame_animation.html"},
        {"export_options.html", FALSE, false, false, in + "/export_options.html"},
        {"https://example.org/help", TRUE, false, true, "https://example.org/help"},
        {"key_frame_animation.html", FALSE, true, true, in + "/key_frame_animation.html"},
        {"missing.html", FALSE, true, false, in + "/missing.html"},
    };
    for (const auto& [page, isURL, allowed, found, location] : cases)
    {
        if (allowed)
            host::setHelpBrowserAllowed(true);
        CaptureStderr();
        EXPECT_EQ(found, bool(VtxUtilHelp(page.c_str(), isURL, 0)));
        const std::string told =
            found ? page + " is at " + location : "there is no help page " + page + " in " + in;
        EXPECT_EQ(found && allowed ? "" : "vantix: help: " + told + "\n", GetCapturedStderr());
        const host::HelpRequest r = host::helpRequests().back();
        EXPECT_EQ(std::make_tuple(page, bool(isURL), location, found, found && allowed),
                  std::make_tuple(r.page, r.isURL, r.location, r.found, r.opened));
    }
    // The browser runs on its own; wait for it a while.
    for (int i = 0; i < 100 && !fs::exists(opened); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(in + "/key_frame_animation.html\n", testsupport::ReadFile(opened));
    before ? ::setenv("BROWSER", saved.c_str(), 1) : ::unsetenv("BROWSER");

    host::reset();
    EXPECT_EQ(std::make_pair(defaultFolder, 0ul),
              std::make_pair(host::helpFolder(), host::helpRequests().size()));
}

} // namespace
