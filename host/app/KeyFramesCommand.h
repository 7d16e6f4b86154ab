// vantix keyframes: a starter key frame file that flies once around a data set, for a user to edit and to
// make a movie of with vantix movie.
#pragma once

#include <vantix/host/Host.h>

#include <string>
#include <vector>

namespace vantix::host::detail
{

struct KeyFramesOptions
{
    bool help = false;
    std::string data;        // a mesh file, or "demo"
    std::string out;         // the key frame file written
    int views = 8;           // key views around the data
    int frames = 30;         // frames from one key view to the next
    double elevation = 30.0; // degrees above the horizontal plane (z up)
};

// Throws UsageError for an unknown option, a value out of range, or a missing argument.
KeyFramesOptions ParseKeyFramesCommand(const std::vector<std::string>& arguments);

std::string KeyFramesHelpText();

// The active frame's view turned to `views` directions evenly around its data set, all at one elevation,
// each fitted to the data as loading fits it, and the first once more at the end, so that a flight through
// them comes back to where it began. The frame's view is left at the last of them.
std::vector<ViewState> ViewsAround(int views, double elevation);

// The key frame file of those views: frames from each to the next, the solution time on all, and settings
// that animate the view alone.
std::string StarterKeyFrameText(const std::vector<ViewState>& views, int frames, double solutionTime);

// The whole command: arguments after "keyframes". Returns the program's exit status.
int RunKeyFramesCommand(const std::vector<std::string>& arguments);

} // namespace vantix::host::detail
