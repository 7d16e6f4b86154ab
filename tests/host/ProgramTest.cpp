// The vantix program, run as its users run it: its help, its exit statuses and its messages on standard
// error, replaying macros with add-on modules, progress on standard error, Ctrl-C, recording a macro, and
// the movies of the example macros.
#include "support/Ffprobe.h"
#include "support/TempFolder.h"
#include "support/VantixProgram.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace
{

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Pair;
using testsupport::Outcome;
using testsupport::ReadFile;

class ProgramTest : public ::testing::Test
{
protected:
    std::string Path(const std::string& name) const { return (m_folder.path() / name).string(); }

    Outcome RunVantix(std::vector<std::string> arguments, bool errToTerminal = false,
                      const std::string& interruptOnceErrHas = "", int signal = SIGINT) const
    {
        return testsupport::RunVantix(m_folder.path(), std::move(arguments), errToTerminal,
                                      interruptOnceErrHas, signal);
    }

    // A macro file with the header and lines, in the test's folder.
    std::string Macro(const std::string& name, const std::string& lines) const
    {
        testsupport::WriteFile(Path(name), "#!VTXMACRO 1\n" + lines);
        return Path(name);
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

    testsupport::TempFolder m_folder;
};

TEST_F(ProgramTest, HelpDocumentsEveryOption)
{
    const Outcome outcome = RunVantix({"--help"});
    EXPECT_EQ(std::make_pair(0, std::string()), std::make_pair(outcome.exitStatus, outcome.err));
    // The default module is the key frame module beside the program.
    for (const std::string text :
         {"Usage: vantix [options] [MACRO]", "--desktop MACRO", "--addon PATH", "--no-default-addon",
          "--record FILE", "--help", "Ctrl-C", "Exit status", "opens the desktop", KEYFRAME_MODULE_PATH,
          "vantix movie DATA KEYFRAMES", "vantix keyframes DATA"})
        EXPECT_THAT(outcome.out, HasSubstr(fs::path(text).lexically_normal().string()));
}

TEST_F(ProgramTest, EachRunEndsWithItsExitStatusAndWhatItWrote)
{
    const std::string folder = m_folder.path().string(), missing = Path("missing.mcr"),
                      noHeader = Path("noheader.mcr");
    testsupport::WriteFile(noHeader, "$!REDRAW\n");
    const std::string earlier = Path("earlier.mcr"), demo = "$!LOADDATA DEMO\n$!EXPORTSETUP EXPORTFORMAT = ";
    testsupport::WriteFile(earlier, "earlier");
    const std::string self =
        Macro("self.mcr", demo + "PNG\n$!EXPORTSETUP EXPORTFNAME = 'self.mcr'\n$!EXPORT\n");
    const std::string wide = Macro(
        "wide.mcr",
        demo + "AVI\n$!EXPORTSETUP IMAGEWIDTH = 10000\n$!EXPORTSETUP EXPORTFNAME = 'w.avi'\n$!EXPORTSTART\n");
    const std::string open =
        Macro("open.mcr", demo + "AVI\n$!EXPORTSETUP EXPORTFNAME = 'movie.avi'\n$!EXPORTSTART\n");
    const std::string refused =
        Macro("refused.mcr",
              AddOnCommand("print before") + AddOnCommand("fail it broke") + AddOnCommand("print after"));
    const std::string see = " (see vantix --help)\n";
    std::string lines; // progress as plain lines
    for (const int percent : {5, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100})
        lines += "Testing progress.... " + std::to_string(percent) + "%\n";
    const auto bar = [](int filled, const char* percent) // progress as a bar redrawn in place
    {
        return "\r\033[KTesting progress.... [" + std::string(filled, '#') + std::string(30 - filled, '-') +
               "] " + percent;
    };
    struct Case
    {
        std::vector<std::string> arguments;
        int exitStatus;
        std::string err, out = "";
        bool errToTerminal = false;
    };
    // clang-format off
    const Case cases[] = {
        // Bad usage, and files that cannot be read or written: one line on standard error and status 2.
        {{}, 2, "vantix: there is no display to open the desktop on (DISPLAY is not set); give a macro file "
                "to replay it in batch" + see},
        {{"--desktop"}, 2, "vantix: --desktop needs a macro file to replay" + see},
        {{"--record", "r.mcr"}, 2, "vantix: --record goes with a macro replayed in batch; in the desktop, "
                                   "Scripting > Record Macro records" + see},
        {{"--frobnicate", "a.mcr"}, 2, "vantix: unknown option --frobnicate" + see},
        {{"-x", "a.mcr"}, 2, "vantix: unknown option -x" + see},
        {{"a.mcr", "--addon"}, 2, "vantix: option --addon needs a value" + see},
        {{"a.mcr", "--record"}, 2, "vantix: option --record needs a value" + see},
        {{"a.mcr", "b.mcr"}, 2, "vantix: more than one macro file given: a.mcr and b.mcr" + see},
        {{"--no-default-addon", missing}, 2,
         missing + ": cannot read the macro file: No such file or directory\n"},
        {{"--no-default-addon", folder}, 2, folder + ": cannot read the macro file: it is a folder\n"},
        {{"--no-default-addon", noHeader}, 2,
         noHeader + ":1: not a Vantix macro: the first line must be \"#!VTXMACRO 1\"\n"},
        {{"--no-default-addon", "--addon", folder + "/missing.so", "a.mcr"}, 2,
         "vantix: cannot load the add-on module " + folder +
             "/missing.so: cannot open shared object file: No such file or directory\n"},
        {{"--no-default-addon", "--record", folder + "/no/such/record.mcr", "a.mcr"}, 2,
         "vantix: cannot write " + folder + "/no/such/record.mcr: No such file or directory\n"},
        // Nothing replaces the macro being replayed, and a replay that ran nothing records nothing.
        {{"--no-default-addon", "--record", self, self}, 2,
         "vantix: cannot write " + self + ": it is the macro being replayed\n"},
        {{"--no-default-addon", self}, 1, self + ":5: cannot write " + self + ": it is the macro being replayed\n"},
        {{"--no-default-addon", "--record", earlier, missing}, 2,
         missing + ": cannot read the macro file: No such file or directory\n"},
        // FFmpeg's complaint is told once, in our words, within the reason.
        {{"--no-default-addon", wide}, 1, wide + ":6: the export could not be started: cannot start the mpeg4 "
         "encoder at 10000 x 7620: Invalid argument (mpeg4: dimensions too large for MPEG-4)\n"},
        // An export that the macro leaves open is abandoned, and said so.
        {{"--no-default-addon", open}, 1, "vantix: " + open + ": the macro ended with the export to " +
         Path("movie.avi") + " still open ($!EXPORTFINISH missing); it was not written\n"},
        // The test module's commands run, and need the module.
        {{"--no-default-addon", refused}, 1,
         refused + ":2: no add-on has registered macro commands under the id 'Macro Test Add-On'\n"},
        {WithTestAddOn({refused}), 1, refused + ":3: it broke\n", "before\n"},
        // Progress as plain lines when standard error is no terminal, and as a bar on a terminal.
        {WithTestAddOn({Macro("lines.mcr", AddOnCommand("progress 20"))}), 0,
         lines + "Testing progress.... done\n"},
        {WithTestAddOn({Macro("bar.mcr", AddOnCommand("progress 4"))}), 0,
         bar(0, "  0%") + bar(7, " 25%") + bar(15, " 50%") + bar(22, " 75%") + bar(30, "100%") + "\n",
         "", true},
    };
    // clang-format on
    for (const Case& c : cases)
    {
        const Outcome outcome = RunVantix(c.arguments, c.errToTerminal);
        EXPECT_EQ(std::make_tuple(c.exitStatus, c.err, c.out),
                  std::make_tuple(outcome.exitStatus, outcome.err, outcome.out))
            << ::testing::PrintToString(c.arguments);
    }
    EXPECT_EQ("earlier", ReadFile(earlier));
    EXPECT_FALSE(fs::exists(Path("movie.avi")));
}

TEST_F(ProgramTest, EachSignalStopsTheWorkAndLeavesTheFilesAsTheyWere)
{
    testsupport::WriteFile(Path("movie.avi"), "earlier");
    const std::string exporting =
        "$!LOADDATA DEMO\n$!EXPORTSETUP EXPORTFORMAT = AVI\n"
        "$!EXPORTSETUP EXPORTFNAME = 'movie.avi'\n$!EXPORTSTART\n$!EXPORTNEXTFRAME\n";
    const std::string failing =
        Macro("failing.mcr", exporting + AddOnCommand("wait-for-cancel") + AddOnCommand("print not reached") +
                                 "$!EXPORTFINISH\n");
    // A last command that takes the cancel as its normal end: the signal is told all the same.
    const std::string quiet = Macro("quiet.mcr", exporting + AddOnCommand("wait-for-cancel quietly"));
    struct Case
    {
        int signal;
        std::string macro;
        std::string lastLine;
    };
    const Case cases[] = {
        {SIGINT, failing, failing + ":7: cancelled by the user (SIGINT)\n"},
        {SIGTERM, failing, failing + ":7: cancelled by the user (SIGTERM)\n"},
        {SIGHUP, failing, failing + ":7: cancelled by the user (SIGHUP)\n"},
        {SIGINT, quiet, "vantix: interrupted by SIGINT; the replay had reached the end of " + quiet + "\n"}};
    for (const Case& c : cases)
    {
        const Outcome outcome =
            RunVantix(WithTestAddOn({c.macro}), false, "Waiting for Ctrl-C.... 0%\n", c.signal);
        EXPECT_EQ(std::make_pair(128 + c.signal, std::string()),
                  std::make_pair(outcome.exitStatus, outcome.out));
        EXPECT_THAT(outcome.err, HasSubstr("%, stopping\nWaiting for Ctrl-C.... stopped\n"));
        EXPECT_THAT(outcome.err, ::testing::EndsWith(c.lastLine));
        EXPECT_EQ("earlier", ReadFile(Path("movie.avi")));
        EXPECT_EQ(4, std::distance(fs::directory_iterator(m_folder.path()), {})) << "files left";
    }
}

TEST_F(ProgramTest, RecordWritesWhatRanAlsoWhenACommandFails)
{
    // Both modules, the key frame module first from beside the program (a wrong path would end in status 2).
    // The test module records its own command; a relative file name is recorded as the file it named.
    const std::string macro =
        Macro("m.mcr", "$!loaddata demo\n$!rotate3dview psi = 10\n$!solutiontime = 3\n$!redraw\n" +
                           AddOnCommand("open it") + "$!exportsetup ExportFName = \"movie.avi\"\n");
    const Outcome recording =
        RunVantix({"--addon", MACRO_TEST_ADDON_PATH, "--record", Path("record.mcr"), macro});
    EXPECT_EQ(std::make_tuple(0, std::string(), std::string()),
              std::make_tuple(recording.exitStatus, recording.err, recording.out));
    EXPECT_EQ("#!VTXMACRO 1\n$!LOADDATA DEMO\n$!ROTATE3DVIEW PSI = 10\n$!SOLUTIONTIME = 3\n$!REDRAW\n" +
                  AddOnCommand("open it") + "$!EXPORTSETUP ExportFName = \"" + Path("movie.avi") + "\"\n",
              ReadFile(Path("record.mcr")));

    // A failing command: status 1, its file and line, and what ran until then recorded.
    const std::string failing = Macro("failing.mcr", "$!REDRAW\n$!FROBNICATE\n$!REDRAW\n");
    const Outcome failed = RunVantix({"--record", Path("record.mcr"), failing});
    EXPECT_EQ(std::make_pair(1, failing + ":3: unknown command $!FROBNICATE\n"),
              std::make_pair(failed.exitStatus, failed.err));
    EXPECT_EQ("#!VTXMACRO 1\n$!REDRAW\n", ReadFile(Path("record.mcr")));
}

TEST_F(ProgramTest, TheExampleMacroWritesItsMovie)
{
    if (!testsupport::HaveFfprobe())
        GTEST_SKIP() << "ffprobe is not installed";
    // Replayed from a copy, so that the movie is written beside the copy and not into the sources.
    fs::copy_file(EXAMPLES_FOLDER "/demo_mpeg4.mcr", Path("demo_mpeg4.mcr"));
    const Outcome outcome = RunVantix({"--no-default-addon", Path("demo_mpeg4.mcr")});
    ASSERT_EQ(0, outcome.exitStatus) << outcome.err;
    EXPECT_THAT(testsupport::Probe(Path("demo_mpeg4.mp4")),
                ::testing::IsSupersetOf({Pair("codec_name", "h264"), Pair("nb_read_frames", "72"),
                                         Pair("r_frame_rate", "24/1"), Pair("width", "1280")}));
}

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
