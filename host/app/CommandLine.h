// The command line of the vantix program.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace vantix::host::detail
{

struct ProgramOptions
{
    bool help = false;
    bool defaultAddOn = true;
    std::vector<std::string> addOns; // in the order given
    std::optional<std::string> recordPath;
    bool desktop = false;  // replay the macro in the desktop and stay open
    std::string macroPath; // empty: none given, the desktop opens
};

// A command line the program cannot follow; the message is one line.
class UsageError : public std::runtime_error
{
public:
    explicit UsageError(const std::string& message) : std::runtime_error(message) {}
};

// Walks a command line, one argument after the other; an option that takes a value takes the next one.
class ArgumentWalk
{
public:
    explicit ArgumentWalk(const std::vector<std::string>& arguments) : m_arguments(arguments) {}

    // Moves to the next argument; false past the last.
    bool next() { return ++m_next <= m_arguments.size(); }
    const std::string& argument() const { return m_arguments[m_next - 1]; }
    // Whether the argument is an option ("-" alone is a name, standard input or output).
    bool isOption() const { return argument().size() > 1 && argument()[0] == '-'; }
    // The value of the option just read. Throws UsageError "option <argument> needs a value" at the end.
    const std::string& value();
    // Throws UsageError "unknown option <argument>".
    [[noreturn]] void refuseOption() const;

private:
    const std::vector<std::string>& m_arguments;
    std::size_t m_next = 0; // the index after the current argument
};

// Throws UsageError for an unknown option, an option without its value, more than one macro file, or
// options that do not go together.
ProgramOptions ParseCommandLine(const std::vector<std::string>& arguments);

// The text of --help; defaultAddOnPath is the module loaded unless --no-default-addon is given.
std::string HelpText(const std::string& defaultAddOnPath);

// The value of a numeric option, within lowest and highest; throws UsageError naming the option and the
// range, e.g. "--width must be a whole number from 2 to 16384, not 'wide'".
int WholeNumberOption(const std::string& option, const std::string& text, int lowest, int highest);
double NumberOption(const std::string& option, const std::string& text, double lowest, double highest);

// One line on standard error: "<program>: <message>".
void PrintError(const std::string& program, const std::string& message);

} // namespace vantix::host::detail
