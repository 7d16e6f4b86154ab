// The files a command of the program reads and writes, checked before any work begins, so that a name
// given wrongly is told at once and nothing is written.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace vantix::host::detail
{

// Whether DATA names the demo data set (the word demo, in any case) rather than a file.
bool IsDemoData(const std::string& data);

// Why the file at path cannot be read, as "cannot read the <what> '<path>': <reason>", or "".
std::string UnreadableInput(const std::string& path, const std::string& what);

// Why path cannot take a command's output, as "cannot write '<path>': <reason>", or "": it is a folder, its
// folder does not exist, or it is one of the inputs (pairs of a path and what it is, e.g. "the data file").
std::string UnwritableOutput(const std::string& path,
                             const std::vector<std::pair<std::string, std::string>>& inputs);

} // namespace vantix::host::detail
