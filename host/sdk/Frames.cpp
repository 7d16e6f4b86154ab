// The frames of the page and their 3D views.
#include "core/Application.h"
#include "gui/UserInterface.h"

#include <cmath>

using vantix::host::detail::Application;
using vantix::host::detail::Call;
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
        Application& app = Application::instance();
        app.note(Call::FrameGetCount);
        return static_cast<int>(app.m_frames.size());
    }

    PlotType_e VtxUtilFrameGetPlotType(void)
    {
        Application& app = Application::instance();
        app.note(Call::FrameGetPlotType);
        return app.activeFrame() ? app.activeFrame()->plotType : PlotType_Invalid;
    }

    UniqueID_t VtxUtilFrameGetUniqueID(void)
    {
        Application& app = Application::instance();
        app.note(Call::FrameGetUniqueID);
        return app.activeFrame() ? app.activeFrame()->id : 0;
    }

    Boolean VtxUtilFrameActivateTop(void)
    {
        Application& app = Application::instance();
        app.note(Call::FrameActivateTop);
        return app.activateTop() ? TRUE : FALSE;
    }

    Boolean VtxUtilFramePushTop(void)
    {
        Application& app = Application::instance();
        app.note(Call::FramePushTop);
        return app.pushTop() ? TRUE : FALSE;
    }

    Boolean VtxUtilFrameActivateByUniqueID(UniqueID_t uniqueID)
    {
        Application& app = Application::instance();
        app.note(Call::FrameActivateByUniqueID);
        return app.activate(uniqueID) ? TRUE : FALSE;
    }

    Boolean VtxUtilThreeDViewGetViewerPos(double* x, double* y, double* z)
    {
        Application& app = Application::instance();
        app.note(Call::ThreeDViewGetViewerPos);
        const Frame* frame = app.active3DFrame();
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
        Application& app = Application::instance();
        app.note(Call::ThreeDViewGetViewerAngle);
        const Frame* frame = app.active3DFrame();
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
        Application& app = Application::instance();
        app.note(Call::ThreeDViewGetProjection);
        const Frame* frame = app.active3DFrame();
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
        Application& app = Application::instance();
        app.note(Call::ViewRotate3D);
        Frame* frame = app.active3DFrame();
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
        vantix::host::detail::RaiseStateChange(app, StateChange_View3D);
        return TRUE;
    }

    double VtxUtilSolutionTimeGetCurrent(void)
    {
        Application& app = Application::instance();
        app.note(Call::SolutionTimeGetCurrent);
        return app.activeFrame() ? app.activeFrame()->solutionTime : 0.0;
    }

    SetValueReturnCode_e VtxUtilSolutionTimeSetCurrent(double solutionTime)
    {
        Application& app = Application::instance();
        app.note(Call::SolutionTimeSetCurrent);
        if (!app.activeFrame())
            return SetValueReturnCode_ContextError;
        if (!std::isfinite(solutionTime))
            return SetValueReturnCode_InvalidValue;
        app.activeFrame()->solutionTime = solutionTime;
        return SetValueReturnCode_Ok;
    }

} // extern "C"
