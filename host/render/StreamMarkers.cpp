#include "render/StreamMarkers.h"

#include <algorithm>
#include <cmath>

namespace vantix::host::detail
{

std::vector<float> MarkerPositions(const StreamtraceGeometry& lines, double anchor, double delta)
{
    std::vector<float> markers;
    if (!(delta > 0.0) || !std::isfinite(anchor))
        return markers;
    for (const Streamtrace& line : lines.lines)
    {
        if (line.pointCount() == 0)
            continue;
        // The first marker time not before the line's start.
        double k = std::ceil((line.times.front() - anchor) / delta);
        int placed = 0;
        std::size_t segment = 0;
        for (double time = anchor + k * delta; time <= line.times.back() && placed < MaxMarkersPerLine;
             time = anchor + (++k) * delta, ++placed)
        {
            while (segment + 1 < line.pointCount() && line.times[segment + 1] < time)
                ++segment;
            const std::size_t next = std::min(segment + 1, line.pointCount() - 1);
            const double t0 = line.times[segment], t1 = line.times[next];
            const double f = t1 > t0 ? (time - t0) / (t1 - t0) : 0.0;
            for (int i = 0; i < 3; ++i)
            {
                const double a = line.positions[3 * segment + i], b = line.positions[3 * next + i];
                markers.push_back(static_cast<float>(a + f * (b - a)));
            }
        }
    }
    return markers;
}

} // namespace vantix::host::detail
