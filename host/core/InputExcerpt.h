// Outside input (a line of a macro file, a word of it, a name) as a message quotes it.
//
// A message is read as one line on a terminal and handed on as a C string, so the input it quotes must
// neither end it early (a NUL byte), break it into lines, nor steer the terminal (an escape sequence), and
// a line of a damaged file must not fill the screen.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vantix::host::detail
{

// How much of one piece of input a message shows, in characters as shown.
inline constexpr std::size_t InputExcerptLength = 120;

// input with every control byte written visibly (\0, \t, \n, \r, and \xhh for the others, DEL included)
// and every other byte as it is. Input that would show longer than length is cut there, never inside an
// escape or a UTF-8 character, and "..." and the size of the whole input follow the cut:
// "aaaaaaaa... (52428800 bytes)".
std::string InputExcerpt(std::string_view input, std::size_t length = InputExcerptLength);

} // namespace vantix::host::detail
