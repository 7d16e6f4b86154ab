// The text tables of the add-on's enumerations, the table mechanism itself (with tables of its own that
// have awkward entries), and reading a destination from a stream.
#include "core/EnumMap.h"
#include "core/Enumerations.h"

#include <boost/lexical_cast.hpp>
#include <gtest/gtest.h>

#include <map>
#include <new>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;

namespace
{

// Tables exercising the mechanism: texts that differ only in case, under values of either sign.
enum class Shade_e : int
{
    Minus = -1,
    Zero = 0,
    Three = 3
};

// A table whose first building fails, as when memory runs out. Its instance is built once per process,
// by the one test that uses it.
enum class Flaky_e : int
{
    One = 1
};
int FlakyBuildings = 0;

std::string Lower(std::string text)
{
    for (char& c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return text;
}

std::string Upper(std::string text)
{
    for (char& c : text)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return text;
}

// The message of the std::out_of_range that call throws, or "" when it throws nothing.
template <typename Call>
std::string OutOfRangeMessage(Call call)
{
    try
    {
        call();
    }
    catch (const std::out_of_range& error)
    {
        return error.what();
    }
    return "";
}

// Every (value, text) of a table converts both ways, the text read in any case.
template <typename T>
void ExpectTable(const std::vector<std::pair<T, std::string>>& table)
{
    for (const auto& entry : table)
    {
        EXPECT_EQ(entry.second, EnumMap<T>::toString(entry.first));
        for (const std::string& text : {entry.second, Lower(entry.second), Upper(entry.second)})
            EXPECT_EQ(static_cast<int>(entry.first), static_cast<int>(EnumMap<T>::toEnum(text))) << text;
    }
    EXPECT_EQ(table.size(), EnumMap<T>::getInstance().textToValue().size());
}

} // namespace

namespace vantix::vtxutiltools
{

template <>
void EnumMap<Shade_e>::initializeMaps()
{
    m_valueToText.emplace(Shade_e::Three, "grey");
    m_valueToText.emplace(Shade_e::Zero, "Black");
    m_valueToText.emplace(Shade_e::Minus, "GREY");
    ReverseMap(m_valueToText, m_textToValue);
}

template <>
void EnumMap<Flaky_e>::initializeMaps()
{
    m_valueToText.emplace(Flaky_e::One, "One");
    if (++FlakyBuildings == 1)
        throw std::bad_alloc();
    ReverseMap(m_valueToText, m_textToValue);
}

} // namespace vantix::vtxutiltools

TEST(EnumMapTest, EveryTableConvertsBothWaysReadingAnyCase)
{
    ExpectTable<Command_e>(
        {{Command_e::OpenSettingsFile, "OpenSettingsFile"}, {Command_e::Animate, "Animate"}});
    ExpectTable<Parameter_e>({{FileName, "FileName"}, {AnimationDestination, "AnimationDestination"}});
    ExpectTable<Destination_e>({{OnScreen, "OnScreen"}, {ToFile, "ToFile"}});
    ExpectTable<TimeAnimationOperation_e>(
        {{Forward, "Forward"}, {Loop, "Loop"}, {Bounce, "Bounce"}, {AsCaptured, "AsCaptured"}});
    // As hand-typed, in a mix of case.
    EXPECT_EQ(ToFile, EnumMap<Destination_e>::toEnum("tOfIlE"));
    EXPECT_EQ(AsCaptured, EnumMap<TimeAnimationOperation_e>::toEnum("ascaptured"));
    EXPECT_EQ(3, static_cast<int>(EnumMap<TimeAnimationOperation_e>::toEnum("ascaptured")));
    EXPECT_EQ(Command_e::Animate, EnumMap<Command_e>::toEnum("aNIMATE"));
}

TEST(EnumMapTest, ATextThatIsNotInTheTableIsOutOfRange)
{
    const std::string message = "Enumeration out of range.";
    for (const std::string text :
         {"To File", "ToFile ", " ToFile", "", "ToFil", "ToFiles", "To_File", "Screen"})
        EXPECT_EQ(message, OutOfRangeMessage([&] { EnumMap<Destination_e>::toEnum(text); })) << text;
    for (const std::string text : {"Animate ", "Play", "OpenSettings", "\"Animate\""})
        EXPECT_EQ(message, OutOfRangeMessage([&] { EnumMap<Command_e>::toEnum(text); })) << text;
    for (const std::string text : {"File Name", "Destination", "", "FileName="})
        EXPECT_EQ(message, OutOfRangeMessage([&] { EnumMap<Parameter_e>::toEnum(text); })) << text;
    for (const std::string text : {"As Captured", "Backward", "0"})
        EXPECT_EQ(message, OutOfRangeMessage([&] { EnumMap<TimeAnimationOperation_e>::toEnum(text); }))
            << text;
}

TEST(EnumMapTest, AValueThatIsNotInTheTableIsOutOfRange)
{
    const std::string message = "Enumeration out of range.";
    for (const int value : {2, -1, 1000})
    {
        EXPECT_EQ(message, OutOfRangeMessage([&] { EnumMap<Destination_e>::toString(Destination_e(value)); }))
            << value;
        EXPECT_EQ(message, OutOfRangeMessage([&] { EnumMap<Command_e>::toString(Command_e(value)); }))
            << value;
        EXPECT_EQ(message, OutOfRangeMessage([&] { EnumMap<Parameter_e>::toString(Parameter_e(value)); }))
            << value;
    }
    for (const int value : {4, -1})
        EXPECT_EQ(message,
                  OutOfRangeMessage(
                      [&] { EnumMap<TimeAnimationOperation_e>::toString(TimeAnimationOperation_e(value)); }))
            << value;
}

TEST(EnumMapTest, TheTextOfAValueLivesInTheTable)
{
    const std::string& text = EnumMap<Destination_e>::toString(ToFile);
    EXPECT_EQ(&text, &EnumMap<Destination_e>::toString(ToFile));
    EXPECT_EQ(&EnumMap<Destination_e>::getInstance(), &EnumMap<Destination_e>::getInstance());
}

TEST(EnumMapTest, TheTextToValueMapIsOpenToReadersThatReportUnknownWordsThemselves)
{
    const auto& textToValue = EnumMap<TimeAnimationOperation_e>::getInstance().textToValue();
    const auto found = textToValue.find("BOUNCE");
    ASSERT_NE(textToValue.end(), found);
    EXPECT_EQ("Bounce", found->first);
    EXPECT_EQ(Bounce, found->second);
    EXPECT_EQ(textToValue.end(), textToValue.find("Bounced"));
    std::vector<std::string> texts;
    for (const auto& entry : textToValue)
        texts.push_back(entry.first);
    EXPECT_EQ((std::vector<std::string>{"AsCaptured", "Bounce", "Forward", "Loop"}), texts);
}

TEST(EnumMapTest, OfTextsThatDifferOnlyInCaseTheSmallestValueIsReadAndEachValueKeepsItsOwnText)
{
    // The smallest value as a signed integer: -1 before 3.
    EXPECT_EQ(Shade_e::Minus, EnumMap<Shade_e>::toEnum("grey"));
    EXPECT_EQ(Shade_e::Minus, EnumMap<Shade_e>::toEnum("Grey"));
    EXPECT_EQ(Shade_e::Zero, EnumMap<Shade_e>::toEnum("BLACK"));
    EXPECT_EQ("grey", EnumMap<Shade_e>::toString(Shade_e::Three));
    EXPECT_EQ("GREY", EnumMap<Shade_e>::toString(Shade_e::Minus));
    EXPECT_EQ(2u, EnumMap<Shade_e>::getInstance().textToValue().size());
}

TEST(EnumMapTest, ATableWhoseBuildingFailedIsBuiltAgainOnTheNextUse)
{
    EXPECT_THROW(EnumMap<Flaky_e>::toString(Flaky_e::One), std::bad_alloc);
    EXPECT_EQ("One", EnumMap<Flaky_e>::toString(Flaky_e::One));
    EXPECT_EQ(Flaky_e::One, EnumMap<Flaky_e>::toEnum("ONE"));
    EXPECT_EQ(2, FlakyBuildings);
    EXPECT_EQ(1u, EnumMap<Flaky_e>::getInstance().textToValue().size());
}

TEST(ReverseMapTest, EmptiesTheTargetAndKeepsTheSmallestKeyOfEquivalentValues)
{
    const std::map<int, std::string> source = {{2, "Loop"}, {1, "LOOP"}, {3, "Bounce"}, {4, "loop"}};
    std::map<std::string, int, CaseInsensitiveStringCompareObj> target = {{"Stale", 9}};
    ReverseMap(source, target);
    ASSERT_EQ(2u, target.size());
    EXPECT_EQ(0u, target.count("Stale"));
    const auto loop = target.find("loop");
    ASSERT_NE(target.end(), loop);
    EXPECT_EQ("LOOP", loop->first);
    EXPECT_EQ(1, loop->second);
    EXPECT_EQ(3, target.at("BOUNCE"));

    // Under an ordering that sees case, every text stays.
    std::map<std::string, int> exact;
    ReverseMap(source, exact);
    EXPECT_EQ((std::map<std::string, int>{{"Bounce", 3}, {"LOOP", 1}, {"Loop", 2}, {"loop", 4}}), exact);
}

TEST(DestinationExtractionTest, ConvertsExactlyOneWordOfTheTableInAnyCase)
{
    const struct
    {
        std::string text;
        bool converts;
        Destination_e destination;
    } cases[] = {
        {"onscreen", true, OnScreen},    {"ONSCREEN", true, OnScreen},
        {"OnScreen", true, OnScreen},    {"tofile", true, ToFile},
        {"ToFile", true, ToFile},        {" onscreen", false, OnScreen},
        {"onscreen ", false, OnScreen},  {"onscreen tofile", false, OnScreen},
        {"onscreen\t", false, OnScreen}, {"Screen", false, OnScreen},
        {"On Screen", false, OnScreen},  {"", false, OnScreen},
        {"1", false, OnScreen},          {"Movie", false, OnScreen},
    };
    for (const auto& c : cases)
    {
        Destination_e destination = OnScreen;
        const bool converts = boost::conversion::try_lexical_convert(c.text, destination);
        EXPECT_EQ(c.converts, converts) << '"' << c.text << '"';
        if (c.converts && converts)
        {
            EXPECT_EQ(c.destination, destination) << c.text;
        }
    }
    EXPECT_EQ(ToFile, boost::lexical_cast<Destination_e>("TOFILE"));
    EXPECT_THROW(boost::lexical_cast<Destination_e>("Screen"), boost::bad_lexical_cast);
}

TEST(DestinationExtractionTest, AWordThatIsNotADestinationFailsTheStreamAndLeavesTheValueAlone)
{
    std::istringstream stream("  tofile Movie onscreen");
    Destination_e destination = OnScreen;
    EXPECT_TRUE(stream >> destination);
    EXPECT_EQ(ToFile, destination);
    EXPECT_FALSE(stream >> destination);
    EXPECT_EQ(ToFile, destination);

    std::istringstream empty("");
    destination = ToFile;
    EXPECT_FALSE(empty >> destination);
    EXPECT_EQ(ToFile, destination);
}
