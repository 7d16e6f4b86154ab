#include "render/ThrottledDraw.h"

#include <algorithm>
#include <cstdint>

namespace vantix::host::detail
{

namespace
{

// Long enough for any part; a wait that times out only lets the memory grow a little.
constexpr GLuint64 LongestWaitNanoseconds = 10'000'000'000;

} // namespace

ThrottledDraw::~ThrottledDraw()
{
    for (const GLsync fence : m_inFlight)
        glDeleteSync(fence);
}

void ThrottledDraw::triangles(GLsizei count)
{
    constexpr GLsizei PartIndices = 3 * PartTriangles;
    for (GLsizei first = 0; first < count; first += PartIndices)
    {
        glDrawElements(GL_TRIANGLES, std::min(PartIndices, count - first), GL_UNSIGNED_INT,
                       reinterpret_cast<const void*>(static_cast<std::uintptr_t>(first) * sizeof(GLuint)));
        if (count - first <= PartIndices)
            break; // the last part goes with whatever follows it
        m_inFlight.push_back(glFenceSync(GL_SYNC_GPU_COMMANDS_COMPLETE, 0));
        if (m_inFlight.size() > PartsInFlight)
        {
            glClientWaitSync(m_inFlight.front(), 0, LongestWaitNanoseconds);
            glDeleteSync(m_inFlight.front());
            m_inFlight.pop_front();
        }
    }
}

} // namespace vantix::host::detail
