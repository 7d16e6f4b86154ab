// The host's own API over data sets and the page.
#include "core/Application.h"
#include "events/StateChanges.h"
#include "scene/DataSetLoading.h"
#include "scene/DemoDataSet.h"
#include "scene/MeshFile.h"
#include "scene/ZoneSet.h"

#include <vantix/host/Host.h>
#include <vantix/host/Scene.h>

#include <cstdio>
#include <stdexcept>

namespace vantix::host
{

namespace
{

detail::Application& App()
{
    return detail::Application::instance();
}

detail::Frame& FrameById(UniqueID_t id)
{
    if (detail::Frame* frame = App().page().frame(id))
        return *frame;
    throw std::invalid_argument("the page has no frame " + std::to_string(id));
}

detail::Frame& ActiveFrameWithData()
{
    detail::Frame& frame = App().page().requireActiveFrame();
    if (!frame.dataSet)
        throw std::logic_error("the active frame has no data set");
    return frame;
}

detail::DataSet& ActiveDataSet()
{
    return *ActiveFrameWithData().dataSet;
}

std::vector<float> ToFloats(const std::vector<Point3>& points)
{
    std::vector<float> floats;
    floats.reserve(3 * points.size());
    for (const Point3& p : points)
        floats.insert(floats.end(),
                      {static_cast<float>(p[0]), static_cast<float>(p[1]), static_cast<float>(p[2])});
    return floats;
}

detail::Zone ToZone(const SurfaceZoneData& data)
{
    detail::SurfaceGeometry mesh;
    mesh.positions = ToFloats(data.nodes);
    for (const auto& triangle : data.triangles)
        for (const int index : triangle)
        {
            if (index < 0 || static_cast<std::size_t>(index) >= data.nodes.size())
                throw std::invalid_argument("surface zone '" + data.name +
                                            "' refers to a node it does not have");
            mesh.triangles.push_back(static_cast<std::uint32_t>(index));
        }
    mesh.computeNormals();
    detail::Zone zone;
    zone.name = data.name;
    zone.solutionTime = data.solutionTime;
    zone.strandId = data.strandId;
    zone.surface = std::make_shared<detail::SurfaceMesh>(std::move(mesh));
    if (!data.scalar.empty())
        zone.scalar = std::make_shared<const std::vector<float>>(data.scalar.begin(), data.scalar.end());
    return zone;
}

detail::Zone ToZone(const StreamtraceZoneData& data)
{
    auto traces = std::make_shared<detail::StreamtraceGeometry>();
    for (const StreamtraceData& line : data.lines)
        traces->lines.push_back({ToFloats(line.points), line.times});
    detail::Zone zone;
    zone.name = data.name;
    zone.kind = detail::ZoneKind::Streamtraces;
    zone.solutionTime = data.solutionTime;
    zone.strandId = data.strandId;
    zone.streamtraces = std::move(traces);
    return zone;
}

void Load(std::shared_ptr<detail::DataSet> dataSet)
{
    detail::AttachDataSet(detail::FrameToLoadInto(App().page()), std::move(dataSet));
}

} // namespace

void loadDemoDataSet()
{
    Load(detail::MakeDemoDataSet());
}

void loadDataFile(const std::string& path)
{
    detail::LoadedMesh mesh = detail::ReadMeshFile(path);
    Load(std::move(mesh.dataSet));
    if (!mesh.note.empty())
        std::fprintf(stderr, "vantix: note: %s\n", mesh.note.c_str());
}

void fitView()
{
    detail::FitFrameView(ActiveFrameWithData());
    detail::RaiseStateChange(StateChange_View3D);
}

void loadDataSet(const std::string& name, const std::vector<ZoneData>& zones)
{
    std::vector<detail::Zone> converted;
    for (const ZoneData& zone : zones)
        converted.push_back(std::visit([](const auto& data) { return ToZone(data); }, zone));
    Load(std::make_shared<detail::DataSet>(name, std::move(converted)));
}

bool hasDataSet()
{
    const detail::Frame* frame = App().page().activeFrame();
    return frame && frame->dataSet;
}

std::vector<ZoneInfo> zones()
{
    std::vector<ZoneInfo> infos;
    if (!hasDataSet())
        return infos;
    const detail::DataSet& dataSet = ActiveDataSet();
    for (int number = 1; number <= dataSet.zoneCount(); ++number)
    {
        const detail::Zone& zone = dataSet.zone(number);
        ZoneInfo info;
        info.number = number;
        info.name = zone.name;
        info.isSurface = zone.kind == detail::ZoneKind::Surface;
        info.solutionTime = zone.solutionTime;
        info.strandId = zone.strandId;
        info.enabled = zone.enabled;
        info.hasScalar = zone.scalar != nullptr;
        if (info.isSurface)
        {
            info.nodeCount = zone.surface->nodeCount();
            info.elementCount = zone.surface->triangleCount();
        }
        else
        {
            info.nodeCount = zone.streamtraces->pointCount();
            info.elementCount = zone.streamtraces->lines.size();
        }
        infos.push_back(std::move(info));
    }
    return infos;
}

void setZoneEnabled(int zone, bool enabled)
{
    detail::DataSet& dataSet = ActiveDataSet();
    if (!dataSet.isZone(zone))
        throw std::out_of_range("the data set has no zone " + std::to_string(zone));
    if (dataSet.zone(zone).enabled == enabled)
        return;
    dataSet.zone(zone).enabled = enabled;
    detail::RaiseStateChange(StateChange_ZoneActivation);
}

std::vector<int> shownZones()
{
    const detail::Frame& frame = App().page().requireActiveFrame();
    return frame.dataSet ? frame.dataSet->shownZones(frame.solutionTime) : std::vector<int>{};
}

std::array<double, 2> scalarRange()
{
    const detail::DataSet& dataSet = ActiveDataSet();
    return {dataSet.scalarMin, dataSet.scalarMax};
}

long outstandingSets()
{
    return detail::ZoneSetsOf(App()).outstanding();
}

void setFramePlacement(UniqueID_t id, const FramePlacement& placement)
{
    detail::Frame& frame = FrameById(id);
    if (!(placement.width > 0.0 && placement.height > 0.0))
        throw std::invalid_argument("a frame's width and height must be positive");
    frame.x = placement.x;
    frame.y = placement.y;
    frame.width = placement.width;
    frame.height = placement.height;
}

FramePlacement framePlacement(UniqueID_t id)
{
    const detail::Frame& frame = FrameById(id);
    return {frame.x, frame.y, frame.width, frame.height};
}

void setPaperSize(double width, double height)
{
    if (!(width > 0.0 && height > 0.0))
        throw std::invalid_argument("the paper's width and height must be positive");
    App().page().setPaperSize(width, height);
}

std::array<double, 2> paperSize()
{
    return {App().page().paperWidth(), App().page().paperHeight()};
}

void setPixelsPerInch(double pixelsPerInch)
{
    if (!(pixelsPerInch > 0.0))
        throw std::invalid_argument("the pixels per inch must be positive");
    App().page().setPixelsPerInch(pixelsPerInch);
}

double pixelsPerInch()
{
    return App().page().pixelsPerInch();
}

std::vector<JournalCommand> journalCommands()
{
    const detail::Frame* frame = App().page().activeFrame();
    return frame && frame->dataSet ? frame->dataSet->journal : std::vector<JournalCommand>{};
}

bool journalIsValid()
{
    const detail::Frame* frame = App().page().activeFrame();
    return frame && frame->dataSet && frame->dataSet->journalValid;
}

void setJournalValid(bool valid)
{
    detail::Frame& frame = App().page().requireActiveFrame();
    if (!frame.dataSet)
        throw std::logic_error("the active frame has no data set");
    frame.dataSet->journalValid = valid;
}

} // namespace vantix::host
