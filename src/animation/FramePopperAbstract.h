#pragma once

#include "platform/HostGuards.h"

#include <cstdint>

namespace vantix::vtxutiltools
{

// Visits every frame of the host's work area in turn, making each the active frame, and leaves the host as
// it found it when it goes. The frame active once the popper is made is the first frame visited; next()
// moves on to the following one. A popper holds the host lock for its whole life.
//
//     std::unique_ptr<FramePopperAbstract> popper = FramePopperAbstractFactory::getFramePopper(false);
//     do
//         ... work on the active frame ...
//     while (popper->next());
class FramePopperAbstract
{
public:
    FramePopperAbstract();
    virtual ~FramePopperAbstract();

    // Makes the next frame active; false when every frame has been visited.
    virtual bool next() = 0;

    // Visits the frames not yet visited, so that the walk is complete.
    void popRemainingFrames();

    // The poppers that exist now.
    static std::int64_t numActivePoppers() { return m_numActivePoppers; }

private:
    // Taken before the popper counts itself and released after it has stopped counting.
    HostLock m_lock;

    static std::int64_t m_numActivePoppers;
};

} // namespace vantix::vtxutiltools
