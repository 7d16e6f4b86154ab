// Replays a macro file line by line as it reads it: checks the header, then parses and runs one command
// after the other until one fails, recording each host command while the host records a macro.
#pragma once

#include <vantix/host/Macro.h>

#include <filesystem>
#include <string>

namespace vantix::host::detail
{

class MacroLineSource;

class MacroRunner
{
public:
    // name stands for the macro in messages; relative paths in it are taken from folder.
    MacroRunner(std::string name, const std::filesystem::path& folder);

    MacroResult run(MacroLineSource& lines) const;

private:
    MacroResult failure(MacroResult::Status status, long long line, const std::string& reason) const;
    // The host is idle between commands, as the desktop program is after its events: the on-idle queue runs
    // until it is empty (a call that keeps queueing itself gets a bounded number of rounds).
    static void runIdleWork();

    std::string m_name;
    std::filesystem::path m_folder;
};

} // namespace vantix::host::detail
