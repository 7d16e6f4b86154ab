// Splits the arguments of a macro command into words, "=" signs and quoted texts.
//
// Blanks and tabs separate; "=" is a token of its own with or without blanks around it; a quoted text runs
// from a quotation mark (' or ") to the next unescaped one of the same kind, and knows the escapes \\, \',
// \", \n and \r. A word is any other run of characters.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantix::host::detail
{

struct MacroToken
{
    enum class Kind
    {
        Word,
        Equals,
        Text // a quoted text, its escapes undone
    };
    Kind kind = Kind::Word;
    std::string text;
};

// Throws MacroError for a quoted text that is not closed or holds an unknown escape.
std::vector<MacroToken> TokenizeMacroArguments(std::string_view arguments);

} // namespace vantix::host::detail
