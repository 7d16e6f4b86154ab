// A macro command that cannot be run: its reason, which the runner reports with the file and line.
#pragma once

#include <stdexcept>
#include <string>

namespace vantix::host::detail
{

class MacroError : public std::runtime_error
{
public:
    explicit MacroError(const std::string& reason) : std::runtime_error(reason) {}
};

} // namespace vantix::host::detail
