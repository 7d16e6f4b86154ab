// The host's own API for data sets and the page: what the program's macros and the tests load into the
// active frame, where frames sit on the page, and what the host knows about the zones.
#pragma once

#include <VtxUtil.h>

#include <array>
#include <cstddef>
#include <string>
#include <variant>
#include <vector>

namespace vantix::host
{

// ---- Loading data --------------------------------------------------------------------------------------
// Each loader puts the data set into the active frame (a 3D frame is made when the page has none), sets
// the frame's solution time to the earliest zone time, makes the data set's centre the rotation origin and
// fits the view: the angles stay, the viewer is centred on the data and the width shows all of it.

// The built-in demo: an aircraft in ground effect whose surface pressure changes over 24 time steps
// (solution times 0 to 23, one surface zone each, in time strand 1), a static ground plane and static
// streamtraces around the aircraft.
void loadDemoDataSet();
// Loads a surface mesh file (STL, OBJ, PLY, and the other formats the mesh importer reads) into the active
// frame as one static zone: every mesh merged and triangulated, coloured by height (the node's z).
// Triangles with a corner too far out to draw (not finite, or beyond 1e15) are left out, said so in a note
// on standard error, and the view fits the rest. Throws std::runtime_error with a message that names the
// file and the reason when it cannot be read or nothing drawable is left.
void loadDataFile(const std::string& path);
// Fits the active frame's view to its data set as loading does, at the view's present angles. Throws
// std::logic_error when the active frame has no data set.
void fitView();

using Point3 = std::array<double, 3>;

struct SurfaceZoneData
{
    std::string name;
    double solutionTime = 0.0;
    int strandId = 0; // 0: static
    std::vector<Point3> nodes;
    std::vector<std::array<int, 3>> triangles; // node indices from 0, counter-clockwise seen from outside
    std::vector<double> scalar;                // one value per node, or none for a surface in plain grey
};

struct StreamtraceData
{
    std::vector<Point3> points;
    std::vector<double> times; // one per point, not decreasing
};

struct StreamtraceZoneData
{
    std::string name;
    double solutionTime = 0.0;
    int strandId = 0;
    std::vector<StreamtraceData> lines;
};

using ZoneData = std::variant<SurfaceZoneData, StreamtraceZoneData>;

// Loads a data set made by the caller. Throws std::invalid_argument when it has no zone or a zone does not
// fit together (an index past the nodes, a scalar of the wrong length, times that do not match the points).
void loadDataSet(const std::string& name, const std::vector<ZoneData>& zones);

// ---- Zones of the active frame's data set --------------------------------------------------------------
bool hasDataSet();

struct ZoneInfo
{
    int number = 0; // from 1
    std::string name;
    bool isSurface = true; // false: streamtraces
    double solutionTime = 0.0;
    int strandId = 0;
    bool enabled = true;
    bool hasScalar = false;
    std::size_t nodeCount = 0;    // surface nodes, or streamtrace points
    std::size_t elementCount = 0; // triangles, or streamtraces
};
// Empty when the active frame has no data set.
std::vector<ZoneInfo> zones();
// Throws std::out_of_range for a zone the data set does not have.
void setZoneEnabled(int zone, bool enabled);
// The zones drawn at the active frame's current solution time, in zone order.
std::vector<int> shownZones();
// The range of the scalar over every zone and time step: the ends of the colour map.
std::array<double, 2> scalarRange();
// Zone sets (VtxUtilZoneGetEnabled) handed out and not yet released with VtxUtilSetDealloc.
long outstandingSets();

// ---- The page ------------------------------------------------------------------------------------------
// A frame's place on the page: position from the page's top left corner and size, in paper inches.
struct FramePlacement
{
    double x = 0.0;
    double y = 0.0;
    double width = 0.0;
    double height = 0.0;
};
// Throws std::invalid_argument for an unknown frame or a size that is not positive.
void setFramePlacement(UniqueID_t frame, const FramePlacement& placement);
FramePlacement framePlacement(UniqueID_t frame);
// The paper in inches (11 x 8.5 after reset); throws std::invalid_argument for a size that is not positive.
void setPaperSize(double width, double height);
std::array<double, 2> paperSize();
// Screen pixels per paper inch (100 after reset); throws std::invalid_argument when not positive.
void setPixelsPerInch(double pixelsPerInch);
double pixelsPerInch();

} // namespace vantix::host
