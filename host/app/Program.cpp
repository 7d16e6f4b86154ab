#include "app/Program.h"

#include "app/CommandLine.h"
#include "app/DesktopLoader.h"
#include "app/InterruptHandler.h"
#include "app/KeyFramesCommand.h"
#include "app/MovieCommand.h"
#include "app/ProgressDisplay.h"

#include <vantix/host/Export.h>
#include <vantix/host/Host.h>
#include <vantix/host/Macro.h>
#include <vantix/toolbox/ReplacingFile.h>

#include <cstdio>
#include <filesystem>
#include <optional>
#include <stdexcept>

namespace vantix::host::detail
{

namespace
{

// A module in the library folder beside the program's own folder (bin/../lib), wherever the program was
// started from: the key frame module, the desktop.
std::string ModulePath(const std::string& fileName)
{
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error)
        return "../lib/" + fileName;
    return (program.parent_path() / ".." / "lib" / fileName).lexically_normal().string();
}

std::string DefaultAddOnPath()
{
    return ModulePath("libkeyframe.so");
}

void Error(const std::string& message)
{
    PrintError("vantix", message);
}

// Writes what was recorded. A replay that ran nothing (a macro file that cannot be read, or is not one)
// leaves an earlier recording at the path as it was.
int WriteRecording(vantix::toolbox::ReplacingFile& recording, const MacroResult& result)
{
    setMacroRecording(false);
    if (result.status != MacroResult::Status::Ok && result.status != MacroResult::Status::Failed)
        return ExitSuccess;
    try
    {
        recording.write(recordedMacroText());
        recording.commit();
        return ExitSuccess;
    }
    catch (const std::exception& error)
    {
        Error(error.what());
        return ExitUsage;
    }
}

// The one line that says how the replay ended when a signal cut it short: the failure it caused, or that
// the replay had already reached the end (an export still open then went with the cancel).
std::string InterruptedMessage(int signal, const MacroResult& result, const std::string& macroPath)
{
    const std::string name = InterruptHandler::describe(signal);
    if (!result.ok())
        return result.message + " (" + name + ")";
    return "vantix: interrupted by " + name + "; the replay had reached the end of " + macroPath;
}

// Tells how the replay ended, in one line (or none), writes the recording, and gives the exit status.
int Concluded(const std::string& macroPath, const MacroResult& result,
              std::optional<vantix::toolbox::ReplacingFile>& recording)
{
    const int signal = InterruptHandler::received();
    int status = ExitSuccess;
    if (!result.ok())
        status = result.status == MacroResult::Status::Failed ? ExitCommandFailed : ExitUsage;
    if (const std::string left = abandonExportLeftOpenBy(macroPath); !left.empty() && result.ok() && !signal)
    {
        Error(left);
        status = ExitCommandFailed;
    }
    if (!result.ok() && !signal)
        std::fprintf(stderr, "%s\n", result.message.c_str());
    if (recording && WriteRecording(*recording, result) != ExitSuccess && status == ExitSuccess)
        status = ExitUsage;
    if (!signal)
        return status;
    std::fprintf(stderr, "%s\n", InterruptedMessage(signal, result, macroPath).c_str());
    return ExitInterrupted + signal;
}

} // namespace

int RunProgram(const std::vector<std::string>& arguments)
{
    if (!arguments.empty() && (arguments[0] == "movie" || arguments[0] == "keyframes"))
    {
        const std::vector<std::string> commandArguments(arguments.begin() + 1, arguments.end());
        return arguments[0] == "movie" ? RunMovieCommand(commandArguments, DefaultAddOnPath())
                                       : RunKeyFramesCommand(commandArguments);
    }
    ProgramOptions options;
    try
    {
        options = ParseCommandLine(arguments);
    }
    catch (const UsageError& error)
    {
        Error(std::string(error.what()) + " (see vantix --help)");
        return ExitUsage;
    }
    const std::string defaultAddOn = DefaultAddOnPath();
    if (options.help)
    {
        std::fputs(HelpText(defaultAddOn).c_str(), stdout);
        return ExitSuccess;
    }
    std::optional<DesktopLoader> desktop;
    if (options.desktop || options.macroPath.empty())
    {
        try
        {
            desktop.emplace(ModulePath("libvtxdesktop.so"));
        }
        catch (const std::exception& error)
        {
            Error(error.what());
            return ExitUsage;
        }
        if (const std::string why = desktop->unavailableReason(); !why.empty())
        {
            Error(why + " (see vantix --help)");
            return ExitUsage;
        }
    }

    const InterruptHandler interrupts;
    // The page the user finds on starting the program: one empty 3D frame.
    addFrame(PlotType_Cartesian3D);
    try
    {
        if (options.defaultAddOn)
            loadAddOnModule(defaultAddOn);
        for (const std::string& addOn : options.addOns)
            loadAddOnModule(addOn);
    }
    catch (const std::exception& error)
    {
        Error(error.what());
        return ExitUsage;
    }

    if (desktop)
    {
        const int status = desktop->run(options.macroPath, &InterruptHandler::received);
        if (const int signal = InterruptHandler::received())
        {
            Error(std::string("interrupted by ") + InterruptHandler::describe(signal));
            return ExitInterrupted + signal;
        }
        return status;
    }
    const StatusDisplayScope statusDisplay;

    // Neither the recording nor an export may replace the macro while it is replayed.
    const vantix::toolbox::KeptFile macro(options.macroPath, "it is the macro being replayed");
    std::optional<vantix::toolbox::ReplacingFile> recording;
    if (options.recordPath)
    {
        try
        {
            // Made before the replay, so that a recording that cannot be written is told before a long
            // replay rather than after it.
            recording.emplace(*options.recordPath);
        }
        catch (const std::exception& error)
        {
            Error(error.what());
            return ExitUsage;
        }
        setMacroRecording(true);
    }

    const MacroResult result = runMacroFile(options.macroPath);
    return Concluded(options.macroPath, result, recording);
}

} // namespace vantix::host::detail
