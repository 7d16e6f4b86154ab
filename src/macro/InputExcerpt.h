// A word of a macro command text as the add-on's messages quote it. The host hands the text on as it was
// written in a macro file, so it may hold control bytes and be of any length; a message shows them escaped
// (\t, \n, \r, \xhh) and a long word cut after LongestExcerpt characters, never inside a UTF-8 character,
// followed by "..." and the word's size: "xxxxxxxx... (52428800 bytes)".
#pragma once

#include <cstddef>
#include <string>

namespace vantix::vtxutiltools
{

inline constexpr std::size_t LongestExcerpt = 120;

std::string InputExcerpt(const std::string& input);

} // namespace vantix::vtxutiltools
