// The text buffers the host hands to add-ons (VtxUtilStringAlloc). The host owns every buffer until it is
// released, so a buffer an add-on forgets is freed at the end of the process, and the host can tell a
// pointer it gave out from any other.
#pragma once

#include "core/Handouts.h"

#include <vector>

namespace vantix::host::detail
{

class HostStrings
{
public:
    // A zeroed buffer of maxLength + 1 characters, counted as outstanding; null for a negative length or
    // when memory is exhausted.
    char* allocate(int maxLength);
    // Releases the buffer and nulls *text; null is fine, as with free(NULL). Releasing a pointer the host
    // never gave out (or released already) is a protocol error that the host reports; *text is then left
    // alone.
    void release(char** text);

    long outstanding() const { return m_buffers.outstanding(); }
    void forgetCounts() { m_buffers.forgetCounts(); }

private:
    Handouts<std::vector<char>> m_buffers;
};

} // namespace vantix::host::detail
