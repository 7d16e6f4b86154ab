#include "scene/DemoDataSet.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace vantix::host::detail
{

namespace
{

constexpr double Pi = 3.14159265358979323846;
constexpr double DegreesToRadians = Pi / 180.0;

// x downstream, y along the span (to the right seen from behind), z up; the ground is the plane z = 0.
// Lengths are in metres of a model some five metres long.
struct Planform
{
    double rootChord, tipChord, semiSpan, sweepDegrees, dihedralDegrees;
    double rootLeadingEdgeX, rootHeight, incidenceDegrees, washoutDegrees, thickness;
};

constexpr Planform Wing{1.2, 0.54, 2.6, 18.0, 5.0, 1.45, 0.66, 3.0, -2.0, 0.12};
constexpr Planform Tailplane{0.55, 0.3, 0.95, 25.0, 0.0, 3.95, 0.92, -1.0, 0.0, 0.10};
constexpr double FuselageLength = 4.6;
constexpr double FuselageRadius = 0.27;
constexpr double FuselageAxisHeight = 0.72;

constexpr double FreeStream = 1.0;  // flow speed, model units per unit of time
constexpr double Circulation = 0.5; // of the wing's horseshoe vortex
constexpr double GroundGridStep = 0.5;

// Where a node sits on the aircraft, for the pressure of every time step.
enum class Part
{
    Wing,
    Tailplane,
    Fin,
    Fuselage
};

struct NodeTag
{
    Part part = Part::Fuselage;
    double chord = 0.0; // Wing, Tailplane, Fin: fraction of the local chord from the leading edge; Fuselage:
                        // of the length
    double side =
        0.0; // +1 upper (or right) surface, -1 lower (or left); Fuselage: cosine of the angle from the top
    double span = 0.0; // fraction of the semi-span from the root, -1 to 1; Fin: of its height
};

class MeshBuilder
{
public:
    std::uint32_t node(double x, double y, double z, const NodeTag& tag)
    {
        m_mesh.positions.insert(m_mesh.positions.end(),
                                {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)});
        m_tags.push_back(tag);
        return static_cast<std::uint32_t>(m_tags.size() - 1);
    }
    // Two triangles over the quad a b c d, counter-clockwise seen from outside.
    void quad(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d)
    {
        m_mesh.triangles.insert(m_mesh.triangles.end(), {a, b, c, a, c, d});
    }
    // A grid of rows x columns nodes (row-major from first) joined into quads; flip reverses the winding.
    void grid(std::uint32_t first, int rows, int columns, bool flip)
    {
        for (int r = 0; r + 1 < rows; ++r)
            for (int c = 0; c + 1 < columns; ++c)
            {
                const std::uint32_t a = first + static_cast<std::uint32_t>(r * columns + c);
                const std::uint32_t b = a + 1, d = a + static_cast<std::uint32_t>(columns), e = d + 1;
                if (flip)
                    quad(a, d, e, b);
                else
                    quad(a, b, e, d);
            }
    }
    SurfaceGeometry& mesh() { return m_mesh; }
    const std::vector<NodeTag>& tags() const { return m_tags; }

private:
    SurfaceGeometry m_mesh;
    std::vector<NodeTag> m_tags;
};

// A NACA four-digit section with 2% camber at 40% chord: the point at chord fraction u on the upper (side
// +1) or lower (-1) surface, in chord lengths, (along the chord, across it).
std::array<double, 2> Naca24(double u, double side, double thickness, bool cambered)
{
    const double t = thickness;
    // Closed trailing edge (the last coefficient -0.1036 instead of -0.1015).
    const double half =
        5.0 * t *
        (0.2969 * std::sqrt(u) - 0.1260 * u - 0.3516 * u * u + 0.2843 * u * u * u - 0.1036 * u * u * u * u);
    double camber = 0.0, slope = 0.0;
    if (cambered)
    {
        const double m = 0.02, p = 0.4;
        camber = u < p ? m / (p * p) * (2 * p * u - u * u)
                       : m / ((1 - p) * (1 - p)) * (1 - 2 * p + 2 * p * u - u * u);
        slope = u < p ? 2 * m / (p * p) * (p - u) : 2 * m / ((1 - p) * (1 - p)) * (p - u);
    }
    const double angle = std::atan(slope);
    return {u - side * half * std::sin(angle), camber + side * half * std::cos(angle)};
}

// Chord fractions from the leading edge to the trailing edge, close together at both ends.
std::vector<double> ChordStations(int count)
{
    std::vector<double> stations;
    for (int i = 0; i <= count; ++i)
        stations.push_back((1.0 - std::cos(Pi * i / count)) / 2.0);
    return stations;
}

// One lifting surface from tip to tip: sections from the trailing edge over the upper surface to the
// leading edge and back under it, tip caps closing the ends.
void AddLiftingSurface(MeshBuilder& builder, const Planform& p, Part part, int chordPoints, int spanStations)
{
    const std::vector<double> chord = ChordStations(chordPoints);
    const int ring = 2 * chordPoints + 1; // trailing edge upper ... leading edge ... trailing edge lower
    const auto first = static_cast<std::uint32_t>(builder.tags().size());
    const double sweep = std::tan(p.sweepDegrees * DegreesToRadians);
    const double dihedral = std::tan(p.dihedralDegrees * DegreesToRadians);
    std::vector<std::array<double, 6>> sectionFrames; // leading edge x, y, z, chord, cos, sin of pitch
    for (int j = 0; j <= spanStations; ++j)
    {
        const double eta = -std::cos(Pi * j / spanStations); // close together at the tips
        const double reach = std::abs(eta);
        const double c = p.rootChord + (p.tipChord - p.rootChord) * reach;
        const double pitch = (p.incidenceDegrees + p.washoutDegrees * reach) * DegreesToRadians;
        const double leX = p.rootLeadingEdgeX + reach * p.semiSpan * sweep;
        const double y = eta * p.semiSpan;
        const double z = p.rootHeight + reach * p.semiSpan * dihedral;
        sectionFrames.push_back({leX, y, z, c, std::cos(pitch), std::sin(pitch)});
        for (int k = 0; k < ring; ++k)
        {
            const bool upper = k <= chordPoints;
            const double u = upper ? chord[static_cast<std::size_t>(chordPoints - k)]
                                   : chord[static_cast<std::size_t>(k - chordPoints)];
            const double side = upper ? 1.0 : -1.0;
            const auto [along, across] = Naca24(u, side, p.thickness, part != Part::Fin);
            // Pitch nose up about the quarter chord.
            const double dx = (along - 0.25) * c, dz = across * c;
            const double x = leX + 0.25 * c + dx * sectionFrames.back()[4] + dz * sectionFrames.back()[5];
            const double h = -dx * sectionFrames.back()[5] + dz * sectionFrames.back()[4];
            builder.node(x, y, z + h, NodeTag{part, u, side, eta});
        }
    }
    builder.grid(first, spanStations + 1, ring, true);
    // Tip caps: the upper and lower points of the end sections joined across, with their own nodes so that
    // the cap's flat shading does not bend the normals of the surface.
    for (int end = 0; end < 2; ++end)
    {
        const std::uint32_t section =
            first + static_cast<std::uint32_t>((end == 0 ? 0 : spanStations) * ring);
        const auto capFirst = static_cast<std::uint32_t>(builder.tags().size());
        const auto& pos = builder.mesh().positions;
        for (int k = 0; k < ring; ++k)
        {
            const std::uint32_t n = section + static_cast<std::uint32_t>(k);
            builder.node(pos[3 * n], pos[3 * n + 1], pos[3 * n + 2], builder.tags()[n]);
        }
        for (int i = 0; i < chordPoints; ++i)
        {
            const std::uint32_t upperA = capFirst + static_cast<std::uint32_t>(chordPoints - i);
            const std::uint32_t upperB = upperA - 1;
            const std::uint32_t lowerA = capFirst + static_cast<std::uint32_t>(chordPoints + i);
            const std::uint32_t lowerB = lowerA + 1;
            if (end == 0)
                builder.quad(upperA, lowerA, lowerB, upperB);
            else
                builder.quad(upperA, upperB, lowerB, lowerA);
        }
    }
}

// The fin: a symmetric section standing on the tail cone, swept back.
void AddFin(MeshBuilder& builder, int chordPoints, int heightStations)
{
    const std::vector<double> chord = ChordStations(chordPoints);
    const int ring = 2 * chordPoints + 1;
    const auto first = static_cast<std::uint32_t>(builder.tags().size());
    const double rootX = 3.75, rootZ = FuselageAxisHeight + 0.2, height = 0.85, rootChord = 0.75,
                 tipChord = 0.38;
    const double sweep = std::tan(38.0 * DegreesToRadians);
    for (int j = 0; j <= heightStations; ++j)
    {
        const double f = static_cast<double>(j) / heightStations;
        const double c = rootChord + (tipChord - rootChord) * f;
        const double leX = rootX + f * height * sweep;
        for (int k = 0; k < ring; ++k)
        {
            const bool right = k <= chordPoints;
            const double u = right ? chord[static_cast<std::size_t>(chordPoints - k)]
                                   : chord[static_cast<std::size_t>(k - chordPoints)];
            const double side = right ? -1.0 : 1.0;
            const auto [along, across] = Naca24(u, side, 0.10, false);
            builder.node(leX + along * c, across * c, rootZ + f * height, NodeTag{Part::Fin, u, side, f});
        }
    }
    builder.grid(first, heightStations + 1, ring, true);
    const std::uint32_t top = first + static_cast<std::uint32_t>(heightStations * ring);
    const auto capFirst = static_cast<std::uint32_t>(builder.tags().size());
    const auto& pos = builder.mesh().positions;
    for (int k = 0; k < ring; ++k)
    {
        const std::uint32_t n = top + static_cast<std::uint32_t>(k);
        builder.node(pos[3 * n], pos[3 * n + 1], pos[3 * n + 2], builder.tags()[n]);
    }
    for (int i = 0; i < chordPoints; ++i)
    {
        const std::uint32_t a = capFirst + static_cast<std::uint32_t>(chordPoints - i);
        const std::uint32_t b = capFirst + static_cast<std::uint32_t>(chordPoints + i);
        builder.quad(a, a - 1, b + 1, b);
    }
}

// A body of revolution with a rounded nose and a tail cone that rises towards the fin.
void AddFuselage(MeshBuilder& builder, int around, int along)
{
    const auto first = static_cast<std::uint32_t>(builder.tags().size());
    std::array<double, 3> last{};
    for (int i = 0; i <= along; ++i)
    {
        const double s = (1.0 - std::cos(Pi * i / along)) / 2.0; // close together at nose and tail
        double radius = FuselageRadius, axisZ = FuselageAxisHeight;
        if (s < 0.22)
            radius *= std::sqrt(1.0 - (1.0 - s / 0.22) * (1.0 - s / 0.22));
        else if (s > 0.58)
        {
            const double f = (s - 0.58) / 0.42;
            radius *= 1.0 - 0.78 * std::pow(f, 1.4);
            axisZ += 0.16 * f * f;
        }
        const double x = s * FuselageLength;
        for (int k = 0; k < around; ++k)
        {
            const double angle = 2.0 * Pi * k / around; // 0 at the top, turning towards +y
            builder.node(x, radius * std::sin(angle), axisZ + radius * std::cos(angle),
                         NodeTag{Part::Fuselage, s, std::cos(angle), std::sin(angle)});
        }
        last = {x, 0.0, axisZ};
    }
    // Rows of around + the seam: close the ring by joining the last column to the first.
    for (int i = 0; i < along; ++i)
        for (int k = 0; k < around; ++k)
        {
            const auto a = first + static_cast<std::uint32_t>(i * around + k);
            const auto b = first + static_cast<std::uint32_t>(i * around + (k + 1) % around);
            builder.quad(a, a + static_cast<std::uint32_t>(around), b + static_cast<std::uint32_t>(around),
                         b);
        }
    // The blunt end of the tail cone.
    const std::uint32_t centre =
        builder.node(last[0], last[1], last[2], NodeTag{Part::Fuselage, 1.0, 0.0, 0.0});
    const auto ringFirst = first + static_cast<std::uint32_t>(along * around);
    const auto& pos = builder.mesh().positions;
    const auto capFirst = static_cast<std::uint32_t>(builder.tags().size());
    for (int k = 0; k < around; ++k)
    {
        const std::uint32_t n = ringFirst + static_cast<std::uint32_t>(k);
        builder.node(pos[3 * n], pos[3 * n + 1], pos[3 * n + 2], builder.tags()[n]);
    }
    for (int k = 0; k < around; ++k)
    {
        const auto a = capFirst + static_cast<std::uint32_t>(k);
        const auto b = capFirst + static_cast<std::uint32_t>((k + 1) % around);
        builder.mesh().triangles.insert(builder.mesh().triangles.end(), {a, b, centre});
    }
}

// The angle of attack, in radians, at a fraction of the span and a time: a gust that runs out from the
// root to the tips once every DemoTimeStepCount time units, so that the demo loops without a jump.
double AngleOfAttack(double span, double time)
{
    const double phase = 2.0 * Pi * time / DemoTimeStepCount - 1.3 * std::abs(span);
    return (4.0 + 3.5 * std::sin(phase)) * DegreesToRadians;
}

// The pressure coefficient 1 - (q / U)^2 from a surface speed q modelled after thin aerofoil theory: the
// thickness speeds the flow up, the angle of attack adds a suction peak near the leading edge on the upper
// side and slows the lower side, and the speed falls to zero at the stagnation point.
double LiftingSurfacePressure(double u, double side, double loading, double angle, double thickness)
{
    // The cambered section's lower side sees little of the thickness.
    const double thicknessEffect =
        2.2 * thickness * std::sin(Pi * std::pow(u, 0.6)) * (side > 0.0 ? 1.0 : 0.35);
    double q = 1.0 + thicknessEffect + side * 1.9 * angle * loading * std::sqrt((1.0 - u) / (u + 0.3));
    q *= std::sqrt(u / (u + 0.004));
    return 1.0 - q * q;
}

double Pressure(const NodeTag& tag, double time)
{
    switch (tag.part)
    {
    case Part::Wing:
        return LiftingSurfacePressure(tag.chord, tag.side,
                                      std::sqrt(std::max(0.0, 1.0 - tag.span * tag.span)),
                                      AngleOfAttack(tag.span, time), Wing.thickness);
    case Part::Tailplane:
        return LiftingSurfacePressure(
            tag.chord, tag.side, std::sqrt(std::max(0.0, 1.0 - tag.span * tag.span)),
            AngleOfAttack(0.0, time - 3.0) - 3.0 * DegreesToRadians, Tailplane.thickness);
    case Part::Fin:
        return LiftingSurfacePressure(
            tag.chord, tag.side, std::sqrt(std::max(0.0, 1.0 - tag.span * tag.span)),
            1.5 * DegreesToRadians * std::sin(2.0 * Pi * time / DemoTimeStepCount + 1.0), 0.10);
    case Part::Fuselage:
        break;
    }
    // The body: stagnation at the nose, suction over the shoulder, recovery on the tail cone, and the flow
    // across the body at incidence faster over the top.
    const double s = tag.chord;
    double q = 1.06 * (1.0 - std::exp(-s / 0.02)) + 0.16 * std::exp(-(s - 0.16) * (s - 0.16) / 0.004) -
               0.12 * std::max(0.0, (s - 0.6) / 0.4);
    q += 1.2 * AngleOfAttack(0.0, time) * tag.side * std::min(1.0, s / 0.1);
    return 1.0 - q * q;
}

// ---- The flow: free stream, the wing's horseshoe vortex and its mirror image under the ground

using Vec = std::array<double, 3>;

Vec Minus(const Vec& a, const Vec& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
Vec Cross(const Vec& a, const Vec& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
double Dot(const Vec& a, const Vec& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
double Norm(const Vec& a)
{
    return std::sqrt(Dot(a, a));
}

struct VortexSegment
{
    Vec from, to;
    double circulation;
};

// Biot-Savart for a straight segment, with a viscous core so that the speed stays finite on the line.
Vec InducedVelocity(const VortexSegment& segment, const Vec& point)
{
    constexpr double CoreRadius = 0.1;
    const Vec r0 = Minus(segment.to, segment.from);
    const Vec r1 = Minus(point, segment.from);
    const Vec r2 = Minus(point, segment.to);
    const Vec c = Cross(r1, r2);
    const double r1n = Norm(r1), r2n = Norm(r2);
    if (r1n < 1e-9 || r2n < 1e-9)
        return {0.0, 0.0, 0.0};
    const double denominator = Dot(c, c) + CoreRadius * CoreRadius * Dot(r0, r0);
    const double k = segment.circulation / (4.0 * Pi * denominator) * (Dot(r0, r1) / r1n - Dot(r0, r2) / r2n);
    return {k * c[0], k * c[1], k * c[2]};
}

class FlowField
{
public:
    FlowField()
    {
        const double sweep = std::tan(Wing.sweepDegrees * DegreesToRadians);
        const double dihedral = std::tan(Wing.dihedralDegrees * DegreesToRadians);
        const auto quarterChord = [&](double eta)
        {
            const double reach = std::abs(eta);
            const double c = Wing.rootChord + (Wing.tipChord - Wing.rootChord) * reach;
            return Vec{Wing.rootLeadingEdgeX + reach * Wing.semiSpan * sweep + 0.25 * c, eta * Wing.semiSpan,
                       Wing.rootHeight + reach * Wing.semiSpan * dihedral};
        };
        const Vec left = quarterChord(-1.0), root = quarterChord(0.0), right = quarterChord(1.0);
        const Vec farLeft{100.0, left[1], left[2]}, farRight{100.0, right[1], right[2]};
        // The bound vortex runs along +y, which with the stream along +x gives lift upwards.
        const VortexSegment horseshoe[] = {{farLeft, left, Circulation},
                                           {left, root, Circulation},
                                           {root, right, Circulation},
                                           {right, farRight, Circulation}};
        for (const VortexSegment& s : horseshoe)
        {
            m_segments.push_back(s);
            m_segments.push_back(
                {{s.from[0], s.from[1], -s.from[2]}, {s.to[0], s.to[1], -s.to[2]}, -Circulation});
        }
    }

    Vec velocity(const Vec& point) const
    {
        Vec v{FreeStream, 0.0, 0.0};
        for (const VortexSegment& segment : m_segments)
        {
            const Vec induced = InducedVelocity(segment, point);
            for (int i = 0; i < 3; ++i)
                v[i] += induced[i];
        }
        return v;
    }

private:
    std::vector<VortexSegment> m_segments;
};

Streamtrace Trace(const FlowField& flow, Vec point, double endX)
{
    constexpr double Step = 0.025;
    constexpr int StepsPerPoint = 2;
    constexpr int MaxSteps = 1200;
    Streamtrace line;
    double time = 0.0;
    const auto keep = [&](const Vec& p, double t)
    {
        line.positions.insert(line.positions.end(),
                              {static_cast<float>(p[0]), static_cast<float>(p[1]), static_cast<float>(p[2])});
        line.times.push_back(t);
    };
    keep(point, time);
    for (int step = 1; step <= MaxSteps && point[0] < endX; ++step)
    {
        const auto along = [&](const Vec& p, const Vec& k, double f) {
            return Vec{p[0] + f * k[0], p[1] + f * k[1], p[2] + f * k[2]};
        };
        const Vec k1 = flow.velocity(point);
        const Vec k2 = flow.velocity(along(point, k1, Step / 2));
        const Vec k3 = flow.velocity(along(point, k2, Step / 2));
        const Vec k4 = flow.velocity(along(point, k3, Step));
        for (int i = 0; i < 3; ++i)
            point[i] += Step / 6.0 * (k1[i] + 2 * k2[i] + 2 * k3[i] + k4[i]);
        point[2] = std::max(point[2], 0.02); // the flow does not go through the ground
        time += Step;
        if (step % StepsPerPoint == 0 || point[0] >= endX)
            keep(point, time);
    }
    return line;
}

std::shared_ptr<const StreamtraceGeometry> MakeStreamtraces()
{
    const FlowField flow;
    auto traces = std::make_shared<StreamtraceGeometry>();
    constexpr double StartX = -1.0, EndX = 6.5;
    const double dihedral = std::tan(Wing.dihedralDegrees * DegreesToRadians);
    const auto wingHeight = [&](double y)
    { return Wing.rootHeight + std::min(std::abs(y), Wing.semiSpan) * dihedral; };
    // Over the wing and under it, clear of the fuselage.
    for (const double y : {-2.3, -1.8, -1.3, -0.8, 0.8, 1.3, 1.8, 2.3})
    {
        traces->lines.push_back(Trace(flow, {StartX, y, wingHeight(y) + 0.32}, EndX));
        traces->lines.push_back(Trace(flow, {StartX, y, wingHeight(y) - 0.3}, EndX));
    }
    // Around the tips, where the flow rolls up into the tip vortices.
    for (const double side : {-1.0, 1.0})
        for (const auto& offset : {std::array<double, 2>{0.12, 0.0}, std::array<double, 2>{0.0, 0.14},
                                   std::array<double, 2>{-0.12, -0.02}, std::array<double, 2>{0.02, -0.14}})
        {
            const double y = side * (Wing.semiSpan + offset[0]);
            traces->lines.push_back(Trace(flow, {StartX, y, wingHeight(Wing.semiSpan) + offset[1]}, EndX));
        }
    return traces;
}

std::shared_ptr<SurfaceMesh> MakeGround(const Bounds& around)
{
    SurfaceGeometry ground;
    const double x0 = std::floor(around.min()[0] / GroundGridStep) * GroundGridStep - GroundGridStep;
    const double x1 = std::ceil(around.max()[0] / GroundGridStep) * GroundGridStep;
    const double y0 = std::floor(around.min()[1] / GroundGridStep) * GroundGridStep - GroundGridStep;
    const double y1 = std::ceil(around.max()[1] / GroundGridStep) * GroundGridStep + GroundGridStep;
    const int columns = static_cast<int>(std::lround((x1 - x0) / GroundGridStep)) + 1;
    const int rows = static_cast<int>(std::lround((y1 - y0) / GroundGridStep)) + 1;
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c)
            ground.positions.insert(ground.positions.end(),
                                    {static_cast<float>(x0 + c * GroundGridStep),
                                     static_cast<float>(y0 + r * GroundGridStep), 0.0f});
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c)
        {
            const auto a = static_cast<std::uint32_t>(r * columns + c);
            if (c + 1 < columns)
                ground.meshLines.insert(ground.meshLines.end(), {a, a + 1});
            if (r + 1 < rows)
                ground.meshLines.insert(ground.meshLines.end(), {a, a + static_cast<std::uint32_t>(columns)});
            if (c + 1 < columns && r + 1 < rows)
            {
                const auto d = a + static_cast<std::uint32_t>(columns);
                ground.triangles.insert(ground.triangles.end(), {a, a + 1, d + 1, a, d + 1, d});
            }
        }
    ground.computeNormals();
    return std::make_shared<SurfaceMesh>(std::move(ground));
}

} // namespace

std::shared_ptr<DataSet> MakeDemoDataSet()
{
    MeshBuilder builder;
    AddFuselage(builder, 48, 56);
    AddLiftingSurface(builder, Wing, Part::Wing, 44, 40);
    AddLiftingSurface(builder, Tailplane, Part::Tailplane, 28, 14);
    AddFin(builder, 28, 10);
    builder.mesh().computeNormals();
    auto aircraft = std::make_shared<SurfaceMesh>(std::move(builder.mesh()));

    std::vector<Zone> zones;
    for (int step = 0; step < DemoTimeStepCount; ++step)
    {
        auto pressure = std::make_shared<std::vector<float>>();
        pressure->reserve(builder.tags().size());
        for (const NodeTag& tag : builder.tags())
            pressure->push_back(static_cast<float>(Pressure(tag, step)));
        Zone zone;
        zone.name = "Aircraft, T = " + std::to_string(step);
        zone.solutionTime = step;
        zone.strandId = 1;
        zone.surface = aircraft;
        zone.scalar = std::move(pressure);
        zones.push_back(std::move(zone));
    }

    auto streamtraces = MakeStreamtraces();
    Bounds scene = aircraft->bounds();
    scene.include(streamtraces->bounds());

    Zone ground;
    ground.name = "Ground";
    ground.surface = MakeGround(scene);
    zones.push_back(std::move(ground));

    Zone flow;
    flow.name = "Streamtraces";
    flow.kind = ZoneKind::Streamtraces;
    flow.streamtraces = std::move(streamtraces);
    zones.push_back(std::move(flow));

    return std::make_shared<DataSet>("Aircraft in ground effect", std::move(zones));
}

} // namespace vantix::host::detail
