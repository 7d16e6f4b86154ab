#include "core/InputExcerpt.h"

#include <cstdio>

namespace vantix::vtxutiltools
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

} // namespace

std::string InputExcerpt(const std::string& input)
{
    std::string excerpt;
    std::string::size_type taken = 0;
    for (; taken < input.size(); ++taken)
    {
        const std::string shown = Shown(input[taken]);
        if (excerpt.size() + shown.size() > LongestExcerpt)
            break;
        excerpt += shown;
    }
    if (taken == input.size())
        return excerpt;
    for (; taken > 0 && (static_cast<unsigned char>(input[taken]) & 0xc0) == 0x80; --taken)
        excerpt.pop_back();
    return excerpt + "... (" + std::to_string(input.size()) + " bytes)";
}

} // namespace vantix::vtxutiltools
