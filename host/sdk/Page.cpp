// The page: where the frames sit, the work area, units, and the lightweight walk over the frames.
#include "core/Application.h"
#include "core/CallContext.h"

using vantix::host::detail::Call;
using vantix::host::detail::Enter;
using vantix::host::detail::Frame;

extern "C"
{

    void VtxUtilFrameGetPosAndSize(double* x, double* y, double* width, double* height)
    {
        const Frame* frame = Enter(Call::FrameGetPosAndSize).page().activeFrame();
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
        const std::array<int, 2> pixels = Enter(Call::WorkAreaGetDimensions).page().workAreaPixels();
        if (width)
            *width = pixels[0];
        if (height)
            *height = pixels[1];
    }

    double VtxUtilConvertXDimension(int fromUnits, int toUnits, double value)
    {
        return Enter(Call::ConvertXDimension)
            .page()
            .convert("VtxUtilConvertXDimension", fromUnits, toUnits, value);
    }

    double VtxUtilConvertYDimension(int fromUnits, int toUnits, double value)
    {
        return Enter(Call::ConvertYDimension)
            .page()
            .convert("VtxUtilConvertYDimension", fromUnits, toUnits, value);
    }

    Boolean VtxUtilFrameLightweightPopStart(void)
    {
        return Enter(Call::FrameLightweightPopStart).page().walkStart() ? TRUE : FALSE;
    }

    Boolean VtxUtilFrameLightweightPopNext(void)
    {
        return Enter(Call::FrameLightweightPopNext).page().walkNext() ? TRUE : FALSE;
    }

    void VtxUtilFrameLightweightPopEnd(void)
    {
        Enter(Call::FrameLightweightPopEnd).page().walkEnd();
    }

} // extern "C"
