// Hands thousands of damaged command texts to the add-on's macro command callback, the way the host does
// when it replays "$!ADDONCOMMAND ADDONID = 'Key Frame Animation' COMMAND = '...'". Each mutant is a valid
// command text (opening key frame files by relative and quoted names, animating on screen and to a file, in
// any case, with parameters missing or extra) damaged by a few seeded random edits (FuzzDriver.h).
//
// Every command must be carried out, or refused with the add-on's own error: the host's message is then
// "<file>:2: Key Frame Animation error:" and the add-on's message on a second line, never an internal
// error (another exception inside the add-on) or a crash. The host must be left clean after each: no lock
// held by anyone, drawing not suspended, no progress line, no protocol error, no host string kept.
//
// Commands stay cheap: key frame files of two key frames and three frames, movies 16 pixels wide into the
// host's own raster metafile.
#include "FuzzDriver.h"

#include "platform/AddOnID.h"

#include "../support/TempFolder.h"

#include <vantix/host/Export.h>
#include <vantix/host/Host.h>
#include <vantix/host/Macro.h>

#include <filesystem>

extern "C" void InitVtxAddOn113();

namespace
{

namespace fs = std::filesystem;
namespace host = vantix::host;

const std::string KeyFrames = "#!KeyFrame 1\n%Settings\n AnimateTime true\n FadeIn true\n%Settings\n"
                              "%KeyFrameView\n Name \"A\"\n Position 1 2 30\n Angle 10 20 0\n Width 4\n"
                              " FrameCount 2\n%KeyFrameView\n%KeyFrameView\n Name \"B\"\n Position 3 2 30\n"
                              " Angle 15 20 5\n Width 5\n FrameCount 1\n%KeyFrameView\n";

// clang-format off
const std::vector<std::string> ValidCommands{
    "OpenSettingsFile FileName=k.keyframe", "OpenSettingsFile FileName=\"a b.keyframe\"",
    "  opensettingsfile   FILENAME=k.keyframe  ", "OpenSettingsFile FileName=k.keyframe FileName=k.keyframe",
    "Animate AnimationDestination=OnScreen", "Animate AnimationDestination=ToFile",
    "animate ANIMATIONDESTINATION=\"tofile\"", "Animate", "OpenSettingsFile",
    "Animate FileName=k.keyframe AnimationDestination=OnScreen"};

const fuzz::Vocabulary Vocabulary{
    {}, {"=", "\"", " ", "Animate", "OpenSettingsFile", "FileName=", "AnimationDestination=",
         "AnimationDestination=ToFile", "FileName=\"a b.keyframe\"", "\t", "\\"},
    {"OpenSettingsFile FileName=", "Animate "}};
// clang-format on

const std::string AddOnErrorLead = "Key Frame Animation error:\n";
const std::string InternalError = "Internal error of the Key Frame Animation add-on";

// The command text as a quoted text of a macro line.
std::string Quoted(const std::string& text)
{
    std::string quoted = "'";
    for (const char c : text)
        quoted += c == '\\'   ? "\\\\"
                  : c == '\'' ? "\\'"
                  : c == '\n' ? "\\n"
                  : c == '\r' ? "\\r"
                              : std::string(1, c);
    return quoted + "'";
}

fuzz::Outcome Check(const std::string& mutant, const fs::path& folder)
{
    fs::remove_all(folder / "out");
    fs::create_directory(folder / "out");
    host::reset();
    host::addFrame(PlotType_Cartesian3D);
    for (const auto& [name, value] : {std::pair<const char*, std::string>{"ExportFormat", "RASTERMETAFILE"},
                                      {"ImageWidth", "16"},
                                      {"ExportFName", "\"" + (folder / "out" / "a.rm").string() + "\""}})
        host::setExportSetupFromText(name, value);

    const std::string name = (folder / "commands.mcr").string();
    const host::MacroResult result =
        host::runMacroText(std::string(host::MacroHeader) +
                               "\n$!ADDONCOMMAND ADDONID = 'Key Frame Animation' COMMAND = " + Quoted(mutant),
                           name, folder.string());
    if (!host::hostErrors().empty() || host::globalLockDepth() != 0 ||
        host::lockDepth(vantix::vtxutiltools::AddOnID) != 0 || host::drawSuspensionDepth() != 0 ||
        host::statusIsShown() || host::outstandingHostStrings() != 0)
        throw fuzz::Finding("the command left the host unclean: a protocol error, a lock, suspended drawing, "
                            "a progress line or a host string");
    if (result.ok())
        return {true, ""};
    const std::string lead = name + ":2: " + AddOnErrorLead;
    if (result.message.compare(0, lead.size(), lead) != 0 || result.message.size() == lead.size())
        throw fuzz::Finding("a refusal that is not the add-on's own error: " + result.message);
    const std::string message = result.message.substr(lead.size() - AddOnErrorLead.size());
    if (message.compare(AddOnErrorLead.size(), InternalError.size(), InternalError) == 0)
        throw fuzz::Finding("an exception other than the add-on's own error: " + message);
    return {false, message};
}

} // namespace

int main(int argc, char** argv)
{
    const testsupport::TempFolder folder("macro-command-fuzz");
    testsupport::WriteFile(folder.path() / "k.keyframe", KeyFrames);
    testsupport::WriteFile(folder.path() / "a b.keyframe", KeyFrames);
    InitVtxAddOn113();
    return fuzz::Main(argc, argv,
                      {"macro_command_fuzz", ".txt", ValidCommands, Vocabulary, 400,
                       [&](const std::string& mutant) { return Check(mutant, folder.path()); }});
}
