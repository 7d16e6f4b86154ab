#include "macro/MacroRunner.h"

#include "core/Application.h"
#include "events/HostEvents.h"
#include "macro/MacroError.h"
#include "macro/MacroExecutor.h"
#include "macro/MacroLineSource.h"
#include "macro/MacroParser.h"
#include "macro/MacroText.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <limits>
#include <system_error>
#include <type_traits>

namespace vantix::host::detail
{

namespace
{

// Editors that write UTF-8 may put a byte order mark before the first line.
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

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

MacroResult MacroRunner::run(MacroLineSource& lines) const
{
    Application& app = Application::instance();
    std::string line;
    const bool read = lines.next(line) == MacroLineSource::Read::Line;
    std::string_view header = line;
    if (header.substr(0, ByteOrderMark.size()) == ByteOrderMark)
        header.remove_prefix(ByteOrderMark.size());
    if (!read || header.substr(0, header.find_last_not_of(" \t") + 1) != MacroHeader)
        return failure(MacroResult::Status::NotAMacro, 1,
                       std::string("not a Vantix macro: the first line must be \"") + MacroHeader + "\"");

    const MacroParser parser(m_folder);
    // Counted wide: a stream of blank lines may never end.
    for (long long lineNumber = 2;; ++lineNumber)
    {
        const MacroLineSource::Read next = lines.next(line);
        if (next == MacroLineSource::Read::End)
            return MacroResult();
        if (next == MacroLineSource::Read::TooLong)
            return failure(MacroResult::Status::Failed, lineNumber,
                           "the line is longer than " + std::to_string(MacroLineLimit) + " bytes");
        const std::string_view command = TrimMacroBlanks(line);
        if (command.empty() || command.front() == '#')
            continue;
        // Ctrl-C while no progress line asks for it: stop before the next command rather than not at all.
        if (app.takeCancelSignal())
            return failure(MacroResult::Status::Failed, lineNumber, "cancelled before this command");
        try
        {
            const MacroCommand parsed = parser.parse(command);
            if (IsAddOnCommand(parsed))
            {
                // Add-ons record their own commands, when and as they see fit.
                const WorkingFolder inTheMacrosFolder(m_folder);
                RunMacroCommand(parsed);
            }
            else
            {
                RunMacroCommand(parsed);
                app.recordMacroLine(MacroCommandLine(parsed));
            }
        }
        catch (const std::exception& error)
        {
            return failure(MacroResult::Status::Failed, lineNumber, error.what());
        }
        runIdleWork();
    }
}

void MacroRunner::runIdleWork()
{
    Events().onIdle.runUntilEmpty(IdleRoundsBetweenCommands);
}

MacroResult MacroRunner::failure(MacroResult::Status status, long long line, const std::string& reason) const
{
    MacroResult result;
    result.status = status;
    result.line = static_cast<int>(std::min<long long>(line, std::numeric_limits<int>::max()));
    result.message = m_name + ":" + std::to_string(line) + ": " + reason;
    return result;
}

} // namespace vantix::host::detail
