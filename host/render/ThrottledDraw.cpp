#include "render/ThrottledDraw.h"

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

void ThrottledDraw::triangles(const std::vector<const TrianglePart*>& parts)
{
    for (std::size_t i = 0; i < parts.size(); ++i)
    {
        const TrianglePart& part = *parts[i];
        glDrawElementsBaseVertex(GL_TRIANGLES, part.indexCount, part.indexType,
                                 reinterpret_cast<const void*>(part.offset), part.baseVertex);
        if (i + 1 == parts.size())
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
