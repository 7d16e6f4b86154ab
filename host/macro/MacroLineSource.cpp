#include "macro/MacroLineSource.h"

#include <algorithm>
#include <istream>

namespace vantix::host::detail
{

namespace
{

MacroLineSource::Read Finished(std::string& line)
{
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return MacroLineSource::Read::Line;
}

} // namespace

MacroLineSource::Read StreamMacroLines::next(std::string& line)
{
    line.clear();
    std::streambuf& buffer = *m_in.rdbuf();
    for (auto c = buffer.sbumpc(); c != std::char_traits<char>::eof(); c = buffer.sbumpc())
    {
        if (c == '\n')
            return Finished(line);
        if (line.size() == MacroLineLimit)
            return Read::TooLong;
        line.push_back(std::char_traits<char>::to_char_type(c));
    }
    return line.empty() ? Read::End : Finished(line);
}

MacroLineSource::Read TextMacroLines::next(std::string& line)
{
    line.clear();
    if (m_position >= m_text.size())
        return Read::End;
    const std::size_t end = std::min(m_text.find('\n', m_position), m_text.size());
    if (end - m_position > MacroLineLimit)
    {
        line = m_text.substr(m_position, MacroLineLimit);
        m_position = m_text.size();
        return Read::TooLong;
    }
    line = m_text.substr(m_position, end - m_position);
    m_position = end + 1;
    return Finished(line);
}

} // namespace vantix::host::detail
