#include <vantix/toolbox/StringList.h>

namespace vantix::toolbox
{

StringList::StringList(std::initializer_list<const char*> texts)
{
    for (const char* text : texts)
        append(text);
}

void StringList::append(const char* text)
{
    m_texts.emplace_back(text ? text : "");
}

const char* StringList::get(std::size_t position) const
{
    return position < m_texts.size() ? m_texts[position].c_str() : nullptr;
}

} // namespace vantix::toolbox
