// The text tables of the add-on's enumerations, and reading a destination from a stream.
#include "core/EnumMap.h"
#include "core/Enumerations.h"

#include <support/ThrownMessage.h>

#include <boost/lexical_cast.hpp>

#include <algorithm>
#include <cctype>
#include <sstream>

using namespace vantix::vtxutiltools;

namespace
{

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
