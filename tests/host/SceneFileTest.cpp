// Surface mesh files read through the mesh importer: STL (text and binary), OBJ and PLY that the test
// writes, loaded as one static zone coloured by height, and clear errors for files that cannot be read.
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

// Two triangles from z = -2 to z = 0.5 as binary STL: a header, the count, and per triangle the normal
// (none: the reader makes its own), the corners and two bytes of attributes.
std::string BinaryStl()
{
    std::string data(80, ' ');
    const auto put = [&data](const auto& value)
    { data.append(reinterpret_cast<const char*>(&value), sizeof value); };
    put(std::uint32_t(2));
    put(std::array<float, 12>{0, 0, 0, 0, 0, -2, 1, 0, -2, 0, 1, 0.5f});
    data.append(2, '\0');
    put(std::array<float, 12>{0, 0, 0, 1, 0, -2, 1, 1, 0.5f, 0, 1, 0.5f});
    return data.append(2, '\0');
}

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
    const std::pair<std::string, const char*> cases[] = {
        // file, the reason when it is the host's own rather than the importer's
        {(m_folder.path() / "missing.stl").string(), "no such file"},
        {m_folder.path().string(), "it is a folder"},
        {Write("garbage.ply", "ply\nthis is not a header\n"), ""},
        {Write("empty.obj", "# nothing but a comment\nv 0 0 0\n"), ""},
        {Write("unknown.xyz123", "whatever"), ""},
    };
    for (const auto& [path, reason] : cases)
    {
        const std::string prefix = "cannot read mesh file '" + path + "': ";
        const std::string message =
            testsupport::ThrownMessage<std::runtime_error>([&path = path] { loadDataFile(path); });
        EXPECT_THAT(message, ::testing::StartsWith(prefix + reason));
        EXPECT_GT(message.size(), prefix.size()) << "no reason given";
        EXPECT_FALSE(VtxUtilDataSetIsAvailable()) << path;
    }
}

} // namespace
