// Saving and reading key frame files: the canonical text that saving writes, the tolerant reading of
// hand-edited files, every reading error in the user's words with its line number, and reading all or
// nothing.
#include "document/KeyFrameFile.h"

#include "core/KeyFrameError.h"
#include "core/Settings.h"
#include "document/ListModelKeyFrame.h"

#include <support/AddOnTest.h>
#include <support/KeyFrameExample.h>
#include <support/TempFolder.h>
#include <support/ThrownMessage.h>

#include <limits>
#include <locale>

using namespace vantix::vtxutiltools;

namespace
{

const std::string& ExampleText = testsupport::KeyFrameExampleText;
const std::vector<KeyFrame_s> ExampleKeyFrames{
    KeyFrame_s(View(12.3457, -4.5, 30, 123.457, 57.2958, 0, 1.75), "View 1", 20, 0),
    KeyFrame_s(View(18.5, 40, -130, 35.2644, 0, 0, 0.0001), "View 2", 1, 2.5e-05)};
// What reading the example gives a caller whose destination, which files do not hold, is ToFile.
const Settings_s ExampleSettings{{true, Forward, 1}, ToFile, false, false, false};
// Every field differs from the defaults and from what the example file sets.
const Settings_s NonDefault{{false, Bounce, 7}, ToFile, true, true, true};

const std::string Header = "#!KeyFrame 1\n";
// A view with the two items every view needs; an item appended to it is line 5 of Header + View123.
const std::string View123 = "%KeyFrameView\n Position 1 2 3\n Angle 4 5 6\n";
// Eleven lines of settings and a key frame that read well, so that what a later error throws away shows.
const std::string ValidStart = Header +
                               "%Settings\n AnimateTime true\n NumCycles 3\n FadeIn false\n%Settings\n" +
                               "%KeyFrameView\n Name \"A\"\n Position 1 2 3\n Angle 4 5 6\n%KeyFrameView\n";

std::string ReadingError(const std::string& message, int line)
{
    return "Error reading key frame settings file.\n\n" + message + "\n\nError occurred on line number " +
           std::to_string(line) + ".";
}

KeyFrame_s OneTwoThree(const std::string& name, double width = 0, std::uint64_t frameCount = 0,
                       double time = 0)
{
    return KeyFrame_s(View(1, 2, 3, 4, 5, 6, width), name, frameCount, time);
}

// Every setting and every field of every key frame, exactly enough to tell any two doubles apart.
std::string Text(const Settings_s& s, const std::vector<KeyFrame_s>& keyFrames)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(17);
    text << "settings " << s.timeOptions.animateTime << ' ' << s.timeOptions.timeAnimationOperation << ' '
         << s.timeOptions.numCycles << ' ' << s.destination << ' ' << s.animateStreamtraces << ' ' << s.fadeIn
         << ' ' << s.fadeOut << '\n';
    for (const KeyFrame_s& k : keyFrames)
        text << '"' << k.name << "\" " << k.view.x() << ' ' << k.view.y() << ' ' << k.view.z() << ' '
             << k.view.psi() << ' ' << k.view.theta() << ' ' << k.view.alpha() << " w" << k.view.width()
             << " x" << k.frameCount << " t" << k.solutionTime << '\n';
    return text.str();
}

// Reads and writes with a watched model that holds one key frame, and with NonDefault settings, so that
// whatever a read changes or leaves alone shows.
class KeyFrameFileTest : public testsupport::AddOnTest, public ListModelObserverInterface
{
protected:
    KeyFrameFileTest()
    {
        m_model.addObserver(*this);
        restart();
    }

    void modelChanged(const ListModelGenericInterface::ChangeInfo_s& change) override
    {
        m_changes.push_back(change.type);
    }

    void restart()
    {
        m_settings = NonDefault;
        m_model.setDataList(m_original);
        m_changes.clear();
    }

    std::string path(const std::string& name) const { return (m_folder.path() / name).string(); }

    void read(const std::string& text)
    {
        testsupport::WriteFile(path("animation.keyframe"), text);
        KeyFrameFile().readFile(path("animation.keyframe"), m_settings, m_model);
    }

    // A successful read replaces everything and tells the observers to rebuild, once; a failed one
    // changes nothing and tells them nothing.
    void expectDocument(const Settings_s& settings, const std::vector<KeyFrame_s>& keyFrames,
                        bool succeeded = true)
    {
        EXPECT_EQ(Text(settings, keyFrames), Text(m_settings, m_model.dataList()));
        EXPECT_EQ(succeeded ? std::vector{ListModelGenericInterface::ChangeInfo_s::ModelReset}
                            : std::vector<ListModelGenericInterface::ChangeType_e>{},
                  m_changes);
    }

    std::string save(const Settings_s& settings, const std::vector<KeyFrame_s>& keyFrames)
    {
        ListModelKeyFrame model;
        model.setDataList(keyFrames);
        KeyFrameFile().saveFile(path("saved.keyframe"), settings, model);
        return testsupport::ReadFile(path("saved.keyframe"));
    }

    testsupport::TempFolder m_folder{"keyframe-file-test"};
    const std::vector<KeyFrame_s> m_original{OneTwoThree("Before", 9.0, 3, 1.5)};
    Settings_s m_settings;
    ListModelKeyFrame m_model;
    std::vector<ListModelGenericInterface::ChangeType_e> m_changes;
};

} // namespace

TEST_F(KeyFrameFileTest, SavingWritesTheCanonicalTextToSixSignificantDigitsWhateverTheGlobalLocale)
{
    // A locale that groups digits and writes a comma for the decimal point, for this test only.
    struct CommaNumbers : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    struct GlobalLocale
    {
        ~GlobalLocale() { std::locale::global(previous); }
        std::locale previous;
    } restore{std::locale::global(std::locale(std::locale::classic(), new CommaNumbers))};

    testsupport::WriteFile(path("saved.keyframe"), std::string(10000, 'x'));
    EXPECT_EQ(
        ExampleText,
        save(ExampleSettings,
             {KeyFrame_s(View(12.3456789, -4.5, 30.0, 123.456789, 57.29577951, 0, 1.75), "View 1", 20, 0),
              KeyFrame_s(View(18.5, 40.0, -130.0, 35.26438968, 0, 0, 0.0001), "View 2", 1, 0.000025)}));
    const std::uint64_t largestCount = std::numeric_limits<std::uint64_t>::max();
    // clang-format off
    for (const auto& [width, text] : std::vector<std::pair<double, std::string>>{
             {1234567.0, "1.23457e+06"}, {123456.0, "123456"}, {999999.5, "1e+06"}, {-0.0, "-0"},
             {1e150, "1e+150"}, {-1.5e-300, "-1.5e-300"}})
        // clang-format on
        EXPECT_NE(std::string::npos, save(Settings_s(), {OneTwoThree("A", width, largestCount)})
                                         .find("\n Width " + text + "\n FrameCount 18446744073709551615\n"))
            << text;

    // What was saved reads back as it was written; the destination is not in the file.
    read(save({{true, AsCaptured, 2147483647}, OnScreen, true, false, true},
              {KeyFrame_s(View(1234567.891, -0.000123456789, 1e-7, 179.99999, -45.123456, 0.5, 1234.5678),
                          "B", largestCount, 98765.4321)}));
    expectDocument({{true, AsCaptured, 2147483647}, ToFile, true, false, true},
                   {KeyFrame_s(View(1234570, -0.000123457, 1e-07, 180, -45.1235, 0.5, 1234.57), "B",
                               largestCount, 98765.4)});
}

TEST_F(KeyFrameFileTest, WhatCannotBeSavedOrOpenedIsRefusedWithItsMessageChangingNothing)
{
    const std::string folder = m_folder.path().string(), missing = path("no such folder/a.keyframe");
    testsupport::WriteFile(path("existing.keyframe"), "kept as it was");
    // An empty list is refused before any file is opened.
    for (const std::string name : {"new.keyframe", "existing.keyframe"})
        EXPECT_THROW_MSG(KeyFrameFile().saveFile(path(name), m_settings, ListModelKeyFrame()), KeyFrameError,
                         "No Key Frames established.");
    EXPECT_FALSE(std::filesystem::exists(path("new.keyframe")));
    EXPECT_EQ("kept as it was", testsupport::ReadFile(path("existing.keyframe")));

    for (const std::string& target : {missing, folder})
        EXPECT_THROW_MSG(KeyFrameFile().saveFile(target, m_settings, m_model), KeyFrameError,
                         "Unable to open file for writing.");
    EXPECT_THROW_MSG(KeyFrameFile().readFile(missing, m_settings, m_model), KeyFrameError,
                     "Unable to open file for reading.");
    // A folder opens, but its first read fails as a failing device would.
    // So does a device that never ends a line.
    for (const std::string& device : {folder, std::string("/dev/zero")})
        EXPECT_THROW_MSG(KeyFrameFile().readFile(device, m_settings, m_model), KeyFrameError,
                         ReadingError("Error during file read.", 1));
    expectDocument(NonDefault, m_original, false);
}

TEST_F(KeyFrameFileTest, EveryReadingErrorIsReportedInItsExactWordsAndChangesNothing)
{
    using File = std::string (*)(const std::string&);
    // The text as it is, an entry on line 3 of a settings section, or an item on line 5 of a complete view.
    const File whole = [](const std::string& text) { return text; };
    const File inSettings = [](const std::string& entry)
    { return Header + "%Settings\n" + entry + "\n%Settings"; };
    const File inView = [](const std::string& entry) { return Header + View123 + entry + "\n%KeyFrameView"; };
    const std::string boolean = " setting.\nValue must be \"true\" or \"false\".";
    const std::string convert =
        "Error reading item from file.\nUnable to convert input to appropriate value: ";
    const std::string mismatch =
        "Mismatch between number of expected values and number of values that could be read.\n"
        "Number of expected values: 3\nNumber of values read: ";
    const struct
    {
        std::string message;
        int line; // 0: the header's plain messages, without the reading error's words
        File file;
        std::vector<std::string> texts;
    } cases[] = {
        // clang-format off
        {"Invalid file header.", 0, whole,
         {"", "\n \n\t\n", "#!KeyFrame", "#!KeyFrame\n1", "#!KeyFrames 1", "#!KeyFrame one",
          "#!KeyFrame 2147483648"}},
        {"File created with a newer version of the Key Frame add-on.", 0, whole,
         {"#!KeyFrame 2", "#!KEYFRAME 12 written later"}},
        {"Unknown section header: Hello", 2, whole, {Header + "Hello"}},
        {"Unknown section header: Bad line", 5, whole, {"\n\n#!KeyFrame 1\n\n  Bad line \t\n"}},
        {"Unknown section header: %Settings extra", 2, whole, {Header + "%Settings extra"}},
        {"Unknown section header: %KeyFrameViews", 12, whole, {ValidStart + "%KeyFrameViews"}},
        // A NUL byte would end the message as the user sees it, before its line number.
        {"Unknown section header: Bad\\0line", 2, whole, {Header + std::string("Bad\0line", 8)}},
        {convert + "\\0", 5, inView, {std::string(" Position 1 2 \0", 15)}},
        {"Unknown section header: \\x1b[2J" + std::string(113, 'x') + "... (1000 bytes)", 2, whole,
         {Header + "\x1b[2J" + std::string(996, 'x')}},
        {"Error during file read.", 3, inSettings, {std::string(64 * 1024 + 1, '1')}},
        // Settings.
        {"Missing end marker for Settings section.", 4, whole,
         {Header + "%Settings\n AnimateTime true\n%KeyFrameView\n%Settings"}},
        {"Unrecognized setting entry.", 3, inSettings, {" Speed 3", "%Settingsx"}},
        {"Unrecognized setting entry.", 14, whole, {ValidStart + "%Settings\n FadeIn true\n"}},
        {"Invalid value for AnimateTime" + boolean, 3, inSettings, {" AnimateTime True"}},
        {"Invalid value for AnimateStreamtraces" + boolean, 3, inSettings, {" animatestreamtraces 1"}},
        {"Invalid value for FadeIn" + boolean, 3, inSettings, {" FADEIN yes"}},
        {"Invalid value for FadeOut" + boolean, 3, inSettings, {" FadeOut"}},
        {"Invalid value for TimeAnimationOperation setting.", 3, inSettings,
         {" TimeAnimationOperation As Captured", " timeanimationoperation"}},
        {"Invalid value for NumCycles setting.\nValue must be an integer greater than 1.", 3, inSettings,
         {" NumCycles 0", " NumCycles -2", " NumCycles many", " NumCycles 2147483648", " NUMCYCLES"}},
        // Key frames.
        {"Missing end marker for KeyFrameView section.", 4, whole,
         {Header + "%KeyFrameView\n Position 1 2 3\n%Settings\n Angle 4 5 6\n%KeyFrameView"}},
        {"Unrecognized KeyFrameItem entry.", 5, inView, {" Zoom 2"}},
        {"Unrecognized KeyFrameItem entry.", 15, whole, {ValidStart + View123}},
        {"View name must be surrounded in quotation marks.", 5, inView, {" Name View 1", " Name \"View 1"}},
        {"Unable to read view name.", 5, inView, {" Name \"\" second \"name\""}},
        {"Unable to read width value.", 5, inView, {" Width wide", " Width", " Width 1e400", " Width nan"}},
        {"Invalid width value. Width must be between -1e150 and 1e150", 5, inView,
         {" Width 1.0000001e150", " Width -1e151"}},
        {"Invalid frameCount value.", 5, inView,
         {" FrameCount 0", " FrameCount -0", " FrameCount -1", " FrameCount 18446744073709551616",
          " FrameCount x", " FrameCount"}},
        {"Unable to read solution time value.", 5, inView,
         {" SolutionTime x", " SolutionTime inf", " SolutionTime"}},
        {mismatch + "2", 5, inView, {" Position 1 2"}},
        {mismatch + "4", 5, inView, {" Position 1 2 3 4"}},
        {mismatch + "0", 5, inView, {" Position"}},
        {convert + "1e400", 5, inView, {" Position 1e400 0 0"}},
        {convert + ",2,3", 5, inView, {" Position 1,2,3"}},
        {convert + "-inf", 5, inView, {" angle 0 0 -inf"}},
        {"Key frame view is missing its Position entry.", 2, whole, {Header + "%KeyFrameView"}},
        {"Key frame view is missing its Position entry.", 5, whole,
         {Header + "%KeyFrameView\n Angle 4 5 6\n Name \"A\"\n%KeyFrameView"}},
        {"Key frame view is missing its Angle entry.", 4, whole,
         {Header + "%KeyFrameView\n Position 1 2 3\n%KeyFrameView"}},
        // clang-format on
    };
    for (const auto& c : cases)
        for (const std::string& text : c.texts)
        {
            SCOPED_TRACE(c.file(text));
            EXPECT_THROW_MSG(read(c.file(text)), KeyFrameError,
                             c.line ? ReadingError(c.message, c.line) : c.message);
            expectDocument(NonDefault, m_original, false);
        }
}

TEST_F(KeyFrameFileTest, ReadingToleratesCaseWhiteSpaceOrderRepetitionAndWordsAfterValues)
{
    std::string crlfExample;
    for (const char c : ExampleText)
        crlfExample += c == '\n' ? std::string("\r\n") : std::string(1, c);
    const struct
    {
        std::string what, text;
        Settings_s settings;
        std::vector<KeyFrame_s> keyFrames;
    } cases[] = {
        // clang-format off
        {"the example", ExampleText, ExampleSettings, ExampleKeyFrames},
        {"carriage returns, ending in one", crlfExample + "\r\n", ExampleSettings, ExampleKeyFrames},
        {"header in lower case", "#!keyframe 1", NonDefault, {}},
        {"older version, line break", "#!KeyFrame 0\n", NonDefault, {}},
        {"negative version, words after it", "#!KeyFrame -3 written by hand", NonDefault, {}},
        {"blank lines and white space around the header", "\n \n\t#!KeyFrame 1  \n\n\n", NonDefault, {}},
        {"keys and section words in any case", Header + "%settings\n animatetime true\n"
         " TIMEANIMATIONOPERATION bounce\n numCycles 3\n%SETTINGS\n%keyframeview\n name \"x\"\n"
         " POSITION 1 2 3\n aNGLE 4 5 6\n%KeyFrameVIEW",
         {{true, Bounce, 3}, ToFile, true, true, true}, {OneTwoThree("x")}},
        {"later settings override earlier ones key by key, in any order",
         Header + "%Settings\n FadeOut false\n NumCycles 1\n FadeIn false\n%Settings\n" + View123 +
         "%KeyFrameView\n%Settings\n FadeIn true\n TimeAnimationOperation ASCAPTURED\n%Settings",
         {{false, AsCaptured, 1}, ToFile, true, true, false}, {OneTwoThree("")}},
        {"only the first word of an end marker counts",
         Header + "%Settings\n FadeIn false\n%Settings trailing words\n" + View123 + "%KeyFrameView also",
         {{false, Bounce, 7}, ToFile, true, false, true}, {OneTwoThree("")}},
        {"name up to an inner quote", Header + View123 + " Name \"Say \"hi\" now\"\n%KeyFrameView",
         NonDefault, {OneTwoThree("Say ")}},
        {"name with blanks kept inside the quotes", Header + View123 + " Name   \t\" two  words \" ignored",
         NonDefault, {OneTwoThree(" two  words ")}},
        {"width limits", Header + View123 + " Width 1e150\n%KeyFrameView\n" + View123 + " Width -1e150",
         NonDefault, {OneTwoThree("", 1e150), OneTwoThree("", -1e150)}},
        {"a later item replaces an earlier one",
         Header + "%KeyFrameView\n Position 9 9 9\n Name \"a\"\n FrameCount 4\n Angle 0 0 0\n"
         " Position 1 2 3\n Name \"b\"\n FrameCount 5\n Angle 4 5 6\n%KeyFrameView",
         NonDefault, {OneTwoThree("b", 0, 5)}},
        {"words after the values are ignored",
         Header + "%Settings\n AnimateTime true please\n NumCycles 4 cycles\n%Settings\n" + View123 +
         " Width 2 metres\n FrameCount +5 frames\n SolutionTime 1.5 s\n%KeyFrameView",
         {{true, Bounce, 4}, ToFile, true, true, true}, {OneTwoThree("", 2, 5, 1.5)}},
        {"largest counts",
         Header + "%Settings\n NumCycles 2147483647\n%Settings\n" + View123 +
         " FrameCount 18446744073709551615", {{false, Bounce, 2147483647}, ToFile, true, true, true},
         {OneTwoThree("", 0, std::numeric_limits<std::uint64_t>::max())}},
        {"tabs, form feeds and blank lines inside sections",
         Header + "\t%KeyFrameView\t\n\n\tPosition\t1\t2\t3\n\f\n Angle 4 5 6\v\n%KeyFrameView",
         NonDefault, {OneTwoThree("")}},
        {"sections left open at the end of the file without a line break",
         Header + "%Settings\n FadeIn false\n%Settings\n" + View123 + "%KeyFrameView\n%Settings\n"
         " FadeOut false", {{false, Bounce, 7}, ToFile, true, false, false}, {OneTwoThree("")}},
        // clang-format on
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.what);
        restart();
        read(c.text);
        expectDocument(c.settings, c.keyFrames);
    }
}
