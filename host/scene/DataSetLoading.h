// Putting a data set into a frame, and fitting the frame's view to it.
#pragma once

#include "core/Page.h"
#include "scene/DataSet.h"

#include <memory>

namespace vantix::host::detail
{

// The frame a loader fills: the active one, or a new 3D frame when the page has none.
Frame& FrameToLoadInto(Page& page);

// Gives the frame the data set, sets its solution time to the earliest zone time and fits its view.
void AttachDataSet(Frame& frame, std::shared_ptr<DataSet> dataSet);

// Keeps the view's angles, projection and field of view; makes the centre of the box the rotation origin;
// sets the width so that the box fills the picture of the given aspect (width over height) with a small
// margin; and puts the viewer on the view axis through the centre, far enough back that in perspective
// the width is seen at the origin's depth and the viewer stays outside the box.
void FitView(View3D& view, const Bounds& bounds, double aspect);
// FitView of the frame's view to its data set at the frame's aspect; nothing without a data set.
void FitFrameView(Frame& frame);

} // namespace vantix::host::detail
