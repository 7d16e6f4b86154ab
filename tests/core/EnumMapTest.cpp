// The text tables of the add-on's enumerations, the table mechanism itself (with tables of its own that
// have awkward entries), and reading a destination from a stream.
#include "core/EnumMap.h"
#include "core/Enumerations.h"

#include <support/ThrownMessage.h>

#include <boost/lexical_cast.hpp>

#include <algorithm>
#include <cctype>
#include <new>
#include <sstream>

using namespace vantix::vtxutiltools;

namespace
{

// A table exercising the mechanism: texts that differ only in case, under values of either sign, in a
// table whose first building fails, as when memory runs out. Its instance is built once per process, by
// the one test that uses it.
enum class Shade_e : int
{
    Minus = -1,
    Zero = 0,
    Three = 3
};
int ShadeBuildings = 0;

// Every (value, text) of a table converts both ways, the text read as it is, in lower case and with the
// case of every letter turned over; texts not in the table and values out of it are out of range.
template <typename T>
void ExpectTable(const std::vector<std::pair<T, std::string>>& table,
                 const std::vector<std::string>& unknownTexts, const std::vector<int>& unknownValues)
{
    for (const auto& [value, text] : table)
    {
        EXPECT_EQ(text, EnumMap<T>::toString(value));
        std::string lower = text, turned = text;
        std::transform(text.begin(), text.end(), lower.begin(),
                       [](unsigned char c) { return std::tolower(c); });
        std::transform(text.begin(), text.end(), turned.begin(),
                       [](unsigned char c) { return std::islower(c) ? std::toupper(c) : std::tolower(c); });
        for (const std::string& read : {text, lower, turned})
            EXPECT_EQ(static_cast<int>(value), static_cast<int>(EnumMap<T>::toEnum(read))) << read;
    }
    EXPECT_EQ(table.size(), EnumMap<T>::getInstance().textToValue().size());
    for (const std::string& text : unknownTexts)
        EXPECT_THROW_MSG(EnumMap<T>::toEnum(text), std::out_of_range, "Enumeration out of range.") << text;
    for (const int value : unknownValues)
        EXPECT_THROW_MSG(EnumMap<T>::toString(T(value)), std::out_of_range, "Enumeration out of range.")
            << value;
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
    if (++ShadeBuildings == 1)
        throw std::bad_alloc();
    ReverseMap(m_valueToText, m_textToValue);
}

} // namespace vantix::vtxutiltools

TEST(EnumMapTest, EveryTableConvertsBothWaysReadingAnyCaseAndRefusesWhatItDoesNotHold)
{
    ExpectTable<Command_e>(
        {{Command_e::OpenSettingsFile, "OpenSettingsFile"}, {Command_e::Animate, "Animate"}},
        {"Animate ", "Play", "OpenSettings", "\"Animate\""}, {2, -1, 1000});
    ExpectTable<Parameter_e>({{FileName, "FileName"}, {AnimationDestination, "AnimationDestination"}},
                             {"File Name", "Destination", "", "FileName="}, {2, -1, 1000});
    ExpectTable<Destination_e>({{OnScreen, "OnScreen"}, {ToFile, "ToFile"}},
                               {"To File", "ToFile ", " ToFile", "", "ToFil", "ToFiles", "To_File", "Screen"},
                               {2, -1, 1000});
    ExpectTable<TimeAnimationOperation_e>(
        {{Forward, "Forward"}, {Loop, "Loop"}, {Bounce, "Bounce"}, {AsCaptured, "AsCaptured"}},
        {"As Captured", "Backward", "0"}, {4, -1});
}

TEST(EnumMapTest, TheTextOfAValueAndTheTextToValueMapLiveInTheOneTable)
{
    EXPECT_EQ(&EnumMap<Destination_e>::toString(ToFile), &EnumMap<Destination_e>::toString(ToFile));
    EXPECT_EQ(&EnumMap<Destination_e>::getInstance(), &EnumMap<Destination_e>::getInstance());
    // Open to readers that report unknown words themselves: found in any case, listed in text order.
    const auto& textToValue = EnumMap<TimeAnimationOperation_e>::getInstance().textToValue();
    ASSERT_NE(textToValue.end(), textToValue.find("BOUNCE"));
    EXPECT_EQ("Bounce", textToValue.find("BOUNCE")->first);
    EXPECT_EQ(textToValue.end(), textToValue.find("Bounced"));
    std::vector<std::string> entries;
    for (const auto& [text, value] : textToValue)
        entries.push_back(text + "=" + std::to_string(value));
    EXPECT_EQ((std::vector<std::string>{"AsCaptured=3", "Bounce=2", "Forward=0", "Loop=1"}), entries);
}

TEST(EnumMapTest, ATableWhoseBuildingFailedIsBuiltAgainAndOfTextsDifferingInCaseReadsTheSmallestValue)
{
    EXPECT_THROW(EnumMap<Shade_e>::toString(Shade_e::Three), std::bad_alloc);
    // The smallest value as a signed integer: -1 before 3; each value keeps its own text.
    EXPECT_EQ(Shade_e::Minus, EnumMap<Shade_e>::toEnum("grey"));
    EXPECT_EQ(Shade_e::Minus, EnumMap<Shade_e>::toEnum("Grey"));
    EXPECT_EQ(Shade_e::Zero, EnumMap<Shade_e>::toEnum("BLACK"));
    EXPECT_EQ("grey", EnumMap<Shade_e>::toString(Shade_e::Three));
    EXPECT_EQ("GREY", EnumMap<Shade_e>::toString(Shade_e::Minus));
    EXPECT_EQ(2u, EnumMap<Shade_e>::getInstance().textToValue().size());
    EXPECT_EQ(2, ShadeBuildings);
}

TEST(ReverseMapTest, EmptiesTheTargetAndKeepsTheSmallestKeyOfEquivalentValues)
{
    const std::map<int, std::string> source = {{2, "Loop"}, {1, "LOOP"}, {3, "Bounce"}, {4, "loop"}};
    std::map<std::string, int, CaseInsensitiveStringCompareObj> target = {{"Stale", 9}};
    ReverseMap(source, target);
    EXPECT_EQ((std::map<std::string, int>{{"Bounce", 3}, {"LOOP", 1}}),
              (std::map<std::string, int>(target.begin(), target.end())));
    // Under an ordering that sees case, every text stays.
    std::map<std::string, int> exact;
    ReverseMap(source, exact);
    EXPECT_EQ((std::map<std::string, int>{{"Bounce", 3}, {"LOOP", 1}, {"Loop", 2}, {"loop", 4}}), exact);
}

TEST(DestinationExtractionTest, ConvertsExactlyOneWordOfTheTableInAnyCaseOrFailsTheStreamLeavingTheValue)
{
    const int fails = -1;
    // clang-format off
    for (const auto& [text, result] : std::vector<std::pair<std::string, int>>{
        {"onscreen", OnScreen}, {"ONSCREEN", OnScreen}, {"OnScreen", OnScreen}, {"tofile", ToFile},
        {"ToFile", ToFile}, {" onscreen", fails}, {"onscreen ", fails}, {"onscreen tofile", fails},
        {"onscreen\t", fails}, {"Screen", fails}, {"On Screen", fails}, {"", fails}, {"1", fails},
        {"Movie", fails}})
    // clang-format on
    {
        Destination_e destination = result == OnScreen ? ToFile : OnScreen;
        EXPECT_EQ(result != fails, boost::conversion::try_lexical_convert(text, destination))
            << '"' << text << '"';
        EXPECT_TRUE(result == fails || result == destination) << text;
    }
    EXPECT_EQ(ToFile, boost::lexical_cast<Destination_e>("TOFILE"));
    EXPECT_THROW(boost::lexical_cast<Destination_e>("Screen"), boost::bad_lexical_cast);

    std::istringstream stream("  tofile Movie onscreen"), empty("");
    Destination_e destination = OnScreen;
    EXPECT_TRUE(stream >> destination);
    EXPECT_FALSE(stream >> destination);
    EXPECT_FALSE(empty >> destination);
    EXPECT_EQ(ToFile, destination);
}
