// The host's drawing: whether it is suspended, what redraws did, and what the last one drew.
#pragma once

#include "core/Image.h"

#include <functional>

namespace vantix::host::detail
{

struct Frame;

class Drawing
{
public:
    using Observer = std::function<void()>;
    // The observer, kept by the application across sessions, is called after every redraw that draws
    // (after the frame drawer).
    explicit Drawing(const Observer& observer) : m_observer(observer) {}

    // Draws a frame at its size on the screen; throws when it cannot.
    using FrameDrawer = std::function<Image(const Frame&)>;

    // Suspensions nest; resuming what was not suspended is reported.
    void suspend(bool suspend);
    int suspensionDepth() const { return m_suspension; }

    // A redraw of the active frame: false without one; counted as skipped while drawing is suspended;
    // otherwise counted and, with a frame drawer, drawn into the screen image (a failure to draw is
    // reported, not thrown: the redraw comes from an add-on's call).
    bool redraw(const Frame* active);
    int redraws() const { return m_redraws; }
    int skippedRedraws() const { return m_skippedRedraws; }

    // Unset, a redraw is only counted. Setting it clears the screen image.
    void setFrameDrawer(FrameDrawer drawer);
    const Image& screenImage() const { return m_screenImage; }

private:
    int m_suspension = 0;
    int m_redraws = 0;
    int m_skippedRedraws = 0;
    FrameDrawer m_drawer;
    const Observer& m_observer;
    Image m_screenImage;
};

} // namespace vantix::host::detail
