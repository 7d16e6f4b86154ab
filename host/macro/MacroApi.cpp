// The host's own API for macros (vantix/host/Macro.h).
#include "core/Application.h"
#include "macro/AddOnModules.h"
#include "macro/MacroLineSource.h"
#include "macro/MacroRunner.h"
#include "macro/MacroText.h"

#include <vantix/host/Macro.h>
#include <vantix/toolbox/ReplacingFile.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace vantix::host
{

namespace
{

MacroResult Unreadable(const std::string& path, const std::string& reason)
{
    MacroResult result;
    result.status = MacroResult::Status::Unreadable;
    result.message = path + ": cannot read the macro file: " + reason;
    return result;
}

} // namespace

MacroResult runMacroFile(const std::string& path)
{
    std::error_code error;
    if (std::filesystem::is_directory(path, error))
        return Unreadable(path, "it is a folder");
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return Unreadable(path, std::strerror(errno));
    // Nothing the macro does may replace it while it is read.
    const vantix::toolbox::KeptFile macro(path, "it is the macro being replayed");
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    detail::StreamMacroLines lines(file);
    return detail::MacroRunner(path, folder.empty() ? std::filesystem::path(".") : folder).run(lines);
}

MacroResult runMacroText(const std::string& text, const std::string& name, const std::string& folder)
{
    detail::TextMacroLines lines(text);
    return detail::MacroRunner(name, folder).run(lines);
}

std::string quotedMacroText(const std::string& text, char quote)
{
    return detail::QuoteMacroText(text, quote);
}

std::string macroNumber(double value)
{
    return detail::FormatMacroNumber(value);
}

std::string recordedMacroText()
{
    std::string text = std::string(MacroHeader) + "\n";
    const std::vector<std::string>& lines = detail::Application::instance().recordedMacroLines();
    for (std::size_t i = 0; i < lines.size(); ++i)
    {
        if (lines[i].find_first_of("\r\n") != std::string::npos)
            throw std::runtime_error("recorded macro line " + std::to_string(i + 1) +
                                     " holds a line break, which a macro file cannot carry: " + lines[i]);
        text += lines[i] + "\n";
    }
    return text;
}

void writeRecordedMacro(const std::string& path)
{
    vantix::toolbox::WriteWholeFile(path, recordedMacroText());
}

void loadAddOnModule(const std::string& path)
{
    // An absolute path, so that the loader does not look for a bare file name in the library folders.
    detail::AddOnModulesOf(detail::Application::instance()).load(std::filesystem::absolute(path).string());
}

} // namespace vantix::host
