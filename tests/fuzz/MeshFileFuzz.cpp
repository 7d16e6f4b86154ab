// Loads thousands of damaged mesh files the way $!LOADDATA FILE does. Each mutant is a valid file made here
// (cones of tens of triangles as text and binary STL, OBJ with every corner form, text and binary PLY of
// both byte orders with extra properties and elements) damaged by the driver's text edits (FuzzDriver.h)
// and then, for binary files, by edits that know their layout: a header count flipped or made huge, the
// data cut at or inside a record, a list count or an index made huge, a coordinate made NaN, infinite or
// too large. The mutant's first bytes choose the extension, so a damaged start is also read as another
// format. The binary edits are seeded by the mutant, so "mesh_file_fuzz 1 S" repeats them too.
//
// Every load must either succeed, with one surface zone of at least one and at most as many triangles as
// the file's bytes can hold, a view and height range within the drawable bound (1e15), and standard error
// silent or one note "vantix: note: mesh file '<path>': left out N of M triangles: ..." whose counts add
// up; or fail with one std::runtime_error of one line "cannot read mesh file '<path>': <reason>", leaving
// no data set. One accepted mutant in 64 is also drawn.
#include "FuzzDriver.h"

#include "../support/TempFolder.h"

#include <vantix/host/Host.h>
#include <vantix/host/Render.h>
#include <vantix/host/Scene.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace
{

namespace host = vantix::host;
using Point = std::array<float, 3>;

constexpr double Drawable = 1e15;

struct Shape
{
    std::vector<Point> points;
    std::vector<std::array<std::uint32_t, 3>> triangles;
};

// A closed cone: apex, ring, centre of the base.
Shape Cone(std::uint32_t sides, float height)
{
    Shape cone{{{0, 0, height}}, {}};
    for (std::uint32_t i = 0; i < sides; ++i)
        cone.points.push_back({std::cos(6.2831853f * i / sides), std::sin(6.2831853f * i / sides), 0});
    cone.points.push_back({0, 0, 0});
    for (std::uint32_t i = 1; i <= sides; ++i)
        cone.triangles.insert(cone.triangles.end(), {{0, i, i % sides + 1}, {sides + 1, i % sides + 1, i}});
    return cone;
}

template <typename Value>
void Append(std::string& data, Value value, bool bigEndian = false)
{
    const auto* bytes = reinterpret_cast<const char*>(&value);
    for (std::size_t i = 0; i < sizeof value; ++i)
        data.push_back(bytes[bigEndian ? sizeof value - 1 - i : i]);
}

std::string Text(const Point& p)
{
    char text[64];
    std::snprintf(text, sizeof text, "%g %g %g", p[0], p[1], p[2]);
    return text;
}

std::string TextStl(const Shape& shape)
{
    std::string text = "solid cone\n";
    for (const auto& corner : shape.triangles)
        text += "  facet normal 0 0 1\n    outer loop\n      vertex " + Text(shape.points[corner[0]]) +
                "\n      vertex " + Text(shape.points[corner[1]]) + "\n      vertex " +
                Text(shape.points[corner[2]]) + "\n    endloop\n  endfacet\n";
    return text + "endsolid cone\n";
}

std::string BinaryStl(const Shape& shape, std::string header)
{
    header.resize(80, ' ');
    Append(header, static_cast<std::uint32_t>(shape.triangles.size()));
    for (const auto& triangle : shape.triangles)
    {
        for (const float value : {0.0f, 0.0f, 1.0f})
            Append(header, value);
        for (const std::uint32_t corner : triangle)
            for (const float value : shape.points[corner])
                Append(header, value);
        header.append(2, '\0');
    }
    return header;
}

std::string Obj(const Shape& shape)
{
    std::string text = "# cone\nmtllib cone.mtl\no cone\nvt 0 0\nvn 0 0 1\ng side\nusemtl grey\ns 1\n";
    for (const Point& p : shape.points)
        text += "v " + Text(p) + "\n";
    const std::string forms[] = {"", "/1", "//1", "/1/1"};
    for (std::size_t t = 0; t < shape.triangles.size(); ++t)
    {
        text += "f";
        for (const std::uint32_t corner : shape.triangles[t])
            text += " " +
                    (t % 5 == 4 ? std::to_string(long(corner) - long(shape.points.size()))
                                : std::to_string(corner + 1)) +
                    forms[t % 4];
        text += t % 3 ? "\n" : " # a comment\n";
    }
    return text + "l 1 2\n";
}

// Text, or binary in either byte order with double coordinates, an extra colour and an extra element.
std::string Ply(const Shape& shape, const std::string& format)
{
    const bool text = format == "ascii", big = format == "binary_big_endian";
    const char* const coordinate = text ? "float" : "double";
    std::string data = "ply\nformat " + format + " 1.0\ncomment a cone\nelement vertex " +
                       std::to_string(shape.points.size()) + "\nproperty " + coordinate + " x\nproperty " +
                       coordinate + " y\nproperty uchar red\nproperty " + coordinate + " z\nelement face " +
                       std::to_string(shape.triangles.size()) +
                       "\nproperty list uchar int vertex_indices\nelement edge 1\nproperty int vertex1\n"
                       "property int vertex2\nend_header\n";
    for (const Point& p : shape.points)
        if (text)
            data += Text({p[0], p[1], 200}) + " " + std::to_string(p[2]) + "\n";
        else
            Append<double>(data, p[0], big), Append<double>(data, p[1], big), Append<std::uint8_t>(data, 200),
                Append<double>(data, p[2], big);
    for (const auto& corner : shape.triangles)
        if (text)
            data += "3 " + Text({float(corner[0]), float(corner[1]), float(corner[2])}) + "\n";
        else
            Append<std::uint8_t>(data, 3), Append(data, corner[0], big), Append(data, corner[1], big),
                Append(data, corner[2], big);
    return data + (text ? "0 1\n" : std::string(8, '\1'));
}

// An edit of a binary file where its layout gives the bytes a meaning: the data cut at or inside a record,
// or a 32-bit word (the count of an STL file, or a count, an index or a coordinate) made extreme.
void MutateBinary(std::string& data, fuzz::Random& random)
{
    const std::size_t end = data.find("end_header\n");
    const std::size_t start = std::min(data.size(), end != std::string::npos ? end + 11 : 84);
    const std::size_t at = start + random.below(data.size() - start + 1);
    const std::size_t recordBytes = end != std::string::npos ? 25 : 50; // a vertex of the binary PLY here
    static const std::vector<std::uint32_t> words{
        0xFFFFFFFF, 0x7FFFFFFF, 0x80000000, 0x7F800000, 0xFF800000, 0x7FC00000, 0x5A0E1BCA /* 1e16 */, 12, 0};
    const std::size_t word = end == std::string::npos && random.oneIn(2) ? 80 : at;
    if (random.oneIn(2))
        data.resize(at - (random.oneIn(2) ? (at - start) % recordBytes : 0));
    else if (word + 4 <= data.size())
        std::memcpy(&data[word], &random.pick(words), 4);
}

bool OneLine(const std::string& text)
{
    return text.find_first_of(std::string("\n\r\0", 3)) == std::string::npos;
}

fuzz::Outcome Check(std::string mutant, const std::filesystem::path& folder, std::size_t& drawn)
{
    const bool ply = mutant.rfind("ply", 0) == 0,
               stl = mutant.rfind("solid", 0) == 0 || mutant.rfind("binary", 0) == 0;
    fuzz::Random random(std::hash<std::string>{}(mutant));
    if ((ply || stl) && random.oneIn(2) && mutant.find("format ascii") == std::string::npos)
        MutateBinary(mutant, random);
    const std::string path = (folder / (ply ? "mutant.ply" : stl ? "mutant.stl" : "mutant.obj")).string();
    testsupport::WriteFile(path, mutant);
    // Every triangle takes bytes of its own: 50 in binary STL, a "vertex x y z" line in text STL, a corner
    // in OBJ and PLY.
    const std::size_t mostTriangles = mutant.size() / (stl ? 13 : 1);
    host::reset();
    host::addFrame(PlotType_Cartesian3D);
    // Standard error goes to a file while the mutant loads, so that a note can be checked.
    std::fflush(stderr);
    const int savedErrors = dup(STDERR_FILENO), errorFile = creat((folder / "errors").c_str(), 0600);
    dup2(errorFile, STDERR_FILENO);
    close(errorFile);
    std::string refusal;
    try
    {
        host::loadDataFile(path);
    }
    catch (const std::runtime_error& error)
    {
        refusal = error.what();
    }
    std::fflush(stderr);
    dup2(savedErrors, STDERR_FILENO);
    close(savedErrors);
    const std::string note = testsupport::ReadFile(folder / "errors");
    if (!refusal.empty())
    {
        if (refusal.rfind("cannot read mesh file '" + path + "': ", 0) != 0 || !OneLine(refusal) ||
            host::hasDataSet() || !note.empty())
            throw fuzz::Finding(
                "a refusal not of one line naming the file, or leaving a data set or output: " + refusal);
        return {false, refusal};
    }
    const auto zones = host::zones();
    const auto [low, high] = host::scalarRange();
    const host::ViewState view = host::view();
    if (zones.size() != 1 || zones[0].elementCount < 1 || zones[0].elementCount > mostTriangles)
        throw fuzz::Finding("not one zone of 1 to " + std::to_string(mostTriangles) + " triangles");
    // The fitted width is at most about five times the bound (the box's diagonal, the margin, the aspect).
    for (const double value : {low, high, view.originX, view.originY, view.originZ, view.width / 10})
        if (!(std::abs(value) <= Drawable))
            throw fuzz::Finding("a height, an origin or a width beyond the drawable bound: " +
                                std::to_string(value));
    const std::string lead = "vantix: note: mesh file '" + path + "': left out ";
    unsigned long left = 0, of = 0;
    if (!note.empty() && (note.rfind(lead, 0) != 0 || !OneLine(note.substr(0, note.size() - 1)) ||
                          std::sscanf(note.c_str() + lead.size(), "%lu of %lu", &left, &of) != 2 ||
                          left + zones[0].elementCount != of))
        throw fuzz::Finding("a note that is not one line of counts that add up: " + note);
    if (++drawn % 64 == 0)
        host::renderActiveFrame(16, 12);
    return {true, note};
}

} // namespace

int main(int argc, char** argv)
{
    const testsupport::TempFolder folder("mesh-file-fuzz");
    const Shape small = Cone(6, 2.0f), large = Cone(16, -0.5f);
    std::size_t drawn = 0;
    // clang-format off
    const fuzz::Vocabulary vocabulary{
        {"0", "-1", "1e15", "-1e15", "1.1e15", "1e16", "1e38", "1e39", "-1e400", "1e-400", "nan", "inf", "-inf",
         "2147483647", "2147483648", "4294967295", "4294967296", "99999999999999999999", "0x10", "+-1", "1e", "."},
        {"solid", "endsolid", "facet normal 0 0 1", "outer loop", "vertex 1 2 3", "endloop", "endfacet", "v 1 2 3",
         "v 1e39 0 0", "f 1 2 3", "f -1 -2 -3", "f 1/1/1 2//2 3/3", "f 0 1 2", "f 1 2", "element vertex 4294967295",
         "element face 2147483648", "property list uint uint vertex_indices", "property double x", "end_header",
         "format binary_little_endian 1.0", "3 0 1 2", "4 0 1 2 3"},
        {"v", "f", "vertex", "3", "comment "}};
    const std::vector<std::string> valid{
        TextStl(small), BinaryStl(small, "binary STL of a cone"), BinaryStl(large, "solid cone, but binary"),
        Obj(small), Obj(large), Ply(small, "ascii"), Ply(small, "binary_little_endian"),
        Ply(large, "binary_big_endian")};
    // clang-format on
    return fuzz::Main(argc, argv,
                      {"mesh_file_fuzz", ".mesh", valid, vocabulary, 160,
                       [&](const std::string& mutant) { return Check(mutant, folder.path(), drawn); }});
}
