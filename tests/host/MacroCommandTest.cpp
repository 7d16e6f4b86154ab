// The host's macro language: every command's effect on the host, the errors that stop a replay with the
// file, line and reason, and the header check.
#include "support/HostTest.h"
#include "support/TempFolder.h"

#include "host/modules/MacroTestAddOn.h"

#include <VtxUtil.h>
#include <vantix/host/Export.h>
#include <vantix/host/Host.h>
#include <vantix/host/Macro.h>
#include <vantix/host/Scene.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace
{

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using testsupport::HostTest;
using testsupport::MacroTestAddOn;
using testsupport::ReadFile;
using testsupport::TempFolder;
using testsupport::WriteFile;
using vantix::host::MacroResult;

// One triangle, the smallest mesh the data loader reads.
void WriteTriangleStl(const fs::path& path)
{
    WriteFile(path, "solid t\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 1 0\n"
                    "endloop\nendfacet\nendsolid t\n");
}

class MacroCommandTest : public HostTest
{
protected:
    // Runs lines after the header as the macro "test.mcr" in the test's folder.
    MacroResult Run(const std::string& lines)
    {
        return vantix::host::runMacroText(std::string(vantix::host::MacroHeader) + "\n" + lines, "test.mcr",
                                          m_folder.path().string());
    }

    void TearDown() override
    {
        if (VtxUtilExportIsRecording())
            VtxUtilExportCancel();
        HostTest::TearDown();
    }

    TempFolder m_folder;
};

double Distance(const vantix::host::ViewState& v)
{
    return std::sqrt((v.x - v.originX) * (v.x - v.originX) + (v.y - v.originY) * (v.y - v.originY) +
                     (v.z - v.originZ) * (v.z - v.originZ));
}

// ---- Each command's effect -------------------------------------------------------------------------------

struct CommandCase
{
    const char* lines;
    std::function<void(const vantix::host::ViewState& before)> check;
};

TEST_F(MacroCommandTest, EachCommandActsOnTheHost)
{
    using vantix::host::style;
    using vantix::host::view;
    const CommandCase cases[] = {
        {"$!ROTATE3DVIEW PSI = 30",
         [](const auto& before)
         {
             EXPECT_DOUBLE_EQ(before.psi + 30, view().psi);
             EXPECT_DOUBLE_EQ(before.theta, view().theta);
             EXPECT_NEAR(Distance(before), Distance(view()), 1e-9); // the viewer orbits the origin
             EXPECT_NE(before.z, view().z);
         }},
        {"$!rotate3dview theta=-45",
         [](const auto& before) { EXPECT_DOUBLE_EQ(before.theta - 45, view().theta); }},
        {"$!ROTATE3DVIEW ALPHA = 12.5",
         [](const auto& before) { EXPECT_DOUBLE_EQ(before.alpha + 12.5, view().alpha); }},
        {"$!ROTATE3DVIEW PSI = 10\n$!ROTATE3DVIEW PSI = -10",
         [](const auto& before) { EXPECT_NEAR(before.psi, view().psi, 1e-9); }},
        {"$!SOLUTIONTIME = 2.5", [](const auto&) { EXPECT_EQ(2.5, VtxUtilSolutionTimeGetCurrent()); }},
        {"$!SolutionTime = -1e3", [](const auto&) { EXPECT_EQ(-1000.0, VtxUtilSolutionTimeGetCurrent()); }},
        {"$!REDRAW", [](const auto&) { EXPECT_EQ(1, vantix::host::redrawCount()); }},
        {"$!REDRAW\n  $!REDRAW  ", [](const auto&) { EXPECT_EQ(2, vantix::host::redrawCount()); }},
        {"$!PLOTTYPE = XYLINE", [](const auto&) { EXPECT_EQ(PlotType_XYLine, VtxUtilFrameGetPlotType()); }},
        {"$!PLOTTYPE = cartesian2d",
         [](const auto&) { EXPECT_EQ(PlotType_Cartesian2D, VtxUtilFrameGetPlotType()); }},
        {"$!PLOTTYPE = SKETCH", [](const auto&) { EXPECT_EQ(PlotType_Sketch, VtxUtilFrameGetPlotType()); }},
        {"$!PLOTTYPE = POLARLINE",
         [](const auto&) { EXPECT_EQ(PlotType_PolarLine, VtxUtilFrameGetPlotType()); }},
        {"$!PLOTTYPE = AUTOMATIC",
         [](const auto&) { EXPECT_EQ(PlotType_Automatic, VtxUtilFrameGetPlotType()); }},
        {"$!PLOTTYPE = XYLINE\n$!PLOTTYPE=CARTESIAN3D",
         [](const auto&) { EXPECT_EQ(PlotType_Cartesian3D, VtxUtilFrameGetPlotType()); }},
        {"$!NEWFRAME X = 1 Y = 2 WIDTH = 3 HEIGHT = 4",
         [](const auto&)
         {
             EXPECT_EQ(2, VtxUtilFrameGetCount());
             EXPECT_EQ(PlotType_Cartesian3D, VtxUtilFrameGetPlotType());
             const auto placement = vantix::host::framePlacement(vantix::host::activeFrame());
             EXPECT_EQ(1.0, placement.x);
             EXPECT_EQ(2.0, placement.y);
             EXPECT_EQ(3.0, placement.width);
             EXPECT_EQ(4.0, placement.height);
         }},
        {"$!NEWFRAME height=5.5",
         [](const auto&)
         {
             // What is not given is the host's default for a new frame.
             const UniqueID_t previous = vantix::host::frameStack().front();
             const auto defaults = vantix::host::framePlacement(previous);
             const auto placement = vantix::host::framePlacement(vantix::host::activeFrame());
             EXPECT_NE(previous, vantix::host::activeFrame());
             EXPECT_EQ(defaults.x, placement.x);
             EXPECT_EQ(defaults.y, placement.y);
             EXPECT_EQ(defaults.width, placement.width);
             EXPECT_EQ(5.5, placement.height);
         }},
        {"$!SETSTYLEVALUE ThreeDView PSIAngle = 30",
         [](const auto& before)
         {
             EXPECT_EQ(30.0, std::get<double>(style({"ThreeDView", "PSIAngle"})));
             EXPECT_EQ(before.x, view().x); // an angle written by style does not orbit
         }},
        {"$!SETSTYLEVALUE threedview viewerposition z = -7", [](const auto&) { EXPECT_EQ(-7.0, view().z); }},
        {"$!SETSTYLEVALUE Interface UseDisplayLists = FALSE",
         [](const auto&) {
             EXPECT_FALSE(std::get<bool>(style({"Interface", "UseDisplayLists"})));
         }},
        {"$!SETSTYLEVALUE ThreeDView DrawInPerspective = true",
         [](const auto&) { EXPECT_TRUE(view().perspective); }},
        {"$!SETSTYLEVALUE GlobalThreeD LightSource Intensity = 50",
         [](const auto&) {
             EXPECT_EQ(50.0, std::get<double>(style({"GlobalThreeD", "LightSource", "Intensity"})));
         }},
        {"$!SETSTYLEVALUE ExportSetup ImageWidth = 640",
         [](const auto&) {
             EXPECT_EQ(640, std::get<int>(style({"ExportSetup", "ImageWidth"})));
         }},
        {"$!SETSTYLEVALUE ExportSetup ExportFormat = 21",
         [](const auto&) {
             EXPECT_EQ(ExportFormat_MPEG4, std::get<int>(style({"ExportSetup", "ExportFormat"})));
         }},
        {"$!SETSTYLEVALUE ExportSetup ExportFName = \"it's a \\\"name\\\" \\\\ with\\nbreaks\"",
         [](const auto&)
         {
             EXPECT_EQ("it's a \"name\" \\ with\nbreaks",
                       std::get<std::string>(style({"ExportSetup", "ExportFName"})));
         }},
        {"$!EXPORTSETUP ExportFormat = AVI",
         [](const auto&) {
             EXPECT_EQ(ExportFormat_AVI, std::get<int>(style({"ExportSetup", "ExportFormat"})));
         }},
        {"$!EXPORTSETUP AnimationSpeed = 30",
         [](const auto&) {
             EXPECT_EQ(30.0, std::get<double>(style({"ExportSetup", "AnimationSpeed"})));
         }},
        {"$!EXPORTSETUP UseSuperSampleAntiAliasing = true",
         [](const auto&) {
             EXPECT_TRUE(std::get<bool>(style({"ExportSetup", "UseSuperSampleAntiAliasing"})));
         }},
        {"$!exportsetup   ImageWidth   =   1280  ",
         [](const auto&) {
             EXPECT_EQ(1280, std::get<int>(style({"ExportSetup", "ImageWidth"})));
         }},
        {"# a comment\n\n   # an indented comment\n\t\n$!REDRAW",
         [](const auto&) { EXPECT_EQ(1, vantix::host::redrawCount()); }},
    };
    for (const CommandCase& c : cases)
    {
        SCOPED_TRACE(c.lines);
        vantix::host::reset();
        vantix::host::addFrame(PlotType_Cartesian3D);
        const auto before = view();
        const MacroResult result = Run(c.lines);
        ASSERT_TRUE(result.ok()) << result.message;
        c.check(before);
    }
}

TEST_F(MacroCommandTest, AnExportFileNameIsTakenFromTheMacrosFolder)
{
    ASSERT_TRUE(Run("$!EXPORTSETUP ExportFName = \"movie.avi\"\n").ok());
    EXPECT_EQ((m_folder.path() / "movie.avi").string(),
              std::get<std::string>(vantix::host::style({"ExportSetup", "ExportFName"})));
    ASSERT_TRUE(Run("$!EXPORTSETUP ExportFName = \"/somewhere/else.avi\"\n").ok());
    EXPECT_EQ("/somewhere/else.avi",
              std::get<std::string>(vantix::host::style({"ExportSetup", "ExportFName"})));
    ASSERT_TRUE(Run("$!EXPORTSETUP ExportFName = \"../up/movie.avi\"\n").ok());
    EXPECT_EQ((m_folder.path().parent_path() / "up" / "movie.avi").string(),
              std::get<std::string>(vantix::host::style({"ExportSetup", "ExportFName"})));
}

TEST_F(MacroCommandTest, TheDemoDataSetAndMeshFilesLoadIntoTheActiveFrame)
{
    ASSERT_TRUE(Run("$!LOADDATA DEMO\n").ok());
    ASSERT_TRUE(vantix::host::hasDataSet());
    const std::size_t demoZones = vantix::host::zones().size();
    EXPECT_GT(demoZones, 2u);

    // A relative file name is taken from the macro's folder, not from the current folder.
    fs::create_directories(m_folder.path() / "meshes");
    WriteTriangleStl(m_folder.path() / "meshes" / "triangle.stl");
    ASSERT_TRUE(Run("$!NEWFRAME\n$!LOADDATA FILE = \"meshes/triangle.stl\"\n").ok());
    ASSERT_EQ(1u, vantix::host::zones().size());
    EXPECT_EQ(1u, vantix::host::zones()[0].elementCount);
    EXPECT_EQ(2, VtxUtilFrameGetCount());
}

TEST_F(MacroCommandTest, ExportCommandsWriteTheMovieAndTheStillImage)
{
    const std::string setup = "$!LOADDATA DEMO\n"
                              "$!EXPORTSETUP ExportFormat = RASTERMETAFILE\n"
                              "$!EXPORTSETUP ImageWidth = 64\n"
                              "$!EXPORTSETUP ExportFName = \"movie.rmf\"\n";
    const MacroResult movie = Run(setup + "$!EXPORTSTART\n"
                                          "$!ROTATE3DVIEW THETA = 10\n"
                                          "$!EXPORTNEXTFRAME\n"
                                          "$!ROTATE3DVIEW THETA = 10\n"
                                          "$!EXPORTNEXTFRAME\n"
                                          "$!EXPORTFINISH\n");
    ASSERT_TRUE(movie.ok()) << movie.message;
    const auto contents = vantix::host::readRasterMetafile((m_folder.path() / "movie.rmf").string());
    EXPECT_EQ(64, contents.width);
    ASSERT_EQ(3u, contents.frames.size());
    EXPECT_NE(contents.frames[0], contents.frames[1]);

    const MacroResult cancelled = Run("$!EXPORTSETUP ExportFName = \"cancelled.rmf\"\n"
                                      "$!EXPORTSTART\n$!EXPORTNEXTFRAME\n$!EXPORTCANCEL\n");
    ASSERT_TRUE(cancelled.ok()) << cancelled.message;
    EXPECT_FALSE(fs::exists(m_folder.path() / "cancelled.rmf"));
    EXPECT_FALSE(VtxUtilExportIsRecording());

    const MacroResult still = Run("$!EXPORTSETUP ExportFormat = PNG\n"
                                  "$!EXPORTSETUP ExportFName = \"still.png\"\n"
                                  "$!EXPORT\n");
    ASSERT_TRUE(still.ok()) << still.message;
    EXPECT_GT(fs::file_size(m_folder.path() / "still.png"), 0u);
}

TEST_F(MacroCommandTest, AddOnCommandsReachTheirAddOnWithTheTextUnescaped)
{
    const MacroTestAddOn addOn;
    const MacroResult result =
        Run("$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = 'first'\n"
            "$!addoncommand command='it\\'s \"quoted\" \\\\ and\\r\\nbroken' "
            "addonid='Macro Test Add-On'\n"
            "$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = ''\n"
            "$!ADDONCOMMAND ADDONID = \"Macro Test Add-On\" COMMAND = \"  blanks \"\n");
    ASSERT_TRUE(result.ok()) << result.message;
    EXPECT_THAT(addOn.received(),
                ::testing::ElementsAre("first", "it's \"quoted\" \\ and\r\nbroken", "", "  blanks "));
}

TEST_F(MacroCommandTest, LoadingAnAddOnStartsItOnceAndRegistersItsCommands)
{
    const MacroTestAddOn addOn;
    const int started = addOn.initCalls();
    EXPECT_GE(started, 1);
    const fs::path module(MacroTestAddOn::Path);
    // Another way to the same file is still the same module.
    const std::string roundabout =
        (module.parent_path() / ".." / module.parent_path().filename() / module.filename()).string();
    ASSERT_TRUE(Run("$!LOADADDON \"" + roundabout + "\"\n$!LOADADDON \"" + module.string() + "\"\n").ok());
    vantix::host::loadAddOnModule(module.string());
    EXPECT_EQ(started, addOn.initCalls());

    const auto addOns = vantix::host::registeredAddOns();
    EXPECT_EQ(1, std::count_if(addOns.begin(), addOns.end(),
                               [](const auto& info) { return info.name == MacroTestAddOn::ID; }));
}

TEST_F(MacroCommandTest, ModulesThatCannotBeStartedAreRefusedWithTheReason)
{
    WriteFile(m_folder.path() / "notamodule.so", "plain text\n");
    const fs::path sdk = fs::path(MacroTestAddOn::Path).parent_path() / "libvtxsdkbase.so";
    struct Case
    {
        std::string path;
        std::string reason;
    };
    const Case cases[] = {
        {(m_folder.path() / "missing.so").string(),
         "cannot open shared object file: No such file or directory"},
        {(m_folder.path() / "notamodule.so").string(), "file too short"},
        {sdk.string(), "it has no entry point InitVtxAddOn113"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.path);
        try
        {
            vantix::host::loadAddOnModule(c.path);
            ADD_FAILURE() << "the module was accepted";
        }
        catch (const std::runtime_error& error)
        {
            EXPECT_EQ("cannot load the add-on module " + c.path + ": " + c.reason, std::string(error.what()));
        }
    }
}

// ---- Errors ----------------------------------------------------------------------------------------------

struct ErrorCase
{
    std::string setup; // lines run before the bad one
    std::string line;
    std::string reason; // the whole reason, or its beginning when prefixOnly
    bool prefixOnly = false;
};

TEST_F(MacroCommandTest, AFailingCommandStopsTheReplayNamingFileLineAndReason)
{
    const MacroTestAddOn addOn;
    const std::string folder = m_folder.path().string();
    const std::vector<ErrorCase> cases = {
        {"", "REDRAW", "a command must begin with $!"},
        {"", "$!", "a command word must follow $!"},
        {"", "$! REDRAW", "a command word must follow $!"},
        {"", "$!FROBNICATE", "unknown command $!FROBNICATE"},
        {"", "$!REDRAW now", "$!REDRAW: expected the end of the line, found \"now\""},
        {"", "$!EXPORTSTART =", "$!EXPORTSTART: expected the end of the line, found \"=\""},
        {"", "$!ROTATE3DVIEW X = 30", "$!ROTATE3DVIEW: expected PSI, THETA or ALPHA, found \"X\""},
        {"", "$!ROTATE3DVIEW PSI 30", "$!ROTATE3DVIEW: expected \"=\", found \"30\""},
        {"", "$!ROTATE3DVIEW PSI =",
         "$!ROTATE3DVIEW: expected a number for the angle, found the end of the line"},
        {"", "$!ROTATE3DVIEW PSI = thirty",
         "$!ROTATE3DVIEW: expected a number for the angle, found \"thirty\""},
        {"", "$!ROTATE3DVIEW PSI = 0x10", "$!ROTATE3DVIEW: expected a number for the angle, found \"0x10\""},
        {"", "$!ROTATE3DVIEW PSI = nan", "$!ROTATE3DVIEW: expected a number for the angle, found \"nan\""},
        {"", "$!ROTATE3DVIEW PSI = 1e999",
         "$!ROTATE3DVIEW: expected a number for the angle, found \"1e999\""},
        {"", "$!ROTATE3DVIEW PSI = 10 THETA = 10",
         "$!ROTATE3DVIEW: expected the end of the line, found \"THETA\""},
        {"$!PLOTTYPE = XYLINE", "$!ROTATE3DVIEW PSI = 10",
         "the view cannot be rotated: the active frame is not a 3D plot"},
        {"", "$!SOLUTIONTIME 3", "$!SOLUTIONTIME: expected \"=\", found \"3\""},
        {"", "$!PLOTTYPE = POLAR",
         "$!PLOTTYPE: expected CARTESIAN3D, CARTESIAN2D, XYLINE, SKETCH, POLARLINE or AUTOMATIC, found "
         "\"POLAR\""},
        {"", "$!NEWFRAME WIDTH = 0", "$!NEWFRAME: WIDTH must be greater than 0"},
        {"", "$!NEWFRAME HEIGHT = -2", "$!NEWFRAME: HEIGHT must be greater than 0"},
        {"", "$!NEWFRAME X = 1 X = 2", "$!NEWFRAME: X is given twice"},
        {"", "$!NEWFRAME DEPTH = 1", "$!NEWFRAME: expected X, Y, WIDTH or HEIGHT, found \"DEPTH\""},
        {"", "$!LOADDATA", "$!LOADDATA: expected DEMO or FILE, found the end of the line"},
        {"", "$!LOADDATA FILE = mesh.stl", "$!LOADDATA: expected a quoted file name, found \"mesh.stl\""},
        {"", "$!LOADDATA FILE = \"\"", "$!LOADDATA: the file name is empty"},
        {"", "$!LOADDATA DEMO please", "$!LOADDATA: expected the end of the line, found \"please\""},
        {"", "$!LOADDATA FILE = \"missing.stl\"", folder + "/missing.stl", true},
        {"", "$!SETSTYLEVALUE ThreeDView Nothing = 1", "unknown style setting ThreeDView/Nothing"},
        {"", "$!SETSTYLEVALUE ThreeDView = 1", "unknown style setting ThreeDView"},
        {"", "$!SETSTYLEVALUE ThreeDView PSIAngle = TRUE",
         "ThreeDView/PSIAngle takes a number, not a switch (TRUE)"},
        {"", "$!SETSTYLEVALUE ThreeDView PSIAngle = \"thirty\"",
         "ThreeDView/PSIAngle takes a number, not a quoted text (\"thirty\")"},
        {"", "$!SETSTYLEVALUE Interface UseDisplayLists = 1",
         "Interface/UseDisplayLists takes a switch (TRUE or FALSE), not a number (1)"},
        {"", "$!SETSTYLEVALUE ExportSetup ImageWidth = 640.5",
         "ExportSetup/ImageWidth takes a whole number, not a number (640.5)"},
        {"", "$!SETSTYLEVALUE ExportSetup ExportFormat = 3", "ExportSetup/ExportFormat refused the value 3"},
        {"", "$!SETSTYLEVALUE ThreeDView ViewWidth = -1", "ThreeDView/ViewWidth refused the value -1"},
        {"$!PLOTTYPE = SKETCH", "$!SETSTYLEVALUE ThreeDView PSIAngle = 1",
         "ThreeDView/PSIAngle cannot be set in the present state of the host (the view settings need an "
         "active "
         "3D frame)"},
        {"", "$!SETSTYLEVALUE ThreeDView PSIAngle = abc",
         "$!SETSTYLEVALUE: expected a number, TRUE, FALSE or a quoted text, found \"abc\""},
        {"", "$!SETSTYLEVALUE a b c d e f g h = 1",
         "$!SETSTYLEVALUE: a style setting is named by at most seven names"},
        {"", "$!SETSTYLEVALUE = 1", "$!SETSTYLEVALUE: expected a style setting's name, found \"=\""},
        {"", "$!SETSTYLEVALUE ExportSetup ExportFName = 'it''s'",
         "$!SETSTYLEVALUE: expected the end of the line, found the quoted text \"s\""},
        {"", "$!SETSTYLEVALUE ThreeDView PSIAngle = 1 2",
         "$!SETSTYLEVALUE: expected the end of the line, found \"2\""},
        {"", "$!EXPORTSETUP ExportFormat", "$!EXPORTSETUP: expected <name> = <value>"},
        {"", "$!EXPORTSETUP = AVI",
         "$!EXPORTSETUP: expected one word as the export setting's name before \"=\""},
        {"", "$!EXPORTSETUP Export Format = AVI",
         "$!EXPORTSETUP: expected one word as the export setting's name before \"=\""},
        {"", "$!EXPORTSETUP ExportFormat =  ", "$!EXPORTSETUP: the value of ExportFormat is missing"},
        {"", "$!EXPORTSETUP ExportFormat = GIF", "GIF", true},
        {"", "$!EXPORTNEXTFRAME", "the next frame could not be exported", true},
        {"", "$!EXPORTFINISH", "the export could not be finished", true},
        {"$!EXPORTSETUP ExportFormat = PNG", "$!EXPORTSTART", "the export could not be started", true},
        {"$!EXPORTSETUP ExportFormat = AVI", "$!EXPORT", "the export format holds an animation", true},
        {"", "$!ADDONCOMMAND ADDONID = 'Nobody' COMMAND = 'x'",
         "no add-on has registered macro commands under the id 'Nobody'"},
        {"", "$!ADDONCOMMAND ADDONID = 'Macro Test Add-On'", "$!ADDONCOMMAND: COMMAND is missing"},
        {"", "$!ADDONCOMMAND COMMAND = 'x'", "$!ADDONCOMMAND: ADDONID is missing"},
        {"", "$!ADDONCOMMAND ADDONID = 'a' ADDONID = 'b' COMMAND = 'x'",
         "$!ADDONCOMMAND: ADDONID is given twice"},
        {"", "$!ADDONCOMMAND ADDONID = Macro COMMAND = 'x'",
         "$!ADDONCOMMAND: expected a quoted text, found \"Macro\""},
        {"", "$!ADDONCOMMAND ADDONID = 'x' COMMAND = 'not closed",
         "$!ADDONCOMMAND: a quoted text has no closing '"},
        {"", "$!ADDONCOMMAND ADDONID = 'x' COMMAND = 'ends in \\'",
         "$!ADDONCOMMAND: a quoted text has no closing '"},
        {"", "$!ADDONCOMMAND ADDONID = 'x' COMMAND = 'a \\t b'",
         "$!ADDONCOMMAND: unknown escape \\t in a quoted text (known: \\\\ \\' \\\" \\n \\r)"},
        {"", "$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = 'fail it broke'", "it broke"},
        {"", "$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = 'fail two\\nlines'", "two\nlines"},
        {"", "$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = 'fail-silently'",
         "add-on 'Macro Test Add-On' refused the command without saying why"},
        {"", "$!LOADADDON", "$!LOADADDON: expected a quoted module file name, found the end of the line"},
        {"", "$!LOADADDON \"nothing.so\"",
         "cannot load the add-on module " + folder +
             "/nothing.so: cannot open shared object file: No such file "
             "or directory"},
    };
    for (const ErrorCase& c : cases)
    {
        SCOPED_TRACE(c.line);
        vantix::host::reset();
        vantix::host::addFrame(PlotType_Cartesian3D);
        // A comment and a blank line count as lines too.
        const int setupLines = c.setup.empty() ? 0 : 1;
        const MacroResult result =
            Run("# a comment\n\n" + c.setup + (c.setup.empty() ? "" : "\n") + c.line + "\n$!REDRAW\n");
        const int line = 4 + setupLines;
        EXPECT_EQ(MacroResult::Status::Failed, result.status);
        EXPECT_EQ(line, result.line);
        const std::string expected = "test.mcr:" + std::to_string(line) + ": " + c.reason;
        if (c.prefixOnly)
        {
            EXPECT_THAT(result.message, StartsWith("test.mcr:" + std::to_string(line) + ": "));
            EXPECT_THAT(result.message, HasSubstr(c.reason));
        }
        else
            EXPECT_EQ(expected, result.message);
        EXPECT_EQ(0, vantix::host::redrawCount()) << "the replay went on after the failure";
    }
}

TEST_F(MacroCommandTest, TheCommandsBeforeAFailureHaveRun)
{
    const MacroResult result = Run("$!REDRAW\n$!ROTATE3DVIEW PSI = 10\n$!FROBNICATE\n$!REDRAW\n");
    EXPECT_EQ(MacroResult::Status::Failed, result.status);
    EXPECT_EQ(4, result.line);
    EXPECT_EQ(1, vantix::host::redrawCount());
}

TEST_F(MacroCommandTest, ACancelAskedForBetweenCommandsStopsTheReplayBeforeTheNext)
{
    vantix::host::requestCancelFromSignal();
    const MacroResult result = Run("# nothing to run here\n$!REDRAW\n");
    EXPECT_EQ(MacroResult::Status::Failed, result.status);
    EXPECT_EQ("test.mcr:3: cancelled before this command", result.message);
    EXPECT_EQ(0, vantix::host::redrawCount());
    // The request is used up: the next replay runs.
    EXPECT_TRUE(Run("$!REDRAW\n").ok());
}

TEST_F(MacroCommandTest, TheReplayLeavesTheLocksAsItFindsThem)
{
    VtxUtilLockOn();
    VtxUtilLockStart(m_testAddOn);
    ASSERT_TRUE(Run("$!REDRAW\n$!ROTATE3DVIEW PSI = 5\n").ok());
    EXPECT_EQ(1, vantix::host::globalLockDepth());
    EXPECT_EQ(1, vantix::host::lockDepth(m_testAddOn));
    VtxUtilLockFinish(m_testAddOn);
    VtxUtilLockOff();
}

// ---- The header ------------------------------------------------------------------------------------------

TEST_F(MacroCommandTest, OnlyAFileWithTheHeaderIsAMacro)
{
    const char* const refused[] = {"",
                                   "\n$!REDRAW\n",
                                   "$!REDRAW\n",
                                   "#!VTXMACRO 2\n$!REDRAW\n",
                                   "#!vtxmacro 1\n$!REDRAW\n",
                                   " #!VTXMACRO 1\n$!REDRAW\n",
                                   "#!VTXMACRO 1 x\n",
                                   "#!VTXMACRO1\n"};
    for (const char* text : refused)
    {
        SCOPED_TRACE(text);
        const MacroResult result = vantix::host::runMacroText(text, "test.mcr");
        EXPECT_EQ(MacroResult::Status::NotAMacro, result.status);
        EXPECT_EQ(1, result.line);
        EXPECT_EQ("test.mcr:1: not a Vantix macro: the first line must be \"#!VTXMACRO 1\"", result.message);
        EXPECT_EQ(0, vantix::host::redrawCount());
    }
    const char* const accepted[] = {"#!VTXMACRO 1\n$!REDRAW\n", "#!VTXMACRO 1\r\n$!REDRAW\r\n",
                                    "#!VTXMACRO 1  \t\n$!REDRAW", "#!VTXMACRO 1\n\n\n$!REDRAW\n\n"};
    for (const char* text : accepted)
    {
        SCOPED_TRACE(text);
        vantix::host::reset();
        vantix::host::addFrame(PlotType_Cartesian3D);
        const MacroResult result = vantix::host::runMacroText(text, "test.mcr");
        EXPECT_TRUE(result.ok()) << result.message;
        EXPECT_EQ(1, vantix::host::redrawCount());
    }
}

TEST_F(MacroCommandTest, MacroFilesAreReadFromDiskAndNamedInMessages)
{
    const fs::path good = m_folder.path() / "good.mcr";
    WriteFile(good, "#!VTXMACRO 1\n$!REDRAW\n");
    EXPECT_TRUE(vantix::host::runMacroFile(good.string()).ok());
    EXPECT_EQ(1, vantix::host::redrawCount());

    const fs::path bad = m_folder.path() / "bad.mcr";
    WriteFile(bad, "#!VTXMACRO 1\n$!REDRAW\n$!REDRAW please\n");
    const MacroResult failed = vantix::host::runMacroFile(bad.string());
    EXPECT_EQ(bad.string() + ":3: $!REDRAW: expected the end of the line, found \"please\"", failed.message);

    const fs::path noHeader = m_folder.path() / "noheader.mcr";
    WriteFile(noHeader, "$!REDRAW\n");
    EXPECT_EQ(noHeader.string() + ":1: not a Vantix macro: the first line must be \"#!VTXMACRO 1\"",
              vantix::host::runMacroFile(noHeader.string()).message);

    const std::string missing = (m_folder.path() / "missing.mcr").string();
    const MacroResult unreadable = vantix::host::runMacroFile(missing);
    EXPECT_EQ(MacroResult::Status::Unreadable, unreadable.status);
    EXPECT_EQ(0, unreadable.line);
    EXPECT_EQ(missing + ": cannot read the macro file: No such file or directory", unreadable.message);

    const MacroResult folder = vantix::host::runMacroFile(m_folder.path().string());
    EXPECT_EQ(MacroResult::Status::Unreadable, folder.status);
    EXPECT_EQ(m_folder.path().string() + ": cannot read the macro file: it is a folder", folder.message);
}

TEST_F(MacroCommandTest, RelativePathsInAMacroFileAreTakenFromItsFolder)
{
    fs::create_directories(m_folder.path() / "job");
    WriteTriangleStl(m_folder.path() / "job" / "triangle.stl");
    const fs::path macro = m_folder.path() / "job" / "load.mcr";
    WriteFile(macro,
              "#!VTXMACRO 1\n$!LOADDATA FILE = \"triangle.stl\"\n$!EXPORTSETUP ExportFName = \"out.png\"\n");
    const MacroResult result = vantix::host::runMacroFile(macro.string());
    ASSERT_TRUE(result.ok()) << result.message;
    EXPECT_EQ(1u, vantix::host::zones().size());
    EXPECT_EQ((m_folder.path() / "job" / "out.png").string(),
              std::get<std::string>(vantix::host::style({"ExportSetup", "ExportFName"})));
}

} // namespace
