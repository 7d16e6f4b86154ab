#include "macro/MacroRunner.h"

#include "core/Application.h"
#include "events/HostEvents.h"
#include "macro/MacroError.h"
#include "macro/MacroExecutor.h"
#include "macro/MacroParser.h"
#include "macro/MacroText.h"

#include <exception>
#include <filesystem>
#include <system_error>
#include <type_traits>

namespace vantix::host::detail
{

namespace
{

// The next line of text from position on, without its line break (a carriage return before the line
// feed included, for files written on Windows).
std::string_view NextLine(std::string_view text, std::size_t& position)
{
    const std::size_t end = text.find('\n', position);
    std::string_view line =
        text.substr(position, end == std::string_view::npos ? std::string_view::npos : end - position);
    position = end == std::string_view::npos ? text.size() + 1 : end + 1;
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    return line;
}

// Rounds of the on-idle queue between two commands: enough for calls that queue others, bounded for a call
// that always queues itself again.
constexpr int IdleRoundsBetweenCommands = 100;

bool IsAddOnCommand(const MacroCommand& command)
{
    return std::holds_alternative<macro::AddOnCommand>(command);
}

// An add-on's command text is the add-on's own: the host cannot tell which of its words are file names. So
// while an add-on carries a command out, the macro's folder is the working folder, and a relative file name
// in the command is found where a relative name in one of the host's own commands is. The working folder
// is put back afterwards, however the command ends; a folder that cannot be entered leaves it as it is.
class WorkingFolder
{
public:
    explicit WorkingFolder(const std::filesystem::path& folder)
    {
        std::error_code error;
        m_previous = std::filesystem::current_path(error);
        if (!error)
            std::filesystem::current_path(folder, error);
        m_entered = !error;
    }
    ~WorkingFolder()
    {
        std::error_code ignored;
        if (m_entered)
            std::filesystem::current_path(m_previous, ignored);
    }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

private:
    std::filesystem::path m_previous;
    bool m_entered = false;
};

} // namespace

MacroRunner::MacroRunner(std::string name, const std::filesystem::path& folder)
    : m_name(std::move(name)), m_folder(folder)
{
}

MacroResult MacroRunner::run(std::string_view text) const
{
    Application& app = Application::instance();
    std::size_t position = 0;
    const std::string_view header = NextLine(text, position);
    const std::string_view trimmedHeader = header.substr(0, header.find_last_not_of(" \t") + 1);
    if (trimmedHeader != MacroHeader)
        return failure(MacroResult::Status::NotAMacro, 1,
                       std::string("not a Vantix macro: the first line must be \"") + MacroHeader + "\"");

    const MacroParser parser(m_folder);
    int lineNumber = 1;
    while (position <= text.size())
    {
        const std::string_view line = TrimMacroBlanks(NextLine(text, position));
        ++lineNumber;
        if (line.empty() || line.front() == '#')
            continue;
        // Ctrl-C while no progress line asks for it: stop before the next command rather than not at all.
        if (app.takeCancelSignal())
            return failure(MacroResult::Status::Failed, lineNumber, "cancelled before this command");
        try
        {
            const MacroCommand command = parser.parse(line);
            if (IsAddOnCommand(command))
            {
                // Add-ons record their own commands, when and as they see fit.
                const WorkingFolder inTheMacrosFolder(m_folder);
                RunMacroCommand(command);
            }
            else
            {
                RunMacroCommand(command);
                app.recordMacroLine(MacroCommandLine(command));
            }
        }
        catch (const std::exception& error)
        {
            return failure(MacroResult::Status::Failed, lineNumber, error.what());
        }
        runIdleWork();
    }
    return MacroResult();
}

void MacroRunner::runIdleWork()
{
    Events().onIdle.runUntilEmpty(IdleRoundsBetweenCommands);
}

MacroResult MacroRunner::failure(MacroResult::Status status, int line, const std::string& reason) const
{
    MacroResult result;
    result.status = status;
    result.line = line;
    result.message = m_name + ":" + std::to_string(line) + ": " + reason;
    return result;
}

} // namespace vantix::host::detail
