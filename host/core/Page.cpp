#include "core/Page.h"

#include "events/ProtocolErrors.h"
#include "events/StateChanges.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>

namespace vantix::host::detail
{

Frame& Page::requireActiveFrame() const
{
    if (!m_active)
        throw std::logic_error("the page has no frame");
    return *m_active;
}

Frame* Page::frame(UniqueID_t id) const
{
    for (const auto& frame : m_frames)
        if (frame->id == id)
            return frame.get();
    return nullptr;
}

Frame& Page::addFrame(PlotType_e plotType)
{
    static UniqueID_t lastId = 0;
    auto frame = std::make_unique<Frame>();
    frame->id = ++lastId;
    frame->plotType = plotType;
    m_frames.push_back(std::move(frame));
    m_active = m_frames.back().get();
    RaiseStateChange(StateChange_FrameCreated);
    RaiseStateChange(StateChange_NewTopFrame);
    return *m_active;
}

bool Page::activate(UniqueID_t id)
{
    Frame* found = frame(id);
    if (found)
        makeActive(found);
    return found != nullptr;
}

bool Page::activateTop()
{
    if (m_frames.empty())
        return false;
    makeActive(m_frames.back().get());
    return true;
}

bool Page::pushTop()
{
    if (m_frames.empty())
        return false;
    std::rotate(m_frames.begin(), m_frames.end() - 1, m_frames.end());
    return activateTop();
}

bool Page::deleteFrame(UniqueID_t id)
{
    const auto found =
        std::find_if(m_frames.begin(), m_frames.end(), [id](const auto& frame) { return frame->id == id; });
    if (found == m_frames.end())
        return false;
    const bool wasActive = found->get() == m_active;
    if (m_walkReturnsTo == found->get())
        m_walkReturnsTo = nullptr;
    m_frames.erase(found);
    if (wasActive)
        m_active = m_frames.empty() ? nullptr : m_frames.back().get();
    RaiseStateChange(StateChange_FrameDeleted);
    if (wasActive)
        RaiseStateChange(StateChange_NewTopFrame);
    return true;
}

void Page::setPlotType(PlotType_e plotType)
{
    Frame& frame = requireActiveFrame();
    if (frame.plotType == plotType)
        return;
    frame.plotType = plotType;
    RaiseStateChange(StateChange_PlotTypeChanged);
}

void Page::makeActive(Frame* frame)
{
    if (frame == m_active)
        return;
    m_active = frame;
    RaiseStateChange(StateChange_NewTopFrame);
}

Frame* Page::frameFromTop(int position) const
{
    const int count = static_cast<int>(m_frames.size());
    if (position < 0 || position >= count)
        return nullptr;
    return m_frames[static_cast<std::size_t>(count - 1 - position)].get();
}

bool Page::walkStart()
{
    if (m_frames.empty())
        return false;
    if (walking())
        ReportProtocolError("a lightweight frame walk was started while one was open");
    else
        m_walkReturnsTo = m_active;
    m_walkPosition = 0;
    m_active = frameFromTop(0);
    return true;
}

bool Page::walkNext()
{
    if (!walking())
    {
        ReportProtocolError("VtxUtilFrameLightweightPopNext was called with no lightweight frame walk open");
        return false;
    }
    Frame* next = frameFromTop(m_walkPosition + 1);
    if (!next)
        return false; // the last frame stays current until the walk ends
    ++m_walkPosition;
    m_active = next;
    return true;
}

void Page::walkEnd()
{
    if (!walking())
    {
        ReportProtocolError("VtxUtilFrameLightweightPopEnd was called with no lightweight frame walk open");
        return;
    }
    m_walkPosition = -1;
    if (m_walkReturnsTo)
        m_active = m_walkReturnsTo;
    m_walkReturnsTo = nullptr;
}

void Page::setPaperSize(double width, double height)
{
    m_paperWidth = width;
    m_paperHeight = height;
}

std::array<int, 2> Page::workAreaPixels() const
{
    return {static_cast<int>(std::lround(m_paperWidth * m_pixelsPerInch)),
            static_cast<int>(std::lround(m_paperHeight * m_pixelsPerInch))};
}

double Page::convert(const char* function, int fromUnits, int toUnits, double value) const
{
    const auto known = [](int units) { return units == Units_Inches || units == Units_Pixels; };
    if (!known(fromUnits) || !known(toUnits))
    {
        ReportProtocolError(std::string(function) + " was given the unknown unit codes " +
                            std::to_string(fromUnits) + " and " + std::to_string(toUnits));
        return value;
    }
    if (fromUnits == toUnits)
        return value;
    return fromUnits == Units_Inches ? value * m_pixelsPerInch : value / m_pixelsPerInch;
}

} // namespace vantix::host::detail
