#include "core/HostStrings.h"

#include "events/ProtocolErrors.h"

#include <new>

namespace vantix::host::detail
{

char* HostStrings::allocate(int maxLength)
{
    if (maxLength < 0)
        return nullptr;
    try
    {
        auto buffer = std::make_unique<std::vector<char>>(static_cast<std::size_t>(maxLength) + 1, '\0');
        char* const text = buffer->data();
        m_buffers.keep(text, std::move(buffer));
        return text;
    }
    catch (const std::bad_alloc&)
    {
        return nullptr;
    }
}

void HostStrings::release(char** text)
{
    if (!text || !*text)
        return;
    if (m_buffers.release(*text) == Release::Unknown)
    {
        ReportProtocolError("a string was released that the host never gave out (or released already)");
        return; // not the host's to touch
    }
    *text = nullptr;
}

} // namespace vantix::host::detail
