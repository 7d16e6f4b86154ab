// Recording a macro while one is replayed, and replaying what was recorded: host commands are recorded in
// their normal form, add-on commands by their add-on, and every text comes back unchanged through a macro
// file.
#include "support/HostTest.h"
#include "support/TempFolder.h"
#include "support/ThrownMessage.h"

#include "host/modules/MacroTestAddOn.h"

#include <vantix/host/Export.h>
#include <vantix/host/Macro.h>

#include <algorithm>
#include <filesystem>
#include <random>

namespace
{

namespace fs = std::filesystem;
namespace host = vantix::host;
using host::MacroResult;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testsupport::MacroTestAddOn;
using testsupport::ReadFile;
using Texts = std::vector<std::string>;

class MacroRecordingTest : public testsupport::HostTest
{
protected:
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

TEST_F(MacroRecordingTest, HostCommandsAreRecordedInTheirNormalForm)
{
    const std::string folder = m_folder.string(), module = MacroTestAddOn::Path;
    testsupport::WriteFile(m_folder / "mesh.stl",
                           "solid t\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\n"
                           "vertex 1 0 0\nvertex 0 1 0\nendloop\nendfacet\nendsolid t\n");
    const std::pair<std::string, Texts> cases[] = {
        // clang-format off
        {"$!rotate3dview psi=30", {"$!ROTATE3DVIEW PSI = 30"}},
        {"$!ROTATE3DVIEW THETA = -0.50", {"$!ROTATE3DVIEW THETA = -0.5"}},
        {"$!Rotate3DView Alpha = 0.1", {"$!ROTATE3DVIEW ALPHA = 0.1"}},
        {"$!SOLUTIONTIME = 1e-7", {"$!SOLUTIONTIME = 1e-07"}},
        {"$!SOLUTIONTIME=123456789012", {"$!SOLUTIONTIME = 123456789012"}},
        {"$!SOLUTIONTIME = 0.30000000000000004", {"$!SOLUTIONTIME = 0.30000000000000004"}},
        {"$!SETSTYLEVALUE threeDview psiangle = 0.1", {"$!SETSTYLEVALUE threeDview psiangle = 0.1"}},
        {"$!SETSTYLEVALUE Interface UseDisplayLists = false",
         {"$!SETSTYLEVALUE Interface UseDisplayLists = FALSE"}},
        {"$!SETSTYLEVALUE ExportSetup ExportFName = 'a \"b\" \\\\ c\\n'",
         {"$!SETSTYLEVALUE ExportSetup ExportFName = \"a \\\"b\\\" \\\\ c\\n\""}},
        {"$!plottype = xyline", {"$!PLOTTYPE = XYLINE"}},
        {"$!NEWFRAME HEIGHT=4 X=1", {"$!NEWFRAME X = 1 HEIGHT = 4"}},
        {"$!newframe", {"$!NEWFRAME"}},
        {"$!redraw", {"$!REDRAW"}},
        {"$!LOADDATA demo", {"$!LOADDATA DEMO"}},
        {"$!LOADDATA FILE='mesh.stl'", {"$!LOADDATA FILE = \"" + folder + "/mesh.stl\""}},
        {"$!LOADADDON '" + module + "'", {"$!LOADADDON \"" + module + "\""}},
        {"$!EXPORTSETUP ExportFormat = AVI", {"$!EXPORTSETUP ExportFormat = AVI"}},
        {"$!EXPORTSETUP   AnimationSpeed   =   30  ", {"$!EXPORTSETUP AnimationSpeed = 30"}},
        {"$!EXPORTSETUP exportfname = \"movie.avi\"",
         {"$!EXPORTSETUP exportfname = \"" + folder + "/movie.avi\""}},
        {"$!LOADDATA DEMO\n$!EXPORTSETUP ImageWidth = 32\n$!exportstart\n$!exportnextframe\n$!exportfinish",
         {"$!LOADDATA DEMO", "$!EXPORTSETUP ImageWidth = 32", "$!EXPORTSTART", "$!EXPORTNEXTFRAME",
          "$!EXPORTFINISH"}},
        {"$!LOADDATA DEMO\n$!exportstart\n$!exportcancel",
         {"$!LOADDATA DEMO", "$!EXPORTSTART", "$!EXPORTCANCEL"}},
        {"$!LOADDATA DEMO\n$!EXPORTSETUP ExportFormat = PNG\n$!EXPORTSETUP ExportFName = \"s.png\"\n$!export",
         {"$!LOADDATA DEMO", "$!EXPORTSETUP ExportFormat = PNG",
          "$!EXPORTSETUP ExportFName = \"" + folder + "/s.png\"", "$!EXPORT"}},
        // A failing command is not recorded; what ran before it is.
        {"$!REDRAW\n$!ROTATE3DVIEW PSI = oops", {"$!REDRAW"}},
        // clang-format on
    };
    for (const auto& [lines, recorded] : cases)
    {
        Fresh();
        host::setExportSetupFromText("ExportFormat", "RASTERMETAFILE");
        host::setExportSetupFromText("ExportFName", "\"" + folder + "/default.rmf\"");
        host::setMacroRecording(true);
        Run(lines);
        EXPECT_EQ(recorded, host::recordedMacroLines()) << lines;
        if (VtxUtilExportIsRecording())
            VtxUtilExportCancel();
    }
}

TEST_F(MacroRecordingTest, AddOnCommandsAreRecordedByTheirAddOnNotByTheReplayAndOnlyWhileRecording)
{
    const MacroTestAddOn addOn;
    const std::string lines =
        "$!REDRAW\n$!addoncommand command=\"say \\\"hi\\\"\" addonid=\"Macro Test Add-On\"\n"
        "$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = 'fail-silently'\n";
    EXPECT_EQ(MacroResult::Status::Failed, Run(lines).status);
    EXPECT_THAT(host::recordedMacroLines(), IsEmpty());
    host::setMacroRecording(true);
    EXPECT_EQ(MacroResult::Status::Failed, Run(lines).status);
    // The accepted command once, in the form the host gives every add-on command; the refused one not at all.
    EXPECT_THAT(
        host::recordedMacroLines(),
        ElementsAre("$!REDRAW", "$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = 'say \"hi\"'"));
}

TEST_F(MacroRecordingTest, AddOnCommandTextsComeBackUnchangedThroughAMacroFile)
{
    const MacroTestAddOn addOn;
    const Texts texts = AwkwardTexts(400);
    host::setMacroRecording(true);
    for (const std::string& text : texts)
        ASSERT_TRUE(VtxUtilMacroRecordExtCommand(MacroTestAddOn::ID, text.c_str()));
    const Texts recorded = host::recordedMacroLines();
    ASSERT_EQ(texts.size(), recorded.size());
    const fs::path macro = m_folder / "texts.mcr", again = m_folder / "again.mcr";
    host::writeRecordedMacro(macro.string());
    addOn.forget();
    // Replayed, each text reaches the add-on unchanged; the add-on records it again, to the same line.
    EXPECT_EQ(recorded, Rerecord(macro));
    EXPECT_EQ(texts, addOn.received());
    host::writeRecordedMacro(again.string());
    EXPECT_EQ(ReadFile(macro), ReadFile(again));
}

Texts OwnReceived;
Boolean OwnCommand(char* text, char**)
{
    OwnReceived.emplace_back(text);
    std::fill(text, text + std::char_traits<char>::length(text),
              'x'); // the add-on's copy to change as it likes
    return TRUE;
}

TEST_F(MacroRecordingTest, AddOnIdsComeBackUnchangedToo)
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
    {
        const MacroResult result = host::runMacroFile(macro.string());
        ASSERT_TRUE(result.ok()) << result.message;
    }
    EXPECT_THAT(OwnReceived, ElementsAre(ids[0], ids[1], ids[2], ids[3], ids[0], ids[1], ids[2], ids[3]));
}

TEST_F(MacroRecordingTest, HostTextsComeBackUnchangedThroughAMacroFile)
{
    // "ExportFName" takes any text but the empty one, so it carries the awkward texts through the host's own
    // commands, written in the macro language's double quotation marks as its grammar says.
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
    Texts texts = AwkwardTexts(200);
    texts.erase(std::remove(texts.begin(), texts.end(), std::string()), texts.end());
    host::setMacroRecording(true);
    for (const std::string& text : texts)
    {
        const MacroResult result = Run("$!SETSTYLEVALUE ExportSetup ExportFName = " + quoted(text));
        ASSERT_TRUE(result.ok()) << result.message;
        ASSERT_EQ(text, fileName());
    }
    const Texts recorded = host::recordedMacroLines();
    ASSERT_EQ(texts.size(), recorded.size());
    const fs::path macro = m_folder / "texts.mcr";
    host::writeRecordedMacro(macro.string());
    EXPECT_EQ(recorded, Rerecord(macro));
    // Each recorded line on its own sets its text again.
    for (std::size_t i = 0; i < recorded.size(); ++i)
    {
        ASSERT_TRUE(Run(recorded[i]).ok()) << recorded[i];
        EXPECT_EQ(texts[i], fileName());
    }
}

TEST_F(MacroRecordingTest, ARecordedMacroReplaysToTheSameRecordingAndState)
{
    const MacroTestAddOn addOn;
    const fs::path source = m_folder / "source.mcr", recorded = m_folder / "recorded.mcr";
    testsupport::WriteFile(
        source, "#!VTXMACRO 1\n# set up\n$!loaddata demo\n$!newframe x=1 y=1 width=5 height=4\n"
                "$!loaddata demo\n$!plottype=cartesian3d\n"
                "$!setstylevalue ThreeDView DrawInPerspective = true\n"
                "$!setstylevalue ThreeDView FieldOfView = 40\n$!rotate3dview psi = 12.25\n"
                "$!ROTATE3DVIEW THETA = -7\n$!solutiontime = 3\n"
                "$!addoncommand addonid = 'Macro Test Add-On' command = 'open \"my file\" \\\\ now'\n"
                "$!exportsetup ExportFormat = RASTERMETAFILE\n$!exportsetup ImageWidth = 48\n"
                "$!exportsetup ExportFName = \"recorded.rmf\"\n$!redraw\n");
    const Texts first = Rerecord(source);
    ASSERT_EQ(14u, first.size());
    const auto firstView = host::view();
    host::writeRecordedMacro(recorded.string());
    EXPECT_EQ(first, Rerecord(recorded));
    const auto secondView = host::view();
    EXPECT_EQ((std::vector{firstView.psi, firstView.theta, firstView.z, 3.0}),
              (std::vector{secondView.psi, secondView.theta, secondView.z, host::solutionTime()}));
    EXPECT_EQ(2, VtxUtilFrameGetCount());
    EXPECT_EQ((Texts{"open \"my file\" \\ now", "open \"my file\" \\ now"}), addOn.received());
}

TEST_F(MacroRecordingTest, TheRecordedMacroIsWrittenWithItsHeaderOrRefusedWithTheReason)
{
    const std::string unwritable = (m_folder / "no" / "such" / "folder.mcr").string();
    EXPECT_THROW_MSG(host::writeRecordedMacro(unwritable), std::runtime_error,
                     "cannot write the macro file " + unwritable + ": No such file or directory");
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

Boolean Accept(char*, char**)
{
    return TRUE;
}

TEST_F(MacroRecordingTest, EachAddOnIdTakesOneCallback)
{
    const MacroTestAddOn addOn; // registered under its id when it started
    const long registrationsBefore = host::callCount("VtxUtilMacroAddCommandCallback");
    EXPECT_FALSE(VtxUtilMacroAddCommandCallback(MacroTestAddOn::ID, Accept));
    EXPECT_FALSE(VtxUtilMacroAddCommandCallback(nullptr, Accept));
    EXPECT_FALSE(VtxUtilMacroAddCommandCallback("", Accept));
    EXPECT_FALSE(VtxUtilMacroAddCommandCallback("Nobody Yet", nullptr));
    EXPECT_EQ(registrationsBefore + 4, host::callCount("VtxUtilMacroAddCommandCallback"));
    // The first registration stays in charge.
    ASSERT_TRUE(Run("$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = 'still mine'\n").ok());
    EXPECT_THAT(addOn.received(), ElementsAre("still mine"));
}

} // namespace
