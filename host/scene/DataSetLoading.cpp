#include "scene/DataSetLoading.h"

#include "events/StateChanges.h"

#include <algorithm>
#include <cmath>

namespace vantix::host::detail
{

namespace
{

constexpr double DegreesToRadians = 3.14159265358979323846 / 180.0;
// Room around the data, as a fraction of the fitted width.
constexpr double FitMargin = 1.08;

} // namespace

Frame& FrameToLoadInto(Page& page)
{
    if (Frame* frame = page.activeFrame())
        return *frame;
    return page.addFrame(PlotType_Cartesian3D);
}

void AttachDataSet(Frame& frame, std::shared_ptr<DataSet> dataSet)
{
    const bool replacing = frame.dataSet != nullptr;
    frame.solutionTime = dataSet->earliestSolutionTime();
    frame.dataSet = std::move(dataSet);
    FitFrameView(frame);
    if (replacing)
        RaiseStateChange(StateChange_DataSetReset);
    RaiseStateChange(StateChange_ZonesAdded);
    RaiseStateChange(StateChange_DataSetLoaded);
}

void FitFrameView(Frame& frame)
{
    if (frame.dataSet)
        FitView(frame.view, frame.dataSet->bounds, frame.height > 0.0 ? frame.width / frame.height : 1.0);
}

void FitView(View3D& view, const Bounds& bounds, double aspect)
{
    if (bounds.empty())
        return;
    const Point3 centre = bounds.centre();
    const Matrix3 m = view.matrix();
    double halfWidth = 0.0, halfHeight = 0.0;
    for (const Point3& corner : bounds.corners())
    {
        const double d[3] = {corner[0] - centre[0], corner[1] - centre[1], corner[2] - centre[2]};
        halfWidth = std::max(halfWidth, std::abs(m[0] * d[0] + m[1] * d[1] + m[2] * d[2]));
        halfHeight = std::max(halfHeight, std::abs(m[3] * d[0] + m[4] * d[1] + m[5] * d[2]));
    }
    double width = 2.0 * std::max(halfWidth, halfHeight * aspect) * FitMargin;
    if (!(width > 0.0))
        width = 1.0; // a single point: any width shows it
    // The renderer works in floats and divides by the width: a smaller data set is shown as a point.
    constexpr double SmallestWidth = 1e-15;
    width = std::max(width, SmallestWidth);
    const double distance = std::max(width / (2.0 * std::tan(view.fieldOfView() / 2.0 * DegreesToRadians)),
                                     1.2 * bounds.radius());
    const bool perspective = view.perspective();
    view.setPerspective(false); // the width as computed, without the perspective dolly
    view.setWidth(width);
    view.setPerspective(perspective);
    view.setRotationOrigin(centre);
    const Vector3 back = view.towardsViewer();
    view.setPosition(
        {centre[0] + distance * back[0], centre[1] + distance * back[1], centre[2] + distance * back[2]});
}

} // namespace vantix::host::detail
