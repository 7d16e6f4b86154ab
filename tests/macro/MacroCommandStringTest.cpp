// The text form of the add-on's macro commands: splitting, parsing with its exact failures, building, and
// building then parsing over many generated values.
#include "core/KeyFrameError.h"
#include "macro/MacroManager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;

namespace
{

using Pairs = MacroParameterList;

// The one the add-on records and replays with: items separated by one blank.
const AddOnMacroCommandManager& Manager()
{
    static const AddOnMacroCommandManager manager(" ");
    return manager;
}

std::string Describe(const Pairs& pairs)
{
    std::ostringstream text;
    for (const auto& pair : pairs)
        text << '(' << EnumMap<Parameter_e>::toString(pair.first) << ", \"" << pair.second << "\") ";
    return text.str();
}

// The message parsing text fails with, or "" when it succeeds.
std::string ParseFailure(const std::string& text, Command_e& command, Pairs& pairs)
{
    try
    {
        Manager().parseMacroCommandString(text, command, pairs);
    }
    catch (const KeyFrameError& error)
    {
        return error.what();
    }
    return "";
}

} // namespace

TEST(MacroCommandStringTest, SplitsIntoTheCommandWordAndWholeParameterItems)
{
    const struct
    {
        std::string text;
        std::vector<std::string> tokens;
    } cases[] = {
        {"", {}},
        {"    ", {}},
        {"Animate", {"Animate"}},
        {"  Animate   ", {"Animate"}},
        {"Animate AnimationDestination=OnScreen", {"Animate", "AnimationDestination=OnScreen"}},
        {"OpenSettingsFile   FileName=\"/a b/c d\"   AnimationDestination=x  ",
         {"OpenSettingsFile", "FileName=\"/a b/c d\"", "AnimationDestination=x"}},
        // The "=" found while splitting may belong to a later item.
        {"Animate Fast AnimationDestination=OnScreen", {"Animate", "Fast", "AnimationDestination=OnScreen"}},
        // A quoted part ends at the next quotation mark; the item goes on to the next blank.
        {"OpenSettingsFile FileName=\"a b\"c d=e", {"OpenSettingsFile", "FileName=\"a b\"c", "d=e"}},
        {"OpenSettingsFile FileName=\"\"/data/x\"\"", {"OpenSettingsFile", "FileName=\"\"/data/x\"\""}},
        // Quotation marks open a value only right after "=": before it, the item ends at the blank.
        {"OpenSettingsFile \"File Name\"=x", {"OpenSettingsFile", "\"File", "Name\"=x"}},
        // A quotation mark after "=" of a later item keeps the blanks from this item up to its close.
        {"Animate Fast FileName=\"a b\" x=y", {"Animate", "Fast FileName=\"a b\"", "x=y"}},
        {"Animate\tAnimationDestination=OnScreen\r\n", {"Animate\tAnimationDestination=OnScreen\r\n"}},
        {"Animate FileName=", {"Animate", "FileName="}},
        {"Animate FileName= AnimationDestination=", {"Animate", "FileName=", "AnimationDestination="}},
    };
    for (const auto& c : cases)
    {
        std::vector<std::string> tokens = {"kept"};
        Manager().tokenize(c.text, tokens);
        std::vector<std::string> expected = {"kept"};
        expected.insert(expected.end(), c.tokens.begin(), c.tokens.end());
        EXPECT_EQ(expected, tokens) << c.text;
    }
}

TEST(MacroCommandStringTest, ParsesTheCommandAndItsParametersInOrder)
{
    using C = Command_e;
    const struct
    {
        std::string text;
        Command_e command;
        Pairs pairs;
    } cases[] = {
        {"Animate", C::Animate, {}},
        {"Animate AnimationDestination=OnScreen", C::Animate, {{AnimationDestination, "OnScreen"}}},
        {"Animate AnimationDestination=OnScreen   ", C::Animate, {{AnimationDestination, "OnScreen"}}},
        {"   Animate AnimationDestination=OnScreen", C::Animate, {{AnimationDestination, "OnScreen"}}},
        {"animate   ANIMATIONDESTINATION=tofile", C::Animate, {{AnimationDestination, "tofile"}}},
        {"Animate AnimationDestination=ToFile", C::Animate, {{AnimationDestination, "ToFile"}}},
        {"OpenSettingsFile FileName=/data/runs/wing.keyframe",
         C::OpenSettingsFile,
         {{FileName, "/data/runs/wing.keyframe"}}},
        {"OpenSettingsFile FileName=\"/data/runs/wing study/wing.keyframe\"",
         C::OpenSettingsFile,
         {{FileName, "/data/runs/wing study/wing.keyframe"}}},
        // Every quotation mark at either end goes, and only there.
        {"OpenSettingsFile FileName=\"\"/data/x\"\"", C::OpenSettingsFile, {{FileName, "/data/x"}}},
        {"OpenSettingsFile FileName=\"a b\"c", C::OpenSettingsFile, {{FileName, "a b\"c"}}},
        {"OpenSettingsFile FileName=a\"b\"", C::OpenSettingsFile, {{FileName, "a\"b"}}},
        {"OpenSettingsFile FileName=", C::OpenSettingsFile, {{FileName, ""}}},
        {"OpenSettingsFile FileName=\"\"", C::OpenSettingsFile, {{FileName, ""}}},
        {"OpenSettingsFile FileName=\"  \"", C::OpenSettingsFile, {{FileName, "  "}}},
        {"OpenSettingsFile FileName=a=b", C::OpenSettingsFile, {{FileName, "a=b"}}},
        {"OpenSettingsFile FileName==", C::OpenSettingsFile, {{FileName, "="}}},
        {"OpenSettingsFile FileName=tab\there\r", C::OpenSettingsFile, {{FileName, "tab\there\r"}}},
        {"Animate AnimationDestination=ToFile AnimationDestination=OnScreen",
         C::Animate,
         {{AnimationDestination, "ToFile"}, {AnimationDestination, "OnScreen"}}},
        {"Animate FileName=x AnimationDestination=OnScreen",
         C::Animate,
         {{FileName, "x"}, {AnimationDestination, "OnScreen"}}},
        {"OPENSETTINGSFILE filename=x", C::OpenSettingsFile, {{FileName, "x"}}},
    };
    for (const auto& c : cases)
    {
        Command_e command = c.command == C::Animate ? C::OpenSettingsFile : C::Animate;
        Pairs pairs;
        EXPECT_EQ("", ParseFailure(c.text, command, pairs)) << c.text;
        EXPECT_EQ(c.command, command) << c.text;
        EXPECT_EQ(c.pairs, pairs) << c.text << "\n  parsed " << Describe(pairs);
    }
}

TEST(MacroCommandStringTest, RefusesABadCommandTextWithAMessageThatSaysWhatIsWrong)
{
    const struct
    {
        std::string text;
        std::string message;
    } cases[] = {
        {"", "Invalid macro command string."},
        {"     ", "Invalid macro command string."},
        {"Play AnimationDestination=OnScreen", "Unknown macro command: Play"},
        {"\"Animate\" AnimationDestination=OnScreen", "Unknown macro command: \"Animate\""},
        {"Animate\tAnimationDestination=OnScreen",
         "Unknown macro command: Animate\tAnimationDestination=OnScreen"},
        {"Animate AnimationDestination", "Invalid macro command string format."},
        {"Animate AnimationDestination = OnScreen", "Invalid macro command string format."},
        {"Animate AnimationDestination=OnScreen Fast", "Invalid macro command string format."},
        {"OpenSettingsFile FileName=\"/data/a b.keyframe",
         "Invalid macro command string format. Unmatched quotation mark."},
        {"OpenSettingsFile FileName=\"", "Invalid macro command string format. Unmatched quotation mark."},
        {"Animate Fast AnimationDestination=OnScreen", "Invalid macro parameter string: Fast"},
        {"Animate Destination=OnScreen", "Unknown macro parameter: Destination"},
        {"Animate =OnScreen", "Unknown macro parameter: "},
        {"Animate animation_destination=OnScreen", "Unknown macro parameter: animation_destination"},
        {"Animate Fast FileName=\"a b\"", "Unknown macro parameter: Fast FileName"},
        // The whole text is split before the command word is looked up.
        {"Play Fast", "Invalid macro command string format."},
    };
    for (const auto& c : cases)
    {
        Command_e command = Command_e::OpenSettingsFile;
        Pairs pairs;
        EXPECT_EQ(c.message, ParseFailure(c.text, command, pairs)) << c.text;
    }
}

TEST(MacroCommandStringTest, AppendsToTheParametersAndKeepsWhatWasReadBeforeAFailure)
{
    Command_e command = Command_e::OpenSettingsFile;
    Pairs pairs = {{FileName, "before"}};
    EXPECT_EQ("", ParseFailure("Animate AnimationDestination=OnScreen", command, pairs));
    EXPECT_EQ((Pairs{{FileName, "before"}, {AnimationDestination, "OnScreen"}}), pairs);

    command = Command_e::OpenSettingsFile;
    pairs.clear();
    EXPECT_EQ(
        "Unknown macro parameter: Destination",
        ParseFailure("Animate FileName=a AnimationDestination=b Destination=c FileName=d", command, pairs));
    EXPECT_EQ(Command_e::Animate, command);
    EXPECT_EQ((Pairs{{FileName, "a"}, {AnimationDestination, "b"}}), pairs);

    // A failure while splitting comes before the command word is read.
    command = Command_e::OpenSettingsFile;
    pairs.clear();
    EXPECT_EQ("Invalid macro command string format.",
              ParseFailure("Animate FileName=a Fast", command, pairs));
    EXPECT_EQ(Command_e::OpenSettingsFile, command);
    EXPECT_TRUE(pairs.empty());
}

TEST(MacroCommandStringTest, BuildsTheTablesSpellingAndQuotesValuesWithBlanks)
{
    using C = Command_e;
    const struct
    {
        Command_e command;
        Pairs pairs;
        std::string text;
    } cases[] = {
        {C::OpenSettingsFile,
         {{FileName, "/tmp/my views.keyframe"}},
         "OpenSettingsFile FileName=\"/tmp/my views.keyframe\""},
        {C::OpenSettingsFile,
         {{FileName, "/tmp/views.keyframe"}},
         "OpenSettingsFile FileName=/tmp/views.keyframe"},
        {C::Animate, {}, "Animate"},
        {C::OpenSettingsFile, {}, "OpenSettingsFile"},
        {C::Animate, {{AnimationDestination, "ToFile"}}, "Animate AnimationDestination=ToFile"},
        {C::Animate, {{AnimationDestination, "OnScreen"}}, "Animate AnimationDestination=OnScreen"},
        {C::Animate, {{AnimationDestination, ""}}, "Animate AnimationDestination="},
        {C::Animate, {{AnimationDestination, " "}}, "Animate AnimationDestination=\" \""},
        {C::OpenSettingsFile, {{FileName, "a\tb=c"}}, "OpenSettingsFile FileName=a\tb=c"},
        {C::Animate,
         {{AnimationDestination, "b"}, {FileName, "x y"}, {AnimationDestination, "a"}},
         "Animate AnimationDestination=b FileName=\"x y\" AnimationDestination=a"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.text, Manager().buildMacroCommandString(c.command, c.pairs));
}

TEST(MacroCommandStringTest, BuildingAnUnknownCommandOrParameterIsOutOfRange)
{
    EXPECT_THROW(Manager().buildMacroCommandString(static_cast<Command_e>(2), {}), std::out_of_range);
    EXPECT_THROW(Manager().buildMacroCommandString(Command_e::Animate, {{static_cast<Parameter_e>(-1), "x"}}),
                 std::out_of_range);
}

TEST(MacroCommandStringTest, ParsingWhatWasBuiltGivesBackEveryValueWithoutAQuotationMark)
{
    // Every byte but the quotation mark and the null character, the blank and "=" far more often than the
    // rest.
    std::string alphabet = std::string(20, ' ') + std::string(10, '=');
    for (int byte = 1; byte < 256; ++byte)
        if (byte != '"')
            alphabet += static_cast<char>(byte);
    std::mt19937 random(20240612);
    std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
    std::uniform_int_distribution<int> length(0, 12), count(0, 5), coin(0, 1);
    const auto value = [&]
    {
        std::string text;
        for (int n = length(random); n > 0; --n)
            text += alphabet[pick(random)];
        return text;
    };

    std::vector<std::pair<Command_e, Pairs>> commands = {
        {Command_e::Animate, {}},
        {Command_e::OpenSettingsFile, {{FileName, ""}}},
        {Command_e::OpenSettingsFile, {{FileName, " "}, {FileName, "="}, {FileName, " = "}}},
        {Command_e::Animate, {{AnimationDestination, "a b"}, {FileName, ""}, {AnimationDestination, "a b"}}},
    };
    for (int i = 0; i < 3000; ++i)
    {
        Pairs pairs;
        for (int n = count(random); n > 0; --n)
            pairs.emplace_back(coin(random) ? FileName : AnimationDestination, value());
        commands.emplace_back(coin(random) ? Command_e::Animate : Command_e::OpenSettingsFile, pairs);
    }

    int withBlanks = 0;
    for (const auto& built : commands)
    {
        const std::string text = Manager().buildMacroCommandString(built.first, built.second);
        withBlanks += text.find('"') != std::string::npos;
        Command_e command =
            built.first == Command_e::Animate ? Command_e::OpenSettingsFile : Command_e::Animate;
        Pairs pairs;
        ASSERT_EQ("", ParseFailure(text, command, pairs)) << text;
        ASSERT_EQ(built.first, command) << text;
        ASSERT_EQ(built.second, pairs) << text << "\n  parsed " << Describe(pairs);
    }
    // The quoted form was exercised, not only the plain one.
    EXPECT_GT(withBlanks, 1000);
}

TEST(MacroCommandStringTest, AnotherDelimiterSetSeparatesByAnyOfItsCharactersAndLeavesBlanksOrdinary)
{
    const AddOnMacroCommandManager manager(",;");
    const Pairs pairs = {{FileName, "a;b"}, {AnimationDestination, "c d"}, {FileName, "e,"}};
    const std::string text = manager.buildMacroCommandString(Command_e::OpenSettingsFile, pairs);
    EXPECT_EQ("OpenSettingsFile,;FileName=\"a;b\",;AnimationDestination=c d,;FileName=\"e,\"", text);
    Command_e command = Command_e::Animate;
    Pairs parsed;
    manager.parseMacroCommandString(text, command, parsed);
    EXPECT_EQ(Command_e::OpenSettingsFile, command);
    EXPECT_EQ(pairs, parsed);

    std::vector<std::string> tokens;
    manager.tokenize(";Animate,,AnimationDestination=On Screen;", tokens);
    EXPECT_EQ((std::vector<std::string>{"Animate", "AnimationDestination=On Screen"}), tokens);
    try
    {
        manager.parseMacroCommandString("Animate AnimationDestination=OnScreen", command, parsed);
        ADD_FAILURE() << "a blank separated the items";
    }
    catch (const KeyFrameError& error)
    {
        EXPECT_STREQ("Unknown macro command: Animate AnimationDestination=OnScreen", error.what());
    }
}
