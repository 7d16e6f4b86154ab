#include "app/KeyFramesCommand.h"

#include "app/CommandLine.h"
#include "app/InputFiles.h"
#include "app/Program.h"

#include <vantix/host/Macro.h>
#include <vantix/host/Scene.h>
#include <vantix/toolbox/ReplacingFile.h>

#include <cstdio>
#include <stdexcept>

namespace vantix::host::detail
{

namespace
{

constexpr const char* Program = "vantix keyframes";

std::string Numbers(std::initializer_list<double> values)
{
    std::string text;
    for (const double value : values)
        text += " " + macroNumber(value);
    return text;
}

void LoadData(const std::string& data)
{
    if (IsDemoData(data))
        loadDemoDataSet();
    else
        loadDataFile(data);
}

} // namespace

KeyFramesOptions ParseKeyFramesCommand(const std::vector<std::string>& arguments)
{
    KeyFramesOptions options;
    std::vector<std::string> files;
    for (ArgumentWalk walk(arguments); walk.next();)
    {
        const std::string& argument = walk.argument();
        if (argument == "--help")
            options.help = true;
        else if (argument == "-o")
            options.out = walk.value();
        else if (argument == "--views")
            options.views = WholeNumberOption(argument, walk.value(), 3, 360);
        else if (argument == "--frames")
            options.frames = WholeNumberOption(argument, walk.value(), 1, 100000);
        else if (argument == "--elevation")
            options.elevation = NumberOption(argument, walk.value(), -90.0, 90.0);
        else if (walk.isOption())
            walk.refuseOption();
        else
            files.push_back(argument);
    }
    if (options.help)
        return options;
    if (files.size() != 1)
        throw UsageError("expected one name, DATA (the data set)");
    options.data = files[0];
    if (options.out.empty())
        throw UsageError("-o FILE, the key frame file to write, is missing");
    return options;
}

std::string KeyFramesHelpText()
{
    return "Usage: vantix keyframes DATA -o FILE [options]\n"
           "\n"
           "Writes a starter key frame file that flies once around DATA (a mesh file, or the word demo):\n"
           "key views evenly around the data set at one elevation, each framed as loading frames the data,\n"
           "and the first view again at the end so that the movie loops. Edit it in the desktop (Animate >\n"
           "Key Frame Animation..., Open) or in a text editor, and make the movie with vantix movie.\n"
           "\n"
           "Options:\n"
           "  -o FILE              the key frame file to write (.keyframe)\n"
           "  --views N            key views around the data, 3 to 360 (8)\n"
           "  --frames N           frames from one key view to the next, 1 to 100000 (30); the movie has\n"
           "                       views x frames + 1 frames\n"
           "  --elevation DEG      degrees above the horizontal (the data's x-y plane), -90 to 90 (30)\n"
           "  --help               show this help and exit\n"
           "\n"
           "Exit status: 0 when the file was written; 2 for bad usage, data that cannot be read, or a file\n"
           "that cannot be written.\n";
}

std::vector<ViewState> ViewsAround(int views, double elevation)
{
    const ViewState start = view();
    std::vector<ViewState> around;
    for (int k = 0; k < views; ++k)
    {
        ViewState turned = start;
        turned.psi = 90.0 - elevation;
        turned.theta = start.theta + 360.0 * k / views;
        setView(turned);
        fitView();
        around.push_back(view());
    }
    around.push_back(around.front());
    return around;
}

std::string StarterKeyFrameText(const std::vector<ViewState>& views, int frames, double solutionTime)
{
    std::string text = "#!KeyFrame 1\n"
                       "\n"
                       "%Settings\n"
                       " AnimateTime false\n"
                       " TimeAnimationOperation Forward\n"
                       " NumCycles 1\n"
                       " AnimateStreamtraces false\n"
                       " FadeIn false\n"
                       " FadeOut false\n"
                       "%Settings";
    for (std::size_t k = 0; k < views.size(); ++k)
    {
        const ViewState& v = views[k];
        const bool last = k + 1 == views.size();
        text += "\n\n%KeyFrameView\n Name \"View " + std::to_string(last ? 1 : k + 1) +
                (last ? " again" : "") + "\"\n Position" + Numbers({v.x, v.y, v.z}) + "\n Angle" +
                Numbers({v.psi, v.theta, v.alpha}) + "\n Width" + Numbers({v.width}) + "\n FrameCount " +
                std::to_string(frames) + "\n SolutionTime" + Numbers({solutionTime}) + "\n%KeyFrameView";
    }
    return text;
}

int RunKeyFramesCommand(const std::vector<std::string>& arguments)
{
    KeyFramesOptions options;
    try
    {
        options = ParseKeyFramesCommand(arguments);
    }
    catch (const UsageError& error)
    {
        PrintError(Program, std::string(error.what()) + " (see vantix keyframes --help)");
        return ExitUsage;
    }
    if (options.help)
    {
        std::fputs(KeyFramesHelpText().c_str(), stdout);
        return ExitSuccess;
    }
    std::string unusable = IsDemoData(options.data) ? "" : UnreadableInput(options.data, "data file");
    if (unusable.empty())
        unusable = UnwritableOutput(options.out, {{options.data, "the data file"}});
    if (!unusable.empty())
    {
        PrintError(Program, unusable);
        return ExitUsage;
    }
    try
    {
        addFrame(PlotType_Cartesian3D);
        LoadData(options.data);
        const std::string text = StarterKeyFrameText(ViewsAround(options.views, options.elevation),
                                                     options.frames, solutionTime());
        vantix::toolbox::WriteWholeFile(options.out, text);
    }
    catch (const std::exception& error)
    {
        PrintError(Program, error.what());
        return ExitUsage;
    }
    return ExitSuccess;
}

} // namespace vantix::host::detail
