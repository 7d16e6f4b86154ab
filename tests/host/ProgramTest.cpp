// The vantix program, run as its users run it: its help, its usage errors and exit statuses, replaying
// macros with add-on modules, progress on standard error, Ctrl-C, and recording a macro.
#include "support/Ffprobe.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <pty.h>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>
#include <vector>

namespace
{

namespace fs = std::filesystem;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using testsupport::ReadFile;
using testsupport::TempFolder;
using testsupport::WriteFile;

struct Outcome
{
    int exitStatus = -1; // the negative signal number when the program was killed
    std::string out;
    std::string err;
};

struct RunOptions
{
    bool errToTerminal = false;      // standard error on a pseudo terminal instead of a pipe
    std::string interruptOnceErrHas; // send Ctrl-C (SIGINT) once standard error holds this text
};

void CloseAll(std::initializer_list<int> fds)
{
    for (const int fd : fds)
        if (fd >= 0)
            close(fd);
}

// Runs the program with arguments, collecting both outputs until it ends (at most two minutes).
Outcome RunVantix(const std::vector<std::string>& arguments, const RunOptions& options = RunOptions())
{
    int out[2] = {-1, -1};
    int errRead = -1, errWrite = -1;
    if (pipe(out) != 0)
        throw std::runtime_error("no pipe");
    if (options.errToTerminal)
    {
        termios raw{};
        cfmakeraw(&raw); // no line-end translation: the test sees exactly what the program writes
        if (openpty(&errRead, &errWrite, nullptr, &raw, nullptr) != 0)
            throw std::runtime_error("no pseudo terminal");
    }
    else
    {
        int err[2];
        if (pipe(err) != 0)
            throw std::runtime_error("no pipe");
        errRead = err[0];
        errWrite = err[1];
    }

    const pid_t child = fork();
    if (child == 0)
    {
        dup2(out[1], STDOUT_FILENO);
        dup2(errWrite, STDERR_FILENO);
        CloseAll({out[0], out[1], errRead, errWrite});
        std::vector<char*> argv;
        std::string program = VANTIX_PROGRAM_PATH;
        argv.push_back(program.data());
        std::vector<std::string> copies = arguments;
        for (std::string& argument : copies)
            argv.push_back(argument.data());
        argv.push_back(nullptr);
        execv(program.c_str(), argv.data());
        _exit(127);
    }
    CloseAll({out[1], errWrite});

    Outcome outcome;
    bool interrupted = false;
    pollfd fds[2] = {{out[0], POLLIN, 0}, {errRead, POLLIN, 0}};
    std::string* texts[2] = {&outcome.out, &outcome.err};
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(2);
    while ((fds[0].fd >= 0 || fds[1].fd >= 0) && std::chrono::steady_clock::now() < deadline)
    {
        if (poll(fds, 2, 100) < 0)
            break;
        for (int i = 0; i < 2; ++i)
        {
            if (fds[i].fd < 0 || fds[i].revents == 0)
                continue;
            char buffer[4096];
            const ssize_t read = ::read(fds[i].fd, buffer, sizeof buffer);
            if (read > 0)
                texts[i]->append(buffer, static_cast<std::size_t>(read));
            else
            {
                close(fds[i].fd); // the end, or EIO once a terminal's other side is closed
                fds[i].fd = -1;
            }
        }
        if (!options.interruptOnceErrHas.empty() && !interrupted &&
            outcome.err.find(options.interruptOnceErrHas) != std::string::npos)
        {
            kill(child, SIGINT);
            interrupted = true;
        }
    }
    CloseAll({fds[0].fd, fds[1].fd});
    if (std::chrono::steady_clock::now() >= deadline)
    {
        kill(child, SIGKILL);
        ADD_FAILURE() << "vantix did not end within two minutes";
    }
    int status = 0;
    waitpid(child, &status, 0);
    outcome.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    return outcome;
}

class ProgramTest : public ::testing::Test
{
protected:
    // A macro file with the header and lines, in the test's folder.
    std::string Macro(const std::string& name, const std::string& lines)
    {
        const fs::path path = m_folder.path() / name;
        std::ofstream(path, std::ios::binary) << "#!VTXMACRO 1\n" << lines;
        return path.string();
    }

    static std::string AddOnCommand(const std::string& text)
    {
        return "$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = '" + text + "'\n";
    }

    // The arguments that load the test module and not the key frame module.
    static std::vector<std::string> WithTestAddOn(const std::vector<std::string>& more)
    {
        std::vector<std::string> arguments = {"--no-default-addon", "--addon", MACRO_TEST_ADDON_PATH};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return arguments;
    }

    TempFolder m_folder;
};

TEST_F(ProgramTest, HelpDocumentsEveryOption)
{
    const Outcome outcome = RunVantix({"--help"});
    EXPECT_EQ(0, outcome.exitStatus);
    EXPECT_THAT(outcome.err, IsEmpty());
    for (const char* text :
         {"Usage: vantix [options] MACRO", "--addon PATH", "--no-default-addon", "--record FILE", "--help",
          "Ctrl-C", "Exit status", "desktop front end does not exist yet"})
        EXPECT_THAT(outcome.out, HasSubstr(text));
    // The default module is the key frame module beside the program.
    EXPECT_THAT(outcome.out, HasSubstr(fs::path(KEYFRAME_MODULE_PATH).lexically_normal().string()));
}

struct UsageCase
{
    std::vector<std::string> arguments;
    std::string error; // the one line on standard error
};

TEST_F(ProgramTest, BadUsageIsOneLineOnStandardErrorAndExitStatus2)
{
    const std::string good = Macro("good.mcr", "$!REDRAW\n");
    const std::string noHeader = (m_folder.path() / "noheader.mcr").string();
    std::ofstream(noHeader) << "$!REDRAW\n";
    const std::string missing = (m_folder.path() / "missing.mcr").string();
    const std::string folder = m_folder.path().string();
    const std::vector<UsageCase> cases = {
        {{},
         "vantix: no macro file given; the desktop front end does not exist yet, so vantix only replays "
         "macro "
         "files (see vantix --help)"},
        {{"--frobnicate", good}, "vantix: unknown option --frobnicate (see vantix --help)"},
        {{"-x", good}, "vantix: unknown option -x (see vantix --help)"},
        {{good, "--addon"}, "vantix: option --addon needs a value (see vantix --help)"},
        {{good, "--record"}, "vantix: option --record needs a value (see vantix --help)"},
        {{"a.mcr", "b.mcr"}, "vantix: more than one macro file given: a.mcr and b.mcr (see vantix --help)"},
        {{"--no-default-addon", missing},
         missing + ": cannot read the macro file: No such file or directory"},
        {{"--no-default-addon", folder}, folder + ": cannot read the macro file: it is a folder"},
        {{"--no-default-addon", noHeader},
         noHeader + ":1: not a Vantix macro: the first line must be \"#!VTXMACRO 1\""},
        {{"--no-default-addon", "--addon", folder + "/missing.so", good},
         "vantix: cannot load the add-on module " + folder +
             "/missing.so: cannot open shared object file: No such file or directory"},
        {{"--no-default-addon", "--record", folder + "/no/such/record.mcr", good},
         "vantix: cannot write the macro file " + folder + "/no/such/record.mcr: No such file or directory"},
    };
    for (const UsageCase& c : cases)
    {
        SCOPED_TRACE(::testing::PrintToString(c.arguments));
        const Outcome outcome = RunVantix(c.arguments);
        EXPECT_EQ(2, outcome.exitStatus);
        EXPECT_EQ(c.error + "\n", outcome.err);
        EXPECT_THAT(outcome.out, IsEmpty());
    }
}

TEST_F(ProgramTest, AMacroThatRunsThroughExitsWith0)
{
    // With the key frame module loaded from beside the program: a wrong default path would end in status 2.
    const Outcome outcome = RunVantix(
        {Macro("demo.mcr", "$!LOADDATA DEMO\n$!ROTATE3DVIEW PSI = 10\n$!SOLUTIONTIME = 3\n$!REDRAW\n")});
    EXPECT_EQ(0, outcome.exitStatus) << outcome.err;
    EXPECT_THAT(outcome.err, IsEmpty());
    EXPECT_THAT(outcome.out, IsEmpty());
}

TEST_F(ProgramTest, AFailingCommandExitsWith1AndNamesFileAndLine)
{
    const std::string macro = Macro("failing.mcr", "$!REDRAW\n$!FROBNICATE\n$!REDRAW\n");
    const Outcome outcome = RunVantix({macro});
    EXPECT_EQ(1, outcome.exitStatus);
    EXPECT_EQ(macro + ":3: unknown command $!FROBNICATE\n", outcome.err);
}

TEST_F(ProgramTest, AddOnModulesAreLoadedAndTheirCommandsRun)
{
    const std::string macro =
        Macro("addon.mcr", AddOnCommand("print hello there") + AddOnCommand("print again"));
    const Outcome outcome = RunVantix(WithTestAddOn({macro}));
    EXPECT_EQ(0, outcome.exitStatus) << outcome.err;
    EXPECT_EQ("hello there\nagain\n", outcome.out);

    // Both modules side by side, the default one first.
    const Outcome both = RunVantix({"--addon", MACRO_TEST_ADDON_PATH, macro});
    EXPECT_EQ(0, both.exitStatus) << both.err;
    EXPECT_EQ("hello there\nagain\n", both.out);

    // Without the module its commands have no one to run them.
    const Outcome without = RunVantix({"--no-default-addon", macro});
    EXPECT_EQ(1, without.exitStatus);
    EXPECT_EQ(macro + ":2: no add-on has registered macro commands under the id 'Macro Test Add-On'\n",
              without.err);
}

TEST_F(ProgramTest, AFailingAddOnCommandExitsWith1WithTheAddOnsMessage)
{
    const std::string macro =
        Macro("refused.mcr",
              AddOnCommand("print before") + AddOnCommand("fail it broke") + AddOnCommand("print after"));
    const Outcome outcome = RunVantix(WithTestAddOn({macro}));
    EXPECT_EQ(1, outcome.exitStatus);
    EXPECT_EQ(macro + ":3: it broke\n", outcome.err);
    EXPECT_EQ("before\n", outcome.out);
}

TEST_F(ProgramTest, ProgressIsShownAsPlainLinesWhenStandardErrorIsNoTerminal)
{
    const Outcome outcome = RunVantix(WithTestAddOn({Macro("progress.mcr", AddOnCommand("progress 20"))}));
    EXPECT_EQ(0, outcome.exitStatus);
    std::string expected;
    for (const int percent : {5, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100})
        expected += "Testing progress.... " + std::to_string(percent) + "%\n";
    EXPECT_EQ(expected + "Testing progress.... done\n", outcome.err);
}

TEST_F(ProgramTest, ProgressIsABarRedrawnInPlaceOnATerminal)
{
    RunOptions options;
    options.errToTerminal = true;
    const Outcome outcome =
        RunVantix(WithTestAddOn({Macro("progress.mcr", AddOnCommand("progress 4"))}), options);
    EXPECT_EQ(0, outcome.exitStatus);
    const std::string start = "\r\033[KTesting progress.... [";
    EXPECT_EQ(start + std::string(30, '-') + "]   0%" + start + std::string(7, '#') + std::string(23, '-') +
                  "]  25%" + start + std::string(15, '#') + std::string(15, '-') + "]  50%" + start +
                  std::string(22, '#') + std::string(8, '-') + "]  75%" + start + std::string(30, '#') +
                  "] 100%\n",
              outcome.err);
}

TEST_F(ProgramTest, CtrlCAsksTheRunningOperationToStop)
{
    RunOptions options;
    options.interruptOnceErrHas = "Waiting for Ctrl-C.... 0%\n";
    const std::string macro =
        Macro("cancel.mcr", AddOnCommand("wait-for-cancel") + AddOnCommand("print not reached"));
    const Outcome outcome = RunVantix(WithTestAddOn({macro}), options);
    EXPECT_EQ(1, outcome.exitStatus);
    EXPECT_THAT(outcome.err, HasSubstr("%, stopping\nWaiting for Ctrl-C.... stopped\n"));
    EXPECT_THAT(outcome.err, EndsWith(macro + ":2: cancelled by the user\n"));
    EXPECT_THAT(outcome.out, IsEmpty());
}

TEST_F(ProgramTest, RecordWritesAMacroThatReplaysToTheSameRecording)
{
    const std::string source = Macro("source.mcr", "# what a user might write\n"
                                                   "$!loaddata demo\n"
                                                   "$!rotate3dview theta=15\n"
                                                   "$!setstylevalue ThreeDView ViewWidth = 2.5\n" +
                                                       AddOnCommand("open \\'my file\\' \\\\ now") +
                                                       "$!exportsetup ExportFName = \"movie.avi\"\n"
                                                       "$!redraw\n");
    const fs::path first = m_folder.path() / "first.mcr";
    const Outcome recording = RunVantix(WithTestAddOn({"--record", first.string(), source}));
    ASSERT_EQ(0, recording.exitStatus) << recording.err;
    EXPECT_EQ("#!VTXMACRO 1\n"
              "$!LOADDATA DEMO\n"
              "$!ROTATE3DVIEW THETA = 15\n"
              "$!SETSTYLEVALUE ThreeDView ViewWidth = 2.5\n"
              "$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = 'open \\'my file\\' \\\\ now'\n"
              "$!EXPORTSETUP ExportFName = \"" +
                  (m_folder.path() / "movie.avi").string() +
                  "\"\n"
                  "$!REDRAW\n",
              ReadFile(first));

    const fs::path second = m_folder.path() / "second.mcr";
    const Outcome replay = RunVantix(WithTestAddOn({"--record", second.string(), first.string()}));
    ASSERT_EQ(0, replay.exitStatus) << replay.err;
    EXPECT_EQ(ReadFile(first), ReadFile(second));
}

TEST_F(ProgramTest, AFailedReplayStillWritesWhatRanUntilThen)
{
    const fs::path record = m_folder.path() / "record.mcr";
    const Outcome outcome = RunVantix(
        {"--no-default-addon", "--record", record.string(), Macro("m.mcr", "$!REDRAW\n$!FROBNICATE\n")});
    EXPECT_EQ(1, outcome.exitStatus);
    EXPECT_EQ("#!VTXMACRO 1\n$!REDRAW\n", ReadFile(record));
}

TEST_F(ProgramTest, EveryMovieFormatComesOutOfAReplayedMacroReadyToPlay)
{
    if (!testsupport::HaveFfprobe())
        GTEST_SKIP() << "ffprobe is not installed";
    struct Case
    {
        const char* format;
        const char* file;
        const char* codec;
    };
    const Case cases[] = {{"MPEG4", "movie.mp4", "h264"},
                          {"AVI", "movie.avi", "mpeg4"},
                          {"FLASH", "movie.swf", "flv1"},
                          {"FLV", "movie.flv", "flv1"},
                          {"WMV", "movie.wmv", "wmv2"}};
    for (const Case& c : cases)
    {
        std::string lines = "$!LOADDATA DEMO\n"
                            "$!ROTATE3DVIEW PSI = 10\n"
                            "$!EXPORTSETUP ExportFormat = " +
                            std::string(c.format) +
                            "\n"
                            "$!EXPORTSETUP ImageWidth = 160\n"
                            "$!EXPORTSETUP AnimationSpeed = 15\n"
                            "$!EXPORTSETUP ExportFName = \"" +
                            c.file + "\"\n$!EXPORTSTART\n";
        for (int frame = 1; frame < 9; ++frame)
            lines += "$!ROTATE3DVIEW THETA = 10\n$!EXPORTNEXTFRAME\n";
        lines += "$!EXPORTFINISH\n";
        const Outcome outcome =
            RunVantix({"--no-default-addon", Macro(std::string(c.format) + ".mcr", lines)});
        ASSERT_EQ(0, outcome.exitStatus) << c.format << ": " << outcome.err;

        const auto probed = testsupport::Probe(m_folder.path() / c.file);
        EXPECT_EQ(c.codec, testsupport::Probed(probed, "codec_name")) << c.format;
        EXPECT_EQ("9", testsupport::Probed(probed, "nb_read_frames")) << c.format;
        EXPECT_EQ("15/1", testsupport::Probed(probed, "r_frame_rate")) << c.format;
        EXPECT_EQ("160", testsupport::Probed(probed, "width")) << c.format;
        EXPECT_EQ("122", testsupport::Probed(probed, "height")) << c.format; // the frame's 10.5 x 8 inches
    }
}

TEST_F(ProgramTest, TheExampleMacroWritesItsMovie)
{
    if (!testsupport::HaveFfprobe())
        GTEST_SKIP() << "ffprobe is not installed";
    // Replayed from a copy, so that the movie is written beside the copy and not into the sources.
    const fs::path macro = m_folder.path() / "demo_mpeg4.mcr";
    fs::copy_file(EXAMPLES_FOLDER "/demo_mpeg4.mcr", macro);
    const Outcome outcome = RunVantix({"--no-default-addon", macro.string()});
    ASSERT_EQ(0, outcome.exitStatus) << outcome.err;

    const auto probed = testsupport::Probe(m_folder.path() / "demo_mpeg4.mp4");
    EXPECT_EQ("h264", testsupport::Probed(probed, "codec_name"));
    EXPECT_EQ("72", testsupport::Probed(probed, "nb_read_frames"));
    EXPECT_EQ("24/1", testsupport::Probed(probed, "r_frame_rate"));
    EXPECT_EQ("1280", testsupport::Probed(probed, "width"));
}

} // namespace

namespace
{

TEST_F(ProgramTest, TheKeyFrameExampleFliesThroughItsKeyViewsIntoAMovie)
{
    // The key frame file is found beside the macro, whatever the working folder; narrower, to be quick.
    std::string macro = testsupport::ReadFile(EXAMPLES_FOLDER "/keyframe_demo.mcr");
    const std::string width = "ImageWidth = 1280";
    macro.replace(macro.find(width), width.size(), "ImageWidth = 320");
    testsupport::WriteFile(m_folder.path() / "keyframe_demo.mcr", macro);
    fs::copy_file(EXAMPLES_FOLDER "/aircraft_flyaround.keyframe",
                  m_folder.path() / "aircraft_flyaround.keyframe");
    const Outcome outcome = RunVantix({(m_folder.path() / "keyframe_demo.mcr").string()});
    ASSERT_EQ(0, outcome.exitStatus) << outcome.err;
    // 1 + 5 key frame spans of 24 frames, faded in from black and out to black.
    const std::vector<int> brightness = testsupport::FrameBrightness(m_folder.path() / "keyframe_demo.mp4");
    ASSERT_EQ(121u, brightness.size());
    EXPECT_EQ(std::make_pair(16, 16), std::make_pair(brightness.front(), brightness.back()));
    EXPECT_GT(*std::min_element(brightness.begin() + 1, brightness.end() - 1), 16);
}

} // namespace
