// Surface mesh files that the test writes, STL (text and binary), OBJ, PLY and a format read through the
// mesh importer module, loaded as one static zone coloured by height; clear errors for files that cannot
// be read.
#include "support/HostTest.h"
#include "support/TempFolder.h"
#include "support/ThrownMessage.h"

#include <array>
#include <cstdint>
#include <stdexcept>

namespace
{

using ::testing::ElementsAre;
using namespace vantix::host;

// Two triangles from z = 1 to z = 3 as text STL.
const char* const SlopeStl =
    "solid s\n"
    "facet normal 0 0 0\n outer loop\n  vertex 0 0 1\n  vertex 1 0 1\n  vertex 0 1 3\n endloop\nendfacet\n"
    "facet normal 0 0 0\n outer loop\n  vertex 1 0 1\n  vertex 1 1 3\n  vertex 0 1 3\n endloop\nendfacet\n"
    "endsolid s\n";

template <typename Value>
std::string& Append(std::string& data, const Value& value)
{
    return data.append(reinterpret_cast<const char*>(&value), sizeof value);
}

// Two triangles from z = -2 to z = 0.5 as binary STL: a header, the count, and per triangle the normal
// (none: the reader makes its own), the corners and two bytes of attributes.
std::string BinaryStl()
{
    std::string data(80, ' ');
    Append(data, std::uint32_t(2));
    Append(data, std::array<float, 12>{0, 0, 0, 0, 0, -2, 1, 0, -2, 0, 1, 0.5f}).append(2, '\0');
    return Append(data, std::array<float, 12>{0, 0, 0, 1, 0, -2, 1, 1, 0.5f, 0, 1, 0.5f}).append(2, '\0');
}

// A triangle from z = 0 to z = 7 as binary PLY whose header and face claim the given counts.
std::string BinaryPly(std::uint8_t corners, const std::string& vertices = "3")
{
    std::string data = "ply\nformat binary_little_endian 1.0\nelement vertex " + vertices +
                       "\nproperty float x\nproperty float y\nproperty float z\nelement face 1\n"
                       "property list uchar int vertex_indices\nend_header\n";
    Append(data, std::array<float, 9>{0, 0, 0, 1, 0, 7, 0, 1, 0}).push_back(char(corners));
    return Append(data, std::array<std::int32_t, 3>{0, 1, 2});
}

const std::string Undrawable = "a corner coordinate is not a finite number between -1e15 and 1e15";

class SceneFileTest : public testsupport::HostTest
{
protected:
    std::string Write(const std::string& name, const std::string& content)
    {
        testsupport::WriteFile(m_folder.path() / name, content);
        return (m_folder.path() / name).string();
    }

    testsupport::TempFolder m_folder{"vantix-scene-file"};
};

TEST_F(SceneFileTest, EachFormatLoadsAsOneStaticZoneColouredByHeight)
{
    // A quad (two triangles once triangulated) and a triangle, and a line element that is left out.
    const char* const obj = "# a quad and a triangle\nv 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\nv 0 0 4\nv 1 0 4\n"
                            "v 0 1 4\nf 1 2 3 4\nf 5 6 7\nl 1 5\n";
    const char* const tetrahedron =
        "ply\nformat ascii 1.0\nelement vertex 4\nproperty float x\nproperty float y\nproperty float z\n"
        "element face 4\nproperty list uchar int vertex_indices\nend_header\n"
        "0 0 0\n1 0 0\n0 1 0\n0 0 2\n3 0 2 1\n3 0 1 3\n3 0 3 2\n3 1 2 3\n";
    const std::tuple<const char*, std::string, std::size_t, double, double> cases[] = {
        // file, content, triangles, lowest and highest z
        {"slope.stl", SlopeStl, 2, 1.0, 3.0},
        {"binary.stl", BinaryStl(), 2, -2.0, 0.5},
        {"square.obj", obj, 3, 0.0, 4.0},
        {"tetrahedron.ply", tetrahedron, 4, 0.0, 2.0},
        {"binary.ply", BinaryPly(3), 1, 0.0, 7.0},
        // read by the mesh importer module
        {"quad.off", "OFF\n4 1 0\n0 0 0\n1 0 0\n1 1 5\n0 1 5\n4 0 1 2 3\n", 2, 0.0, 5.0},
    };
    for (const auto& [name, content, triangles, lowest, highest] : cases)
    {
        SCOPED_TRACE(name);
        loadDataFile(Write(name, content));
        const auto zones = vantix::host::zones();
        ASSERT_EQ(1u, zones.size());
        EXPECT_EQ(std::make_tuple(std::string(name), true, true, 0, triangles),
                  std::make_tuple(zones[0].name, zones[0].isSurface, zones[0].hasScalar,
                                  VtxUtilZoneGetStrandID(1), zones[0].elementCount));
        EXPECT_THAT(scalarRange(), ElementsAre(lowest, highest));
        EXPECT_DOUBLE_EQ((lowest + highest) / 2.0, view().originZ);
    }
}

TEST_F(SceneFileTest, AFileThatCannotBeReadIsRefusedWithItsNameAndTheReason)
{
    std::string claims = BinaryStl();
    claims.replace(80, 4, std::string("\x00\x28\x6b\xee", 4)); // 4000000000
    const std::pair<std::string, std::string> cases[] = {
        {(m_folder.path() / "missing.stl").string(), "no such file"},
        {m_folder.path().string(), "it is a folder"},
        {Write("garbage.ply", "ply\nthis is not a header\n"), "line 2: 'this' does not begin a header line"},
        {Write("empty.obj", "# nothing but a comment\nv 0 0 0\n"), "it holds no triangle surface"},
        {Write("unknown.xyz123", "whatever"), "'.xyz123' is not a mesh format the host reads"},
        {Write("cut.off", "OFF\n4 1 0\n0 0 0\n1 0"), "it is damaged or not a '.off' file"},
        {Write("short.stl", "solid"),
         "it is too short for an STL file: 5 bytes, where the header alone takes 84"},
        {Write("claims.stl", claims), "the header claims 4000000000 triangles but the file holds 2"},
        {Write("cut.stl", BinaryStl().substr(0, 150)), "the header claims 2 triangles but the file holds 1"},
        {Write("cut-text.stl", std::string(SlopeStl).substr(0, 55)), "the file ends inside a facet"},
        {Write("huge.ply", BinaryPly(3, "2147483648")),
         "the header claims 2147483648 vertices but the file has room for at most 4"},
        {Write("list.ply", BinaryPly(200)),
         "face 1 claims a list of 200 values but the file has room for at most 3"},
        {Write("past.ply",
               "ply\nformat ascii 1.0\nelement vertex 2\nproperty float x\nproperty float y\nproperty "
               "float z\nelement face 1\nproperty list uchar int vertex_indices\nend_header\n0 0 0\n"
               "1 1 1\n3 0 1 2\n"),
         "face 1 refers to vertex 2, but the file has 2 vertices, numbered from 0"},
        {Write("two.obj", "v 0 0 0\nv 1 0\n"), "line 2: a vertex needs three coordinates"},
        {Write("past.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 4\n"),
         "line 4: the face refers to vertex 4, but only 3 vertices come before it"},
        {Write("far.obj", "v 0 0 1e16\nv 1 0 0\nv 0 1 0\nf 1 2 3\n"),
         "it holds 1 triangle and none can be drawn: " + Undrawable},
    };
    for (const auto& [path, reason] : cases)
    {
        EXPECT_THROW_MSG(loadDataFile(path), std::runtime_error,
                         "cannot read mesh file '" + path + "': " + reason);
        EXPECT_FALSE(VtxUtilDataSetIsAvailable()) << path;
    }
}

TEST_F(SceneFileTest, TrianglesTooFarOutToDrawAreLeftOutSaidSoAndTheViewFitsTheRest)
{
    // One triangle from z = 0 to z = 2 about (0.5, 0.5), one reaching out to 1e16, one with no number.
    const std::string path = Write("far.obj", "v 0 0 0\nv 1 1 2\nv 0 1 0\nv 0 0 1e16\nv nan 0 0\n"
                                              "f 1 2 3\nf 1 2 4\nf 5 1 2\n");
    testing::internal::CaptureStderr();
    loadDataFile(path);
    EXPECT_EQ("vantix: note: mesh file '" + path + "': left out 2 of 3 triangles: " + Undrawable + "\n",
              testing::internal::GetCapturedStderr());
    EXPECT_EQ(1u, zones()[0].elementCount);
    EXPECT_THAT(scalarRange(), ElementsAre(0.0, 2.0));
    EXPECT_THAT((std::array{view().originX, view().originY, view().originZ}), ElementsAre(0.5, 0.5, 1.0));
}

} // namespace
