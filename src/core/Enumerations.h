// The enumerations the add-on writes as text and reads back, with their text tables (EnumMap): the macro
// commands and their parameters, the animation destination and the time animation operation.
#pragma once

#include "core/EnumMap.h"
#include "core/Settings.h"

#include <istream>

namespace vantix::vtxutiltools
{

// The add-on's macro commands. Scoped, because the command Animate would otherwise clash with the free
// function Animate that runs an animation.
enum class Command_e : int
{
    OpenSettingsFile = 0,
    Animate = 1
};

// The parameters of the add-on's macro commands.
enum Parameter_e : int
{
    FileName = 0,
    AnimationDestination = 1
};

template <>
void EnumMap<Command_e>::initializeMaps();
template <>
void EnumMap<Parameter_e>::initializeMaps();
template <>
void EnumMap<Destination_e>::initializeMaps();
template <>
void EnumMap<TimeAnimationOperation_e>::initializeMaps();

// Reads one white-space-delimited word and converts it with EnumMap<Destination_e>::toEnum. A word that is
// not a destination sets the stream's fail state and leaves destination unchanged; this is what a lexical
// conversion of a macro command's value relies on.
std::istream& operator>>(std::istream& stream, Destination_e& destination);

} // namespace vantix::vtxutiltools
