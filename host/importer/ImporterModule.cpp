// The mesh importer module: the formats the host has no reader of its own for, read through assimp. The
// scene library loads it the first time such a file is loaded, so that other runs never map assimp and
// the libraries it brings.
#include "scene/ImportedMesh.h"
#include "scene/MeshText.h"

#include <assimp/Importer.hpp>
#include <assimp/config.h>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <filesystem>
#include <new>

namespace vantix::host::detail
{

namespace
{

SurfaceGeometry MergedTriangles(const aiScene& scene)
{
    SurfaceGeometry mesh;
    for (unsigned m = 0; m < scene.mNumMeshes; ++m)
    {
        const aiMesh& part = *scene.mMeshes[m];
        if (!(part.mPrimitiveTypes & aiPrimitiveType_TRIANGLE))
            continue;
        const std::size_t offset = mesh.nodeCount();
        CheckNodeCount(offset + part.mNumVertices);
        for (unsigned v = 0; v < part.mNumVertices; ++v)
            mesh.positions.insert(mesh.positions.end(),
                                  {part.mVertices[v].x, part.mVertices[v].y, part.mVertices[v].z});
        for (unsigned f = 0; f < part.mNumFaces; ++f)
        {
            const aiFace& face = part.mFaces[f];
            if (face.mNumIndices != 3 || face.mIndices[0] >= part.mNumVertices ||
                face.mIndices[1] >= part.mNumVertices || face.mIndices[2] >= part.mNumVertices)
                continue;
            for (unsigned i = 0; i < 3; ++i)
                mesh.triangles.push_back(static_cast<std::uint32_t>(offset + face.mIndices[i]));
        }
    }
    return mesh;
}

SurfaceGeometry Import(const std::string& path)
{
    const std::string extension = std::filesystem::path(path).extension().string();
    Assimp::Importer importer;
    if (extension.empty())
        throw MeshFormatError("its name has no extension to tell its format by");
    if (!importer.IsExtensionSupported(extension))
        throw MeshFormatError(Shown(extension) + " is not a mesh format the host reads");
    importer.SetPropertyInteger(AI_CONFIG_PP_SBP_REMOVE, aiPrimitiveType_POINT | aiPrimitiveType_LINE);
    const aiScene* scene = importer.ReadFile(path, aiProcess_Triangulate | aiProcess_SortByPType |
                                                       aiProcess_PreTransformVertices);
    // The importer's own reasons name its internals rather than the file's fault.
    if (!scene)
        throw MeshFormatError("it is damaged or not a " + Shown(extension) + " file");
    return MergedTriangles(*scene);
}

} // namespace

} // namespace vantix::host::detail

extern "C" __attribute__((visibility("default"))) int
VtxImportMesh(const char* path, vantix::host::detail::SurfaceGeometry* mesh, std::string* reason)
{
    using namespace vantix::host::detail;
    try
    {
        *mesh = Import(path);
        return ImportRead;
    }
    catch (const std::bad_alloc&)
    {
        return ImportOutOfMemory;
    }
    catch (const std::exception& failure)
    {
        *reason = failure.what();
        return ImportFailed;
    }
}
