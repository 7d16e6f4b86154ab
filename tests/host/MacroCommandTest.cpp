// The host's macro language: every command's effect on the host, the errors that stop a replay with the
// file, line and reason, and the header check; recording a macro while one is replayed (host commands in
// their normal form, add-on commands by their add-on, every text unchanged through a macro file); and the
// host strings add-ons make their messages with.
#include "support/HostTest.h"
#include "support/TempFolder.h"
#include "support/ThrownMessage.h"

#include "host/modules/MacroTestAddOn.h"

#include <vantix/host/Export.h>
#include <vantix/host/Macro.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <iomanip>
#include <iterator>
#include <random>
#include <sstream>

namespace
{

namespace fs = std::filesystem;
namespace host = vantix::host;
using host::MacroResult;
using ::testing::ElementsAre;
using testsupport::MacroTestAddOn;
using testsupport::ReadFile;
using testsupport::WriteFile;
using Texts = std::vector<std::string>;
using namespace std::string_literals;

const char* const TriangleStl = "solid t\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\n"
                                "vertex 0 1 0\nendloop\nendfacet\nendsolid t\n";

class MacroCommandTest : public testsupport::HostTest
{
protected:
    // Runs lines after the header as the macro "test.mcr" in the test's folder.
    MacroResult Run(const std::string& lines)
    {
        return host::runMacroText(std::string(host::MacroHeader) + "\n" + lines, "test.mcr",
                                  m_folder.string());
    }

    void Fresh()
    {
        host::reset();
        m_frame = host::addFrame(PlotType_Cartesian3D);
    }

    // Replays a macro file on a fresh host while recording, and returns what was recorded.
    Texts Rerecord(const fs::path& macro)
    {
        Fresh();
        host::setMacroRecording(true);
        const MacroResult result = host::runMacroFile(macro.string());
        EXPECT_TRUE(result.ok()) << result.message;
        host::setMacroRecording(false);
        return host::recordedMacroLines();
    }

    void TearDown() override
    {
        if (VtxUtilExportIsRecording())
            VtxUtilExportCancel();
        HostTest::TearDown();
    }

    testsupport::TempFolder m_temp;
    const fs::path& m_folder = m_temp.path();
};
using MacroRecordingTest = MacroCommandTest;
using MacroHostStringsTest = MacroCommandTest;

// What the command lines changed, named as in the table below: "time", "redraws", "plot type",
// "placement" (the active frame's, "=" where it is the first frame's), "view" (the turn of the view's angles
// since before, and the viewer: still, orbiting the origin, or moved), or by default the style setting
// named by the words of what.
host::StyleData Probe(const std::string& what, const host::ViewState& before)
{
    const auto now = host::view();
    const auto round = [](double value) { return std::abs(value) < 1e-9 ? 0.0 : value; };
    const auto distance = [](const host::ViewState& v)
    { return std::hypot(v.x - v.originX, v.y - v.originY, v.z - v.originZ); };
    std::ostringstream text;
    text << std::setprecision(9);
    if (what == "time")
        return VtxUtilSolutionTimeGetCurrent();
    if (what == "redraws")
        return host::redrawCount();
    if (what == "plot type")
        return int(VtxUtilFrameGetPlotType());
    if (what == "placement")
    {
        const auto first = host::framePlacement(host::frameStack().front());
        const auto active = host::framePlacement(host::activeFrame());
        for (const auto& [was, is] :
             {std::pair{first.x, active.x}, std::pair{first.y, active.y},
              std::pair{first.width, active.width}, std::pair{first.height, active.height}})
            was == is ? text << "= " : text << is << ' ';
    }
    else if (what == "view")
        text << round(now.psi - before.psi) << ' ' << round(now.theta - before.theta) << ' '
             << round(now.alpha - before.alpha) << ' '
             << (std::hypot(now.x - before.x, now.y - before.y, now.z - before.z) < 1e-9 ? "still"
                 : std::abs(distance(now) - distance(before)) < 1e-9                     ? "orbiting"
                                                                                         : "moved");
    else
    {
        std::istringstream words(what);
        return host::style({std::istream_iterator<std::string>(words), {}});
    }
    return text.str();
}

TEST_F(MacroCommandTest, EachCommandActsOnTheHost)
{
    const std::string up = m_folder.parent_path().string(), fName = "ExportSetup ExportFName",
                      format = "ExportSetup ExportFormat";
    const std::tuple<std::string, std::string, host::StyleData> cases[] = {
        // clang-format off
        {"$!ROTATE3DVIEW PSI = 30", "view", "30 0 0 orbiting"},
        {"$!rotate3dview theta=-45", "view", "0 -45 0 orbiting"},
        {"$!ROTATE3DVIEW ALPHA = 12.5", "view", "0 0 12.5 still"}, // about the line of sight
        {"$!SolutionTime = 2.5", "time", 2.5},
        {"# a comment\n\n   # an indented comment\n\t\n  $!REDRAW  \n$!REDRAW", "redraws", 2},
        {"$!PLOTTYPE = XYLINE\n$!PLOTTYPE=CARTESIAN3D", "plot type", int(PlotType_Cartesian3D)},
        {"$!NEWFRAME X = 1 Y = 2 WIDTH = 3 HEIGHT = 4", "placement", "1 2 3 4 "},
        {"$!NEWFRAME height=5.5", "placement", "= = = 5.5 "}, // what is not given is the host's default
        {"$!PLOTTYPE = SKETCH\n$!NEWFRAME", "plot type", int(PlotType_Cartesian3D)},
        {"$!SETSTYLEVALUE ThreeDView PSIAngle = 30", "view", "-30 0 0 still"}, // from 60, by style: no orbit
        {"$!SETSTYLEVALUE threedview viewerposition z = -7e0", "threedview viewerposition z", -7.0},
        {"$!SETSTYLEVALUE ThreeDView FieldOfView = 40", "ThreeDView FieldOfView", 40.0},
        {"$!SETSTYLEVALUE Interface UseDisplayLists = FALSE", "Interface UseDisplayLists", false},
        {"$!SETSTYLEVALUE ExportSetup ImageWidth = 640", "ExportSetup ImageWidth", 640},
        {"$!SETSTYLEVALUE ExportSetup ExportFormat = 21", format, int(ExportFormat_MPEG4)},
        {R"($!SETSTYLEVALUE ExportSetup ExportFName = "it's a \"name\" \\ with\nbreaks")", fName,
         "it's a \"name\" \\ with\nbreaks"},
        {"$!exportsetup   AnimationSpeed   =   30  ", "ExportSetup AnimationSpeed", 30.0},
        // An export file name is taken from the macro's folder.
        {"$!EXPORTSETUP ExportFName = \"/somewhere/else.avi\"", fName, "/somewhere/else.avi"},
        {"$!EXPORTSETUP ExportFName = \"../up/movie.avi\"", fName, up + "/up/movie.avi"},
        // clang-format on
    };
    for (const auto& [lines, what, expected] : cases)
    {
        Fresh();
        const auto before = host::view();
        const MacroResult result = Run(lines);
        ASSERT_TRUE(result.ok()) << lines << ": " << result.message;
        EXPECT_EQ(expected, Probe(what, before)) << lines;
    }
}

TEST_F(MacroCommandTest, AnAddOnModuleStartsOnceAndOneThatCannotBeStartedIsRefusedWithTheReason)
{
    const MacroTestAddOn addOn;
    const int started = addOn.initCalls();
    EXPECT_GE(started, 1);
    const fs::path module(MacroTestAddOn::Path);
    // Another way to the same file is still the same module.
    const std::string roundabout =
        (module.parent_path() / ".." / module.parent_path().filename() / module.filename()).string();
    ASSERT_TRUE(Run("$!LOADADDON \"" + roundabout + "\"\n$!LOADADDON \"" + module.string() + "\"\n").ok());
    host::loadAddOnModule(module.string());
    EXPECT_EQ(started, addOn.initCalls());
    const auto addOns = host::registeredAddOns();
    EXPECT_EQ(1, std::count_if(addOns.begin(), addOns.end(),
                               [](const auto& info) { return info.name == MacroTestAddOn::ID; }));

    WriteFile(m_folder / "notamodule.so", "plain text\n");
    const std::pair<std::string, std::string> refused[] = {
        {(m_folder / "notamodule.so").string(), "file too short"},
        {(module.parent_path() / "libvtxsdkbase.so").string(), "it has no entry point InitVtxAddOn113"},
    };
    for (const auto& [path, reason] : refused)
        EXPECT_THROW_MSG(host::loadAddOnModule(path), std::runtime_error,
                         "cannot load the add-on module " + path + ": " + reason);
}

TEST_F(MacroCommandTest, AFailingCommandStopsTheReplayNamingFileLineAndReason)
{
    const MacroTestAddOn addOn;
    const std::string rotate = "$!ROTATE3DVIEW: expected ",
                      number = rotate + "a number for the angle, found ", add = "$!ADDONCOMMAND ADDONID = ",
                      set = "$!SETSTYLEVALUE: ", psi = "$!SETSTYLEVALUE ThreeDView PSIAngle = ",
                      oneWord = "$!EXPORTSETUP: expected one word as the export setting's name before \"=\"";
    // The failing command is the last line; one before it leads to it.
    const std::pair<std::string, std::string> cases[] = {
        // clang-format off
        {"REDRAW", "a command must begin with $!"},
        {"$! REDRAW", "a command word must follow $!"},
        {"$!FROBNICATE", "unknown command $!FROBNICATE"},
        {"$!REDRAW\0"s, "unknown command $!REDRAW\\0"},
        {"$!\x1b[31mRED", "unknown command $!\\x1b[31mRED"},
        {"$!" + std::string(119, 'A') + "\xc3\xa9 = 1", "unknown command $!" + std::string(119, 'A') +
                                                        "... (121 bytes)"},
        {std::string(1 << 20, ' ') + "$!REDRAW", "the line is longer than 1048576 bytes"},
        {"$!LOADDATA FILE = \"a\0b.stl\""s, "$!LOADDATA: the file name a\\0b.stl holds a NUL byte"},
        {"$!REDRAW now", "$!REDRAW: expected the end of the line, found \"now\""},
        {"$!ROTATE3DVIEW X = 30", rotate + "PSI, THETA or ALPHA, found \"X\""},
        {"$!ROTATE3DVIEW PSI 30", rotate + "\"=\", found \"30\""},
        {"$!ROTATE3DVIEW PSI =", number + "the end of the line"},
        {"$!ROTATE3DVIEW PSI = thirty", number + "\"thirty\""},
        {"$!ROTATE3DVIEW PSI = 1e999", number + "\"1e999\""},
        {"$!PLOTTYPE = XYLINE\n$!ROTATE3DVIEW PSI = 10",
         "the view cannot be rotated: the active frame is not a 3D plot"},
        {"$!PLOTTYPE = POLAR", "$!PLOTTYPE: expected CARTESIAN3D, CARTESIAN2D, XYLINE, SKETCH, POLARLINE or "
                               "AUTOMATIC, found \"POLAR\""},
        {"$!NEWFRAME WIDTH = 0", "$!NEWFRAME: WIDTH must be greater than 0"},
        {"$!NEWFRAME X = 1 X = 2", "$!NEWFRAME: X is given twice"},
        {"$!LOADDATA FILE = mesh.stl", "$!LOADDATA: expected a quoted file name, found \"mesh.stl\""},
        {"$!LOADDATA FILE = \"\"", "$!LOADDATA: the file name is empty"},
        {"$!SETSTYLEVALUE ThreeDView Nothing = 1", "unknown style setting ThreeDView/Nothing"},
        {"$!SETSTYLEVALUE ThreeDView = 1", "unknown style setting ThreeDView"},
        {psi + "TRUE", "ThreeDView/PSIAngle takes a number, not a switch (TRUE)"},
        {psi + "\"thirty\"", "ThreeDView/PSIAngle takes a number, not a quoted text (\"thirty\")"},
        {"$!SETSTYLEVALUE Interface UseDisplayLists = 1",
         "Interface/UseDisplayLists takes a switch (TRUE or FALSE), not a number (1)"},
        {"$!SETSTYLEVALUE ExportSetup ImageWidth = 640.5",
         "ExportSetup/ImageWidth takes a whole number, not a number (640.5)"},
        {"$!SETSTYLEVALUE ExportSetup ExportFormat = 3", "ExportSetup/ExportFormat refused the value 3"},
        {"$!SETSTYLEVALUE ThreeDView ViewWidth = -1", "ThreeDView/ViewWidth refused the value -1"},
        {"$!PLOTTYPE = SKETCH\n" + psi + "1",
         "ThreeDView/PSIAngle cannot be set in the present state of the host (the view settings need an "
         "active 3D frame)"},
        {psi + "abc", set + "expected a number, TRUE, FALSE or a quoted text, found \"abc\""},
        {"$!SETSTYLEVALUE a b c d e f g h = 1", set + "a style setting is named by at most seven names"},
        {"$!SETSTYLEVALUE = 1", set + "expected a style setting's name, found \"=\""},
        {"$!SETSTYLEVALUE ExportSetup ExportFName = 'it''s'",
         set + "expected the end of the line, found the quoted text \"s\""},
        {"$!EXPORTSETUP ExportFormat", "$!EXPORTSETUP: expected <name> = <value>"},
        {"$!EXPORTSETUP = AVI", oneWord},
        {"$!EXPORTSETUP Export Format = AVI", oneWord},
        {"$!EXPORTSETUP ExportFormat =  ", "$!EXPORTSETUP: the value of ExportFormat is missing"},
        {"$!EXPORTSETUP ExportFormat = GIF", "'GIF' is not a keyword for ExportFormat"},
        {"$!EXPORTSETUP ExportFName = \"x.png", "$!EXPORTSETUP: the file name of ExportFName has no closing \""},
        {"$!EXPORTSETUP ExportFName = y.png'", "$!EXPORTSETUP: the file name of ExportFName has no opening '"},
        {"$!EXPORTNEXTFRAME", "the next frame could not be exported: no export is in progress"},
        {"$!EXPORTSETUP ExportFormat = AVI\n$!EXPORTSETUP ExportFName = \"\rno/x.avi\"\n$!EXPORTSTART",
         "the export could not be started: cannot write " + m_folder.string() + "/\\rno/x.avi: No such file or directory"},
        {"$!EXPORTFINISH", "the export could not be finished: no export is in progress"},
        {"$!EXPORTSETUP ExportFormat = PNG\n$!EXPORTSTART",
         "the export could not be started: the export format does not hold an animation"},
        {add + "'Nobody' COMMAND = 'x'", "no add-on has registered macro commands under the id 'Nobody'"},
        {add + "'Macro Test Add-On'", "$!ADDONCOMMAND: COMMAND is missing"},
        {"$!ADDONCOMMAND COMMAND = 'x'", "$!ADDONCOMMAND: ADDONID is missing"},
        {add + "'a' ADDONID = 'b' COMMAND = 'x'", "$!ADDONCOMMAND: ADDONID is given twice"},
        {add + "Macro COMMAND = 'x'", "$!ADDONCOMMAND: expected a quoted text, found \"Macro\""},
        {add + "'x' COMMAND = 'not closed", "$!ADDONCOMMAND: a quoted text has no closing '"},
        {add + "'x' COMMAND = 'ends in \\'", "$!ADDONCOMMAND: a quoted text has no closing '"},
        {add + "'x' COMMAND = 'a \\t b'",
         "$!ADDONCOMMAND: unknown escape \\t in a quoted text (known: \\\\ \\' \\\" \\n \\r)"},
        {add + "'Macro Test Add-On' COMMAND = 'fail two\\nlines'", "two\nlines"},
        {add + "'Macro Test Add-On' COMMAND = 'fail-silently'",
         "add-on 'Macro Test Add-On' refused the command without saying why"},
        {"$!LOADADDON", "$!LOADADDON: expected a quoted module file name, found the end of the line"},
        // clang-format on
    };
    for (const auto& [lines, reason] : cases)
    {
        Fresh();
        // A comment and a blank line count as lines too. The commands before the failure ran, none after
        // it, and the host released the message an add-on made.
        const MacroResult result = Run("# a comment\n\n$!REDRAW\n" + lines + "\n$!REDRAW\n");
        const int line = 5 + int(std::count(lines.begin(), lines.end(), '\n'));
        EXPECT_EQ(
            std::make_tuple(MacroResult::Status::Failed, line, 1, 0L),
            std::make_tuple(result.status, result.line, host::redrawCount(), host::outstandingHostStrings()))
            << lines;
        EXPECT_EQ("test.mcr:" + std::to_string(line) + ": " + reason, result.message);
    }
}

TEST_F(MacroCommandTest, TheReplayLeavesTheLocksAsItFindsThemAndStopsBeforeTheNextCommandWhenCancelled)
{
    VtxUtilLockOn();
    VtxUtilLockStart(m_testAddOn);
    ASSERT_TRUE(Run("$!REDRAW\n$!ROTATE3DVIEW PSI = 5\n").ok());
    EXPECT_EQ(std::make_pair(1, 1), std::make_pair(host::globalLockDepth(), host::lockDepth(m_testAddOn)));
    VtxUtilLockFinish(m_testAddOn);
    VtxUtilLockOff();

    host::requestCancelFromSignal();
    const MacroResult result = Run("# nothing to run here\n$!REDRAW\n");
    EXPECT_EQ(MacroResult::Status::Failed, result.status);
    EXPECT_EQ("test.mcr:3: cancelled before this command", result.message);
    EXPECT_EQ(1, host::redrawCount());
    EXPECT_TRUE(Run("$!REDRAW\n").ok()) << "the request is used up";
}

TEST_F(MacroCommandTest, OnlyAFileWithTheHeaderIsAMacroAndFilesAreNamedInMessages)
{
    const fs::path file = m_folder / "file.mcr";
    const std::string notAMacro =
        file.string() + ":1: not a Vantix macro: the first line must be \"#!VTXMACRO 1\"";
    // clang-format off
    const std::pair<const char*, bool> texts[] = {
        {"", false}, {"#!vtxmacro 1\n$!REDRAW\n", false}, {" #!VTXMACRO 1\n$!REDRAW\n", false},
        {"#!VTXMACRO 1 x\n", false}, {"#!VTXMACRO 1\r\n$!REDRAW\r\n", true},
        {"#!VTXMACRO 1  \t\n$!REDRAW", true}, {"\xef\xbb\xbf#!VTXMACRO 1\n$!REDRAW", true}};
    // clang-format on
    for (const auto& [text, macro] : texts)
    {
        Fresh();
        WriteFile(file, text);
        const MacroResult result = host::runMacroFile(file.string());
        EXPECT_EQ(macro ? std::make_tuple(MacroResult::Status::Ok, 0, std::string(), 1)
                        : std::make_tuple(MacroResult::Status::NotAMacro, 1, notAMacro, 0),
                  std::make_tuple(result.status, result.line, result.message, host::redrawCount()))
            << text;
    }
    // Read line by line: a file without line breaks is refused within the first long line.
    EXPECT_EQ(MacroResult::Status::NotAMacro, host::runMacroFile("/dev/zero").status);
    WriteFile(file, std::string(host::MacroHeader) + "\n$!REDRAW\n" + std::string(1 << 20, '#') + "x\n");
    EXPECT_EQ(file.string() + ":3: the line is longer than 1048576 bytes",
              host::runMacroFile(file.string()).message);
    const std::string missing = (m_folder / "missing.mcr").string();
    const MacroResult unreadable = host::runMacroFile(missing);
    EXPECT_EQ(std::make_tuple(MacroResult::Status::Unreadable, 0,
                              missing + ": cannot read the macro file: No such file or directory"),
              std::make_tuple(unreadable.status, unreadable.line, unreadable.message));
    EXPECT_EQ(m_folder.string() + ": cannot read the macro file: it is a folder",
              host::runMacroFile(m_folder.string()).message);
}

// Texts built from the characters that need care in a macro line: both quotation marks, backslashes, line
// breaks, tabs, blanks, "=", "$!", "#", and bytes of a multi-byte character on their own. The test add-on
// gives words beginning with f, p or w a meaning, so none is made of those letters.
Texts AwkwardTexts(std::size_t count)
{
    const std::string alphabet = "abcXYZ 0129'\"\\\n\r\t=$!#;,.\xc3\xa9";
    std::mt19937 random(20240611);
    std::uniform_int_distribution<std::size_t> length(0, 40), pick(0, alphabet.size() - 1);
    // clang-format off
    Texts texts = {"", " ", "'", "\"", "\\", "\\'", "'\\", "\n", "\r\n", "a\\nb", "\\\\n",
                   "  leading and trailing  ", "# not a comment", "$!REDRAW", "COMMAND = 'x'",
                   "Animate AnimationDestination=ToFile",
                   "OpenSettingsFile FileName=\"/data/my runs/a.keyframe\""};
    // clang-format on
    while (texts.size() < count)
    {
        std::string text(length(random), ' ');
        for (char& c : text)
            c = alphabet[pick(random)];
        texts.push_back(text);
    }
    return texts;
}

// Host commands are recorded in their normal form by the replay, add-on commands by their add-on alone.
TEST_F(MacroRecordingTest, CommandsAreRecordedInTheirNormalFormOnlyWhileRecording)
{
    const MacroTestAddOn addOn;
    const std::string folder = m_folder.string(), module = MacroTestAddOn::Path;
    WriteFile(m_folder / "mesh.stl", TriangleStl);
    const std::pair<std::string, Texts> cases[] = {
        // clang-format off
        // The accepted add-on command once, in the form the host gives every add-on command; the refused
        // one not at all.
        {"$!REDRAW\n$!addoncommand command=\"say \\\"hi\\\"\" addonid=\"Macro Test Add-On\"\n"
         "$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = 'fail-silently'",
         {"$!REDRAW", "$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = 'say \"hi\"'"}},
        {"$!rotate3dview psi=30", {"$!ROTATE3DVIEW PSI = 30"}},
        {"$!ROTATE3DVIEW THETA = -0.50", {"$!ROTATE3DVIEW THETA = -0.5"}},
        {"$!Rotate3DView Alpha = 0.1", {"$!ROTATE3DVIEW ALPHA = 0.1"}},
        {"$!SOLUTIONTIME = 1e-7", {"$!SOLUTIONTIME = 1e-07"}},
        {"$!SETSTYLEVALUE threeDview psiangle = 0.1", {"$!SETSTYLEVALUE threeDview psiangle = 0.1"}},
        {"$!SETSTYLEVALUE Interface UseDisplayLists = false",
         {"$!SETSTYLEVALUE Interface UseDisplayLists = FALSE"}},
        {"$!SETSTYLEVALUE ExportSetup ExportFName = 'a \"b\" \\\\ c\\n'",
         {"$!SETSTYLEVALUE ExportSetup ExportFName = \"a \\\"b\\\" \\\\ c\\n\""}},
        {"$!plottype = xyline", {"$!PLOTTYPE = XYLINE"}},
        {"$!NEWFRAME HEIGHT=4 X=1", {"$!NEWFRAME X = 1 HEIGHT = 4"}},
        {"$!newframe", {"$!NEWFRAME"}},
        {"$!LOADDATA FILE='mesh.stl'", {"$!LOADDATA FILE = \"" + folder + "/mesh.stl\""}},
        {"$!LOADADDON '" + module + "'", {"$!LOADADDON \"" + module + "\""}},
        {"$!EXPORTSETUP exportfname = \"movie.avi\"",
         {"$!EXPORTSETUP exportfname = \"" + folder + "/movie.avi\""}},
        {"$!loaddata demo\n$!EXPORTSETUP ImageWidth = 32\n$!exportstart\n$!exportnextframe\n$!exportfinish",
         {"$!LOADDATA DEMO", "$!EXPORTSETUP ImageWidth = 32", "$!EXPORTSTART", "$!EXPORTNEXTFRAME",
          "$!EXPORTFINISH"}},
        {"$!LOADDATA DEMO\n$!exportstart\n$!exportcancel",
         {"$!LOADDATA DEMO", "$!EXPORTSTART", "$!EXPORTCANCEL"}},
        {"$!LOADDATA DEMO\n$!EXPORTSETUP ExportFormat = PNG\n$!EXPORTSETUP ExportFName = \"s.png\"\n$!export",
         {"$!LOADDATA DEMO", "$!EXPORTSETUP ExportFormat = PNG",
          "$!EXPORTSETUP ExportFName = \"" + folder + "/s.png\"", "$!EXPORT"}},
        // A failing command is not recorded; what ran before it is.
        {"$!redraw\n$!ROTATE3DVIEW PSI = oops", {"$!REDRAW"}},
        // clang-format on
    };
    EXPECT_EQ(MacroResult::Status::Failed, Run(cases[0].first).status);
    EXPECT_THAT(host::recordedMacroLines(), ::testing::IsEmpty()) << "recording is off";
    for (const auto& [lines, recorded] : cases)
    {
        Fresh();
        host::setExportSetupFromText("ExportFormat", "RASTERMETAFILE");
        host::setExportSetupFromText("ExportFName", "\"" + folder + "/default.rmf\"");
        host::setMacroRecording(true);
        Run(lines);
        EXPECT_EQ(recorded, host::recordedMacroLines()) << lines;
    }
}

Texts OwnReceived;
Boolean OwnCommand(char* text, char**)
{
    OwnReceived.emplace_back(text);
    // The add-on's copy, to change as it likes.
    std::fill(text, text + std::char_traits<char>::length(text), 'x');
    return TRUE;
}

TEST_F(MacroRecordingTest, AddOnIdsComeBackUnchangedTooAndEachIdTakesOneCallback)
{
    const char* const ids[] = {"it's \"odd\"", "back\\slash\\", "line\nbreak\r", " blanks "};
    static const bool registered =
        std::all_of(std::begin(ids), std::end(ids),
                    [](const char* id) { return VtxUtilMacroAddCommandCallback(id, OwnCommand); });
    ASSERT_TRUE(registered);
    host::setMacroRecording(true);
    for (const char* id : ids)
        VtxUtilMacroRecordExtCommand(id, id);
    const fs::path macro = m_folder / "ids.mcr";
    host::writeRecordedMacro(macro.string());
    OwnReceived.clear();
    for (int replay = 0; replay < 2; ++replay)
        ASSERT_EQ("", host::runMacroFile(macro.string()).message);
    EXPECT_THAT(OwnReceived, ElementsAre(ids[0], ids[1], ids[2], ids[3], ids[0], ids[1], ids[2], ids[3]));

    const MacroTestAddOn addOn; // registered under its id when it started
    const long registrationsBefore = host::callCount("VtxUtilMacroAddCommandCallback");
    for (const char* id : {MacroTestAddOn::ID, static_cast<const char*>(nullptr), ""})
        EXPECT_FALSE(VtxUtilMacroAddCommandCallback(id, OwnCommand)) << (id ? id : "no id");
    EXPECT_FALSE(VtxUtilMacroAddCommandCallback("Nobody Yet", nullptr));
    EXPECT_EQ(registrationsBefore + 4, host::callCount("VtxUtilMacroAddCommandCallback"));
    // The first registration stays in charge.
    ASSERT_TRUE(Run("$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = 'still mine'\n").ok());
    EXPECT_THAT(addOn.received(), ElementsAre("still mine"));
}

TEST_F(MacroRecordingTest, AddOnAndHostTextsComeBackUnchangedThroughAMacroFile)
{
    // The add-on's command texts, and "ExportFName", which takes any text but the empty one, to carry the
    // texts through the host's own commands, written in the macro language's double quotation marks as its
    // grammar says.
    const auto quoted = [](const std::string& text)
    {
        std::string quoted = "\"";
        for (const char c : text)
            quoted += c == '"'    ? "\\\""
                      : c == '\\' ? "\\\\"
                      : c == '\n' ? "\\n"
                      : c == '\r' ? "\\r"
                                  : std::string(1, c);
        return quoted + "\"";
    };
    const auto fileName = [] { return std::get<std::string>(host::style({"ExportSetup", "ExportFName"})); };
    const MacroTestAddOn addOn;
    const Texts texts = AwkwardTexts(400);
    Texts hostTexts;
    std::copy_if(texts.begin(), texts.end(), std::back_inserter(hostTexts),
                 [](auto& text) { return !text.empty(); });
    host::setMacroRecording(true);
    for (const std::string& text : texts)
        ASSERT_TRUE(VtxUtilMacroRecordExtCommand(MacroTestAddOn::ID, text.c_str()));
    for (const std::string& text : hostTexts)
    {
        const MacroResult result = Run("$!SETSTYLEVALUE ExportSetup ExportFName = " + quoted(text));
        ASSERT_TRUE(result.ok()) << result.message;
        ASSERT_EQ(text, fileName());
    }
    const Texts recorded = host::recordedMacroLines();
    ASSERT_EQ(texts.size() + hostTexts.size(), recorded.size());
    const fs::path macro = m_folder / "texts.mcr", again = m_folder / "again.mcr";
    host::writeRecordedMacro(macro.string());
    addOn.forget();
    // Replayed, each text reaches the add-on unchanged; the add-on records it again, to the same line.
    EXPECT_EQ(recorded, Rerecord(macro));
    EXPECT_EQ(texts, addOn.received());
    host::writeRecordedMacro(again.string());
    EXPECT_EQ(ReadFile(macro), ReadFile(again));
    EXPECT_EQ(hostTexts.back(), fileName());
}

TEST_F(MacroRecordingTest, TheRecordedMacroIsWrittenWithItsHeaderOrRefusedWithTheReason)
{
    const std::string unwritable = (m_folder / "no" / "such" / "folder.mcr").string();
    EXPECT_THROW_MSG(host::writeRecordedMacro(unwritable), std::runtime_error,
                     "cannot write " + unwritable + ": No such file or directory");
    host::setMacroRecording(true);
    ASSERT_TRUE(Run("$!REDRAW\n$!ROTATE3DVIEW PSI = 1\n").ok());
    VtxUtilMacroRecordRawCommand("$!EXPORTSETUP ExportFormat = AVI");
    EXPECT_EQ("#!VTXMACRO 1\n$!REDRAW\n$!ROTATE3DVIEW PSI = 1\n$!EXPORTSETUP ExportFormat = AVI\n",
              host::recordedMacroText());
    const fs::path file = m_folder / "out.mcr", broken = m_folder / "broken.mcr";
    host::writeRecordedMacro(file.string());
    EXPECT_EQ(host::recordedMacroText(), ReadFile(file));

    VtxUtilMacroRecordRawCommand("$!REDRAW\n$!REDRAW");
    EXPECT_THROW_MSG(
        host::writeRecordedMacro(broken.string()), std::runtime_error,
        "recorded macro line 4 holds a line break, which a macro file cannot carry: $!REDRAW\n$!REDRAW");
    EXPECT_FALSE(fs::exists(broken));
    host::reset();
    EXPECT_EQ("#!VTXMACRO 1\n", host::recordedMacroText());
}

// Host strings: the buffers add-ons get from VtxUtilStringAlloc, counted until released, and the protocol
// errors of releasing what the host never gave out. That the host releases the error messages add-ons make
// with them is checked with the failing macro commands above.
TEST_F(MacroHostStringsTest, AStringHasRoomForItsLengthAndItsEndStartsEmptyAndIsCountedUntilReleased)
{
    const std::vector<int> lengths = {0, 1, 15, 29, 1000, 100000};
    std::vector<char*> texts;
    for (const int length : lengths)
    {
        texts.push_back(VtxUtilStringAlloc(length, length % 2 ? "test" : nullptr));
        ASSERT_NE(nullptr, texts.back());
        EXPECT_EQ(long(texts.size()), host::outstandingHostStrings());
        EXPECT_EQ(std::string(length + 1, '\0'), std::string(texts.back(), length + 1)) << length;
    }
    EXPECT_EQ(nullptr, VtxUtilStringAlloc(-1, "test"));
    for (std::size_t i = 0; i < texts.size(); ++i)
    {
        VtxUtilStringDealloc(&texts[(i + 3) % texts.size()]);
        EXPECT_EQ(nullptr, texts[(i + 3) % texts.size()]);
        EXPECT_EQ(long(texts.size() - i - 1), host::outstandingHostStrings());
    }
    EXPECT_EQ(std::make_pair(7L, 6L),
              std::make_pair(host::callCount("VtxUtilStringAlloc"), host::callCount("VtxUtilStringDealloc")));
}

TEST_F(MacroHostStringsTest, ReleasingWhatTheHostNeverGaveOutIsAProtocolErrorAndNothingIsFine)
{
    char own[] = "mine";
    char* notTheHosts = own;
    char* text = VtxUtilStringAlloc(5, "test");
    char* again = text;
    VtxUtilStringDealloc(&text);
    VtxUtilStringDealloc(&again);       // released already
    VtxUtilStringDealloc(&notTheHosts); // never the host's
    char* const inside = VtxUtilStringAlloc(8, "test") + 1;
    char* insideCopy = inside;
    VtxUtilStringDealloc(&insideCopy); // not the start of a host string
    // The pointers are left to their owners.
    EXPECT_EQ(std::make_pair(own, inside), std::make_pair(notTheHosts, insideCopy));
    const std::string error = "a string was released that the host never gave out (or released already)";
    EXPECT_THAT(host::hostErrors(), ElementsAre(error, error, error));
    host::clearHostErrors();
    char* none = nullptr;
    VtxUtilStringDealloc(&none);
    VtxUtilStringDealloc(nullptr);
    EXPECT_EQ(1, host::outstandingHostStrings());

    // A string from before a reset stays valid but is no longer counted.
    host::reset();
    EXPECT_EQ(0, host::outstandingHostStrings());
    char* fresh = VtxUtilStringAlloc(4, "test");
    char* old = inside - 1;
    VtxUtilStringDealloc(&old);
    EXPECT_EQ(nullptr, old);
    EXPECT_EQ(1, host::outstandingHostStrings()) << "only the fresh string is counted";
    VtxUtilStringDealloc(&fresh);
}

} // namespace
