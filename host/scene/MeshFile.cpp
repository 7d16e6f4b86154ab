#include "scene/MeshFile.h"

#include <assimp/Importer.hpp>
#include <assimp/config.h>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace vantix::host::detail
{

namespace
{

// Faces meeting at a sharper angle keep their own normals, so that boxes stay boxes.
constexpr float CreaseAngleDegrees = 60.0f;

[[noreturn]] void Fail(const std::string& path, const std::string& reason)
{
    throw std::runtime_error("cannot read mesh file '" + path + "': " + reason);
}

SurfaceGeometry MergedTriangles(const aiScene& scene)
{
    SurfaceGeometry mesh;
    for (unsigned m = 0; m < scene.mNumMeshes; ++m)
    {
        const aiMesh& part = *scene.mMeshes[m];
        if (!(part.mPrimitiveTypes & aiPrimitiveType_TRIANGLE))
            continue;
        const auto offset = static_cast<std::uint32_t>(mesh.nodeCount());
        for (unsigned v = 0; v < part.mNumVertices; ++v)
        {
            const aiVector3D& p = part.mVertices[v];
            mesh.positions.insert(mesh.positions.end(), {p.x, p.y, p.z});
            aiVector3D n = part.mNormals ? part.mNormals[v] : aiVector3D(0.0f, 0.0f, 1.0f);
            if (n.Length() > 0.0f)
                n.Normalize();
            mesh.normals.insert(mesh.normals.end(), {n.x, n.y, n.z});
        }
        for (unsigned f = 0; f < part.mNumFaces; ++f)
        {
            const aiFace& face = part.mFaces[f];
            if (face.mNumIndices != 3)
                continue;
            for (unsigned i = 0; i < 3; ++i)
                mesh.triangles.push_back(offset + face.mIndices[i]);
        }
    }
    return mesh;
}

} // namespace

std::shared_ptr<DataSet> ReadMeshFile(const std::string& path)
{
    std::error_code error;
    if (!std::filesystem::exists(path, error))
        Fail(path, "no such file");
    if (std::filesystem::is_directory(path, error))
        Fail(path, "it is a folder");

    Assimp::Importer importer;
    importer.SetPropertyFloat(AI_CONFIG_PP_GSN_MAX_SMOOTHING_ANGLE, CreaseAngleDegrees);
    importer.SetPropertyInteger(AI_CONFIG_PP_SBP_REMOVE, aiPrimitiveType_POINT | aiPrimitiveType_LINE);
    const aiScene* scene = importer.ReadFile(
        path, aiProcess_Triangulate | aiProcess_SortByPType | aiProcess_PreTransformVertices |
                  aiProcess_GenSmoothNormals | aiProcess_JoinIdenticalVertices);
    if (!scene)
    {
        const std::string reason = importer.GetErrorString();
        Fail(path, reason.empty() ? "the importer gave no reason" : reason);
    }
    SurfaceGeometry mesh = MergedTriangles(*scene);
    if (mesh.triangles.empty())
        Fail(path, "it holds no triangle surface");

    auto height = std::make_shared<std::vector<float>>();
    for (std::size_t node = 0; node < mesh.nodeCount(); ++node)
        height->push_back(mesh.positions[3 * node + 2]);

    const std::string name = std::filesystem::path(path).filename().string();
    Zone zone;
    zone.name = name;
    zone.surface = std::make_shared<const SurfaceGeometry>(std::move(mesh));
    zone.scalar = std::move(height);
    std::vector<Zone> zones;
    zones.push_back(std::move(zone));
    return std::make_shared<DataSet>(name, std::move(zones));
}

} // namespace vantix::host::detail
