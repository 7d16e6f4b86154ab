// What the mesh file readers share: the error a damaged file raises, words read from text with their line
// numbers, numbers in the notation mesh files use, and words shown safely in a message.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vantix::host::detail
{

// What is wrong with a mesh file, in words a user can act on; the file's name is added by the caller.
struct MeshFormatError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

// Throws MeshFormatError "line <line>: <what>".
[[noreturn]] void FailOnLine(int line, const std::string& what);

// Node numbers are 32 bits wide: a file with more nodes cannot be loaded.
constexpr std::size_t MostNodes = 0xFFFFFFFFu;
// Throws MeshFormatError when a mesh of this many nodes cannot be numbered.
void CheckNodeCount(std::size_t nodes);

// Reads words (runs of anything but blanks and line ends) from text, counting lines from 1.
class WordReader
{
public:
    explicit WordReader(std::string_view text) : m_text(text) {}

    // The next word, across line ends; empty at the end of the text.
    std::string_view next();
    // The next word of the current line; empty at its end.
    std::string_view nextOnLine();
    // Moves to the start of the next line.
    void skipLine();
    // The line of the last word read (or of the current position before any).
    int line() const { return m_line; }
    // Where the reader stands in the text: after skipLine, the start of the next line.
    std::size_t offset() const { return m_at; }

private:
    void skipBlanks(bool acrossLines);

    std::string_view m_text;
    std::size_t m_at = 0;
    int m_line = 1;
};

// The keywords of mesh files are read in any case.
bool SameWord(std::string_view word, std::string_view keyword);
class WordReader;
// Reads the next word and throws MeshFormatError naming the line unless it is the keyword.
void ExpectWord(WordReader& words, std::string_view keyword);

// A number as C writes it ("-1.5e+03", "nan", "inf"); one too large for a double reads as an infinity of
// its sign, so that it is skipped as undrawable rather than refused. False for anything else.
bool ParseNumber(std::string_view word, double& value);
// A whole number, optionally signed, that fits a long long; false for anything else.
bool ParseWhole(std::string_view word, long long& value);
// The number or throws MeshFormatError "line <line>: <word> is not a number".
double NumberOnLine(std::string_view word, int line);

// The nearest float; a value beyond the float range becomes an infinity of its sign.
float ToFloat(double value);

// The word in quotes, cut to a few characters and with bytes that are not printable shown as '?', so that
// a message quoting a damaged file stays one short line.
std::string Shown(std::string_view word);

} // namespace vantix::host::detail
