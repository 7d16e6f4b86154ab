// Surface mesh files read through the mesh importer: STL (text and binary), OBJ and PLY that the test
// writes, loaded as one static zone coloured by height, and clear errors for files that cannot be read.
#include "support/HostTest.h"

#include <VtxUtil.h>
#include <vantix/host/Scene.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace
{

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testsupport::HostTest;

namespace fs = std::filesystem;

// A unit cube from z = 1 to z = 3 as twelve text STL facets.
std::string CubeStl()
{
    const double v[8][3] = {{0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1},
                            {0, 0, 3}, {1, 0, 3}, {1, 1, 3}, {0, 1, 3}};
    const int faces[12][3] = {{0, 2, 1}, {0, 3, 2}, {4, 5, 6}, {4, 6, 7}, {0, 1, 5}, {0, 5, 4},
                              {1, 2, 6}, {1, 6, 5}, {2, 3, 7}, {2, 7, 6}, {3, 0, 4}, {3, 4, 7}};
    std::string text = "solid cube\n";
    for (const auto& f : faces)
    {
        text += " facet normal 0 0 0\n  outer loop\n";
        for (const int i : f)
            text += "   vertex " + std::to_string(v[i][0]) + " " + std::to_string(v[i][1]) + " " +
                    std::to_string(v[i][2]) + "\n";
        text += "  endloop\n endfacet\n";
    }
    return text + "endsolid cube\n";
}

// Two triangles in binary STL, from z = -2 to z = 0.5.
std::string BinaryStl()
{
    std::string data(80, ' ');
    const auto put32 = [&data](std::uint32_t value)
    { data.append(reinterpret_cast<const char*>(&value), 4); };
    const auto putFloat = [&data](float value) { data.append(reinterpret_cast<const char*>(&value), 4); };
    put32(2);
    const float triangles[2][9] = {{0, 0, -2, 1, 0, -2, 0, 1, 0.5f}, {1, 0, -2, 1, 1, 0.5f, 0, 1, 0.5f}};
    for (const auto& t : triangles)
    {
        for (int i = 0; i < 3; ++i)
            putFloat(0.0f);
        for (const float c : t)
            putFloat(c);
        data.append(2, '\0');
    }
    return data;
}

// A square made of one quad (two triangles once triangulated) and a triangle, with a line element that
// is left out, from z = 0 to z = 4.
const char* const QuadObj = "# a quad and a triangle\n"
                            "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\nv 0 0 4\nv 1 0 4\nv 0 1 4\n"
                            "f 1 2 3 4\n"
                            "f 5 6 7\n"
                            "l 1 5\n";

// A tetrahedron, from z = 0 to z = 2.
const char* const TetraPly =
    "ply\nformat ascii 1.0\nelement vertex 4\nproperty float x\nproperty float y\n"
    "property float z\nelement face 4\nproperty list uchar int vertex_indices\nend_header\n"
    "0 0 0\n1 0 0\n0 1 0\n0 0 2\n"
    "3 0 2 1\n3 0 1 3\n3 0 3 2\n3 1 2 3\n";

class SceneFileTest : public HostTest
{
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        m_folder =
            fs::temp_directory_path() /
            ("vantix-scene-file-test-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
             "-" + ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::create_directories(m_folder);
    }
    void TearDown() override
    {
        fs::remove_all(m_folder);
        HostTest::TearDown();
    }

    std::string write(const std::string& name, const std::string& content)
    {
        const fs::path path = m_folder / name;
        std::ofstream(path, std::ios::binary) << content;
        return path.string();
    }

    fs::path m_folder;
};

TEST_F(SceneFileTest, EachFormatLoadsAsOneStaticZoneColouredByHeight)
{
    struct Case
    {
        const char* name;
        std::string content;
        std::size_t triangles;
        double lowest, highest;
    };
    const Case cases[] = {
        {"cube.stl", CubeStl(), 12, 1.0, 3.0},
        {"two.stl", BinaryStl(), 2, -2.0, 0.5},
        {"square.obj", QuadObj, 3, 0.0, 4.0},
        {"tetra.ply", TetraPly, 4, 0.0, 2.0},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        vantix::host::loadDataFile(write(c.name, c.content));
        ASSERT_TRUE(VtxUtilDataSetIsAvailable());
        const auto zones = vantix::host::zones();
        ASSERT_EQ(1u, zones.size());
        EXPECT_EQ(c.name, zones[0].name);
        EXPECT_TRUE(zones[0].isSurface);
        EXPECT_TRUE(zones[0].hasScalar);
        EXPECT_EQ(0, VtxUtilZoneGetStrandID(1));
        EXPECT_EQ(c.triangles, zones[0].elementCount);
        EXPECT_THAT(vantix::host::scalarRange(), ElementsAre(c.lowest, c.highest));
        EXPECT_DOUBLE_EQ((c.lowest + c.highest) / 2.0, vantix::host::view().originZ);
    }
}

TEST_F(SceneFileTest, AFileThatCannotBeReadIsRefusedWithItsNameAndTheReason)
{
    struct Case
    {
        std::string path;
        const char* reason;
    };
    const Case cases[] = {
        {(m_folder / "missing.stl").string(), "no such file"},
        {m_folder.string(), "it is a folder"},
        {write("garbage.ply", "ply\nthis is not a header\n"), ""},
        {write("empty.obj", "# nothing but a comment\nv 0 0 0\n"), ""},
        {write("unknown.xyz123", "whatever"), ""},
    };
    for (const Case& c : cases)
    {
        try
        {
            vantix::host::loadDataFile(c.path);
            ADD_FAILURE() << "read " << c.path;
        }
        catch (const std::runtime_error& error)
        {
            EXPECT_THAT(error.what(),
                        AllOf(HasSubstr("cannot read mesh file '" + c.path + "': "), HasSubstr(c.reason)));
            EXPECT_GT(std::strlen(error.what()), ("cannot read mesh file '" + c.path + "': ").size())
                << "no reason given";
        }
        EXPECT_FALSE(VtxUtilDataSetIsAvailable()) << c.path;
    }
}

} // namespace
