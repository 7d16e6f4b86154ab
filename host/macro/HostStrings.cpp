#include "macro/HostStrings.h"

#include "core/Application.h"

#include <new>

namespace vantix::host::detail
{

char* HostStrings::allocate(int maxLength)
{
    if (maxLength < 0)
        return nullptr;
    Buffer buffer;
    buffer.characters.reset(new (std::nothrow) char[static_cast<std::size_t>(maxLength) + 1]());
    if (!buffer.characters)
        return nullptr;
    char* const text = buffer.characters.get();
    try
    {
        m_buffers.emplace(text, std::move(buffer));
    }
    catch (const std::bad_alloc&)
    {
        return nullptr; // the buffer goes with the Buffer that could not be stored
    }
    return text;
}

HostStrings::Release HostStrings::release(char* text)
{
    const auto found = m_buffers.find(text);
    if (found == m_buffers.end())
        return Release::Unknown;
    const bool counted = found->second.counted;
    m_buffers.erase(found);
    return counted ? Release::Counted : Release::Uncounted;
}

void HostStrings::forgetCounts()
{
    for (auto& entry : m_buffers)
        entry.second.counted = false;
}

char* AllocateHostString(Application& app, int maxLength)
{
    try
    {
        if (!app.m_hostStrings)
            app.m_hostStrings = std::make_shared<HostStrings>();
        char* const text = app.m_hostStrings->allocate(maxLength);
        if (text)
            ++app.m_stringsOutstanding;
        return text;
    }
    catch (const std::bad_alloc&)
    {
        return nullptr;
    }
}

void ReleaseHostString(Application& app, char** text)
{
    if (!text || !*text)
        return; // nothing to release, as with free(NULL)
    const HostStrings::Release released =
        app.m_hostStrings ? app.m_hostStrings->release(*text) : HostStrings::Release::Unknown;
    switch (released)
    {
    case HostStrings::Release::Counted:
        --app.m_stringsOutstanding;
        break;
    case HostStrings::Release::Uncounted:
        break;
    case HostStrings::Release::Unknown:
        app.reportError("a string was released that the host never gave out (or released already)");
        return; // not the host's to touch
    }
    *text = nullptr;
}

} // namespace vantix::host::detail
