// The small pieces of the macro language's text: quoted texts, numbers and words in any case.
#pragma once

#include <string>
#include <string_view>

namespace vantix::host::detail
{

// A text between quotation marks (quote is ' or "), written so that reading it back gives the same text:
// a backslash is written \\, the enclosing quotation mark \' or \", a line feed \n and a carriage return
// \r. The other quotation mark and every other character stand as they are.
std::string QuoteMacroText(std::string_view text, char quote);

// The shortest decimal text that reads back as exactly the same number ("30", "0.1", "-2.5e-07").
std::string FormatMacroNumber(double value);
// A whole finite number in the C locale's notation, nothing before or after it.
bool ParseMacroNumber(std::string_view text, double& value);

bool SameMacroWord(std::string_view a, std::string_view b);
std::string UpperCaseMacroWord(std::string_view word);

// The text without the blanks and tabs around it.
std::string_view TrimMacroBlanks(std::string_view text);

} // namespace vantix::host::detail
