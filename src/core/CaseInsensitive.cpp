#include "core/CaseInsensitive.h"

#include <algorithm>

namespace vantix::vtxutiltools
{

namespace
{

// The lower-case form in the "C" locale. Written out instead of std::tolower so that the result cannot
// depend on a locale that the host or another add-on may have set for the process.
unsigned char LowerCase(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte - 'A' + 'a') : byte;
}

} // namespace

bool CaseInsensitiveStringLess(const std::string& a, const std::string& b)
{
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char x, char y) { return LowerCase(x) < LowerCase(y); });
}

bool CaseInsensitiveStringMatch(const std::string& a, const std::string& b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                              [](char x, char y) { return LowerCase(x) == LowerCase(y); });
}

} // namespace vantix::vtxutiltools
