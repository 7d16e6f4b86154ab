// Reads one command line of the host's macro language into a MacroCommand.
#pragma once

#include "macro/MacroCommand.h"

#include <filesystem>
#include <string_view>

namespace vantix::host::detail
{

class MacroParser
{
public:
    // Relative paths in the commands are taken from folder (the macro file's folder).
    explicit MacroParser(const std::filesystem::path& folder);

    // line: one command, "$!" and the rest, without the blanks around it. Throws MacroError with the
    // reason when the line is not a command of the language.
    MacroCommand parse(std::string_view line) const;

private:
    std::filesystem::path m_folder;
};

} // namespace vantix::host::detail
