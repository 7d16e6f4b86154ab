// The page: where the frames sit, the work area, units, and the lightweight walk over the frames.
#include "core/Application.h"

#include <cmath>
#include <string>

using vantix::host::detail::Application;
using vantix::host::detail::Call;
using vantix::host::detail::Frame;

namespace
{

// Screen pixels are square, so the X and Y conversions share one factor.
double ConvertDimension(Application& app, const char* function, int fromUnits, int toUnits, double value)
{
    const auto known = [](int units) { return units == Units_Inches || units == Units_Pixels; };
    if (!known(fromUnits) || !known(toUnits))
    {
        app.reportError(std::string(function) + " was given the unknown unit codes " +
                        std::to_string(fromUnits) + " and " + std::to_string(toUnits));
        return value;
    }
    if (fromUnits == toUnits)
        return value;
    return fromUnits == Units_Inches ? value * app.m_pixelsPerInch : value / app.m_pixelsPerInch;
}

// The frame at a position of the walk, counted from the top of the stack.
Frame* FrameFromTop(Application& app, int position)
{
    const int count = static_cast<int>(app.m_frames.size());
    if (position < 0 || position >= count)
        return nullptr;
    return app.m_frames[static_cast<std::size_t>(count - 1 - position)].get();
}

} // namespace

extern "C"
{

    void VtxUtilFrameGetPosAndSize(double* x, double* y, double* width, double* height)
    {
        Application& app = Application::instance();
        app.note(Call::FrameGetPosAndSize);
        const Frame* frame = app.activeFrame();
        if (x)
            *x = frame ? frame->x : 0.0;
        if (y)
            *y = frame ? frame->y : 0.0;
        if (width)
            *width = frame ? frame->width : 0.0;
        if (height)
            *height = frame ? frame->height : 0.0;
    }

    void VtxUtilWorkAreaGetDimensions(int* width, int* height)
    {
        Application& app = Application::instance();
        app.note(Call::WorkAreaGetDimensions);
        if (width)
            *width = static_cast<int>(std::lround(app.m_paperWidth * app.m_pixelsPerInch));
        if (height)
            *height = static_cast<int>(std::lround(app.m_paperHeight * app.m_pixelsPerInch));
    }

    double VtxUtilConvertXDimension(int fromUnits, int toUnits, double value)
    {
        Application& app = Application::instance();
        app.note(Call::ConvertXDimension);
        return ConvertDimension(app, "VtxUtilConvertXDimension", fromUnits, toUnits, value);
    }

    double VtxUtilConvertYDimension(int fromUnits, int toUnits, double value)
    {
        Application& app = Application::instance();
        app.note(Call::ConvertYDimension);
        return ConvertDimension(app, "VtxUtilConvertYDimension", fromUnits, toUnits, value);
    }

    // The walk goes from the top of the stack down, the order in which the frames would come up if they
    // were really pushed, and never changes the stacking order.
    Boolean VtxUtilFrameLightweightPopStart(void)
    {
        Application& app = Application::instance();
        app.note(Call::FrameLightweightPopStart);
        if (app.m_frames.empty())
            return FALSE;
        if (app.m_lightweightPop >= 0)
            app.reportError("a lightweight frame walk was started while one was open");
        else
            app.m_lightweightPopReturnTo = app.activeFrame();
        app.m_lightweightPop = 0;
        app.m_active = FrameFromTop(app, 0);
        return TRUE;
    }

    Boolean VtxUtilFrameLightweightPopNext(void)
    {
        Application& app = Application::instance();
        app.note(Call::FrameLightweightPopNext);
        if (app.m_lightweightPop < 0)
        {
            app.reportError("VtxUtilFrameLightweightPopNext was called with no lightweight frame walk open");
            return FALSE;
        }
        Frame* next = FrameFromTop(app, app.m_lightweightPop + 1);
        if (!next)
            return FALSE; // the last frame stays current until the walk ends
        ++app.m_lightweightPop;
        app.m_active = next;
        return TRUE;
    }

    void VtxUtilFrameLightweightPopEnd(void)
    {
        Application& app = Application::instance();
        app.note(Call::FrameLightweightPopEnd);
        if (app.m_lightweightPop < 0)
        {
            app.reportError("VtxUtilFrameLightweightPopEnd was called with no lightweight frame walk open");
            return;
        }
        app.m_lightweightPop = -1;
        if (app.m_lightweightPopReturnTo)
            app.m_active = app.m_lightweightPopReturnTo;
        app.m_lightweightPopReturnTo = nullptr;
    }

} // extern "C"
