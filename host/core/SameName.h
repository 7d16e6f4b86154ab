// Names the host matches in any case: style setting names and argument names.
#pragma once

#include <cstddef>
#include <string_view>

namespace vantix::host::detail
{

// Names are ASCII. The bytes of a name usually match as it was defined, so case is folded only where two
// bytes differ.
inline bool SameName(std::string_view a, std::string_view b)
{
    const auto folded = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i] != b[i] && folded(a[i]) != folded(b[i]))
            return false;
    return true;
}

} // namespace vantix::host::detail
