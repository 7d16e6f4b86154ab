#include "app/Program.h"

#include "app/CommandLine.h"
#include "app/InterruptHandler.h"
#include "app/ProgressDisplay.h"

#include <vantix/host/Host.h>
#include <vantix/host/Macro.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <unistd.h>

namespace vantix::host::detail
{

namespace
{

// The key frame module, from the library folder beside the program's own folder (bin/../lib), wherever
// the program was started from.
std::string DefaultAddOnPath()
{
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error)
        return "../lib/libkeyframe.so";
    return (program.parent_path() / ".." / "lib" / "libkeyframe.so").lexically_normal().string();
}

void Error(const std::string& message)
{
    std::fprintf(stderr, "vantix: %s\n", message.c_str());
}

// The status line shown on standard error for as long as the program runs a macro.
class StatusDisplayScope
{
public:
    StatusDisplayScope() : m_display(stderr, ::isatty(STDERR_FILENO) == 1)
    {
        setStatusObserver([this](const StatusEvent& event) { m_display.show(event); });
    }
    StatusDisplayScope(const StatusDisplayScope&) = delete;
    StatusDisplayScope& operator=(const StatusDisplayScope&) = delete;
    ~StatusDisplayScope() { setStatusObserver(nullptr); }

private:
    ProgressDisplay m_display;
};

// Opens (and empties) the record file before the replay, so that a file that cannot be written is told
// before a long replay rather than after it.
bool RecordFileIsWritable(const std::string& path)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (file)
        return true;
    Error("cannot write the macro file " + path + ": " + std::strerror(errno));
    return false;
}

} // namespace

int RunProgram(const std::vector<std::string>& arguments)
{
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
    if (options.macroPath.empty())
    {
        Error("no macro file given; the desktop front end does not exist yet, so vantix only replays macro "
              "files (see vantix --help)");
        return ExitUsage;
    }

    const InterruptHandler interrupts;
    const StatusDisplayScope statusDisplay;
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

    if (options.recordPath)
    {
        if (!RecordFileIsWritable(*options.recordPath))
            return ExitUsage;
        setMacroRecording(true);
    }

    const MacroResult result = runMacroFile(options.macroPath);
    int status = ExitSuccess;
    if (!result.ok())
    {
        std::fprintf(stderr, "%s\n", result.message.c_str());
        status = result.status == MacroResult::Status::Failed ? ExitCommandFailed : ExitUsage;
    }

    if (options.recordPath)
    {
        setMacroRecording(false);
        try
        {
            writeRecordedMacro(*options.recordPath);
        }
        catch (const std::exception& error)
        {
            Error(error.what());
            if (status == ExitSuccess)
                status = ExitUsage;
        }
    }
    return status;
}

} // namespace vantix::host::detail
