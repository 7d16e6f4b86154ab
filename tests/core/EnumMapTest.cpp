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

// Every (value, text) of a table converts both ways, the text read as it is and with the case of every
// letter turned over; texts not in the table and values out of it are out of range.
template <typename T>
void ExpectTable(const std::vector<std::pair<T, std::string>>& table,
                 const std::vector<std::string>& unknownTexts, const std::vector<int>& unknownValues)
{
    for (const auto& [value, text] : table)
    {
        EXPECT_EQ(text, EnumMap<T>::toString(value));
        std::string turned = text;
        std::transform(text.begin(), text.end(), turned.begin(),
                       [](unsigned char c) { return std::islower(c) ? std::toupper(c) : std::tolower(c); });
        for (const std::string& read : {text, turned})
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

TEST(EnumMapTest, ATableWhoseBuildingFailedIsBuiltAgainAndOfTextsDifferingInCaseReadsTheSmallestValue)
{
    EXPECT_THROW(EnumMap<Shade_e>::toString(Shade_e::Three), std::bad_alloc);
    // The smallest value as a signed integer: -1 before 3; each value keeps its own text.
    EXPECT_EQ(std::make_tuple(Shade_e::Minus, Shade_e::Zero, std::string("grey"), std::string("GREY")),
              std::make_tuple(EnumMap<Shade_e>::toEnum("Grey"), EnumMap<Shade_e>::toEnum("BLACK"),
                              EnumMap<Shade_e>::toString(Shade_e::Three),
                              EnumMap<Shade_e>::toString(Shade_e::Minus)));
    EXPECT_EQ(std::make_pair(std::size_t(2), 2),
              std::make_pair(EnumMap<Shade_e>::getInstance().textToValue().size(), ShadeBuildings));
}

TEST(ReverseMapTest, EmptiesTheTargetAndKeepsTheSmallestKeyOfTextsDifferingInCase)
{
    const std::map<int, std::string> source = {{2, "Loop"}, {1, "LOOP"}, {3, "Bounce"}, {4, "loop"}};
    std::map<std::string, int, CaseInsensitiveStringCompareObj> target = {{"Stale", 9}};
    ReverseMap(source, target);
    EXPECT_EQ((std::map<std::string, int>{{"Bounce", 3}, {"LOOP", 1}}),
              (std::map<std::string, int>(target.begin(), target.end())));
}

TEST(DestinationExtractionTest, ConvertsExactlyOneWordOfTheTableInAnyCaseOrFailsTheStreamLeavingTheValue)
{
    const int fails = -1;
    // clang-format off
    for (const auto& [text, result] : std::vector<std::pair<std::string, int>>{
        {"onscreen", OnScreen}, {"ToFile", ToFile}, {" onscreen", fails}, {"onscreen ", fails},
        {"onscreen tofile", fails}, {"Screen", fails}, {"", fails}, {"1", fails}})
    // clang-format on
    {
        Destination_e destination = result == OnScreen ? ToFile : OnScreen;
        EXPECT_EQ(result != fails, boost::conversion::try_lexical_convert(text, destination))
            << '"' << text << '"';
        EXPECT_TRUE(result == fails || result == destination) << text;
    }
    EXPECT_EQ(ToFile, boost::lexical_cast<Destination_e>("TOFILE"));

    std::istringstream stream("  tofile Movie onscreen"), empty("");
    Destination_e destination = OnScreen;
    EXPECT_TRUE(stream >> destination);
    EXPECT_FALSE(stream >> destination);
    EXPECT_FALSE(empty >> destination);
    EXPECT_EQ(ToFile, destination);
}
