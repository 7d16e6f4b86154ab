// Replays thousands of damaged macro files in the host. Each mutant is a valid macro (the examples, and
// macros written here that use every command and every quoting form of the language) damaged by a few
// seeded random edits (FuzzDriver.h). Each is replayed on a clean host with one 3D frame, from a file, or
// from memory when its length is even.
//
// Every replay must end with a MacroResult, never an exception or a crash: a success without a message, or
// a failure whose message is one line "<file>:<line>: <reason>" naming a line of the mutant (line 1 when the
// header is refused). The host must be left clean: no lock held, no protocol error, no host string kept.
//
// Replays stay cheap: pictures 16 pixels wide (set before each replay, not by the macros, so that no edit of
// a digit makes them thousands of pixels wide and gigabytes large), movies of a few frames, and every file a
// mutant writes goes into a sub-folder "out" of the work folder, emptied before each mutant, so that a name
// would need several edits in one place to reach outside it.
#include "FuzzDriver.h"

#include "../support/TempFolder.h"

#include <VtxUtil.h>
#include <vantix/host/Export.h>
#include <vantix/host/Host.h>
#include <vantix/host/Macro.h>

#include <algorithm>
#include <cstring>

namespace
{

namespace fs = std::filesystem;
namespace host = vantix::host;

const char* const FuzzAddOnID = "Fuzz Add-On";
const std::string AddOnRefusal = "the fuzz add-on refuses commands beginning with fail";

// clang-format off
const std::vector<std::string> HandWritten{
    "#!VTXMACRO 1\n# Every command that changes the page and the view.\n$!LOADDATA FILE = \"tri.stl\"\n"
    "$!NEWFRAME X = 1 Y = 0.5 WIDTH = 4 HEIGHT = 3\n$!NEWFRAME height=5.5\n$!PLOTTYPE = XYLINE\n"
    "$!PLOTTYPE=cartesian3d\n$!SETSTYLEVALUE ThreeDView PSIAngle = 30\n"
    "$!setstylevalue interface usedisplaylists = FALSE\n"
    "$!SETSTYLEVALUE ExportSetup ExportFName = 'out/it\\'s a \"name\" \\\\ with\\nbreaks\\r'\n"
    "$!ROTATE3DVIEW PSI = 10\n$!rotate3dview theta=-2.5e1\n$!ROTATE3DVIEW ALPHA = 1e-07\n"
    "$!SOLUTIONTIME = 3\n\t  $!REDRAW  \t\n$!REDRAW",
    "#!VTXMACRO 1\n$!LOADDATA FILE = 'tri.stl'\n$!EXPORTSETUP ExportFormat = PNG\n"
    "$!EXPORTSETUP ExportRegion = WORKAREA\n$!EXPORTSETUP ExportFName = \"out/still.png\"\n$!EXPORT\n"
    "$!EXPORTSETUP ExportFormat = AVI\n$!EXPORTSETUP AnimationSpeed = 2.5\n"
    "$!EXPORTSETUP UseSuperSampleAntiAliasing = true\n$!EXPORTSETUP SuperSampleFactor = 2\n"
    "$!EXPORTSETUP ExportFName = \"out/movie.avi\"\n$!EXPORTSTART\n$!SOLUTIONTIME = 1\n$!EXPORTNEXTFRAME\n"
    "$!EXPORTFINISH\n$!EXPORTSETUP ExportFormat = RASTERMETAFILE\n$!EXPORTSTART\n$!EXPORTCANCEL\n",
    "\xef\xbb\xbf#!VTXMACRO 1  \r\n# Add-ons, written on Windows.\r\n\r\n$!LOADADDON \"addon.so\"\r\n"
    "$!ADDONCOMMAND ADDONID = 'Fuzz Add-On' COMMAND = 'run \\'quoted\\' \\\\ \\n'\r\n"
    "$!ADDONCOMMAND COMMAND=\"run\"ADDONID=\"Fuzz Add-On\"\r\n"
    "$!ADDONCOMMAND ADDONID = 'Fuzz Add-On' COMMAND = 'fail now'\r\n"};

const fuzz::Vocabulary Vocabulary{
    {"0", "-0", "1", "-1", "2", "16", "1e308", "1e309", "-1e308", "nan", "inf", "0x10", "1e", ".", "-", "+1",
     "1.5.5", "2147483648", "99999", ""},
    {"$!", "$!REDRAW", "$!EXPORTSTART", "$!EXPORTNEXTFRAME", "$!EXPORTFINISH", "$!EXPORT",
     "$!LOADDATA DEMO", "$!PLOTTYPE = SKETCH", "$!NEWFRAME", "#!VTXMACRO 1", "$!SETSTYLEVALUE a b c d e f g h = 1",
     "$!ADDONCOMMAND ADDONID = 'Fuzz Add-On' COMMAND = 'x'", "$!LOADADDON \"tri.stl\"", "'", "\"", "\\", " = "},
    {"$!SETSTYLEVALUE ExportSetup ExportFName = \"", "$!REDRAW", "$!", "# "}};
// clang-format on

// Every from in text becomes to, and so do the digits right after it.
void Replace(std::string& text, const std::string& from, const std::string& to)
{
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, text.find_first_not_of("0123456789", at + from.size()) - at, to);
}

// The examples as they are, but for the picture width, three frames of a movie, files written into "out",
// and the small data set of the work folder instead of the demo (which only stray lines load).
std::vector<std::string> ValidMacros()
{
    std::vector<std::string> macros = HandWritten;
    for (const char* example : {"demo_mpeg4.mcr", "keyframe_demo.mcr"})
    {
        std::string text = testsupport::ReadFile(fs::path(EXAMPLES_FOLDER) / example);
        Replace(text, "$!EXPORTSETUP ImageWidth = ", "");
        Replace(text, "LOADDATA DEMO", "LOADDATA FILE = \"tri.stl\"");
        Replace(text, "ExportFName = \"", "ExportFName = \"out/");
        const std::string step = "$!ROTATE3DVIEW THETA = 5\n$!EXPORTNEXTFRAME\n";
        for (std::string::size_type at = text.find(step + step + step); at != std::string::npos;
             at = text.find(step + step + step))
            text.erase(at, step.size());
        macros.push_back(text);
    }
    return macros;
}

Boolean FuzzAddOnCommand(char* commandText, char** errorMessage)
{
    if (std::strncmp(commandText, "fail", 4) != 0)
        return TRUE;
    *errorMessage = VtxUtilStringAlloc(static_cast<int>(AddOnRefusal.size()), "macro file fuzz");
    std::memcpy(*errorMessage, AddOnRefusal.c_str(), AddOnRefusal.size());
    return FALSE;
}

// What the replay of one mutant must come to; see the top of the file.
fuzz::Outcome Check(const std::string& mutant, const fs::path& folder)
{
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        if (entry.path().filename() != "tri.stl" && entry.path().filename() != "addon.so")
            fs::remove_all(entry.path());
    fs::create_directory(folder / "out");
    host::reset();
    host::addFrame(PlotType_Cartesian3D);
    host::setExportSetupFromText("ImageWidth", "16");

    const fs::path file = folder / "fuzz.mcr";
    host::MacroResult result;
    if (mutant.size() % 2 == 0)
        result = host::runMacroText(mutant, file.string(), folder.string());
    else
    {
        testsupport::WriteFile(file, mutant);
        result = host::runMacroFile(file.string());
    }
    if (!host::hostErrors().empty() || host::globalLockDepth() != 0 || host::outstandingHostStrings() != 0)
        throw fuzz::Finding("the replay left the host unclean: a protocol error, a lock or a host string");
    if (result.ok())
    {
        if (!result.message.empty() || result.line != 0)
            throw fuzz::Finding("a successful replay with a message or a line: " + result.message);
        return {true, ""};
    }
    const auto lines = std::count(mutant.begin(), mutant.end(), '\n') + 1;
    const std::string lead = file.string() + ":" + std::to_string(result.line) + ": ";
    if (result.status == host::MacroResult::Status::Unreadable ||
        (result.status == host::MacroResult::Status::NotAMacro && result.line != 1) || result.line < 1 ||
        result.line > lines)
        throw fuzz::Finding("a failure at line " + std::to_string(result.line) + " of " +
                            std::to_string(lines) + ", or of the wrong kind: " + result.message);
    if (result.message.compare(0, lead.size(), lead) != 0 || result.message.size() == lead.size() ||
        result.message.find_first_of(std::string("\n\r\0", 3)) != std::string::npos)
        throw fuzz::Finding("a message that is not one line \"<file>:<line>: <reason>\": " + result.message);
    return {false, result.message};
}

} // namespace

int main(int argc, char** argv)
{
    const testsupport::TempFolder folder("macro-file-fuzz");
    testsupport::WriteFile(folder.path() / "tri.stl",
                           "solid t\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\n"
                           "vertex 1 0 0\nvertex 0 1 0\nendloop\nendfacet\nendsolid t\n");
    fs::copy_file(MACRO_TEST_ADDON_PATH, folder.path() / "addon.so");
    VtxUtilMacroAddCommandCallback(FuzzAddOnID, FuzzAddOnCommand);
    return fuzz::Main(argc, argv,
                      {"macro_file_fuzz", ".mcr", ValidMacros(), Vocabulary, 400,
                       [&](const std::string& mutant) { return Check(mutant, folder.path()); }});
}
