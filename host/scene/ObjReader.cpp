#include "scene/ObjReader.h"

#include "scene/MeshText.h"

#include <cstdint>
#include <vector>

namespace vantix::host::detail
{

namespace
{

void ReadVertex(WordReader& words, SurfaceGeometry& mesh)
{
    CheckNodeCount(mesh.nodeCount() + 1);
    for (int i = 0; i < 3; ++i)
    {
        const std::string_view word = words.nextOnLine();
        if (word.empty())
            FailOnLine(words.line(), "a vertex needs three coordinates");
        mesh.positions.push_back(ToFloat(NumberOnLine(word, words.line())));
    }
}

std::uint32_t CornerNode(std::string_view corner, std::size_t nodesSoFar, int line)
{
    long long number = 0;
    if (!ParseWhole(corner.substr(0, corner.find('/')), number))
        FailOnLine(line, Shown(corner) + " is not a vertex number");
    const long long count = static_cast<long long>(nodesSoFar);
    const long long index = number < 0 ? count + number : number - 1;
    if (number == 0 || index < 0 || index >= count)
        FailOnLine(line, "the face refers to vertex " + std::to_string(number) + ", but only " +
                             std::to_string(count) + " vertices come before it");
    return static_cast<std::uint32_t>(index);
}

void ReadFace(WordReader& words, SurfaceGeometry& mesh, std::vector<std::uint32_t>& corners)
{
    corners.clear();
    for (std::string_view word = words.nextOnLine(); !word.empty() && word.front() != '#';
         word = words.nextOnLine())
        corners.push_back(CornerNode(word, mesh.nodeCount(), words.line()));
    if (corners.size() < 3)
        FailOnLine(words.line(), "a face needs at least three corners");
    for (std::size_t corner = 2; corner < corners.size(); ++corner)
        mesh.triangles.insert(mesh.triangles.end(), {corners[0], corners[corner - 1], corners[corner]});
}

} // namespace

SurfaceGeometry ReadObj(std::string_view text)
{
    SurfaceGeometry mesh;
    std::vector<std::uint32_t> corners; // of the face being read, kept to save allocations
    WordReader words(text);
    for (std::string_view keyword = words.next(); !keyword.empty(); keyword = words.next())
    {
        if (keyword == "v")
            ReadVertex(words, mesh);
        else if (keyword == "f")
            ReadFace(words, mesh, corners);
        words.skipLine();
    }
    return mesh;
}

} // namespace vantix::host::detail
