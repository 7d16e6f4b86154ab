#include "core/InputExcerpt.h"

#include <cstdio>

namespace vantix::host::detail
{

namespace
{

std::string Shown(char c)
{
    switch (c)
    {
    case '\0':
        return "\\0";
    case '\t':
        return "\\t";
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    }
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x20 && byte != 0x7f)
        return std::string(1, c);
    char escaped[5];
    std::snprintf(escaped, sizeof escaped, "\\x%02x", byte);
    return escaped;
}

bool IsUtf8Continuation(char c)
{
    return (static_cast<unsigned char>(c) & 0xc0) == 0x80;
}

} // namespace

std::string InputExcerpt(std::string_view input, std::size_t length)
{
    std::string excerpt;
    std::size_t taken = 0;
    for (; taken < input.size(); ++taken)
    {
        const std::string shown = Shown(input[taken]);
        if (excerpt.size() + shown.size() > length)
            break;
        excerpt += shown;
    }
    if (taken == input.size())
        return excerpt;
    // A character cut in two would show as neither half.
    while (taken > 0 && IsUtf8Continuation(input[taken]))
    {
        --taken;
        excerpt.pop_back();
    }
    return excerpt + "... (" + std::to_string(input.size()) + " bytes)";
}

} // namespace vantix::host::detail
