// The vantix program in batch: loads the add-on modules, replays a macro file, and says how it went
// through its exit status.
#pragma once

#include <string>
#include <vector>

namespace vantix::host::detail
{

enum ExitStatus
{
    ExitSuccess = 0,
    ExitCommandFailed = 1, // a macro command failed
    ExitUsage = 2,         // bad usage, or a file that cannot be read or written
    ExitInterrupted = 128  // plus the number of the signal that stopped the replay: 129, 130, 143
};

// arguments: the command line without the program's name. Messages and errors go to standard error,
// the help text to standard output.
int RunProgram(const std::vector<std::string>& arguments);

} // namespace vantix::host::detail
