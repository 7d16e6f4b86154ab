#include "scene/DataSet.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace vantix::host::detail
{

namespace
{

void CheckSurfaceArrays(const std::string& zoneName, const SurfaceGeometry& mesh)
{
    const std::size_t nodes = mesh.nodeCount();
    if (mesh.positions.size() % 3 != 0 || mesh.normals.size() != mesh.positions.size())
        throw std::invalid_argument("surface zone '" + zoneName + "' has incomplete node coordinates");
    if (mesh.triangles.size() % 3 != 0 || mesh.meshLines.size() % 2 != 0)
        throw std::invalid_argument("surface zone '" + zoneName + "' has an incomplete triangle or line");
    const auto outside = [nodes](std::uint32_t index) { return index >= nodes; };
    if (std::any_of(mesh.triangles.begin(), mesh.triangles.end(), outside) ||
        std::any_of(mesh.meshLines.begin(), mesh.meshLines.end(), outside))
        throw std::invalid_argument("surface zone '" + zoneName + "' refers to a node it does not have");
}

void CheckSurface(const Zone& zone)
{
    if (!zone.surface)
        throw std::invalid_argument("surface zone '" + zone.name + "' has no mesh");
    // A mesh the renderer has taken was checked when the data set that first held it was made.
    if (const SurfaceGeometry* arrays = zone.surface->arrays())
        CheckSurfaceArrays(zone.name, *arrays);
    const std::size_t nodes = zone.surface->nodeCount();
    if (zone.scalar && zone.scalar->size() != nodes)
        throw std::invalid_argument("surface zone '" + zone.name + "' has " +
                                    std::to_string(zone.scalar->size()) + " scalar values for " +
                                    std::to_string(nodes) + " nodes");
}

void CheckStreamtraces(const Zone& zone)
{
    if (!zone.streamtraces)
        throw std::invalid_argument("streamtrace zone '" + zone.name + "' has no lines");
    for (const Streamtrace& line : zone.streamtraces->lines)
    {
        if (line.positions.size() != 3 * line.times.size())
            throw std::invalid_argument("streamtrace zone '" + zone.name +
                                        "' has a line whose times do not match its points");
        if (!std::is_sorted(line.times.begin(), line.times.end()))
            throw std::invalid_argument("streamtrace zone '" + zone.name +
                                        "' has a line whose times go backwards");
    }
}

} // namespace

DataSet::DataSet(std::string dataSetName, std::vector<Zone> dataSetZones)
    : name(std::move(dataSetName)), zones(std::move(dataSetZones))
{
    if (zones.empty())
        throw std::invalid_argument("a data set needs at least one zone");
    bool first = true;
    for (const Zone& zone : zones)
    {
        if (zone.kind == ZoneKind::Surface)
        {
            CheckSurface(zone);
            bounds.include(zone.surface->bounds());
            if (!zone.scalar || zone.scalar->empty())
                continue;
            const auto [low, high] = std::minmax_element(zone.scalar->begin(), zone.scalar->end());
            scalarMin = first ? *low : std::min(scalarMin, *low);
            scalarMax = first ? *high : std::max(scalarMax, *high);
            first = false;
            hasScalar = true;
        }
        else
        {
            CheckStreamtraces(zone);
            bounds.include(zone.streamtraces->bounds());
        }
    }
    if (hasScalar && scalarMax <= scalarMin)
        scalarMax = scalarMin + 1.0f; // a constant scalar takes the colour at the bottom of the map
}

std::vector<int> DataSet::shownZones(double solutionTime) const
{
    // Per strand, the zone chosen so far: the latest not after the time, else the earliest.
    std::map<int, int> chosen;
    for (int number = 1; number <= zoneCount(); ++number)
    {
        const Zone& candidate = zone(number);
        if (candidate.isStatic())
            continue;
        auto [entry, inserted] = chosen.emplace(candidate.strandId, number);
        if (inserted)
            continue;
        const double best = zone(entry->second).solutionTime;
        const double time = candidate.solutionTime;
        const bool bestIsAfter = best > solutionTime;
        const bool better =
            time <= solutionTime ? (bestIsAfter || time > best) : (bestIsAfter && time < best);
        if (better)
            entry->second = number;
    }
    std::vector<int> shown;
    for (int number = 1; number <= zoneCount(); ++number)
    {
        const Zone& candidate = zone(number);
        if (!candidate.enabled)
            continue;
        if (candidate.isStatic() || chosen.at(candidate.strandId) == number)
            shown.push_back(number);
    }
    return shown;
}

double DataSet::earliestSolutionTime() const
{
    double earliest = zones.front().solutionTime;
    for (const Zone& zone : zones)
        earliest = std::min(earliest, zone.solutionTime);
    return earliest;
}

} // namespace vantix::host::detail
