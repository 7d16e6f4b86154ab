#include "macro/MacroTokenizer.h"

#include "core/InputExcerpt.h"
#include "macro/MacroError.h"

namespace vantix::host::detail
{

namespace
{

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool IsQuote(char c)
{
    return c == '\'' || c == '"';
}

// Reads the quoted text that starts at position, leaving position after its closing quotation mark.
std::string ReadQuotedText(std::string_view arguments, std::size_t& position)
{
    const char quote = arguments[position++];
    std::string text;
    while (position < arguments.size())
    {
        const char c = arguments[position++];
        if (c == quote)
            return text;
        if (c != '\\')
        {
            text += c;
            continue;
        }
        if (position == arguments.size())
            break;
        const char escaped = arguments[position++];
        switch (escaped)
        {
        case '\\':
        case '\'':
        case '"':
            text += escaped;
            break;
        case 'n':
            text += '\n';
            break;
        case 'r':
            text += '\r';
            break;
        default:
            throw MacroError("unknown escape \\" + InputExcerpt(std::string_view(&escaped, 1)) +
                             " in a quoted text (known: \\\\ \\' \\\" \\n \\r)");
        }
    }
    throw MacroError(std::string("a quoted text has no closing ") + quote);
}

} // namespace

std::vector<MacroToken> TokenizeMacroArguments(std::string_view arguments)
{
    std::vector<MacroToken> tokens;
    std::size_t position = 0;
    while (position < arguments.size())
    {
        const char c = arguments[position];
        if (IsBlank(c))
        {
            ++position;
        }
        else if (c == '=')
        {
            tokens.push_back({MacroToken::Kind::Equals, "="});
            ++position;
        }
        else if (IsQuote(c))
        {
            tokens.push_back({MacroToken::Kind::Text, ReadQuotedText(arguments, position)});
        }
        else
        {
            const std::size_t start = position;
            while (position < arguments.size() && !IsBlank(arguments[position]) &&
                   arguments[position] != '=' && !IsQuote(arguments[position]))
                ++position;
            tokens.push_back(
                {MacroToken::Kind::Word, std::string(arguments.substr(start, position - start))});
        }
    }
    return tokens;
}

} // namespace vantix::host::detail
