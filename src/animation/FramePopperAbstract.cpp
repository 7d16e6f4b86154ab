#include "animation/FramePopperAbstract.h"

namespace vantix::vtxutiltools
{

std::int64_t FramePopperAbstract::m_numActivePoppers = 0;

FramePopperAbstract::FramePopperAbstract()
{
    ++m_numActivePoppers;
}

FramePopperAbstract::~FramePopperAbstract()
{
    --m_numActivePoppers;
}

void FramePopperAbstract::popRemainingFrames()
{
    while (next())
    {
    }
}

} // namespace vantix::vtxutiltools
