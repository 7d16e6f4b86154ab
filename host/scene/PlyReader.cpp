#include "scene/PlyReader.h"

#include "scene/MeshText.h"
#include "scene/PlyHeader.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <optional>

namespace vantix::host::detail
{

namespace
{

// The values of the data one at a time, from text or from binary in either byte order.
class PlyValues
{
public:
    PlyValues(std::string_view bytes, PlyFormat format, WordReader& words)
        : m_bytes(bytes), m_format(format), m_words(words), m_at(words.offset())
    {
    }

    // The next value, or nothing at the end of the data; throws MeshFormatError for text that is not a
    // number.
    std::optional<double> next(PlyType type)
    {
        if (m_format == PlyFormat::Ascii)
        {
            const std::string_view word = m_words.next();
            if (word.empty())
                return std::nullopt;
            return NumberOnLine(word, m_words.line());
        }
        const std::size_t size = PlyTypeSize(type);
        if (m_bytes.size() - m_at < size)
            return std::nullopt;
        std::uint64_t bits = 0;
        for (std::size_t i = 0; i < size; ++i)
        {
            const std::size_t byte = m_format == PlyFormat::BinaryLittleEndian ? size - 1 - i : i;
            bits = (bits << 8) | static_cast<unsigned char>(m_bytes[m_at + byte]);
        }
        m_at += size;
        return Decoded(bits, type);
    }

    // The least number of bytes a value of the type takes.
    std::uint64_t leastBytes(PlyType type) const
    {
        return m_format == PlyFormat::Ascii ? 1 : PlyTypeSize(type);
    }
    std::uint64_t bytesLeft() const
    {
        return m_bytes.size() - (m_format == PlyFormat::Ascii ? m_words.offset() : m_at);
    }

private:
    static double Decoded(std::uint64_t bits, PlyType type)
    {
        switch (type)
        {
        case PlyType::Int8:
            return static_cast<std::int8_t>(bits);
        case PlyType::UInt8:
        case PlyType::UInt16:
        case PlyType::UInt32:
            return static_cast<double>(bits);
        case PlyType::Int16:
            return static_cast<std::int16_t>(bits);
        case PlyType::Int32:
            return static_cast<std::int32_t>(bits);
        case PlyType::Float32:
        {
            const auto narrow = static_cast<std::uint32_t>(bits);
            float value = 0.0f;
            std::memcpy(&value, &narrow, sizeof value);
            return value;
        }
        case PlyType::Float64:
        {
            double value = 0.0;
            std::memcpy(&value, &bits, sizeof value);
            return value;
        }
        }
        return 0.0;
    }

    std::string_view m_bytes;
    PlyFormat m_format;
    WordReader& m_words;
    std::size_t m_at; // in binary data
};

std::string Number(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.10g", value);
    return text;
}

// What the reader keeps of a property: a vertex's coordinate or a face's corners.
struct Wanted
{
    int coordinate = -1;      // 0, 1, 2 for a vertex's x, y, z
    bool faceCorners = false; // the list of a face's vertex indices
};

class PlyMeshReader
{
public:
    PlyMeshReader(std::string_view bytes, const PlyHeader& header, WordReader& words)
        : m_header(header), m_values(bytes, header.format, words)
    {
    }

    SurfaceGeometry read()
    {
        // The first vertex element is the one faces refer to; any other is read past.
        for (const PlyElement& element : m_header.elements)
            if (element.name == "vertex" && !m_vertices)
                prepareVertices(element);
        for (const PlyElement& element : m_header.elements)
            if (element.name == "face")
                prepareFaces(element);
        for (const PlyElement& element : m_header.elements)
            if (!element.properties.empty())
                for (std::uint64_t index = 0; index < element.count; ++index)
                    readRecord(element, index);
        return std::move(m_mesh);
    }

private:
    Wanted wantedOf(const PlyElement& element, const PlyProperty& property) const
    {
        Wanted wanted;
        if (&element == m_vertices && !property.isList && property.name.size() == 1 &&
            property.name.find_first_of("xyz") == 0)
            wanted.coordinate = property.name[0] - 'x';
        wanted.faceCorners = element.name == "face" && property.isList &&
                             (property.name == "vertex_indices" || property.name == "vertex_index");
        return wanted;
    }

    void prepareVertices(const PlyElement& vertices)
    {
        m_vertices = &vertices;
        int coordinates = 0;
        for (const PlyProperty& property : vertices.properties)
            coordinates += wantedOf(vertices, property).coordinate >= 0 ? 1 : 0;
        if (coordinates != 3 && vertices.count > 0)
            throw MeshFormatError("the vertices have no 'x', 'y' and 'z' properties");
        CheckNodeCount(vertices.count);
        m_mesh.positions.assign(3 * vertices.count, 0.0f);
    }

    // Room for the triangles of faces of three corners, as many as the header says there are and the file
    // can hold (a header may claim any count): the array then does not grow by doubling, which would hold
    // it twice over for a moment and leave it up to twice its size.
    void prepareFaces(const PlyElement& faces)
    {
        std::uint64_t leastBytes = 0;
        for (const PlyProperty& property : faces.properties)
            leastBytes += property.isList ? m_values.leastBytes(property.countType) +
                                                3 * m_values.leastBytes(property.type)
                                          : m_values.leastBytes(property.type);
        // Values in text are a digit and a space at least.
        const std::uint64_t perFace = m_header.format == PlyFormat::Ascii ? 2 * leastBytes : leastBytes;
        const std::uint64_t fits = perFace > 0 ? m_values.bytesLeft() / perFace : 0;
        m_mesh.triangles.reserve(m_mesh.triangles.size() + 3 * std::min(faces.count, fits));
    }

    double value(PlyType type, const PlyElement& element, std::uint64_t index)
    {
        if (const std::optional<double> value = m_values.next(type))
            return *value;
        throw MeshFormatError("the file ends inside " + element.numbered(index));
    }

    void readRecord(const PlyElement& element, std::uint64_t index)
    {
        for (const PlyProperty& property : element.properties)
        {
            const Wanted wanted = wantedOf(element, property);
            if (!property.isList)
            {
                const double v = value(property.type, element, index);
                if (wanted.coordinate >= 0)
                    m_mesh.positions[3 * index + static_cast<std::size_t>(wanted.coordinate)] = ToFloat(v);
                continue;
            }
            const double count = value(property.countType, element, index);
            const std::uint64_t room = m_values.bytesLeft() / m_values.leastBytes(property.type);
            if (!(count >= 0.0 && count <= static_cast<double>(room) && std::floor(count) == count))
                throw MeshFormatError(element.numbered(index) + " claims a list of " + Number(count) +
                                      " values but the file has room for at most " + std::to_string(room));
            m_corners.clear();
            for (std::uint64_t item = 0; item < static_cast<std::uint64_t>(count); ++item)
            {
                const double v = value(property.type, element, index);
                if (wanted.faceCorners)
                    m_corners.push_back(cornerNode(v, element, index));
            }
            if (wanted.faceCorners)
                addFace(element, index);
        }
    }

    std::uint32_t cornerNode(double vertex, const PlyElement& element, std::uint64_t index) const
    {
        const std::size_t vertices = m_mesh.nodeCount();
        if (!(vertex >= 0.0 && vertex < static_cast<double>(vertices) && std::floor(vertex) == vertex))
            throw MeshFormatError(element.numbered(index) + " refers to vertex " + Number(vertex) +
                                  ", but the file has " + std::to_string(vertices) +
                                  " vertices, numbered from 0");
        return static_cast<std::uint32_t>(vertex);
    }

    void addFace(const PlyElement& element, std::uint64_t index)
    {
        if (m_corners.size() < 3)
            throw MeshFormatError(element.numbered(index) + " has fewer than three corners");
        for (std::size_t corner = 2; corner < m_corners.size(); ++corner)
            m_mesh.triangles.insert(m_mesh.triangles.end(),
                                    {m_corners[0], m_corners[corner - 1], m_corners[corner]});
    }

    const PlyHeader& m_header;
    PlyValues m_values;
    SurfaceGeometry m_mesh;
    const PlyElement* m_vertices = nullptr; // the first vertex element, or none
    std::vector<std::uint32_t> m_corners;   // of the face being read, kept to save allocations
};

} // namespace

SurfaceGeometry ReadPly(std::string_view bytes)
{
    WordReader words(bytes);
    const PlyHeader header = ReadPlyHeader(bytes, words);
    return PlyMeshReader(bytes, header, words).read();
}

} // namespace vantix::host::detail
