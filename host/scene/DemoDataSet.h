// The built-in demo data set, so that the program has something to show on a fresh machine.
#pragma once

#include "scene/DataSet.h"

#include <memory>

namespace vantix::host::detail
{

// The number of time steps of the demo's transient surface (solution times 0, 1, ..., count - 1).
constexpr int DemoTimeStepCount = 24;

// A small aircraft flying low over the ground. Zones 1 to DemoTimeStepCount are its surface at the time
// steps (time strand 1, one mesh shared by all, the pressure coefficient changing as a gust runs out along
// the span and back); then the ground plane (static, plain, with grid lines) and the streamtraces (static,
// time along each line) of the flow around it, tip vortices included.
std::shared_ptr<DataSet> MakeDemoDataSet();

} // namespace vantix::host::detail
