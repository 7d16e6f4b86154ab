#include "core/Drawing.h"

#include "events/ProtocolErrors.h"

#include <exception>
#include <string>

namespace vantix::host::detail
{

void Drawing::suspend(bool suspend)
{
    if (suspend)
        ++m_suspension;
    else if (m_suspension == 0)
        ReportProtocolError("drawing was resumed while it was not suspended");
    else
        --m_suspension;
}

bool Drawing::redraw(const Frame* active)
{
    if (!active)
        return false;
    if (m_suspension > 0)
    {
        ++m_skippedRedraws;
        return true;
    }
    ++m_redraws;
    try
    {
        if (m_drawer)
            m_screenImage = m_drawer(*active);
        if (m_observer)
            m_observer();
    }
    catch (const std::exception& error)
    {
        ReportProtocolError(std::string("the frame could not be drawn: ") + error.what());
    }
    return true;
}

void Drawing::setFrameDrawer(FrameDrawer drawer)
{
    m_drawer = std::move(drawer);
    m_screenImage = Image();
}

} // namespace vantix::host::detail
