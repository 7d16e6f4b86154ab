#include "scene/MeshFile.h"

#include "scene/CreasedNormals.h"
#include "scene/ImportedMesh.h"
#include "scene/MeshText.h"
#include "scene/ObjReader.h"
#include "scene/PlyReader.h"
#include "scene/StlReader.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <new>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace vantix::host::detail
{

namespace
{

// Faces meeting at a sharper angle keep their own normals, so that boxes stay boxes.
constexpr double CreaseAngleDegrees = 60.0;

// The renderer works in single precision (float positions and matrices, GLSL floats) and, in perspective,
// lights a surface by normalising its eye-space positions, which squares them: beyond about 1.8e19 from
// the viewer the square overflows and the surface is lost. A fitted viewer stands a few times the data's
// size away, about a thousand times with a field of view of one degree in a wide frame, so coordinates
// are kept within 1e15 of the origin, which leaves the view room to move.
constexpr float LargestCoordinate = 1e15f;
const char* const UndrawableReason = "a corner coordinate is not a finite number between -1e15 and 1e15";

[[noreturn]] void Fail(const std::string& path, const std::string& reason)
{
    throw std::runtime_error("cannot read mesh file '" + path + "': " + reason);
}

std::string Contents(const std::string& path)
{
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    if (!file)
        throw MeshFormatError("it cannot be opened");
    const std::streamoff size = file.tellg();
    if (size < 0)
        throw MeshFormatError("it cannot be read: it is not a plain file");
    std::string bytes(static_cast<std::size_t>(size), '\0');
    file.seekg(0);
    if (!file.read(bytes.data(), size))
        throw MeshFormatError("it cannot be read to the end");
    return bytes;
}

SurfaceGeometry ReadTriangles(const std::string& path)
{
    std::string extension = std::filesystem::path(path).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (extension == ".stl")
        return ReadStl(Contents(path));
    if (extension == ".obj")
        return ReadObj(Contents(path));
    if (extension == ".ply")
        return ReadPly(Contents(path));
    return ReadWithImporter(path);
}

// Leaves out the triangles with a corner the renderer cannot draw; answers how many there were.
std::size_t DropUndrawable(SurfaceGeometry& mesh)
{
    const auto drawable = [&mesh](std::uint32_t node)
    {
        const float* const position = &mesh.positions[3 * std::size_t(node)];
        return std::abs(position[0]) <= LargestCoordinate && std::abs(position[1]) <= LargestCoordinate &&
               std::abs(position[2]) <= LargestCoordinate;
    };
    std::size_t kept = 0;
    for (std::size_t t = 0; t < mesh.triangleCount(); ++t)
    {
        const std::uint32_t* const corner = &mesh.triangles[3 * t];
        if (drawable(corner[0]) && drawable(corner[1]) && drawable(corner[2]))
            std::copy(corner, corner + 3, &mesh.triangles[3 * kept++]);
    }
    const std::size_t dropped = mesh.triangleCount() - kept;
    mesh.triangles.resize(3 * kept);
    return dropped;
}

LoadedMesh ReadDrawable(const std::string& path)
{
    SurfaceGeometry triangles = ReadTriangles(path);
    const std::size_t total = triangles.triangleCount();
    if (total == 0)
        Fail(path, "it holds no triangle surface");
    const std::size_t dropped = DropUndrawable(triangles);
    if (dropped == total)
        Fail(path, "it holds " + std::to_string(total) + (total == 1 ? " triangle" : " triangles") +
                       " and none can be drawn: " + UndrawableReason);
    SurfaceGeometry mesh = WithCreasedNormals(std::move(triangles), CreaseAngleDegrees);

    auto height = std::make_shared<std::vector<float>>();
    height->reserve(mesh.nodeCount());
    for (std::size_t node = 0; node < mesh.nodeCount(); ++node)
        height->push_back(mesh.positions[3 * node + 2]);

    const std::string name = std::filesystem::path(path).filename().string();
    Zone zone;
    zone.name = name;
    zone.surface = std::make_shared<SurfaceMesh>(std::move(mesh));
    zone.scalar = std::move(height);
    std::vector<Zone> zones;
    zones.push_back(std::move(zone));
    LoadedMesh loaded{std::make_shared<DataSet>(name, std::move(zones)), ""};
    if (dropped > 0)
        loaded.note = "mesh file '" + path + "': left out " + std::to_string(dropped) + " of " +
                      std::to_string(total) + " triangles: " + UndrawableReason;
    return loaded;
}

} // namespace

LoadedMesh ReadMeshFile(const std::string& path)
{
    std::error_code error;
    if (!std::filesystem::exists(path, error))
        Fail(path, "no such file");
    if (std::filesystem::is_directory(path, error))
        Fail(path, "it is a folder");
    try
    {
        return ReadDrawable(path);
    }
    catch (const MeshFormatError& damaged)
    {
        Fail(path, damaged.what());
    }
    catch (const std::bad_alloc&)
    {
        Fail(path, "there is not enough memory to read it");
    }
    catch (const std::runtime_error&)
    {
        throw; // already says what and where
    }
    catch (const std::exception&)
    {
        // What is left is a container asked to grow beyond what it can hold: the file is too large.
        Fail(path, "it is too large to read");
    }
}

} // namespace vantix::host::detail
