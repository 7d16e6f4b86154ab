#pragma once

#include "animation/FramePopperAbstract.h"

#include <VtxUtil.h>

namespace vantix::vtxutiltools
{

// Brings each frame to the top of the stack in turn, starting with the top frame, by sending the top frame
// to the bottom; the walk ends after one full turn, when the first top frame is on top again, so the
// stacking order is as before. Drawing is suspended while the frames are shuffled, and the frame that was
// active when the popper was made is made active again when it goes, even when the walk was stopped early.
class FramePopper : public FramePopperAbstract
{
public:
    FramePopper();
    ~FramePopper() override;

    bool next() override;

private:
    UniqueID_t m_startFrame = 0; // active when the popper was made
    UniqueID_t m_topFrame = 0;   // on top when the walk began: the first frame visited
    bool m_more = true;
};

} // namespace vantix::vtxutiltools
