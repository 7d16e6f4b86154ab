// Saving and reading key frame files: the canonical text that saving writes, the tolerant reading of
// hand-edited files, every reading error in the user's words with its line number, and reading all or
// nothing.
#include "document/KeyFrameFile.h"

#include "core/KeyFrame.h"
#include "core/KeyFrameError.h"
#include "core/Settings.h"
#include "core/View.h"
#include "document/ListModelKeyFrame.h"
#include "model/ListModelGenericInterface.h"

#include <support/AddOnTest.h>
#include <support/TempFolder.h>

#include <cstdint>
#include <filesystem>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;

namespace
{

// The example of a complete file: the default settings with time animation on, and two key frames.
const std::string ExampleText = "#!KeyFrame 1\n"
                                "\n"
                                "%Settings\n"
                                " AnimateTime true\n"
                                " TimeAnimationOperation Forward\n"
                                " NumCycles 1\n"
                                " AnimateStreamtraces false\n"
                                " FadeIn false\n"
                                " FadeOut false\n"
                                "%Settings\n"
                                "\n"
                                "%KeyFrameView\n"
                                " Name \"View 1\"\n"
                                " Position 12.3457 -4.5 30\n"
                                " Angle 123.457 57.2958 0\n"
                                " Width 1.75\n"
                                " FrameCount 20\n"
                                " SolutionTime 0\n"
                                "%KeyFrameView\n"
                                "\n"
                                "%KeyFrameView\n"
                                " Name \"View 2\"\n"
                                " Position 18.5 40 -130\n"
                                " Angle 35.2644 0 0\n"
                                " Width 0.0001\n"
                                " FrameCount 1\n"
                                " SolutionTime 2.5e-05\n"
                                "%KeyFrameView";

const std::string Header = "#!KeyFrame 1\n";

std::string ReadingError(const std::string& message, int line)
{
    return "Error reading key frame settings file.\n\n" + message + "\n\nError occurred on line number " +
           std::to_string(line) + ".";
}

// entry is line 3.
std::string InSettings(const std::string& entry)
{
    return Header + "%Settings\n" + entry + "\n%Settings";
}

// entry is line 5, after a complete view.
std::string InView(const std::string& entry)
{
    return Header + "%KeyFrameView\n Position 1 2 3\n Angle 4 5 6\n" + entry + "\n%KeyFrameView";
}

std::string Mismatch(int read)
{
    return "Mismatch between number of expected values and number of values that could be read.\n"
           "Number of expected values: 3\nNumber of values read: " +
           std::to_string(read);
}

std::string Unconvertible(const std::string& word)
{
    return "Error reading item from file.\nUnable to convert input to appropriate value: " + word;
}

std::string InvalidBoolean(const std::string& key)
{
    return "Invalid value for " + key + " setting.\nValue must be \"true\" or \"false\".";
}

const std::string InvalidNumCycles =
    "Invalid value for NumCycles setting.\nValue must be an integer greater than 1.";
const std::string InvalidOperation = "Invalid value for TimeAnimationOperation setting.";
const std::string InvalidWidth = "Invalid width value. Width must be between -1e150 and 1e150";

// Every field differs from the defaults and from what the example file sets.
Settings_s NonDefaultSettings()
{
    Settings_s settings;
    settings.timeOptions.animateTime = false;
    settings.timeOptions.timeAnimationOperation = Bounce;
    settings.timeOptions.numCycles = 7;
    settings.destination = ToFile;
    settings.animateStreamtraces = true;
    settings.fadeIn = true;
    settings.fadeOut = true;
    return settings;
}

template <typename Change>
Settings_s NonDefaultSettingsWith(Change change)
{
    Settings_s settings = NonDefaultSettings();
    change(settings);
    return settings;
}

std::vector<KeyFrame_s> ExampleKeyFrames()
{
    return {KeyFrame_s(View(12.3457, -4.5, 30, 123.457, 57.2958, 0, 1.75), "View 1", 20, 0),
            KeyFrame_s(View(18.5, 40, -130, 35.2644, 0, 0, 0.0001), "View 2", 1, 2.5e-05)};
}

KeyFrame_s OneTwoThree(const std::string& name, double width = 0.0, std::uint64_t frameCount = 0,
                       double solutionTime = 0.0)
{
    return KeyFrame_s(View(1, 2, 3, 4, 5, 6, width), name, frameCount, solutionTime);
}

void ExpectSettings(const Settings_s& expected, const Settings_s& actual)
{
    EXPECT_EQ(expected.timeOptions.animateTime, actual.timeOptions.animateTime);
    EXPECT_EQ(expected.timeOptions.timeAnimationOperation, actual.timeOptions.timeAnimationOperation);
    EXPECT_EQ(expected.timeOptions.numCycles, actual.timeOptions.numCycles);
    EXPECT_EQ(expected.destination, actual.destination);
    EXPECT_EQ(expected.animateStreamtraces, actual.animateStreamtraces);
    EXPECT_EQ(expected.fadeIn, actual.fadeIn);
    EXPECT_EQ(expected.fadeOut, actual.fadeOut);
}

void ExpectKeyFrames(const std::vector<KeyFrame_s>& expected, const std::vector<KeyFrame_s>& actual)
{
    ASSERT_EQ(expected.size(), actual.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
    {
        SCOPED_TRACE("key frame " + std::to_string(i));
        const View& e = expected[i].view;
        const View& a = actual[i].view;
        EXPECT_EQ(e.x(), a.x());
        EXPECT_EQ(e.y(), a.y());
        EXPECT_EQ(e.z(), a.z());
        EXPECT_EQ(e.psi(), a.psi());
        EXPECT_EQ(e.theta(), a.theta());
        EXPECT_EQ(e.alpha(), a.alpha());
        EXPECT_EQ(e.width(), a.width());
        EXPECT_EQ(expected[i].name, actual[i].name);
        EXPECT_EQ(expected[i].frameCount, actual[i].frameCount);
        EXPECT_EQ(expected[i].solutionTime, actual[i].solutionTime);
    }
}

// What a successful read tells the list's observers: rebuild, once.
const std::vector<ListModelGenericInterface::ChangeType_e> OneReset{
    ListModelGenericInterface::ChangeInfo_s::ModelReset};

class ChangeRecorder : public ListModelObserverInterface
{
public:
    void modelChanged(const ListModelGenericInterface::ChangeInfo_s& change) override
    {
        types.push_back(change.type);
    }
    std::vector<ListModelGenericInterface::ChangeType_e> types;
};

// Reads and writes with a model that holds one key frame and is watched, and with settings that differ
// from the defaults everywhere, so that whatever a read changes or leaves alone shows.
class KeyFrameFileTest : public testsupport::AddOnTest
{
protected:
    void SetUp() override
    {
        AddOnTest::SetUp();
        m_model.setDataList(m_originalKeyFrames);
        m_model.addObserver(m_recorder);
    }

    void TearDown() override
    {
        m_model.removeObserver(m_recorder);
        AddOnTest::TearDown();
    }

    std::string path(const std::string& name = "animation.keyframe") const
    {
        return (m_folder.path() / name).string();
    }

    void read(const std::string& text)
    {
        testsupport::WriteFile(path(), text);
        KeyFrameFile().readFile(path(), m_settings, m_model);
    }

    // The message of the KeyFrameError that reading text throws.
    std::string readingError(const std::string& text)
    {
        try
        {
            read(text);
        }
        catch (const KeyFrameError& error)
        {
            return error.what();
        }
        return "no error";
    }

    void expectUnchanged()
    {
        ExpectSettings(NonDefaultSettings(), m_settings);
        ExpectKeyFrames(m_originalKeyFrames, m_model.dataList());
        EXPECT_TRUE(m_recorder.types.empty());
    }

    std::string save(const Settings_s& settings, const std::vector<KeyFrame_s>& keyFrames)
    {
        ListModelKeyFrame model;
        model.setDataList(keyFrames);
        KeyFrameFile().saveFile(path("saved.keyframe"), settings, model);
        return testsupport::ReadFile(path("saved.keyframe"));
    }

    testsupport::TempFolder m_folder{"keyframe-file-test"};
    const std::vector<KeyFrame_s> m_originalKeyFrames{OneTwoThree("Before", 9.0, 3, 1.5)};
    Settings_s m_settings = NonDefaultSettings();
    ListModelKeyFrame m_model;
    ChangeRecorder m_recorder;
};

} // namespace

TEST_F(KeyFrameFileTest, ExampleFileReadsIntoExactlyTheValuesItShows)
{
    read(ExampleText);

    Settings_s expected;
    expected.timeOptions.animateTime = true;
    expected.destination = ToFile; // not stored in the file, so the caller's value stays
    ExpectSettings(expected, m_settings);
    ExpectKeyFrames(ExampleKeyFrames(), m_model.dataList());
    EXPECT_EQ(OneReset, m_recorder.types);
}

TEST_F(KeyFrameFileTest, SavingTheExampleValuesWritesTheExampleTextByteForByte)
{
    Settings_s settings;
    settings.timeOptions.animateTime = true;
    const std::vector<KeyFrame_s> keyFrames{
        KeyFrame_s(View(12.3456789, -4.5, 30.0, 123.456789, 57.29577951, 0.0, 1.75), "View 1", 20, 0.0),
        KeyFrame_s(View(18.5, 40.0, -130.0, 35.26438968, 0.0, 0.0, 0.0001), "View 2", 1, 0.000025)};

    EXPECT_EQ(ExampleText, save(settings, keyFrames));
}

TEST_F(KeyFrameFileTest, SavingWritesNumbersToSixSignificantDigitsInStreamNotation)
{
    const std::vector<std::pair<double, std::string>> cases{
        {12.3456789, "12.3457"},    {30.0, "30"},         {0.000025, "2.5e-05"},
        {1234567.0, "1.23457e+06"}, {123456.0, "123456"}, {999999.5, "1e+06"},
        {0.0001, "0.0001"},         {-0.0, "-0"},         {1e150, "1e+150"},
        {-1.5e-300, "-1.5e-300"}};
    for (const auto& [width, text] : cases)
    {
        SCOPED_TRACE(text);
        EXPECT_NE(std::string::npos,
                  save(Settings_s(), {OneTwoThree("A", width, 1)}).find("\n Width " + text + "\n"));
    }
}

TEST_F(KeyFrameFileTest, SavedFileReadsBackToSixSignificantDigits)
{
    const Settings_s settings = NonDefaultSettingsWith(
        [](Settings_s& s)
        {
            s.destination = OnScreen;
            s.timeOptions.animateTime = true;
            s.timeOptions.timeAnimationOperation = AsCaptured;
            s.timeOptions.numCycles = 2147483647;
            s.fadeIn = false;
        });
    const std::uint64_t largestCount = std::numeric_limits<std::uint64_t>::max();
    const std::vector<KeyFrame_s> saved{
        KeyFrame_s(View(1234567.891, -0.000123456789, 1e-7, 179.99999, -45.123456, 0.5, 1234.5678),
                   "  Front, left (2) ", largestCount, 98765.4321),
        KeyFrame_s(View(-1e300, 2.5e-300, 0.0, 360.0, 720.000001, -33.3333333, -1e150), "B", 1, -2.5)};
    const std::vector<KeyFrame_s> expected{
        KeyFrame_s(View(1234570, -0.000123457, 1e-07, 180, -45.1235, 0.5, 1234.57), "  Front, left (2) ",
                   largestCount, 98765.4),
        KeyFrame_s(View(-1e300, 2.5e-300, 0, 360, 720, -33.3333, -1e150), "B", 1, -2.5)};

    save(settings, saved);
    KeyFrameFile().readFile(path("saved.keyframe"), m_settings, m_model);

    Settings_s expectedSettings = settings;
    expectedSettings.destination = ToFile; // not stored in the file, so the caller's value stays
    ExpectSettings(expectedSettings, m_settings);
    ExpectKeyFrames(expected, m_model.dataList());
}

TEST_F(KeyFrameFileTest, ANameWithADoubleQuoteIsWrittenButReadsBackOnlyUpToTheQuote)
{
    EXPECT_NE(std::string::npos,
              save(Settings_s(), {OneTwoThree("Say \"hi\"", 1, 1)}).find("\n Name \"Say \"hi\"\"\n"));
    KeyFrameFile().readFile(path("saved.keyframe"), m_settings, m_model);
    ASSERT_EQ(1u, m_model.size());
    EXPECT_EQ("Say ", m_model.name(0));
}

TEST_F(KeyFrameFileTest, NumbersAreWrittenAndReadTheSameWhateverTheGlobalLocale)
{
    // A locale that groups digits and writes a comma for the decimal point.
    struct CommaNumbers : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::locale previous = std::locale::global(std::locale(std::locale::classic(), new CommaNumbers));
    const Settings_s settings;
    std::string text;
    try
    {
        text = save(settings, {OneTwoThree("A", 1234.5, 1234567, 0.25)});
        KeyFrameFile().readFile(path("saved.keyframe"), m_settings, m_model);
    }
    catch (...)
    {
        std::locale::global(previous);
        throw;
    }
    std::locale::global(previous);

    EXPECT_NE(std::string::npos, text.find("\n Width 1234.5\n FrameCount 1234567\n SolutionTime 0.25\n"));
    ExpectKeyFrames({OneTwoThree("A", 1234.5, 1234567, 0.25)}, m_model.dataList());
}

TEST_F(KeyFrameFileTest, SavingAnEmptyListIsRefusedWithoutTouchingTheFile)
{
    const std::vector<std::pair<std::string, bool>> cases{{"new.keyframe", false},
                                                          {"existing.keyframe", true}};
    testsupport::WriteFile(path("existing.keyframe"), "kept as it was");
    for (const auto& [name, exists] : cases)
    {
        SCOPED_TRACE(name);
        try
        {
            KeyFrameFile().saveFile(path(name), Settings_s(), ListModelKeyFrame());
            ADD_FAILURE() << "saving an empty list succeeded";
        }
        catch (const KeyFrameError& error)
        {
            EXPECT_STREQ("No Key Frames established.", error.what());
        }
        EXPECT_EQ(exists, std::filesystem::exists(path(name)));
    }
    EXPECT_EQ("kept as it was", testsupport::ReadFile(path("existing.keyframe")));
}

TEST_F(KeyFrameFileTest, SavingReplacesTheWholeContentOfAnExistingFile)
{
    testsupport::WriteFile(path("saved.keyframe"), std::string(10000, 'x'));
    Settings_s settings;
    settings.timeOptions.animateTime = true;
    EXPECT_EQ(ExampleText, save(settings, ExampleKeyFrames()));
}

TEST_F(KeyFrameFileTest, PathsThatCannotBeOpenedGiveTheOpenMessages)
{
    const std::string missingFolder = path("no such folder/animation.keyframe");
    for (const std::string& target : {missingFolder, m_folder.path().string()})
    {
        SCOPED_TRACE(target);
        try
        {
            KeyFrameFile().saveFile(target, m_settings, m_model);
            ADD_FAILURE() << "saving succeeded";
        }
        catch (const KeyFrameError& error)
        {
            EXPECT_STREQ("Unable to open file for writing.", error.what());
        }
    }
    try
    {
        KeyFrameFile().readFile(missingFolder, m_settings, m_model);
        ADD_FAILURE() << "reading succeeded";
    }
    catch (const KeyFrameError& error)
    {
        EXPECT_STREQ("Unable to open file for reading.", error.what());
    }
    expectUnchanged();
}

TEST_F(KeyFrameFileTest, AFolderOpensButFailsOnTheFirstReadAsAStreamFailure)
{
    try
    {
        KeyFrameFile().readFile(m_folder.path().string(), m_settings, m_model);
        ADD_FAILURE() << "reading a folder succeeded";
    }
    catch (const KeyFrameError& error)
    {
        EXPECT_EQ(ReadingError("Error during file read.", 1), error.what());
    }
    expectUnchanged();
}

TEST_F(KeyFrameFileTest, EveryReadingErrorIsReportedInItsExactWords)
{
    struct Case
    {
        std::string text;
        std::string message;
    };
    const std::vector<Case> cases{
        // The header line, reported plainly.
        {"", "Invalid file header."},
        {"\n \n\t\n", "Invalid file header."},
        {"#!KeyFrame", "Invalid file header."},
        {"#!KeyFrame\n1", "Invalid file header."},
        {"#!KeyFrames 1", "Invalid file header."},
        {"#!Key Frame 1", "Invalid file header."},
        {"KeyFrame 1", "Invalid file header."},
        {"#!KeyFrame one", "Invalid file header."},
        {"#!KeyFrame 2147483648", "Invalid file header."},
        {"#!KeyFrame 2", "File created with a newer version of the Key Frame add-on."},
        {"#!KEYFRAME 12 written later", "File created with a newer version of the Key Frame add-on."},
        // Between sections.
        {Header + "Hello", ReadingError("Unknown section header: Hello", 2)},
        {"\n\n#!KeyFrame 1\n\n  Bad line \t\n", ReadingError("Unknown section header: Bad line", 5)},
        {Header + "%Settings extra", ReadingError("Unknown section header: %Settings extra", 2)},
        // A NUL byte would end the message as the user sees it, before its line number.
        {Header + std::string("Bad\0line", 8), ReadingError("Unknown section header: Bad\\0line", 2)},
        {InView(std::string(" Position 1 2 \0", 15)), ReadingError(Unconvertible("\\0"), 5)},
        {Header + "%KeyFrameView\n Position 1 2 3\n Angle 4 5 6\n%KeyFrameView\n%KeyFrameViews",
         ReadingError("Unknown section header: %KeyFrameViews", 6)},
        // Settings.
        {Header + "%Settings\n AnimateTime true\n%KeyFrameView\n%Settings",
         ReadingError("Missing end marker for Settings section.", 4)},
        {InSettings(" Speed 3"), ReadingError("Unrecognized setting entry.", 3)},
        {InSettings("%Settingsx"), ReadingError("Unrecognized setting entry.", 3)},
        {Header + "%Settings\n FadeIn true\n", ReadingError("Unrecognized setting entry.", 4)},
        {InSettings(" AnimateTime True"), ReadingError(InvalidBoolean("AnimateTime"), 3)},
        {InSettings(" animatestreamtraces 1"), ReadingError(InvalidBoolean("AnimateStreamtraces"), 3)},
        {InSettings(" FADEIN yes"), ReadingError(InvalidBoolean("FadeIn"), 3)},
        {InSettings(" FadeOut"), ReadingError(InvalidBoolean("FadeOut"), 3)},
        {InSettings(" FadeOut truest"), ReadingError(InvalidBoolean("FadeOut"), 3)},
        {InSettings(" TimeAnimationOperation Sideways"), ReadingError(InvalidOperation, 3)},
        {InSettings(" TimeAnimationOperation As Captured"), ReadingError(InvalidOperation, 3)},
        {InSettings(" timeanimationoperation"), ReadingError(InvalidOperation, 3)},
        {InSettings(" NumCycles 0"), ReadingError(InvalidNumCycles, 3)},
        {InSettings(" NumCycles -2"), ReadingError(InvalidNumCycles, 3)},
        {InSettings(" NumCycles many"), ReadingError(InvalidNumCycles, 3)},
        {InSettings(" NumCycles 2147483648"), ReadingError(InvalidNumCycles, 3)},
        {InSettings(" NUMCYCLES"), ReadingError(InvalidNumCycles, 3)},
        // Key frames.
        {Header + "%KeyFrameView\n Position 1 2 3\n%Settings\n Angle 4 5 6\n%KeyFrameView",
         ReadingError("Missing end marker for KeyFrameView section.", 4)},
        {InView(" Zoom 2"), ReadingError("Unrecognized KeyFrameItem entry.", 5)},
        {Header + "%KeyFrameView\n Position 1 2 3\n Angle 4 5 6\n",
         ReadingError("Unrecognized KeyFrameItem entry.", 5)},
        {InView(" Name View 1"), ReadingError("View name must be surrounded in quotation marks.", 5)},
        {InView(" Name \"View 1"), ReadingError("View name must be surrounded in quotation marks.", 5)},
        {InView(" Name \"\" second \"name\""), ReadingError("Unable to read view name.", 5)},
        {InView(" Width wide"), ReadingError("Unable to read width value.", 5)},
        {InView(" Width"), ReadingError("Unable to read width value.", 5)},
        {InView(" Width 1e400"), ReadingError("Unable to read width value.", 5)},
        {InView(" Width nan"), ReadingError("Unable to read width value.", 5)},
        {InView(" Width 1.0000001e150"), ReadingError(InvalidWidth, 5)},
        {InView(" Width -1e151"), ReadingError(InvalidWidth, 5)},
        {InView(" Width 1.7e308"), ReadingError(InvalidWidth, 5)},
        {InView(" FrameCount 0"), ReadingError("Invalid frameCount value.", 5)},
        {InView(" FrameCount -1"), ReadingError("Invalid frameCount value.", 5)},
        {InView(" FrameCount -0"), ReadingError("Invalid frameCount value.", 5)},
        {InView(" FrameCount 18446744073709551616"), ReadingError("Invalid frameCount value.", 5)},
        {InView(" FrameCount twenty"), ReadingError("Invalid frameCount value.", 5)},
        {InView(" FrameCount"), ReadingError("Invalid frameCount value.", 5)},
        {InView(" SolutionTime later"), ReadingError("Unable to read solution time value.", 5)},
        {InView(" SolutionTime inf"), ReadingError("Unable to read solution time value.", 5)},
        {InView(" SolutionTime"), ReadingError("Unable to read solution time value.", 5)},
        {InView(" Position 1 2"), ReadingError(Mismatch(2), 5)},
        {InView(" Position 1 2 3 4"), ReadingError(Mismatch(4), 5)},
        {InView(" Position"), ReadingError(Mismatch(0), 5)},
        {InView(" Position 1 2 zero"), ReadingError(Unconvertible("zero"), 5)},
        {InView(" Position 1e400 0 0"), ReadingError(Unconvertible("1e400"), 5)},
        {InView(" Position 1,2,3"), ReadingError(Unconvertible(",2,3"), 5)},
        {InView(" Angle nan 0 0"), ReadingError(Unconvertible("nan"), 5)},
        {InView(" angle 0 0 -inf"), ReadingError(Unconvertible("-inf"), 5)},
        {Header + "%KeyFrameView\n Angle 4 5 6\n Name \"A\"\n%KeyFrameView",
         ReadingError("Key frame view is missing its Position entry.", 5)},
        {Header + "%KeyFrameView\n Name \"A\"\n%KeyFrameView",
         ReadingError("Key frame view is missing its Position entry.", 4)},
        {Header + "%KeyFrameView", ReadingError("Key frame view is missing its Position entry.", 2)},
        {Header + "%KeyFrameView\n Position 1 2 3\n%KeyFrameView",
         ReadingError("Key frame view is missing its Angle entry.", 4)},
        {Header +
             "%KeyFrameView\n Position 1 2 3\n Angle 4 5 6\n%KeyFrameView\n\n%KeyFrameView\n Angle 4 5 6",
         ReadingError("Key frame view is missing its Position entry.", 8)},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(c.message, readingError(c.text));
        expectUnchanged();
    }
}

TEST_F(KeyFrameFileTest, AFailedReadChangesNeitherTheSettingsNorTheList)
{
    const std::string validStart =
        Header + "%Settings\n AnimateTime true\n NumCycles 3\n FadeIn false\n%Settings\n" +
        "%KeyFrameView\n Name \"A\"\n Position 1 2 3\n Angle 4 5 6\n%KeyFrameView\n";
    const std::vector<std::string> texts{
        validStart + "%Settings\n TimeAnimationOperation Loop\n FadeOut maybe\n%Settings",
        validStart +
            "%KeyFrameView\n Name \"B\"\n Position 1 2 3\n Angle 4 5 6\n FrameCount 0\n%KeyFrameView",
        validStart + "%KeyFrameView\n Name \"B\"\n Position 1 2 3\n Angle 4 5 6\n",
        validStart + "%KeyFrameView\n Name \"B\"\n Angle 4 5 6\n%KeyFrameView",
        validStart + "%Settings\n AnimateTime true\n",
        validStart + "trailing words",
        "#!KeyFrame 3\n" + validStart,
    };
    for (const std::string& text : texts)
    {
        SCOPED_TRACE(text);
        EXPECT_NE("no error", readingError(text));
        expectUnchanged();
    }
}

TEST_F(KeyFrameFileTest, EdgeCasesOfTolerantReading)
{
    struct Case
    {
        std::string what;
        std::string text;
        Settings_s settings;
        std::vector<KeyFrame_s> keyFrames;
    };
    const std::string view = "%KeyFrameView\n Position 1 2 3\n Angle 4 5 6\n";
    const std::string crlfExample = []
    {
        std::string text;
        for (const char c : ExampleText)
            text += c == '\n' ? std::string("\r\n") : std::string(1, c);
        return text;
    }();
    const Settings_s exampleSettings = NonDefaultSettingsWith(
        [](Settings_s& s)
        {
            s.timeOptions = TimeAnimationOptions_s();
            s.timeOptions.animateTime = true;
            s.animateStreamtraces = s.fadeIn = s.fadeOut = false;
        });
    const std::vector<Case> cases{
        {"header in lower case", "#!keyframe 1", NonDefaultSettings(), {}},
        {"older version, line break", "#!KeyFrame 0\n", NonDefaultSettings(), {}},
        {"negative version, words after it", "#!KeyFrame -3 written by hand", NonDefaultSettings(), {}},
        {"blank lines and white space around the header",
         "\n \n\t#!KeyFrame 1  \n\n\n",
         NonDefaultSettings(),
         {}},
        {"keys and section words in any case",
         Header + "%settings\n animatetime true\n TIMEANIMATIONOPERATION bounce\n numCycles 3\n%SETTINGS\n"
                  "%keyframeview\n name \"x\"\n POSITION 1 2 3\n aNGLE 4 5 6\n%KeyFrameVIEW",
         NonDefaultSettingsWith(
             [](Settings_s& s)
             {
                 s.timeOptions.animateTime = true;
                 s.timeOptions.timeAnimationOperation = Bounce;
                 s.timeOptions.numCycles = 3;
             }),
         {OneTwoThree("x")}},
        {"later settings override earlier ones key by key, in any order",
         Header + "%Settings\n FadeOut false\n NumCycles 1\n FadeIn false\n%Settings\n" + view +
             "%KeyFrameView\n%Settings\n FadeIn true\n TimeAnimationOperation ASCAPTURED\n%Settings",
         NonDefaultSettingsWith(
             [](Settings_s& s)
             {
                 s.fadeOut = false;
                 s.timeOptions.numCycles = 1;
                 s.timeOptions.timeAnimationOperation = AsCaptured;
             }),
         {OneTwoThree("")}},
        {"only the first word of an end marker counts",
         Header + "%Settings\n FadeIn false\n%Settings trailing words\n" + view + "%KeyFrameView also here",
         NonDefaultSettingsWith([](Settings_s& s) { s.fadeIn = false; }),
         {OneTwoThree("")}},
        {"name up to an inner quote",
         Header + view + " Name \"Say \"hi\" now\"\n%KeyFrameView",
         NonDefaultSettings(),
         {OneTwoThree("Say ")}},
        {"name with blanks kept inside the quotes",
         Header + view + " Name   \t\" two  words \" ignored",
         NonDefaultSettings(),
         {OneTwoThree(" two  words ")}},
        {"widths at the limits",
         Header + view + " Width 1e150\n%KeyFrameView\n" + view + " Width -1e150",
         NonDefaultSettings(),
         {OneTwoThree("", 1e150), OneTwoThree("", -1e150)}},
        {"items not given keep their defaults",
         Header + view + "%KeyFrameView",
         NonDefaultSettings(),
         {OneTwoThree("")}},
        {"a later item replaces an earlier one",
         Header +
             "%KeyFrameView\n Position 9 9 9\n Name \"a\"\n FrameCount 4\n Angle 0 0 0\n Position 1 2 3\n"
             " Name \"b\"\n FrameCount 5\n Angle 4 5 6\n%KeyFrameView",
         NonDefaultSettings(),
         {OneTwoThree("b", 0, 5)}},
        {"words after the values are ignored",
         Header + "%Settings\n AnimateTime true please\n NumCycles 4 cycles\n%Settings\n" + view +
             " Width 2 metres\n FrameCount +5 frames\n SolutionTime 1.5 s\n%KeyFrameView",
         NonDefaultSettingsWith(
             [](Settings_s& s)
             {
                 s.timeOptions.animateTime = true;
                 s.timeOptions.numCycles = 4;
             }),
         {OneTwoThree("", 2, 5, 1.5)}},
        {"largest counts",
         Header + "%Settings\n NumCycles 2147483647\n%Settings\n" + view + " FrameCount 18446744073709551615",
         NonDefaultSettingsWith([](Settings_s& s) { s.timeOptions.numCycles = 2147483647; }),
         {OneTwoThree("", 0, std::numeric_limits<std::uint64_t>::max())}},
        {"tabs, form feeds and blank lines inside sections",
         Header + "\t%KeyFrameView\t\n\n\tPosition\t1\t2\t3\n\f\n Angle 4 5 6\v\n%KeyFrameView",
         NonDefaultSettings(),
         {OneTwoThree("")}},
        {"sections left open at the end of the file without a line break",
         Header + "%Settings\n FadeIn false\n%Settings\n" + view + "%KeyFrameView\n%Settings\n FadeOut false",
         NonDefaultSettingsWith([](Settings_s& s) { s.fadeIn = s.fadeOut = false; }),
         {OneTwoThree("")}},
        {"a closed last section followed by a line break", ExampleText + "\n", exampleSettings,
         ExampleKeyFrames()},
        {"carriage return and line feed", crlfExample, exampleSettings, ExampleKeyFrames()},
        {"carriage return and line feed, ending in one", crlfExample + "\r\n", exampleSettings,
         ExampleKeyFrames()},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.what);
        m_settings = NonDefaultSettings();
        m_model.setDataList(m_originalKeyFrames);
        m_recorder.types.clear();

        read(c.text);

        ExpectSettings(c.settings, m_settings);
        ExpectKeyFrames(c.keyFrames, m_model.dataList());
        EXPECT_EQ(OneReset, m_recorder.types);
    }
}

TEST_F(KeyFrameFileTest, ReadLineTrimsEveryLineAndCountsEveryAttempt)
{
    std::istringstream in("a\r\n\r\n  b c \t\n");
    KeyFrameFile file;
    std::string line = "old";
    const std::vector<std::string> expected{"a", "", "b c", ""};
    for (const std::string& text : expected)
    {
        file.readLine(in, line, false);
        EXPECT_EQ(text, line);
    }
    file.readLine(in, line, true);
    EXPECT_EQ("", line);
    try
    {
        file.throwError("Counted.", true);
    }
    catch (const KeyFrameError& error)
    {
        EXPECT_EQ(ReadingError("Counted.", 4), error.what());
    }
}
