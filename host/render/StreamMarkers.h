// Where the streamtrace markers sit: on every line, at the times anchor + k * delta (k any whole number)
// that the line reaches, so that moving the anchor moves every marker along its line.
#pragma once

#include "scene/Geometry.h"

#include <vector>

namespace vantix::host::detail
{

// Marker positions, x, y, z each. No markers for a delta that is not positive. A line carries at most
// MaxMarkersPerLine markers (a tiny delta would otherwise ask for millions).
constexpr int MaxMarkersPerLine = 1000;
std::vector<float> MarkerPositions(const StreamtraceGeometry& lines, double anchor, double delta);

} // namespace vantix::host::detail
