// Replays the text of a macro file: checks the header, then parses and runs one command after the other
// until one fails, recording each host command while the host records a macro.
#pragma once

#include <vantix/host/Macro.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace vantix::host::detail
{

class MacroRunner
{
public:
    // name stands for the macro in messages; relative paths in it are taken from folder.
    MacroRunner(std::string name, const std::filesystem::path& folder);

    MacroResult run(std::string_view text) const;

private:
    MacroResult failure(MacroResult::Status status, int line, const std::string& reason) const;
    // Where the host's on-idle queue runs between commands, as it runs after events in the desktop
    // program. The host has no on-idle queue yet, so there is nothing to run here.
    static void runIdleWork() {}

    std::string m_name;
    std::filesystem::path m_folder;
};

} // namespace vantix::host::detail
