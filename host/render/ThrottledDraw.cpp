#include "render/ThrottledDraw.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace vantix::host::detail
{

namespace
{

// Long enough for any part; a wait that times out only lets the memory grow a little.
constexpr GLuint64 LongestWaitNanoseconds = 10'000'000'000;

template <typename Index>
GLintptr Append(std::vector<std::byte>& bytes, const std::uint32_t* first, std::size_t count,
                std::uint32_t base)
{
    // Every part starts on a 4-byte boundary, where any index type may start.
    bytes.resize((bytes.size() + 3) / 4 * 4);
    const std::size_t at = bytes.size();
    bytes.resize(at + count * sizeof(Index));
    for (std::size_t i = 0; i < count; ++i)
    {
        const auto index = static_cast<Index>(first[i] - base);
        std::memcpy(bytes.data() + at + i * sizeof(Index), &index, sizeof(Index));
    }
    return static_cast<GLintptr>(at);
}

} // namespace

PackedTriangles PackTriangles(const std::vector<std::uint32_t>& triangles)
{
    constexpr std::size_t PartIndices = 3 * ThrottledDraw::PartTriangles;
    PackedTriangles packed;
    packed.bytes.reserve(triangles.size() * sizeof(std::uint16_t) + 4 * (triangles.size() / PartIndices + 1));
    for (std::size_t first = 0; first < triangles.size(); first += PartIndices)
    {
        const std::size_t count = std::min(PartIndices, triangles.size() - first);
        const auto [lowest, highest] =
            std::minmax_element(triangles.begin() + first, triangles.begin() + first + count);
        TrianglePart part;
        part.indexCount = static_cast<GLsizei>(count);
        if (*highest - *lowest <= std::numeric_limits<std::uint16_t>::max() &&
            *lowest <= static_cast<std::uint32_t>(std::numeric_limits<GLint>::max()))
        {
            part.indexType = GL_UNSIGNED_SHORT;
            part.baseVertex = static_cast<GLint>(*lowest);
            part.offset = Append<std::uint16_t>(packed.bytes, triangles.data() + first, count, *lowest);
        }
        else
            part.offset = Append<std::uint32_t>(packed.bytes, triangles.data() + first, count, 0);
        packed.parts.push_back(part);
    }
    return packed;
}

ThrottledDraw::~ThrottledDraw()
{
    for (const GLsync fence : m_inFlight)
        glDeleteSync(fence);
}

void ThrottledDraw::triangles(const std::vector<TrianglePart>& parts)
{
    for (std::size_t i = 0; i < parts.size(); ++i)
    {
        const TrianglePart& part = parts[i];
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
