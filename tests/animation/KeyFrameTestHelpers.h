// Building key frame lists and reading the host's view back as a View, for the animation engine's tests.
#pragma once

#include "core/KeyFrame.h"
#include "core/View.h"

#include <vantix/host/Host.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace testhelpers
{

using vantix::vtxutiltools::KeyFrame_s;
using vantix::vtxutiltools::View;

// One key frame per (view, frame count), named after its place in the list.
inline std::vector<KeyFrame_s> MakeKeyFrames(std::initializer_list<std::pair<View, std::uint64_t>> entries)
{
    std::vector<KeyFrame_s> keyFrames;
    for (const auto& entry : entries)
        keyFrames.emplace_back(entry.first, "Key " + std::to_string(keyFrames.size() + 1), entry.second, 0.0);
    return keyFrames;
}

// Key views that differ only in X: 0, 100, 150, ... With no turn between them the views of a segment step
// evenly in X, so that with counts 10, 5, ... the view of frame f has X = 10 f, and a drawn view tells its
// frame.
inline View ViewAtX(double x)
{
    return View(x, 0.0, 50.0, 0.0, 0.0, 0.0, 20.0);
}

// The host's view as it keeps it (degrees, no conversion through radians).
inline View HostView()
{
    const vantix::host::ViewState state = vantix::host::view();
    return View(state.x, state.y, state.z, state.psi, state.theta, state.alpha, state.width);
}

// Sets the host's view to view, keeping the rotation origin and field of view, with perspective as given.
inline void SetHostView(const View& view, bool perspective = false)
{
    const vantix::host::ViewState state = vantix::host::view();
    vantix::host::setView({view.x(), view.y(), view.z(), view.psi(), view.theta(), view.alpha(), view.width(),
                           perspective, state.fieldOfView, state.originX, state.originY, state.originZ});
}

} // namespace testhelpers
