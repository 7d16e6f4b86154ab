// vantix movie: a key frame movie of a data set in one command. It writes the macro a user would write
// (the data, the export set up as the add-on's Export Options dialog records it, the key frame file opened
// and animated to file through the add-on's own macro commands) and replays it, or prints it.
#pragma once

#include <string>
#include <vector>

namespace vantix::host::detail
{

struct MovieOptions
{
    bool help = false;
    std::string data;      // a mesh file, or "demo"
    std::string keyFrames; // the key frame file
    std::string out;       // the movie file
    std::string format;    // the export's keyword: MPEG4, AVI, FLV, FLASH, WMV or RASTERMETAFILE
    int width = 1280;
    double fps = 30.0;
    int antialias = 1; // the supersample factor; 1 draws without supersampling
    std::string region = "CURRENTFRAME";
    bool printMacro = false;
};

// Throws UsageError for an unknown option or format, a value out of range, or a missing argument. The format
// comes from OUT's extension when --format is not given.
MovieOptions ParseMovieCommand(const std::vector<std::string>& arguments);

std::string MovieHelpText();

// The macro that makes the movie, with every path absolute so that it replays from any folder.
struct MovieMacro
{
    std::string text;
    int dataLine = 0;      // the line that loads the data set
    int keyFramesLine = 0; // the line that opens the key frame file
    int animateLine = 0;   // the line that animates to file; the lines before it set up
};
// Throws UsageError for a file name that the macro's lines cannot carry (a line break; a quotation mark in
// the key frame file's name, which the add-on's command has no way to quote).
MovieMacro BuildMovieMacro(const MovieOptions& options);

// The whole command: arguments after "movie". Returns the program's exit status.
int RunMovieCommand(const std::vector<std::string>& arguments, const std::string& addOnPath);

} // namespace vantix::host::detail
