// The host's macro language: every command's effect on the host, the errors that stop a replay with the
// file, line and reason, and the header check.
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
#include <sstream>
#include <strings.h>

namespace
{

namespace fs = std::filesystem;
namespace host = vantix::host;
using host::MacroResult;
using testsupport::MacroTestAddOn;
using testsupport::WriteFile;

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

    void TearDown() override
    {
        if (VtxUtilExportIsRecording())
            VtxUtilExportCancel();
        HostTest::TearDown();
    }

    testsupport::TempFolder m_temp;
    const fs::path& m_folder = m_temp.path();
};

// What the command lines changed, named as in the table below: "time", "redraws", "frames", "plot type",
// "placement" (the active frame's, "=" where it is the first frame's), "turn" (the view's angles since
// before), "viewer" (still, orbiting the origin, or moved), or by default the style setting the last line
// sets, named by the words before its "=" ($!EXPORTSETUP sets ExportSetup's).
host::StyleData Probe(const std::string& what, const std::string& lines, const host::ViewState& before)
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
    if (what == "frames")
        return VtxUtilFrameGetCount();
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
    else if (what == "turn")
        text << round(now.psi - before.psi) << ' ' << round(now.theta - before.theta) << ' '
             << round(now.alpha - before.alpha);
    else if (what == "viewer")
        text << (std::hypot(now.x - before.x, now.y - before.y, now.z - before.z) < 1e-9 ? "still"
                 : std::abs(distance(now) - distance(before)) < 1e-9                     ? "orbiting"
                                                                                         : "moved");
    else
    {
        std::istringstream words(lines.substr(lines.rfind('\n') + 1));
        std::string command, word;
        std::vector<std::string> path;
        words >> command;
        if (strcasecmp(command.c_str(), "$!EXPORTSETUP") == 0)
            path.push_back("ExportSetup");
        while (words >> word && word != "=")
            path.push_back(word);
        return host::style(path);
    }
    return text.str();
}

TEST_F(MacroCommandTest, EachCommandActsOnTheHost)
{
    const std::string folder = m_folder.string(), up = m_folder.parent_path().string();
    const std::tuple<std::string, std::string, host::StyleData> cases[] = {
        // clang-format off
        {"$!ROTATE3DVIEW PSI = 30", "turn", "30 0 0"},
        {"$!ROTATE3DVIEW PSI = 30", "viewer", "orbiting"},
        {"$!rotate3dview theta=-45", "turn", "0 -45 0"},
        {"$!ROTATE3DVIEW ALPHA = 12.5", "turn", "0 0 12.5"},
        {"$!ROTATE3DVIEW PSI = 10\n$!ROTATE3DVIEW PSI = -10", "turn", "0 0 0"},
        {"$!SOLUTIONTIME = 2.5", "time", 2.5},
        {"$!SolutionTime = -1e3", "time", -1000.0},
        {"$!REDRAW", "redraws", 1},
        {"$!REDRAW\n  $!REDRAW  ", "redraws", 2},
        {"# a comment\n\n   # an indented comment\n\t\n$!REDRAW", "redraws", 1},
        {"$!PLOTTYPE = XYLINE", "plot type", int(PlotType_XYLine)},
        {"$!PLOTTYPE = cartesian2d", "plot type", int(PlotType_Cartesian2D)},
        {"$!PLOTTYPE = SKETCH", "plot type", int(PlotType_Sketch)},
        {"$!PLOTTYPE = POLARLINE", "plot type", int(PlotType_PolarLine)},
        {"$!PLOTTYPE = AUTOMATIC", "plot type", int(PlotType_Automatic)},
        {"$!PLOTTYPE = XYLINE\n$!PLOTTYPE=CARTESIAN3D", "plot type", int(PlotType_Cartesian3D)},
        {"$!NEWFRAME X = 1 Y = 2 WIDTH = 3 HEIGHT = 4", "frames", 2},
        {"$!NEWFRAME X = 1 Y = 2 WIDTH = 3 HEIGHT = 4", "placement", "1 2 3 4 "},
        {"$!NEWFRAME height=5.5", "placement", "= = = 5.5 "}, // what is not given is the host's default
        {"$!PLOTTYPE = SKETCH\n$!NEWFRAME", "plot type", int(PlotType_Cartesian3D)},
        {"$!SETSTYLEVALUE ThreeDView PSIAngle = 30", "", 30.0},
        {"$!SETSTYLEVALUE ThreeDView PSIAngle = 30", "viewer", "still"}, // written by style, no orbit
        {"$!SETSTYLEVALUE threedview viewerposition z = -7", "", -7.0},
        {"$!SETSTYLEVALUE Interface UseDisplayLists = FALSE", "", false},
        {"$!SETSTYLEVALUE ThreeDView DrawInPerspective = true", "", true},
        {"$!SETSTYLEVALUE GlobalThreeD LightSource Intensity = 50", "", 50.0},
        {"$!SETSTYLEVALUE ExportSetup ImageWidth = 640", "", 640},
        {"$!SETSTYLEVALUE ExportSetup ExportFormat = 21", "", int(ExportFormat_MPEG4)},
        {R"($!SETSTYLEVALUE ExportSetup ExportFName = "it's a \"name\" \\ with\nbreaks")", "",
         "it's a \"name\" \\ with\nbreaks"},
        {"$!EXPORTSETUP ExportFormat = AVI", "", int(ExportFormat_AVI)},
        {"$!EXPORTSETUP AnimationSpeed = 30", "", 30.0},
        {"$!EXPORTSETUP UseSuperSampleAntiAliasing = true", "", true},
        {"$!exportsetup   ImageWidth   =   1280  ", "", 1280},
        // An export file name is taken from the macro's folder.
        {"$!EXPORTSETUP ExportFName = \"movie.avi\"", "", folder + "/movie.avi"},
        {"$!EXPORTSETUP ExportFName = \"/somewhere/else.avi\"", "", "/somewhere/else.avi"},
        {"$!EXPORTSETUP ExportFName = \"../up/movie.avi\"", "", up + "/up/movie.avi"},
        // clang-format on
    };
    for (const auto& [lines, what, expected] : cases)
    {
        Fresh();
        const auto before = host::view();
        const MacroResult result = Run(lines);
        ASSERT_TRUE(result.ok()) << lines << ": " << result.message;
        EXPECT_EQ(expected, Probe(what, lines, before)) << lines;
    }
}

TEST_F(MacroCommandTest, AMeshFileLoadsIntoTheActiveFrameAndRelativePathsAreTakenFromTheMacrosFolder)
{
    // A relative file name is taken from the macro's folder, not from the current folder.
    fs::create_directories(m_folder / "job");
    WriteFile(m_folder / "job" / "triangle.stl",
              "solid t\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\n"
              "vertex 1 0 0\nvertex 0 1 0\nendloop\nendfacet\nendsolid t\n");
    WriteFile(m_folder / "job" / "load.mcr", "#!VTXMACRO 1\n$!NEWFRAME\n$!LOADDATA FILE = \"triangle.stl\"\n"
                                             "$!EXPORTSETUP ExportFName = \"out.png\"\n");
    const MacroResult result = host::runMacroFile((m_folder / "job" / "load.mcr").string());
    ASSERT_TRUE(result.ok()) << result.message;
    ASSERT_EQ(1u, host::zones().size());
    EXPECT_EQ(1u, host::zones()[0].elementCount);
    EXPECT_EQ(2, VtxUtilFrameGetCount());
    EXPECT_EQ((m_folder / "job" / "out.png").string(),
              std::get<std::string>(host::style({"ExportSetup", "ExportFName"})));
}

TEST_F(MacroCommandTest, ExportCommandsWriteTheMovieAndTheStillImage)
{
    const MacroResult movie = Run("$!LOADDATA DEMO\n$!EXPORTSETUP ExportFormat = RASTERMETAFILE\n"
                                  "$!EXPORTSETUP ImageWidth = 64\n$!EXPORTSETUP ExportFName = \"movie.rmf\"\n"
                                  "$!EXPORTSTART\n$!ROTATE3DVIEW THETA = 10\n$!EXPORTNEXTFRAME\n"
                                  "$!ROTATE3DVIEW THETA = 10\n$!EXPORTNEXTFRAME\n$!EXPORTFINISH\n");
    ASSERT_TRUE(movie.ok()) << movie.message;
    const auto contents = host::readRasterMetafile((m_folder / "movie.rmf").string());
    EXPECT_EQ(64, contents.width);
    ASSERT_EQ(3u, contents.frames.size());
    EXPECT_NE(contents.frames[0], contents.frames[1]);

    const MacroResult cancelled = Run("$!EXPORTSETUP ExportFName = \"cancelled.rmf\"\n"
                                      "$!EXPORTSTART\n$!EXPORTNEXTFRAME\n$!EXPORTCANCEL\n");
    ASSERT_TRUE(cancelled.ok()) << cancelled.message;
    EXPECT_FALSE(fs::exists(m_folder / "cancelled.rmf"));
    EXPECT_FALSE(VtxUtilExportIsRecording());

    const MacroResult still =
        Run("$!EXPORTSETUP ExportFormat = PNG\n$!EXPORTSETUP ExportFName = \"still.png\"\n$!EXPORT\n");
    ASSERT_TRUE(still.ok()) << still.message;
    EXPECT_GT(fs::file_size(m_folder / "still.png"), 0u);
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
        {(m_folder / "missing.so").string(), "cannot open shared object file: No such file or directory"},
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
    const std::string folder = m_folder.string();
    // The failing command is the last line; one before it leads to it.
    const std::pair<std::string, std::string> cases[] = {
        // clang-format off
        {"REDRAW", "a command must begin with $!"},
        {"$!", "a command word must follow $!"},
        {"$! REDRAW", "a command word must follow $!"},
        {"$!FROBNICATE", "unknown command $!FROBNICATE"},
        {"$!REDRAW now", "$!REDRAW: expected the end of the line, found \"now\""},
        {"$!EXPORTSTART =", "$!EXPORTSTART: expected the end of the line, found \"=\""},
        {"$!ROTATE3DVIEW X = 30", "$!ROTATE3DVIEW: expected PSI, THETA or ALPHA, found \"X\""},
        {"$!ROTATE3DVIEW PSI 30", "$!ROTATE3DVIEW: expected \"=\", found \"30\""},
        {"$!ROTATE3DVIEW PSI =",
         "$!ROTATE3DVIEW: expected a number for the angle, found the end of the line"},
        {"$!ROTATE3DVIEW PSI = thirty", "$!ROTATE3DVIEW: expected a number for the angle, found \"thirty\""},
        {"$!ROTATE3DVIEW PSI = 0x10", "$!ROTATE3DVIEW: expected a number for the angle, found \"0x10\""},
        {"$!ROTATE3DVIEW PSI = nan", "$!ROTATE3DVIEW: expected a number for the angle, found \"nan\""},
        {"$!ROTATE3DVIEW PSI = 1e999", "$!ROTATE3DVIEW: expected a number for the angle, found \"1e999\""},
        {"$!ROTATE3DVIEW PSI = 10 THETA = 10",
         "$!ROTATE3DVIEW: expected the end of the line, found \"THETA\""},
        {"$!PLOTTYPE = XYLINE\n$!ROTATE3DVIEW PSI = 10",
         "the view cannot be rotated: the active frame is not a 3D plot"},
        {"$!SOLUTIONTIME 3", "$!SOLUTIONTIME: expected \"=\", found \"3\""},
        {"$!PLOTTYPE = POLAR", "$!PLOTTYPE: expected CARTESIAN3D, CARTESIAN2D, XYLINE, SKETCH, POLARLINE or "
                               "AUTOMATIC, found \"POLAR\""},
        {"$!NEWFRAME WIDTH = 0", "$!NEWFRAME: WIDTH must be greater than 0"},
        {"$!NEWFRAME HEIGHT = -2", "$!NEWFRAME: HEIGHT must be greater than 0"},
        {"$!NEWFRAME X = 1 X = 2", "$!NEWFRAME: X is given twice"},
        {"$!NEWFRAME DEPTH = 1", "$!NEWFRAME: expected X, Y, WIDTH or HEIGHT, found \"DEPTH\""},
        {"$!LOADDATA", "$!LOADDATA: expected DEMO or FILE, found the end of the line"},
        {"$!LOADDATA FILE = mesh.stl", "$!LOADDATA: expected a quoted file name, found \"mesh.stl\""},
        {"$!LOADDATA FILE = \"\"", "$!LOADDATA: the file name is empty"},
        {"$!LOADDATA DEMO please", "$!LOADDATA: expected the end of the line, found \"please\""},
        {"$!LOADDATA FILE = \"missing.stl\"",
         "cannot read mesh file '" + folder + "/missing.stl': no such file"},
        {"$!SETSTYLEVALUE ThreeDView Nothing = 1", "unknown style setting ThreeDView/Nothing"},
        {"$!SETSTYLEVALUE ThreeDView = 1", "unknown style setting ThreeDView"},
        {"$!SETSTYLEVALUE ThreeDView PSIAngle = TRUE",
         "ThreeDView/PSIAngle takes a number, not a switch (TRUE)"},
        {"$!SETSTYLEVALUE ThreeDView PSIAngle = \"thirty\"",
         "ThreeDView/PSIAngle takes a number, not a quoted text (\"thirty\")"},
        {"$!SETSTYLEVALUE Interface UseDisplayLists = 1",
         "Interface/UseDisplayLists takes a switch (TRUE or FALSE), not a number (1)"},
        {"$!SETSTYLEVALUE ExportSetup ImageWidth = 640.5",
         "ExportSetup/ImageWidth takes a whole number, not a number (640.5)"},
        {"$!SETSTYLEVALUE ExportSetup ExportFormat = 3", "ExportSetup/ExportFormat refused the value 3"},
        {"$!SETSTYLEVALUE ThreeDView ViewWidth = -1", "ThreeDView/ViewWidth refused the value -1"},
        {"$!PLOTTYPE = SKETCH\n$!SETSTYLEVALUE ThreeDView PSIAngle = 1",
         "ThreeDView/PSIAngle cannot be set in the present state of the host (the view settings need an "
         "active 3D frame)"},
        {"$!SETSTYLEVALUE ThreeDView PSIAngle = abc",
         "$!SETSTYLEVALUE: expected a number, TRUE, FALSE or a quoted text, found \"abc\""},
        {"$!SETSTYLEVALUE a b c d e f g h = 1",
         "$!SETSTYLEVALUE: a style setting is named by at most seven names"},
        {"$!SETSTYLEVALUE = 1", "$!SETSTYLEVALUE: expected a style setting's name, found \"=\""},
        {"$!SETSTYLEVALUE ExportSetup ExportFName = 'it''s'",
         "$!SETSTYLEVALUE: expected the end of the line, found the quoted text \"s\""},
        {"$!SETSTYLEVALUE ThreeDView PSIAngle = 1 2",
         "$!SETSTYLEVALUE: expected the end of the line, found \"2\""},
        {"$!EXPORTSETUP ExportFormat", "$!EXPORTSETUP: expected <name> = <value>"},
        {"$!EXPORTSETUP = AVI", "$!EXPORTSETUP: expected one word as the export setting's name before \"=\""},
        {"$!EXPORTSETUP Export Format = AVI",
         "$!EXPORTSETUP: expected one word as the export setting's name before \"=\""},
        {"$!EXPORTSETUP ExportFormat =  ", "$!EXPORTSETUP: the value of ExportFormat is missing"},
        {"$!EXPORTSETUP ExportFormat = GIF", "'GIF' is not a keyword for ExportFormat"},
        {"$!EXPORTNEXTFRAME", "the next frame could not be exported: no export is in progress"},
        {"$!EXPORTFINISH", "the export could not be finished: no export is in progress"},
        {"$!EXPORTSETUP ExportFormat = PNG\n$!EXPORTSTART",
         "the export could not be started: the export format does not hold an animation"},
        {"$!EXPORTSETUP ExportFormat = AVI\n$!EXPORT",
         "the export format holds an animation: start an export to write it"},
        {"$!ADDONCOMMAND ADDONID = 'Nobody' COMMAND = 'x'",
         "no add-on has registered macro commands under the id 'Nobody'"},
        {"$!ADDONCOMMAND ADDONID = 'Macro Test Add-On'", "$!ADDONCOMMAND: COMMAND is missing"},
        {"$!ADDONCOMMAND COMMAND = 'x'", "$!ADDONCOMMAND: ADDONID is missing"},
        {"$!ADDONCOMMAND ADDONID = 'a' ADDONID = 'b' COMMAND = 'x'",
         "$!ADDONCOMMAND: ADDONID is given twice"},
        {"$!ADDONCOMMAND ADDONID = Macro COMMAND = 'x'",
         "$!ADDONCOMMAND: expected a quoted text, found \"Macro\""},
        {"$!ADDONCOMMAND ADDONID = 'x' COMMAND = 'not closed",
         "$!ADDONCOMMAND: a quoted text has no closing '"},
        {"$!ADDONCOMMAND ADDONID = 'x' COMMAND = 'ends in \\'",
         "$!ADDONCOMMAND: a quoted text has no closing '"},
        {"$!ADDONCOMMAND ADDONID = 'x' COMMAND = 'a \\t b'",
         "$!ADDONCOMMAND: unknown escape \\t in a quoted text (known: \\\\ \\' \\\" \\n \\r)"},
        {"$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = 'fail it broke'", "it broke"},
        {"$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = 'fail two\\nlines'", "two\nlines"},
        {"$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = 'fail-silently'",
         "add-on 'Macro Test Add-On' refused the command without saying why"},
        {"$!LOADADDON", "$!LOADADDON: expected a quoted module file name, found the end of the line"},
        {"$!LOADADDON \"nothing.so\"",
         "cannot load the add-on module " + folder + "/nothing.so: cannot open shared object file: No such "
         "file or directory"},
        // clang-format on
    };
    for (const auto& [lines, reason] : cases)
    {
        SCOPED_TRACE(lines);
        Fresh();
        // A comment and a blank line count as lines too.
        const MacroResult result = Run("# a comment\n\n$!REDRAW\n" + lines + "\n$!REDRAW\n");
        const int line = 5 + int(std::count(lines.begin(), lines.end(), '\n'));
        EXPECT_EQ(MacroResult::Status::Failed, result.status);
        EXPECT_EQ(line, result.line);
        EXPECT_EQ("test.mcr:" + std::to_string(line) + ": " + reason, result.message);
        EXPECT_EQ(1, host::redrawCount()) << "the commands before the failure ran, and none after it";
        EXPECT_EQ(0, host::outstandingHostStrings()) << "the host released the message an add-on made";
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
    // clang-format off
    const std::pair<const char*, bool> texts[] = {
        {"", false}, {"\n$!REDRAW\n", false}, {"$!REDRAW\n", false}, {"#!VTXMACRO 2\n$!REDRAW\n", false},
        {"#!vtxmacro 1\n$!REDRAW\n", false}, {" #!VTXMACRO 1\n$!REDRAW\n", false}, {"#!VTXMACRO 1 x\n",
         false},
        {"#!VTXMACRO1\n", false}, {"#!VTXMACRO 1\n$!REDRAW\n", true}, {"#!VTXMACRO 1\r\n$!REDRAW\r\n", true},
        {"#!VTXMACRO 1  \t\n$!REDRAW", true}, {"#!VTXMACRO 1\n\n\n$!REDRAW\n\n", true}};
    // clang-format on
    for (const auto& [text, macro] : texts)
    {
        SCOPED_TRACE(text);
        Fresh();
        const fs::path file = m_folder / "file.mcr";
        WriteFile(file, text);
        const MacroResult result = host::runMacroFile(file.string());
        EXPECT_EQ(macro ? MacroResult::Status::Ok : MacroResult::Status::NotAMacro, result.status);
        EXPECT_EQ(macro ? 0 : 1, result.line);
        EXPECT_EQ(macro ? ""
                        : file.string() + ":1: not a Vantix macro: the first line must be \"#!VTXMACRO 1\"",
                  result.message);
        EXPECT_EQ(macro ? 1 : 0, host::redrawCount());
    }
    const std::string missing = (m_folder / "missing.mcr").string();
    const MacroResult unreadable = host::runMacroFile(missing);
    EXPECT_EQ(MacroResult::Status::Unreadable, unreadable.status);
    EXPECT_EQ(0, unreadable.line);
    EXPECT_EQ(missing + ": cannot read the macro file: No such file or directory", unreadable.message);
    EXPECT_EQ(m_folder.string() + ": cannot read the macro file: it is a folder",
              host::runMacroFile(m_folder.string()).message);
}

} // namespace
