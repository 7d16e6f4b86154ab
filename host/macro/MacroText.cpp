#include "macro/MacroText.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace vantix::host::detail
{

std::string QuoteMacroText(std::string_view text, char quote)
{
    std::string quoted(1, quote);
    for (const char c : text)
    {
        switch (c)
        {
        case '\\':
            quoted += "\\\\";
            break;
        case '\n':
            quoted += "\\n";
            break;
        case '\r':
            quoted += "\\r";
            break;
        default:
            if (c == quote)
                quoted += '\\';
            quoted += c;
        }
    }
    return quoted + quote;
}

std::string FormatMacroNumber(double value)
{
    char text[32];
    const std::to_chars_result written = std::to_chars(text, text + sizeof text, value);
    return std::string(text, written.ptr);
}

bool ParseMacroNumber(std::string_view text, double& value)
{
    // Decimal only: strtod would also take hexadecimal numbers and words like "infinity".
    if (text.empty() || text.find_first_not_of("0123456789+-.eE") != std::string_view::npos)
        return false;
    const std::string copy(text);
    char* end = nullptr;
    const double parsed = std::strtod(copy.c_str(), &end);
    if (end != copy.c_str() + copy.size() || !std::isfinite(parsed))
        return false;
    value = parsed;
    return true;
}

bool SameMacroWord(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (std::toupper(static_cast<unsigned char>(a[i])) != std::toupper(static_cast<unsigned char>(b[i])))
            return false;
    return true;
}

std::string UpperCaseMacroWord(std::string_view word)
{
    std::string upper(word);
    for (char& c : upper)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return upper;
}

std::string_view TrimMacroBlanks(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    const auto last = text.find_last_not_of(" \t");
    return text.substr(first, last - first + 1);
}

} // namespace vantix::host::detail
