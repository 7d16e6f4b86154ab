// Where the macro runner takes its lines from: a stream, for a macro file read while it is replayed, or a
// text already in memory. Either way a line is bounded, so that a file without line breaks (a device that
// never ends, a damaged file) costs no more memory than one long line.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

namespace vantix::host::detail
{

// Far longer than any command: the longest are style texts and paths of a few hundred bytes.
inline constexpr std::size_t MacroLineLimit = 1024 * 1024;

class MacroLineSource
{
public:
    enum class Read
    {
        Line,
        End,    // nothing more to read; line is empty
        TooLong // the line has more than MacroLineLimit bytes; line holds its first MacroLineLimit bytes
    };

    virtual ~MacroLineSource() = default;

    // The next line without its line break, and without the carriage return before it in a file written on
    // Windows. After TooLong the source is not read any further.
    virtual Read next(std::string& line) = 0;
};

// Reads the stream as the lines are asked for.
class StreamMacroLines final : public MacroLineSource
{
public:
    explicit StreamMacroLines(std::istream& in) : m_in(in) {}
    Read next(std::string& line) override;

private:
    std::istream& m_in;
};

// The text must outlive the source.
class TextMacroLines final : public MacroLineSource
{
public:
    explicit TextMacroLines(std::string_view text) : m_text(text) {}
    Read next(std::string& line) override;

private:
    std::string_view m_text;
    std::size_t m_position = 0;
};

} // namespace vantix::host::detail
