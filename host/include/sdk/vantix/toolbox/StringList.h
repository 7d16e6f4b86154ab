// An ordered list of texts, the toolbox's way of passing a style path or a list of names.
#pragma once

#include <VtxUtil.h>

#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

namespace vantix::toolbox
{

class VTX_SDK_API StringList
{
public:
    StringList() = default;
    explicit StringList(const char* first) { append(first); }
    StringList(std::initializer_list<const char*> texts);

    void append(const char* text);
    std::size_t count() const { return m_texts.size(); }
    // The text at a 0-based position; null past the end.
    const char* get(std::size_t position) const;

private:
    std::vector<std::string> m_texts;
};

} // namespace vantix::toolbox
