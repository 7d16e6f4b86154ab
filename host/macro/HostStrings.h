// The text buffers the host hands to add-ons (VtxUtilStringAlloc). The host owns every buffer until it is
// released, so a buffer an add-on forgets is freed at the end of the process, and the host can tell a
// pointer it gave out from any other.
#pragma once

#include <memory>
#include <unordered_map>

namespace vantix::host::detail
{

class Application;

class HostStrings
{
public:
    // A zeroed buffer of maxLength + 1 characters; null for a negative length or when memory is exhausted.
    char* allocate(int maxLength);

    enum class Release
    {
        Counted,   // released; it was counted as outstanding
        Uncounted, // released; it was handed out before the counts were last forgotten
        Unknown    // the host never gave out this pointer (or it was released already): nothing released
    };
    Release release(char* text);

    // After a reset of the host the outstanding count starts again from 0, but the buffers handed out
    // before stay valid: an add-on may still hold one and release it later.
    void forgetCounts();

private:
    struct Buffer
    {
        std::unique_ptr<char[]> characters;
        bool counted = true;
    };
    std::unordered_map<const char*, Buffer> m_buffers;
};

// The host's side of VtxUtilStringAlloc and VtxUtilStringDealloc, counting what is outstanding in
// Application::m_stringsOutstanding. Releasing a pointer the host never gave out is a protocol error that
// the host reports; it then leaves *text alone.
char* AllocateHostString(Application& app, int maxLength);
void ReleaseHostString(Application& app, char** text);

} // namespace vantix::host::detail
