#pragma once

#include <cstdint>

namespace vantix::vtxutiltools
{

// Where the frames of an animation go. This enumeration and the next have a fixed underlying type, so that
// every int cast to them is a well-defined value, which their text tables then refuse as out of range.
enum Destination_e : int
{
    OnScreen = 0,
    ToFile = 1
};

// How solution time runs during a concurrent time animation.
enum TimeAnimationOperation_e : int
{
    Forward = 0,
    Loop = 1,
    Bounce = 2,
    AsCaptured = 3
};

// The part of the settings that the time animation options edit. The defaults are those of a new main
// dialog.
struct TimeAnimationOptions_s
{
    bool animateTime = false;
    TimeAnimationOperation_e timeAnimationOperation = Forward;
    // Time cycles of Loop and Bounce; at least 1.
    std::uint64_t numCycles = 1;
};

// The animation settings. The defaults are those of a new main dialog.
struct Settings_s
{
    TimeAnimationOptions_s timeOptions;
    // Not stored in the key frame file: chosen in the main dialog or given by the replayed command.
    Destination_e destination = OnScreen;
    bool animateStreamtraces = false;
    bool fadeIn = false;
    bool fadeOut = false;
};

} // namespace vantix::vtxutiltools
