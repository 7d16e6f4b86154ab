#include "core/Enumerations.h"

#include <stdexcept>
#include <string>

namespace vantix::vtxutiltools
{

template <>
void EnumMap<Command_e>::initializeMaps()
{
    m_valueToText.emplace(Command_e::OpenSettingsFile, "OpenSettingsFile");
    m_valueToText.emplace(Command_e::Animate, "Animate");
    ReverseMap(m_valueToText, m_textToValue);
}

template <>
void EnumMap<Parameter_e>::initializeMaps()
{
    m_valueToText.emplace(FileName, "FileName");
    m_valueToText.emplace(AnimationDestination, "AnimationDestination");
    ReverseMap(m_valueToText, m_textToValue);
}

template <>
void EnumMap<Destination_e>::initializeMaps()
{
    m_valueToText.emplace(OnScreen, "OnScreen");
    m_valueToText.emplace(ToFile, "ToFile");
    ReverseMap(m_valueToText, m_textToValue);
}

template <>
void EnumMap<TimeAnimationOperation_e>::initializeMaps()
{
    m_valueToText.emplace(Forward, "Forward");
    m_valueToText.emplace(Loop, "Loop");
    m_valueToText.emplace(Bounce, "Bounce");
    m_valueToText.emplace(AsCaptured, "AsCaptured");
    ReverseMap(m_valueToText, m_textToValue);
}

std::istream& operator>>(std::istream& stream, Destination_e& destination)
{
    std::string word;
    if (!(stream >> word))
        return stream;
    try
    {
        destination = EnumMap<Destination_e>::toEnum(word);
    }
    catch (const std::out_of_range&)
    {
        // A reader of streams expects a fail state, not an exception, for a word it cannot take.
        stream.setstate(std::ios_base::failbit);
    }
    return stream;
}

} // namespace vantix::vtxutiltools
