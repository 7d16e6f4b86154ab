#include "app/CommandLine.h"

#include <vantix/host/Macro.h>

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace vantix::host::detail
{

const std::string& ArgumentWalk::value()
{
    if (m_next == m_arguments.size())
        throw UsageError("option " + argument() + " needs a value");
    const std::string& value = m_arguments[m_next];
    ++m_next;
    return value;
}

void ArgumentWalk::refuseOption() const
{
    throw UsageError("unknown option " + argument());
}

ProgramOptions ParseCommandLine(const std::vector<std::string>& arguments)
{
    ProgramOptions options;
    for (ArgumentWalk walk(arguments); walk.next();)
    {
        const std::string& argument = walk.argument();
        if (argument == "--help")
            options.help = true;
        else if (argument == "--no-default-addon")
            options.defaultAddOn = false;
        else if (argument == "--addon")
            options.addOns.push_back(walk.value());
        else if (argument == "--desktop")
            options.desktop = true;
        else if (argument == "--record")
            options.recordPath = walk.value();
        else if (walk.isOption())
            walk.refuseOption();
        else if (!options.macroPath.empty())
            throw UsageError("more than one macro file given: " + options.macroPath + " and " + argument);
        else
            options.macroPath = argument;
    }
    if (options.desktop && options.macroPath.empty())
        throw UsageError("--desktop needs a macro file to replay");
    if (options.recordPath && (options.desktop || options.macroPath.empty()))
        throw UsageError("--record goes with a macro replayed in batch; in the desktop, Scripting > Record "
                         "Macro records");
    return options;
}

std::string HelpText(const std::string& defaultAddOnPath)
{
    return "Usage: vantix [options] [MACRO]\n"
           "       vantix [options] --desktop MACRO\n"
           "       vantix movie DATA KEYFRAMES -o OUT [options]     (vantix movie --help)\n"
           "       vantix keyframes DATA -o FILE [options]          (vantix keyframes --help)\n"
           "\n"
           "vantix is the Vantix host: it loads add-on modules, then either replays the macro file MACRO in\n"
           "batch and exits (running its commands one after the other, stopping at the first that fails),\n"
           "or, without MACRO, opens the desktop: a window with the host's menus, the page and its frames,\n"
           "the add-ons' dialogs and options (Animate > Key Frame Animation...). In the desktop a drag "
           "turns\n"
           "the active frame's view, the wheel zooms, a drag with Shift or the middle button pans.\n"
           "The desktop needs a display ($DISPLAY, or a Qt platform in $QT_QPA_PLATFORM).\n"
           "\n"
           "vantix movie makes a key frame movie of a data set in one command, and vantix keyframes writes\n"
           "a key frame file that flies once around a data set, to start from; a macro file named movie or\n"
           "keyframes is replayed as ./movie.\n"
           "\n"
           "Options:\n"
           "  --addon PATH         also load the add-on module PATH (a shared library exporting\n"
           "                       InitVtxAddOn113); may be given more than once, loaded in that order\n"
           "  --no-default-addon   do not load the key frame animation module, which is otherwise loaded\n"
           "                       first, from " +
           defaultAddOnPath +
           "\n"
           "  --desktop            replay MACRO in the desktop and keep the desktop open\n"
           "  --record FILE        record a macro of what is replayed and write it to FILE at the end\n"
           "                       (also when a command fails: what ran until then; a macro that\n"
           "                       cannot be read leaves an earlier FILE as it was)\n"
           "  --help               show this help and exit\n"
           "\n"
           "Progress is shown on standard error: a progress bar on a terminal, plain progress lines\n"
           "otherwise. Ctrl-C (SIGINT), SIGTERM and SIGHUP ask the running operation to stop and the\n"
           "replay to stop before its next command, and then close the desktop; what was being written\n"
           "is abandoned, and a file it would have replaced stays as it was. A second signal ends the\n"
           "program at once.\n"
           "\n"
           "Files are written whole or not at all: into a temporary file beside the target, renamed over\n"
           "it when complete. A symbolic link is written through; a folder, a device or the macro being\n"
           "replayed is never overwritten.\n"
           "\n"
           "Exit status: 0 when every command ran; 1 when a command failed (its FILE:LINE: reason on\n"
           "standard error) or the macro ended with an export still open; 2 for bad usage, or a macro\n"
           "file, add-on module or record file that cannot be read or written; 128 plus the signal's\n"
           "number when a signal stopped the replay or closed the desktop (130 SIGINT, 143 SIGTERM,\n"
           "129 SIGHUP).\n";
}

int WholeNumberOption(const std::string& option, const std::string& text, int lowest, int highest)
{
    errno = 0;
    char* end = nullptr;
    const long value = std::strtol(text.c_str(), &end, 10);
    if (text.empty() || *end != '\0' || errno == ERANGE || value < lowest || value > highest)
        throw UsageError(option + " must be a whole number from " + std::to_string(lowest) + " to " +
                         std::to_string(highest) + ", not '" + text + "'");
    return static_cast<int>(value);
}

double NumberOption(const std::string& option, const std::string& text, double lowest, double highest)
{
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || !std::isfinite(value) || value < lowest || value > highest)
        throw UsageError(option + " must be a number from " + macroNumber(lowest) + " to " +
                         macroNumber(highest) + ", not '" + text + "'");
    return value;
}

void PrintError(const std::string& program, const std::string& message)
{
    std::fprintf(stderr, "%s: %s\n", program.c_str(), message.c_str());
}

} // namespace vantix::host::detail
