#pragma once

namespace vantix::vtxutiltools
{

// Keeps the host from drawing for its lifetime, so that a view changed in several steps is never drawn
// half-made. Suspensions nest in the host.
class DrawingSuspension
{
public:
    DrawingSuspension();
    ~DrawingSuspension();

    DrawingSuspension(const DrawingSuspension&) = delete;
    DrawingSuspension& operator=(const DrawingSuspension&) = delete;
};

} // namespace vantix::vtxutiltools
