// Comparing texts without regard to the case of letters, for the words the add-on reads back from macro
// commands and key frame files, which a person may have typed in any case.
#pragma once

#include <string>

namespace vantix::vtxutiltools
{

// True when a comes before b once both are lower-cased byte by byte in the "C" locale (only A to Z
// change). Texts that differ only in case are not less than each other; a proper prefix comes first; bytes
// compare as unsigned values, so bytes above 127 come after every ASCII character.
bool CaseInsensitiveStringLess(const std::string& a, const std::string& b);

// True when a and b have the same length and agree byte by byte once lower-cased as above.
bool CaseInsensitiveStringMatch(const std::string& a, const std::string& b);

// CaseInsensitiveStringLess as the ordering of a std::map or std::set.
struct CaseInsensitiveStringCompareObj
{
    bool operator()(const std::string& a, const std::string& b) const
    {
        return CaseInsensitiveStringLess(a, b);
    }
};

} // namespace vantix::vtxutiltools
