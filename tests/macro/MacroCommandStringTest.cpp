// The text form of the add-on's macro commands: splitting, parsing with its exact failures, and building.
#include "core/KeyFrameError.h"
#include "macro/MacroManager.h"

#include <support/ThrownMessage.h>

#include <gtest/gtest.h>

using namespace vantix::vtxutiltools;
using C = Command_e;
using Pairs = MacroParameterList;
using Texts = std::vector<std::string>;

namespace
{

// The one the add-on records and replays with: items separated by one blank.
const AddOnMacroCommandManager Manager(" ");

// Parses text and expects it to give command and pairs; the command is set to the other one first, so
// that leaving it alone shows.
void ExpectParsed(const std::string& text, Command_e command, const Pairs& pairs)
{
    Command_e parsedCommand = command == C::Animate ? C::OpenSettingsFile : C::Animate;
    Pairs parsedPairs;
    EXPECT_THROW_MSG(Manager.parseMacroCommandString(text, parsedCommand, parsedPairs), KeyFrameError, "")
        << text;
    EXPECT_EQ(std::make_pair(command, pairs), std::make_pair(parsedCommand, parsedPairs)) << text;
}

} // namespace

TEST(MacroCommandStringTest, SplitsIntoTheCommandWordAndWholeParameterItems)
{
    // clang-format off
    for (const auto& [text, tokens] : std::vector<std::pair<std::string, Texts>>{
        {"", {}},
        {"  Animate   ", {"Animate"}},
        {"OpenSettingsFile   FileName=\"/a b/c d\"   AnimationDestination=x  ",
         {"OpenSettingsFile", "FileName=\"/a b/c d\"", "AnimationDestination=x"}},
        // The "=" found while splitting may belong to a later item.
        {"Animate Fast AnimationDestination=OnScreen", {"Animate", "Fast", "AnimationDestination=OnScreen"}},
        // A quoted part ends at the next quotation mark; the item goes on to the next blank.
        {"OpenSettingsFile FileName=\"a b\"c d=e", {"OpenSettingsFile", "FileName=\"a b\"c", "d=e"}},
        // Quotation marks open a value only right after "=": before it, the item ends at the blank.
        {"OpenSettingsFile \"File Name\"=x", {"OpenSettingsFile", "\"File", "Name\"=x"}},
        // A quotation mark after "=" of a later item keeps the blanks from this item up to its close.
        {"Animate Fast FileName=\"a b\" x=y", {"Animate", "Fast FileName=\"a b\"", "x=y"}},
        {"Animate\tAnimationDestination=OnScreen\r\n", {"Animate\tAnimationDestination=OnScreen\r\n"}},
        {"Animate FileName= AnimationDestination=", {"Animate", "FileName=", "AnimationDestination="}}})
    // clang-format on
    {
        // Appended to what the list held.
        Texts appended = {"kept"}, expected = {"kept"};
        Manager.tokenize(text, appended);
        expected.insert(expected.end(), tokens.begin(), tokens.end());
        EXPECT_EQ(expected, appended) << text;
    }
}

TEST(MacroCommandStringTest, ParsesTheCommandAndItsParametersInOrderDroppingQuotationMarksAtTheEnds)
{
    ExpectParsed("Animate", C::Animate, {});
    ExpectParsed("   Animate AnimationDestination=OnScreen  ", C::Animate,
                 {{AnimationDestination, "OnScreen"}});
    // Words in any case; values as they are.
    ExpectParsed("animate   ANIMATIONDESTINATION=tofile", C::Animate, {{AnimationDestination, "tofile"}});
    ExpectParsed("OPENSETTINGSFILE filename=x", C::OpenSettingsFile, {{FileName, "x"}});
    ExpectParsed("Animate FileName=x AnimationDestination=OnScreen AnimationDestination=ToFile", C::Animate,
                 {{FileName, "x"}, {AnimationDestination, "OnScreen"}, {AnimationDestination, "ToFile"}});
    // A value as written and as read: every quotation mark at either end goes, and only there.
    // clang-format off
    for (const auto& [written, value] : std::vector<std::pair<std::string, std::string>>{
             {"\"/wing study/w\"", "/wing study/w"}, {"\"\"/x\"\"", "/x"}, {"\"a b\"c", "a b\"c"},
             {"a\"b\"", "a\"b"}, {"", ""}, {"\"\"", ""}, {"=", "="}, {"tab\there\r", "tab\there\r"}})
        // clang-format on
        ExpectParsed("OpenSettingsFile FileName=" + written, C::OpenSettingsFile, {{FileName, value}});
}

TEST(MacroCommandStringTest, RefusesABadCommandTextWithAMessageThatSaysWhatIsWrong)
{
    const std::string format = "Invalid macro command string format.";
    // clang-format off
    for (const auto& [text, message] : std::vector<std::pair<std::string, std::string>>{
        {"     ", "Invalid macro command string."},
        {"Play AnimationDestination=OnScreen", "Unknown macro command: Play"},
        {"\"Animate\" AnimationDestination=OnScreen", "Unknown macro command: \"Animate\""},
        {"Animate AnimationDestination", format},
        {"Animate AnimationDestination = OnScreen", format},
        {"Animate AnimationDestination=OnScreen Fast", format},
        {"OpenSettingsFile FileName=\"/data/a b.keyframe", format + " Unmatched quotation mark."},
        {"Animate Fast AnimationDestination=OnScreen", "Invalid macro parameter string: Fast"},
        {"Animate Destination=OnScreen", "Unknown macro parameter: Destination"},
        {"Animate =OnScreen", "Unknown macro parameter: "},
        {"Animate Fast FileName=\"a b\"", "Unknown macro parameter: Fast FileName"},
        {"\x1b[2J\n" + std::string(300, 'x'), "Unknown macro command: \\x1b[2J\\n" + std::string(111, 'x') +
                                               "... (305 bytes)"},
        // The whole text is split before the command word is looked up.
        {"Play Fast", format}})
    // clang-format on
    {
        Command_e command = C::OpenSettingsFile;
        Pairs pairs;
        EXPECT_THROW_MSG(Manager.parseMacroCommandString(text, command, pairs), KeyFrameError, message)
            << text;
    }
}

TEST(MacroCommandStringTest, BuildsTheTablesSpellingAndQuotesValuesWithBlanks)
{
    // clang-format off
    for (const auto& [command, pairs, text] : std::vector<std::tuple<Command_e, Pairs, std::string>>{
        {C::OpenSettingsFile, {{FileName, "/tmp/views.kf"}}, "OpenSettingsFile FileName=/tmp/views.kf"},
        {C::Animate, {}, "Animate"},
        {C::Animate, {{AnimationDestination, ""}}, "Animate AnimationDestination="},
        {C::Animate, {{AnimationDestination, " "}}, "Animate AnimationDestination=\" \""},
        {C::OpenSettingsFile, {{FileName, "a\tb=c"}}, "OpenSettingsFile FileName=a\tb=c"},
        {C::Animate, {{AnimationDestination, "b"}, {FileName, "x y"}, {AnimationDestination, "a"}},
         "Animate AnimationDestination=b FileName=\"x y\" AnimationDestination=a"}})
        // clang-format on
        EXPECT_EQ(text, Manager.buildMacroCommandString(command, pairs));
    // A command or parameter without a text cannot be built.
    EXPECT_THROW(Manager.buildMacroCommandString(static_cast<Command_e>(2), {}), std::out_of_range);
    EXPECT_THROW(Manager.buildMacroCommandString(C::Animate, {{static_cast<Parameter_e>(-1), "x"}}),
                 std::out_of_range);
}
