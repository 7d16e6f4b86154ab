#include "app/MovieCommand.h"

#include "app/CommandLine.h"
#include "app/InputFiles.h"
#include "app/InterruptHandler.h"
#include "app/Program.h"
#include "app/ProgressDisplay.h"

#include <vantix/host/Export.h>
#include <vantix/host/Host.h>
#include <vantix/host/Macro.h>
#include <vantix/toolbox/ReplacingFile.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <optional>

namespace vantix::host::detail
{

namespace
{

namespace fs = std::filesystem;

constexpr const char* Program = "vantix movie";
// The id under which the key frame module registers its macro commands.
constexpr const char* KeyFrameAddOnID = "Key Frame Animation";

// A word of the command line and the export's keyword for it.
struct Choice
{
    const char* word;
    const char* keyword;
};
constexpr Choice Formats[] = {{"mp4", "MPEG4"}, {"avi", "AVI"}, {"flv", "FLV"},
                              {"swf", "FLASH"}, {"wmv", "WMV"}, {"rm", "RASTERMETAFILE"}};
constexpr Choice Regions[] = {{"current", "CURRENTFRAME"}, {"all", "ALLFRAMES"}, {"workarea", "WORKAREA"}};

std::string Lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

template <std::size_t N>
const char* KeywordOf(const Choice (&choices)[N], const std::string& word)
{
    for (const Choice& choice : choices)
        if (Lower(word) == choice.word)
            return choice.keyword;
    return nullptr;
}

constexpr const char* FormatWords = "mp4, avi, flv, swf, wmv or rm";

std::string ExportSetup(const std::string& name, const std::string& value)
{
    return "$!EXPORTSETUP " + name + " = " + value;
}

std::string AddOnCommand(const std::string& text)
{
    return "$!ADDONCOMMAND ADDONID = " + quotedMacroText(KeyFrameAddOnID, '\'') +
           " COMMAND = " + quotedMacroText(text, '\'');
}

bool HasLineBreak(const std::string& text)
{
    return text.find_first_of("\r\n") != std::string::npos;
}

// Everything after "<name>:<line>: " of a replay's message, in one line: the add-on's messages come in
// several lines, the first naming the add-on.
std::string ReasonInOneLine(const std::string& message, int line)
{
    const std::string prefix = std::string(Program) + ":" + std::to_string(line) + ": ";
    std::string reason =
        message.compare(0, prefix.size(), prefix) == 0 ? message.substr(prefix.size()) : message;
    const std::string addOnLine = std::string(KeyFrameAddOnID) + " error:\n";
    if (reason.compare(0, addOnLine.size(), addOnLine) == 0)
        reason.erase(0, addOnLine.size());
    std::string oneLine;
    std::size_t start = 0;
    while (start <= reason.size())
    {
        const std::size_t end = std::min(reason.find('\n', start), reason.size());
        if (end > start)
            oneLine += (oneLine.empty() ? "" : " ") + reason.substr(start, end - start);
        start = end + 1;
    }
    return oneLine;
}

// What the replay's end means for the user: the exit status and the one line that says why.
int Concluded(const MovieOptions& options, const MovieMacro& macro, const MacroResult& result)
{
    const int signal = InterruptHandler::received();
    const std::string leftOpen = abandonOpenExport();
    if (result.ok() && leftOpen.empty() && !signal)
        return ExitSuccess;
    if (signal)
    {
        const std::string name = InterruptHandler::describe(signal);
        PrintError(Program, result.ok() ? "interrupted by " + name + " after " + options.out + " was written"
                                        : ReasonInOneLine(result.message, result.line) + " (" + name + ")");
        return ExitInterrupted + signal;
    }
    if (result.ok())
    {
        PrintError(Program, "the animation left the export to " + leftOpen + " open; it was not written");
        return ExitCommandFailed;
    }
    const std::string reason = ReasonInOneLine(result.message, result.line);
    if (result.line == macro.keyFramesLine)
        PrintError(Program, "cannot open the key frame file '" + options.keyFrames + "': " + reason);
    else
        PrintError(Program, reason);
    // Until the animation starts nothing is written: the data or the key frame file could not be used.
    return result.line < macro.animateLine ? ExitUsage : ExitCommandFailed;
}

} // namespace

MovieOptions ParseMovieCommand(const std::vector<std::string>& arguments)
{
    MovieOptions options;
    std::vector<std::string> files;
    std::optional<std::string> format;
    for (ArgumentWalk walk(arguments); walk.next();)
    {
        const std::string& argument = walk.argument();
        if (argument == "--help")
            options.help = true;
        else if (argument == "-o")
            options.out = walk.value();
        else if (argument == "--format")
            format = walk.value();
        else if (argument == "--width")
            options.width = WholeNumberOption(argument, walk.value(), 2, 16384);
        else if (argument == "--fps")
            options.fps = NumberOption(argument, walk.value(), 0.001, 200.0);
        else if (argument == "--antialias")
            options.antialias = WholeNumberOption(argument, walk.value(), 1, 16);
        else if (argument == "--region")
        {
            const std::string& region = walk.value();
            const char* keyword = KeywordOf(Regions, region);
            if (!keyword)
                throw UsageError("unknown region '" + region +
                                 "'; the regions are current, all and workarea");
            options.region = keyword;
        }
        else if (argument == "--print-macro")
            options.printMacro = true;
        else if (walk.isOption())
            walk.refuseOption();
        else
            files.push_back(argument);
    }
    if (options.help)
        return options;
    if (files.size() != 2)
        throw UsageError("expected two names, DATA and KEYFRAMES (the data set and the key frame file)");
    options.data = files[0];
    options.keyFrames = files[1];
    if (options.out.empty())
        throw UsageError("-o OUT, the movie file, is missing");
    if (format)
    {
        const char* keyword = KeywordOf(Formats, *format);
        if (!keyword)
            throw UsageError("unknown format '" + *format + "'; the formats are " + FormatWords);
        options.format = keyword;
    }
    else
    {
        const std::string extension = fs::path(options.out).extension().string();
        const char* keyword = extension.empty() ? nullptr : KeywordOf(Formats, extension.substr(1));
        if (!keyword)
            throw UsageError("cannot tell the format from the name '" + options.out + "'; end it in ." +
                             "mp4, .avi, .flv, .swf, .wmv or .rm, or give --format " + FormatWords);
        options.format = keyword;
    }
    return options;
}

std::string MovieHelpText()
{
    return "Usage: vantix movie DATA KEYFRAMES -o OUT [options]\n"
           "\n"
           "Makes a key frame movie in one command: loads DATA (a mesh file: STL, OBJ, PLY and the other\n"
           "formats the host reads; or the word demo for the demo data set), opens the key frame file\n"
           "KEYFRAMES (vantix keyframes writes one to start from) and flies the view through its key frames\n"
           "into the movie OUT, with the solution time, streamtraces and fades the file's settings ask for.\n"
           "It replays the macro a user would write for this; --print-macro shows it.\n"
           "\n"
           "Options:\n"
           "  -o OUT               the movie file; replaced only once the movie is complete\n"
           "  --format F           mp4 (H.264), avi, flv, swf (Flash), wmv or rm (the lossless raster\n"
           "                       metafile); without it, the format follows OUT's extension\n"
           "  --width N            the picture's width in pixels, 2 to 16384 (1280); the height follows the\n"
           "                       region's shape\n"
           "  --fps N              frames a second, 0.001 to 200 (30)\n"
           "  --antialias N        draw N times larger each way and average down, 2 to 16; 1 is off (1)\n"
           "  --region R           current (the active frame, the default), all (the box around all\n"
           "                       frames) or workarea (the whole paper)\n"
           "  --print-macro        print the macro instead of running it; vantix MACRO replays it\n"
           "  --help               show this help and exit\n"
           "\n"
           "Progress is shown on standard error; Ctrl-C stops and leaves OUT as it was. Exit status: 0 when\n"
           "the movie was written; 2 for bad usage or data, or a key frame file that cannot be read, before\n"
           "anything is written; 1 when the animation failed; 128 plus the signal's number when stopped.\n";
}

MovieMacro BuildMovieMacro(const MovieOptions& options)
{
    const std::string out = fs::absolute(options.out).string();
    const std::string keyFrames = fs::absolute(options.keyFrames).string();
    if (HasLineBreak(out))
        throw UsageError("the movie's name holds a line break, which a macro line cannot carry");
    if (HasLineBreak(keyFrames) || keyFrames.find('"') != std::string::npos)
        throw UsageError("the key frame file's name holds a quotation mark or a line break, which the key "
                         "frame add-on's command cannot carry");

    MovieMacro macro;
    std::vector<std::string> lines = {
        MacroHeader, "# A key frame movie: the data set, the export set up as the key frame add-on's Export",
        "# Options dialog records it, and the key frame file flown through into the movie."};
    lines.push_back(IsDemoData(options.data)
                        ? "$!LOADDATA DEMO"
                        : "$!LOADDATA FILE = " + quotedMacroText(fs::absolute(options.data).string()));
    macro.dataLine = static_cast<int>(lines.size());
    lines.push_back(ExportSetup("ExportFormat", options.format));
    lines.push_back(ExportSetup("ExportRegion", options.region));
    lines.push_back(ExportSetup("ImageWidth", std::to_string(options.width)));
    lines.push_back(ExportSetup("AnimationSpeed", macroNumber(options.fps)));
    lines.push_back(ExportSetup("UseSuperSampleAntiAliasing", options.antialias > 1 ? "true" : "false"));
    if (options.antialias > 1)
        lines.push_back(ExportSetup("SuperSampleFactor", std::to_string(options.antialias)));
    lines.push_back(ExportSetup("ExportFName", "\"" + out + "\""));
    // The add-on's own quoting: a value with a blank goes between quotation marks.
    const std::string fileName =
        keyFrames.find(' ') == std::string::npos ? keyFrames : "\"" + keyFrames + "\"";
    lines.push_back(AddOnCommand("OpenSettingsFile FileName=" + fileName));
    macro.keyFramesLine = static_cast<int>(lines.size());
    lines.push_back(AddOnCommand("Animate AnimationDestination=ToFile"));
    macro.animateLine = static_cast<int>(lines.size());
    for (const std::string& line : lines)
        macro.text += line + "\n";
    return macro;
}

int RunMovieCommand(const std::vector<std::string>& arguments, const std::string& addOnPath)
{
    MovieOptions options;
    MovieMacro macro;
    try
    {
        options = ParseMovieCommand(arguments);
        if (options.help)
        {
            std::fputs(MovieHelpText().c_str(), stdout);
            return ExitSuccess;
        }
        macro = BuildMovieMacro(options);
    }
    catch (const UsageError& error)
    {
        PrintError(Program, std::string(error.what()) + " (see vantix movie --help)");
        return ExitUsage;
    }
    std::string unusable = IsDemoData(options.data) ? "" : UnreadableInput(options.data, "data file");
    if (unusable.empty())
        unusable = UnreadableInput(options.keyFrames, "key frame file");
    if (unusable.empty())
        unusable = UnwritableOutput(
            options.out, {{options.data, "the data file"}, {options.keyFrames, "the key frame file"}});
    if (!unusable.empty())
    {
        PrintError(Program, unusable);
        return ExitUsage;
    }
    if (options.printMacro)
    {
        std::fputs(macro.text.c_str(), stdout);
        return ExitSuccess;
    }

    const InterruptHandler interrupts;
    addFrame(PlotType_Cartesian3D);
    try
    {
        loadAddOnModule(addOnPath);
    }
    catch (const std::exception& error)
    {
        PrintError(Program, error.what());
        return ExitUsage;
    }
    const StatusDisplayScope statusDisplay;
    // The movie may replace neither of the files it is made from.
    const vantix::toolbox::KeptFile data(options.data, "it is the data file");
    const vantix::toolbox::KeptFile keyFrames(options.keyFrames, "it is the key frame file");
    const MacroResult result = runMacroText(macro.text, Program);
    return Concluded(options, macro, result);
}

} // namespace vantix::host::detail
