// Outside input (a word of a macro command text, a line of a key frame file) as the add-on's messages
// quote it. It may hold control bytes and be of any length; a message shows them escaped
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
