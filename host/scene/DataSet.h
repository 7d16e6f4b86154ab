// A frame's data set: its zones, numbered from 1, with their solution times, time strands, enabled flags
// and geometry.
#pragma once

#include "scene/Geometry.h"

#include <vantix/host/Host.h>

#include <memory>
#include <string>
#include <vector>

namespace vantix::host::detail
{

enum class ZoneKind
{
    Surface,
    Streamtraces
};

struct Zone
{
    std::string name;
    ZoneKind kind = ZoneKind::Surface;
    double solutionTime = 0.0;
    int strandId = 0; // 0 (or less): static, shown at every solution time
    bool enabled = true;

    std::shared_ptr<SurfaceMesh> surface;             // a Surface zone's mesh (its arrays go to the renderer)
    std::shared_ptr<const std::vector<float>> scalar; // one value per node; null: drawn in one colour
    std::shared_ptr<const StreamtraceGeometry> streamtraces; // a Streamtraces zone's lines

    bool isStatic() const { return strandId <= 0; }
};

struct DataSet
{
    // Takes the zones and works out what every frame showing the data set needs: the box around all
    // zones and the range of the scalar over all of them. Throws std::invalid_argument for a zone whose
    // geometry does not fit together (an index past the nodes, a scalar of the wrong length, times that do
    // not match the points).
    DataSet(std::string name, std::vector<Zone> zones);

    std::string name;
    std::vector<Zone> zones; // zone n at index n - 1

    // Over every zone, enabled or not and at every solution time, so that the view fitted on loading and
    // the colours stay the same while the time runs and zones come and go.
    Bounds bounds;
    bool hasScalar = false;
    float scalarMin = 0.0f;
    float scalarMax = 1.0f;

    // The journal: add-on commands kept with the data, oldest first. A new data set's journal is valid and
    // empty; once the host gives up on it, it keeps what it has and takes nothing more.
    std::vector<JournalCommand> journal;
    bool journalValid = true;

    int zoneCount() const { return static_cast<int>(zones.size()); }
    bool isZone(int zone) const { return zone >= 1 && zone <= zoneCount(); }
    Zone& zone(int zone) { return zones[static_cast<std::size_t>(zone - 1)]; }
    const Zone& zone(int zone) const { return zones[static_cast<std::size_t>(zone - 1)]; }

    // The zones drawn at a solution time, in zone order. Static zones always; of each time strand the zone
    // whose time is the latest not after the solution time (before the strand's first time, its first
    // zone); of two zones of a strand with the same time, the lower-numbered one. The choice is made over
    // the strand's zones whether enabled or not, and a disabled zone is then not drawn: disabling the
    // current time step hides the strand, it does not bring back an older step.
    std::vector<int> shownZones(double solutionTime) const;
    // The earliest solution time of any zone.
    double earliestSolutionTime() const;
};

} // namespace vantix::host::detail
