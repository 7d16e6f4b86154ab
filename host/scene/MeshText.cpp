#include "scene/MeshText.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace vantix::host::detail
{

namespace
{

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f';
}

// Longest word quoted in a message: enough to recognise it, short enough for one line.
constexpr std::size_t ShownWordLength = 24;

} // namespace

void FailOnLine(int line, const std::string& what)
{
    throw MeshFormatError("line " + std::to_string(line) + ": " + what);
}

void CheckNodeCount(std::size_t nodes)
{
    if (nodes > MostNodes)
        throw MeshFormatError("it has more than " + std::to_string(MostNodes) +
                              " vertices, more than the host can number");
}

bool SameWord(std::string_view word, std::string_view keyword)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; };
    if (word.size() != keyword.size())
        return false;
    for (std::size_t i = 0; i < word.size(); ++i)
        if (lower(word[i]) != lower(keyword[i]))
            return false;
    return true;
}

void ExpectWord(WordReader& words, std::string_view keyword)
{
    const std::string_view word = words.next();
    if (SameWord(word, keyword))
        return;
    const std::string expected = "'" + std::string(keyword) + "'";
    if (word.empty())
        throw MeshFormatError("the file ends where " + expected + " should be");
    FailOnLine(words.line(), "expected " + expected + ", found " + Shown(word));
}

void WordReader::skipBlanks(bool acrossLines)
{
    while (m_at < m_text.size() && (IsBlank(m_text[m_at]) || (acrossLines && m_text[m_at] == '\n')))
        m_line += m_text[m_at++] == '\n' ? 1 : 0;
}

std::string_view WordReader::next()
{
    skipBlanks(true);
    return nextOnLine();
}

std::string_view WordReader::nextOnLine()
{
    skipBlanks(false);
    const std::size_t start = m_at;
    while (m_at < m_text.size() && !IsBlank(m_text[m_at]) && m_text[m_at] != '\n')
        ++m_at;
    return m_text.substr(start, m_at - start);
}

void WordReader::skipLine()
{
    const std::size_t end = m_text.find('\n', m_at);
    if (end == std::string_view::npos)
    {
        m_at = m_text.size();
        return;
    }
    m_at = end + 1;
    ++m_line;
}

bool ParseNumber(std::string_view word, double& value)
{
    if (!word.empty() && word.front() == '+')
    {
        word.remove_prefix(1);
        if (!word.empty() && (word.front() == '+' || word.front() == '-'))
            return false;
    }
    if (word.empty())
        return false;
    const char* const end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(word.data(), end, value);
    if (stop != end)
        return false;
    if (error == std::errc::result_out_of_range)
    {
        // Too small a magnitude reads as zero, too large a one as an infinity: the exponent's sign tells
        // which, or without an exponent whether a digit before the point is not zero.
        const std::size_t exponent = word.find_first_of("eE");
        const bool large = exponent != std::string_view::npos
                               ? word[exponent + 1] != '-'
                               : word.substr(0, word.find('.')).find_first_of("123456789") != word.npos;
        const double magnitude = large ? std::numeric_limits<double>::infinity() : 0.0;
        value = word.front() == '-' ? -magnitude : magnitude;
        return true;
    }
    return error == std::errc();
}

bool ParseWhole(std::string_view word, long long& value)
{
    if (!word.empty() && word.front() == '+' && word.size() > 1 && word[1] != '-')
        word.remove_prefix(1);
    const char* const end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(word.data(), end, value);
    return !word.empty() && stop == end && error == std::errc();
}

double NumberOnLine(std::string_view word, int line)
{
    double value = 0.0;
    if (!ParseNumber(word, value))
        FailOnLine(line, word.empty() ? "a number is missing" : Shown(word) + " is not a number");
    return value;
}

float ToFloat(double value)
{
    constexpr double Largest = std::numeric_limits<float>::max();
    if (std::abs(value) > Largest)
        return value > 0.0 ? std::numeric_limits<float>::infinity() : -std::numeric_limits<float>::infinity();
    return static_cast<float>(value);
}

std::string Shown(std::string_view word)
{
    std::string shown = "'";
    for (const char c : word.substr(0, ShownWordLength))
        shown += (c >= ' ' && c <= '~') ? c : '?';
    return shown + (word.size() > ShownWordLength ? "...'" : "'");
}

} // namespace vantix::host::detail
