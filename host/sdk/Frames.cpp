// The frames of the page and their 3D views.
#include "core/Application.h"
#include "core/CallContext.h"
#include "events/StateChanges.h"

#include <cmath>

using vantix::host::detail::Call;
using vantix::host::detail::Enter;
using vantix::host::detail::Frame;
using vantix::host::detail::View3D;

namespace
{

constexpr double RadiansPerDegree = 3.14159265358979323846 / 180.0;

} // namespace

extern "C"
{

    int VtxUtilFrameGetCount(void)
    {
        return static_cast<int>(Enter(Call::FrameGetCount).page().frames().size());
    }

    PlotType_e VtxUtilFrameGetPlotType(void)
    {
        const Frame* frame = Enter(Call::FrameGetPlotType).page().activeFrame();
        return frame ? frame->plotType : PlotType_Invalid;
    }

    UniqueID_t VtxUtilFrameGetUniqueID(void)
    {
        const Frame* frame = Enter(Call::FrameGetUniqueID).page().activeFrame();
        return frame ? frame->id : 0;
    }

    Boolean VtxUtilFrameActivateTop(void)
    {
        return Enter(Call::FrameActivateTop).page().activateTop() ? TRUE : FALSE;
    }

    Boolean VtxUtilFramePushTop(void)
    {
        return Enter(Call::FramePushTop).page().pushTop() ? TRUE : FALSE;
    }

    Boolean VtxUtilFrameActivateByUniqueID(UniqueID_t uniqueID)
    {
        return Enter(Call::FrameActivateByUniqueID).page().activate(uniqueID) ? TRUE : FALSE;
    }

    Boolean VtxUtilThreeDViewGetViewerPos(double* x, double* y, double* z)
    {
        const Frame* frame = Enter(Call::ThreeDViewGetViewerPos).page().active3DFrame();
        if (!frame)
            return FALSE;
        const auto& position = frame->view.position();
        if (x)
            *x = position[0];
        if (y)
            *y = position[1];
        if (z)
            *z = position[2];
        return TRUE;
    }

    Boolean VtxUtilThreeDViewGetViewerAngle(double* psi, double* theta, double* alpha)
    {
        const Frame* frame = Enter(Call::ThreeDViewGetViewerAngle).page().active3DFrame();
        if (!frame)
            return FALSE;
        if (psi)
            *psi = frame->view.psi() * RadiansPerDegree;
        if (theta)
            *theta = frame->view.theta() * RadiansPerDegree;
        if (alpha)
            *alpha = frame->view.alpha() * RadiansPerDegree;
        return TRUE;
    }

    Boolean VtxUtilThreeDViewGetProjection(double* fieldOfView, double* viewWidth, Boolean* isInPerspective)
    {
        const Frame* frame = Enter(Call::ThreeDViewGetProjection).page().active3DFrame();
        if (!frame)
            return FALSE;
        if (fieldOfView)
            *fieldOfView = frame->view.fieldOfView();
        if (viewWidth)
            *viewWidth = frame->view.width();
        if (isInPerspective)
            *isInPerspective = frame->view.perspective() ? TRUE : FALSE;
        return TRUE;
    }

    Boolean VtxUtilViewRotate3D(RotateAxis_e axis, RotateOriginLocation_e origin, double angle,
                                double vectorX, double vectorY, double vectorZ)
    {
        (void)vectorX, (void)vectorY, (void)vectorZ;
        Frame* frame = Enter(Call::ViewRotate3D).page().active3DFrame();
        if (!frame || !std::isfinite(angle))
            return FALSE;
        View3D::Axis viewAxis;
        switch (axis)
        {
        case RotateAxis_Psi:
            viewAxis = View3D::Axis::Psi;
            break;
        case RotateAxis_Theta:
            viewAxis = View3D::Axis::Theta;
            break;
        case RotateAxis_Alpha:
            viewAxis = View3D::Axis::Alpha;
            break;
        default:
            return FALSE;
        }
        switch (origin)
        {
        case RotateOriginLocation_DefinedOrigin:
            frame->view.rotate(viewAxis, angle, frame->view.rotationOrigin());
            break;
        case RotateOriginLocation_Viewer:
            frame->view.rotate(viewAxis, angle, frame->view.position());
            break;
        default:
            return FALSE;
        }
        vantix::host::detail::RaiseStateChange(StateChange_View3D);
        return TRUE;
    }

    double VtxUtilSolutionTimeGetCurrent(void)
    {
        const Frame* frame = Enter(Call::SolutionTimeGetCurrent).page().activeFrame();
        return frame ? frame->solutionTime : 0.0;
    }

    SetValueReturnCode_e VtxUtilSolutionTimeSetCurrent(double solutionTime)
    {
        Frame* frame = Enter(Call::SolutionTimeSetCurrent).page().activeFrame();
        if (!frame)
            return SetValueReturnCode_ContextError;
        if (!std::isfinite(solutionTime))
            return SetValueReturnCode_InvalidValue;
        frame->solutionTime = solutionTime;
        return SetValueReturnCode_Ok;
    }

} // extern "C"
