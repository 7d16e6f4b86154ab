#pragma once

#include "animation/FramePopperAbstract.h"

namespace vantix::vtxutiltools
{

// Walks the frames with the host's own lightweight iteration, which leaves the stacking order alone and
// makes the frame active before the walk active again at its end.
class FramePopperLightweight : public FramePopperAbstract
{
public:
    FramePopperLightweight();
    ~FramePopperLightweight() override;

    bool next() override;

private:
    // The host opens no walk on a page without frames; one that was never opened is neither stepped nor
    // closed, which the host would take as a protocol error.
    bool m_walkOpen = false;
};

} // namespace vantix::vtxutiltools
