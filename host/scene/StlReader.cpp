#include "scene/StlReader.h"

#include "scene/MeshText.h"

#include <cstdint>
#include <cstring>

namespace vantix::host::detail
{

namespace
{

constexpr std::size_t HeaderBytes = 84;   // 80 bytes of free text, then the triangle count
constexpr std::size_t TriangleBytes = 50; // normal, three corners, two bytes of attributes

std::uint32_t LittleEndian32(const char* bytes)
{
    std::uint32_t value = 0;
    for (int i = 3; i >= 0; --i)
        value = (value << 8) | static_cast<unsigned char>(bytes[i]);
    return value;
}

float LittleEndianFloat(const char* bytes)
{
    const std::uint32_t bits = LittleEndian32(bytes);
    float value = 0.0f;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

std::uint64_t ClaimedTriangles(std::string_view bytes)
{
    return bytes.size() >= HeaderBytes ? LittleEndian32(bytes.data() + 80) : 0;
}

// Text STL begins with "solid" and its second line with "facet" (or "endsolid" when it is empty); binary
// files often begin with "solid" too, but not with such a second line.
bool LooksLikeText(std::string_view bytes)
{
    WordReader words(bytes);
    if (!SameWord(words.next(), "solid"))
        return false;
    words.skipLine();
    const std::string_view second = words.next();
    return SameWord(second, "facet") || SameWord(second, "endsolid");
}

SurfaceGeometry ReadBinary(std::string_view bytes)
{
    if (bytes.size() < HeaderBytes)
        throw MeshFormatError("it is too short for an STL file: " + std::to_string(bytes.size()) +
                              " bytes, where the header alone takes " + std::to_string(HeaderBytes));
    const std::uint64_t claimed = ClaimedTriangles(bytes);
    const std::uint64_t held = (bytes.size() - HeaderBytes) / TriangleBytes;
    if (claimed > held)
        throw MeshFormatError("the header claims " + std::to_string(claimed) +
                              " triangles but the file holds " + std::to_string(held));
    CheckNodeCount(3 * claimed);
    SurfaceGeometry mesh;
    mesh.positions.reserve(9 * claimed);
    mesh.triangles.reserve(3 * claimed);
    for (std::uint64_t t = 0; t < claimed; ++t)
    {
        const char* const corners = bytes.data() + HeaderBytes + t * TriangleBytes + 12;
        for (int i = 0; i < 9; ++i)
            mesh.positions.push_back(LittleEndianFloat(corners + 4 * i));
        for (std::uint32_t i = 0; i < 3; ++i)
            mesh.triangles.push_back(static_cast<std::uint32_t>(3 * t) + i);
    }
    return mesh;
}

// One facet's loop of corners, fanned into triangles when it has more than three.
void ReadFacet(WordReader& words, SurfaceGeometry& mesh)
{
    ExpectWord(words, "normal");
    for (int i = 0; i < 3; ++i)
        NumberOnLine(words.nextOnLine(), words.line());
    ExpectWord(words, "outer");
    ExpectWord(words, "loop");
    const std::size_t first = mesh.nodeCount();
    std::string_view word;
    while (SameWord(word = words.next(), "vertex"))
    {
        CheckNodeCount(mesh.nodeCount() + 1);
        for (int i = 0; i < 3; ++i)
            mesh.positions.push_back(ToFloat(NumberOnLine(words.nextOnLine(), words.line())));
    }
    if (word.empty())
        throw MeshFormatError("the file ends inside a facet");
    if (!SameWord(word, "endloop"))
        FailOnLine(words.line(), "expected 'vertex' or 'endloop', found " + Shown(word));
    if (mesh.nodeCount() - first < 3)
        FailOnLine(words.line(), "a facet needs three vertices");
    for (std::size_t corner = first + 2; corner < mesh.nodeCount(); ++corner)
        for (const std::size_t node : {first, corner - 1, corner})
            mesh.triangles.push_back(static_cast<std::uint32_t>(node));
    ExpectWord(words, "endfacet");
}

// One or more solids, each "solid name" ... "endsolid name".
SurfaceGeometry ReadText(std::string_view text)
{
    SurfaceGeometry mesh;
    WordReader words(text);
    ExpectWord(words, "solid");
    words.skipLine();
    for (std::string_view word = words.next();; word = words.next())
    {
        if (SameWord(word, "facet"))
            ReadFacet(words, mesh);
        else if (SameWord(word, "endsolid"))
        {
            words.skipLine();
            word = words.next();
            if (word.empty())
                return mesh;
            if (!SameWord(word, "solid"))
                FailOnLine(words.line(), "expected 'solid' or the end of the file, found " + Shown(word));
            words.skipLine();
        }
        else if (word.empty())
            throw MeshFormatError("the file ends before 'endsolid'");
        else
            FailOnLine(words.line(), "expected 'facet' or 'endsolid', found " + Shown(word));
    }
}

} // namespace

SurfaceGeometry ReadStl(std::string_view bytes)
{
    const bool exactBinary =
        bytes.size() >= HeaderBytes && bytes.size() == HeaderBytes + TriangleBytes * ClaimedTriangles(bytes);
    return !exactBinary && LooksLikeText(bytes) ? ReadText(bytes) : ReadBinary(bytes);
}

} // namespace vantix::host::detail
