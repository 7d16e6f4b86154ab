#include "animation/FramePopperAbstract.h"

#include "addon/AddOnID.h"

#include <VtxUtil.h>

namespace vantix::vtxutiltools
{

std::int64_t FramePopperAbstract::m_numActivePoppers = 0;

FramePopperAbstract::FramePopperAbstract()
{
    VtxUtilLockStart(AddOnID);
    ++m_numActivePoppers;
}

FramePopperAbstract::~FramePopperAbstract()
{
    --m_numActivePoppers;
    VtxUtilLockFinish(AddOnID);
}

void FramePopperAbstract::popRemainingFrames()
{
    while (next())
    {
    }
}

} // namespace vantix::vtxutiltools
