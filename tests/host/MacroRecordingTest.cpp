// Recording a macro while one is replayed, and replaying what was recorded: host commands are recorded in
// their normal form, add-on commands by their add-on, and every text comes back unchanged through a macro
// file.
#include "support/HostTest.h"
#include "support/TempFolder.h"

#include "host/modules/MacroTestAddOn.h"

#include <VtxUtil.h>
#include <vantix/host/Export.h>
#include <vantix/host/Host.h>
#include <vantix/host/Macro.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace
{

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testsupport::HostTest;
using testsupport::MacroTestAddOn;
using testsupport::ReadFile;
using testsupport::TempFolder;
using testsupport::WriteFile;
using vantix::host::MacroResult;

class MacroRecordingTest : public HostTest
{
protected:
    MacroResult Run(const std::string& lines)
    {
        return vantix::host::runMacroText(std::string(vantix::host::MacroHeader) + "\n" + lines, "test.mcr",
                                          m_folder.path().string());
    }

    // Replays a macro file while recording, and returns what was recorded.
    std::vector<std::string> Rerecord(const fs::path& macro)
    {
        vantix::host::reset();
        vantix::host::addFrame(PlotType_Cartesian3D);
        vantix::host::setMacroRecording(true);
        const MacroResult result = vantix::host::runMacroFile(macro.string());
        EXPECT_TRUE(result.ok()) << result.message;
        vantix::host::setMacroRecording(false);
        return vantix::host::recordedMacroLines();
    }

    void TearDown() override
    {
        if (VtxUtilExportIsRecording())
            VtxUtilExportCancel();
        HostTest::TearDown();
    }

    TempFolder m_folder;
};

// Texts built from the characters that need care in a macro line: both quotation marks, backslashes, line
// breaks, tabs, blanks, "=", "$!", "#", and bytes of a multi-byte character on their own. The test add-on
// gives words beginning with f, p or w a meaning, so none is made of those letters.
std::vector<std::string> AwkwardTexts(int count)
{
    const std::string alphabet = "abcXYZ 0129'\"\\\n\r\t=$!#;,.\xc3\xa9";
    std::mt19937 random(20240611);
    std::uniform_int_distribution<std::size_t> length(0, 40), pick(0, alphabet.size() - 1);
    std::vector<std::string> texts = {"",
                                      " ",
                                      "'",
                                      "\"",
                                      "\\",
                                      "\\'",
                                      "'\\",
                                      "\n",
                                      "\r\n",
                                      "a\\nb",
                                      "\\\\n",
                                      "  leading and trailing  ",
                                      "# not a comment",
                                      "$!REDRAW",
                                      "COMMAND = 'x'",
                                      "Animate AnimationDestination=ToFile",
                                      "OpenSettingsFile FileName=\"/data/my runs/a.keyframe\""};
    while (static_cast<int>(texts.size()) < count)
    {
        std::string text(length(random), ' ');
        for (char& c : text)
            c = alphabet[pick(random)];
        texts.push_back(text);
    }
    return texts;
}

// ---- What is recorded ------------------------------------------------------------------------------------

struct RecordCase
{
    std::string lines;
    std::vector<std::string> recorded;
};

TEST_F(MacroRecordingTest, HostCommandsAreRecordedInTheirNormalForm)
{
    const std::string folder = m_folder.path().string();
    {
        std::ofstream mesh(m_folder.path() / "mesh.stl");
        mesh << "solid t\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 1 0\nendloop\n"
                "endfacet\nendsolid t\n";
    }
    const std::string module = MacroTestAddOn::Path;
    const std::vector<RecordCase> cases = {
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
    };
    for (const RecordCase& c : cases)
    {
        SCOPED_TRACE(c.lines);
        vantix::host::reset();
        vantix::host::addFrame(PlotType_Cartesian3D);
        vantix::host::setExportSetupFromText("ExportFormat", "RASTERMETAFILE");
        vantix::host::setExportSetupFromText("ExportFName", "\"" + folder + "/default.rmf\"");
        vantix::host::setMacroRecording(true);
        Run(c.lines);
        EXPECT_EQ(c.recorded, vantix::host::recordedMacroLines());
        if (VtxUtilExportIsRecording())
            VtxUtilExportCancel();
    }
}

TEST_F(MacroRecordingTest, NothingIsRecordedWhileRecordingIsOff)
{
    const MacroTestAddOn addOn;
    ASSERT_TRUE(Run("$!REDRAW\n$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = 'x'\n").ok());
    EXPECT_THAT(vantix::host::recordedMacroLines(), IsEmpty());
}

TEST_F(MacroRecordingTest, AddOnCommandsAreRecordedByTheirAddOnNotByTheReplay)
{
    const MacroTestAddOn addOn;
    vantix::host::setMacroRecording(true);
    ASSERT_TRUE(Run("$!REDRAW\n"
                    "$!addoncommand addonid='Macro Test Add-On' command=\"say \\\"hi\\\"\"\n"
                    "$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = 'fail-silently'\n")
                    .status == MacroResult::Status::Failed);
    // The accepted command once, in the form the host gives every add-on command; the refused one not at all.
    EXPECT_THAT(
        vantix::host::recordedMacroLines(),
        ElementsAre("$!REDRAW", "$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = 'say \"hi\"'"));
}

// ---- Round trips -----------------------------------------------------------------------------------------

TEST_F(MacroRecordingTest, AddOnCommandTextsComeBackUnchangedThroughAMacroFile)
{
    const MacroTestAddOn addOn;
    const std::vector<std::string> texts = AwkwardTexts(400);
    vantix::host::setMacroRecording(true);
    for (const std::string& text : texts)
        ASSERT_TRUE(VtxUtilMacroRecordExtCommand(MacroTestAddOn::ID, text.c_str()));
    vantix::host::setMacroRecording(false);
    const std::vector<std::string> recorded = vantix::host::recordedMacroLines();
    ASSERT_EQ(texts.size(), recorded.size());
    const fs::path macro = m_folder.path() / "texts.mcr";
    vantix::host::writeRecordedMacro(macro.string());

    addOn.forget();
    // Replayed, each text reaches the add-on unchanged; the add-on records it again, to the same line.
    EXPECT_EQ(recorded, Rerecord(macro));
    EXPECT_EQ(texts, addOn.received());
    vantix::host::writeRecordedMacro((m_folder.path() / "again.mcr").string());
    EXPECT_EQ(ReadFile(macro), ReadFile(m_folder.path() / "again.mcr"));
}

std::vector<std::string> OwnReceived;
Boolean OwnCommand(char* text, char** errorMessage)
{
    (void)errorMessage;
    OwnReceived.emplace_back(text);
    // The text is the add-on's copy to change as it likes.
    for (char* c = text; *c; ++c)
        *c = 'x';
    return TRUE;
}

TEST_F(MacroRecordingTest, AddOnIdsComeBackUnchangedToo)
{
    const char* const ids[] = {"it's \"odd\"", "back\\slash\\", "line\nbreak\r", " blanks "};
    static const bool registered = [&ids]
    {
        for (const char* id : ids)
            if (!VtxUtilMacroAddCommandCallback(id, OwnCommand))
                return false;
        return true;
    }();
    ASSERT_TRUE(registered);

    vantix::host::setMacroRecording(true);
    for (const char* id : ids)
        VtxUtilMacroRecordExtCommand(id, id);
    vantix::host::setMacroRecording(false);
    const fs::path macro = m_folder.path() / "ids.mcr";
    vantix::host::writeRecordedMacro(macro.string());
    OwnReceived.clear();
    const MacroResult first = vantix::host::runMacroFile(macro.string());
    ASSERT_TRUE(first.ok()) << first.message;
    const MacroResult second = vantix::host::runMacroFile(macro.string());
    ASSERT_TRUE(second.ok()) << second.message;
    EXPECT_THAT(OwnReceived, ElementsAre(ids[0], ids[1], ids[2], ids[3], ids[0], ids[1], ids[2], ids[3]));
}

// A text in the macro language's double quotation marks, escaped as its grammar says.
std::string Quoted(const std::string& text)
{
    std::string quoted = "\"";
    for (const char c : text)
        quoted += c == '"'    ? "\\\""
                  : c == '\\' ? "\\\\"
                  : c == '\n' ? "\\n"
                  : c == '\r' ? "\\r"
                              : std::string(1, c);
    return quoted + "\"";
}

TEST_F(MacroRecordingTest, HostTextsComeBackUnchangedThroughAMacroFile)
{
    // "ExportFName" takes any text but the empty one, so it carries the awkward texts through the host's
    // own commands.
    std::vector<std::string> texts = AwkwardTexts(200);
    texts.erase(std::remove(texts.begin(), texts.end(), std::string()), texts.end());
    vantix::host::setMacroRecording(true);
    for (const std::string& text : texts)
    {
        const MacroResult result = Run("$!SETSTYLEVALUE ExportSetup ExportFName = " + Quoted(text));
        ASSERT_TRUE(result.ok()) << result.message;
        ASSERT_EQ(text, std::get<std::string>(vantix::host::style({"ExportSetup", "ExportFName"})));
    }
    vantix::host::setMacroRecording(false);
    const std::vector<std::string> recorded = vantix::host::recordedMacroLines();
    ASSERT_EQ(texts.size(), recorded.size());

    const fs::path macro = m_folder.path() / "texts.mcr";
    vantix::host::writeRecordedMacro(macro.string());
    EXPECT_EQ(recorded, Rerecord(macro));
    // Each recorded line on its own sets its text again.
    for (std::size_t i = 0; i < recorded.size(); ++i)
    {
        ASSERT_TRUE(Run(recorded[i]).ok()) << recorded[i];
        EXPECT_EQ(texts[i], std::get<std::string>(vantix::host::style({"ExportSetup", "ExportFName"})));
    }
}

TEST_F(MacroRecordingTest, ARecordedMacroReplaysToTheSameRecording)
{
    const MacroTestAddOn addOn;
    const fs::path source = m_folder.path() / "source.mcr";
    {
        std::ofstream file(source);
        file << "#!VTXMACRO 1\n"
                "# set up\n"
                "$!loaddata demo\n"
                "$!newframe x=1 y=1 width=5 height=4\n"
                "$!loaddata demo\n"
                "$!plottype=cartesian3d\n"
                "$!setstylevalue ThreeDView DrawInPerspective = true\n"
                "$!setstylevalue ThreeDView FieldOfView = 40\n"
                "$!rotate3dview psi = 12.25\n"
                "$!ROTATE3DVIEW THETA = -7\n"
                "$!solutiontime = 3\n"
                "$!addoncommand addonid = 'Macro Test Add-On' command = 'open \"my file\" \\\\ now'\n"
                "$!exportsetup ExportFormat = RASTERMETAFILE\n"
                "$!exportsetup ImageWidth = 48\n"
                "$!exportsetup ExportFName = \"recorded.rmf\"\n"
                "$!redraw\n";
    }
    const std::vector<std::string> first = Rerecord(source);
    ASSERT_EQ(14u, first.size());
    const auto firstView = vantix::host::view();
    const fs::path recorded = m_folder.path() / "recorded.mcr";
    vantix::host::writeRecordedMacro(recorded.string());
    EXPECT_EQ("#!VTXMACRO 1\n", ReadFile(recorded).substr(0, 13));

    const std::vector<std::string> second = Rerecord(recorded);
    EXPECT_EQ(first, second);
    // And the host ends up in the same state.
    const auto secondView = vantix::host::view();
    EXPECT_DOUBLE_EQ(firstView.psi, secondView.psi);
    EXPECT_DOUBLE_EQ(firstView.theta, secondView.theta);
    EXPECT_DOUBLE_EQ(firstView.z, secondView.z);
    EXPECT_EQ(3.0, vantix::host::solutionTime());
    EXPECT_EQ(2, VtxUtilFrameGetCount());
    EXPECT_EQ((std::vector<std::string>{"open \"my file\" \\ now", "open \"my file\" \\ now"}),
              addOn.received());
}

// ---- Writing the recorded macro -------------------------------------------------------------------------

TEST_F(MacroRecordingTest, TheRecordedMacroIsWrittenWithItsHeader)
{
    vantix::host::setMacroRecording(true);
    ASSERT_TRUE(Run("$!REDRAW\n$!ROTATE3DVIEW PSI = 1\n").ok());
    VtxUtilMacroRecordRawCommand("$!EXPORTSETUP ExportFormat = AVI");
    EXPECT_EQ("#!VTXMACRO 1\n$!REDRAW\n$!ROTATE3DVIEW PSI = 1\n$!EXPORTSETUP ExportFormat = AVI\n",
              vantix::host::recordedMacroText());
    const fs::path file = m_folder.path() / "out.mcr";
    vantix::host::writeRecordedMacro(file.string());
    EXPECT_EQ(vantix::host::recordedMacroText(), ReadFile(file));

    vantix::host::setMacroRecording(false);
    vantix::host::reset();
    EXPECT_EQ("#!VTXMACRO 1\n", vantix::host::recordedMacroText());
}

TEST_F(MacroRecordingTest, WhatNoMacroFileCanCarryIsRefusedWithTheReason)
{
    const std::string unwritable = (m_folder.path() / "no" / "such" / "folder.mcr").string();
    try
    {
        vantix::host::writeRecordedMacro(unwritable);
        ADD_FAILURE() << "written";
    }
    catch (const std::runtime_error& error)
    {
        EXPECT_EQ("cannot write the macro file " + unwritable + ": No such file or directory",
                  std::string(error.what()));
    }

    vantix::host::setMacroRecording(true);
    VtxUtilMacroRecordRawCommand("$!REDRAW");
    VtxUtilMacroRecordRawCommand("$!REDRAW\n$!REDRAW");
    const fs::path file = m_folder.path() / "broken.mcr";
    try
    {
        vantix::host::writeRecordedMacro(file.string());
        ADD_FAILURE() << "written";
    }
    catch (const std::runtime_error& error)
    {
        EXPECT_EQ(
            "recorded macro line 2 holds a line break, which a macro file cannot carry: $!REDRAW\n$!REDRAW",
            std::string(error.what()));
    }
    EXPECT_FALSE(fs::exists(file));
}

// ---- Registering add-on commands -------------------------------------------------------------------------

Boolean Accept(char*, char**)
{
    return TRUE;
}

TEST_F(MacroRecordingTest, EachAddOnIdTakesOneCallback)
{
    const MacroTestAddOn addOn; // registered under its id when it started
    const long registrationsBefore = vantix::host::callCount("VtxUtilMacroAddCommandCallback");
    EXPECT_FALSE(VtxUtilMacroAddCommandCallback(MacroTestAddOn::ID, Accept));
    EXPECT_FALSE(VtxUtilMacroAddCommandCallback(nullptr, Accept));
    EXPECT_FALSE(VtxUtilMacroAddCommandCallback("", Accept));
    EXPECT_FALSE(VtxUtilMacroAddCommandCallback("Nobody Yet", nullptr));
    // The first registration stays in charge.
    ASSERT_TRUE(Run("$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = 'still mine'\n").ok());
    EXPECT_THAT(addOn.received(), ElementsAre("still mine"));
    EXPECT_EQ(registrationsBefore + 4, vantix::host::callCount("VtxUtilMacroAddCommandCallback"));
}

} // namespace
