#include "animation/AnimatorKeyFrame.h"

#include "animation/Status.h"
#include "core/KeyFrame.h"
#include "core/KeyFrameError.h"
#include "core/ThreeDViewStyle.h"
#include "platform/HostGuards.h"

#include <VtxUtil.h>

#include <utility>

namespace vantix::vtxutiltools
{

namespace
{

// Turns the host's view about Alpha, then Psi, then Theta; the viewer orbits the frame's rotation origin.
void RotateView(double alpha, double psi, double theta)
{
    VtxUtilViewRotate3D(RotateAxis_Alpha, RotateOriginLocation_DefinedOrigin, alpha, 0.0, 0.0, 0.0);
    VtxUtilViewRotate3D(RotateAxis_Psi, RotateOriginLocation_DefinedOrigin, psi, 0.0, 0.0, 0.0);
    VtxUtilViewRotate3D(RotateAxis_Theta, RotateOriginLocation_DefinedOrigin, theta, 0.0, 0.0, 0.0);
}

// The change from the host's current view to target, after the host has turned by the whole angle
// difference: the translation and width still missing once the turn has moved the viewer, and the turn.
View RemainingChange(const View& current, const View& target)
{
    double psi = target.psi() - current.psi();
    double theta = target.theta() - current.theta();
    double alpha = target.alpha() - current.alpha();
    ClampAngleTo180(psi);
    ClampAngleTo180(theta);
    ClampAngleTo180(alpha);

    View turned;
    {
        HostLock lock;
        RotateView(alpha, psi, theta);
        turned = GetCurrentView();
    }
    return View(target.x() - turned.x(), target.y() - turned.y(), target.z() - turned.z(), psi, theta, alpha,
                target.width() - turned.width());
}

// Moves the host's view by step: the turn with the host's rotation, then the translation and width on top
// of where the turn has put the viewer. Angles are not written: they are those the turn produced.
void StepView(const View& step, ThreeDViewStyle& style)
{
    HostLock outerLock;
    HostLock innerLock;
    DrawingSuspension suspension;
    RotateView(step.alpha(), step.psi(), step.theta());
    const View turned = GetCurrentView();
    style.setViewerPosition(turned.x() + step.x(), turned.y() + step.y(), turned.z() + step.z());
    style.setWidthKeepingProjection(turned.width() + step.width());
}

} // namespace

AnimatorKeyFrame::AnimatorKeyFrame(const std::vector<KeyFrame_s>& keyFrames, InnerAnimator innerAnimator)
    : AnimatorAbstract(keyFrames, std::move(innerAnimator))
{
    std::vector<View> views;
    ExtractViews(keyFrames, views);
    std::vector<std::size_t> frameCounts;
    ExtractFrameCounts(keyFrames, frameCounts);
    buildViewList(views, frameCounts);
}

void AnimatorKeyFrame::drawFrameAtIndex(std::size_t frame)
{
    m_views.at(frame).apply();
}

void AnimatorKeyFrame::buildViewList(const std::vector<View>& views,
                                     const std::vector<std::size_t>& frameCounts)
{
    if (views.size() < 2)
        throw KeyFrameError("At least two keyFrame views must be established to perform an animation.");

    m_views.reserve(numTotalFrames());

    // One step per computed view; the key views take none, so the line ends short of 100 percent.
    Status status("Creating interpolated views....", Status::AllowCancel, numTotalFrames());
    ThreeDViewStyle style; // looked up once for every view computed

    for (std::size_t i = 0; i + 1 < views.size(); ++i)
    {
        const View& start = views[i];
        const View& target = views[i + 1];
        const std::size_t frameCount = frameCounts.at(i);
        if (frameCount == 0)
            continue;

        // The computed views go straight into the list after the key view: should anything throw, the
        // whole list is dropped anyway, so no separate buffer for the segment is needed.
        m_views.push_back(start);
        View current = start;
        for (std::size_t remaining = frameCount; remaining != 1; --remaining)
        {
            current.apply(style);
            // Each step takes its share of what is still missing from the view actually reached, so that
            // the host's rounding does not pile up and the segment ends on the target.
            const View step = RemainingChange(current, target) / static_cast<double>(remaining);
            current.apply(style);
            StepView(step, style);
            current = GetCurrentView();
            m_views.push_back(current);

            ++status;
            if (status.isCanceled())
                throw KeyFrameError("Animation canceled.");
        }
    }
    m_views.push_back(views.back());
}

} // namespace vantix::vtxutiltools
