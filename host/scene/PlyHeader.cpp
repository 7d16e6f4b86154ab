#include "scene/PlyHeader.h"

#include "scene/MeshText.h"

#include <array>
#include <charconv>
#include <utility>

namespace vantix::host::detail
{

namespace
{

struct TypeName
{
    std::string_view name;
    PlyType type;
};

// Both the original names and the sized ones that later writers use.
constexpr std::array<TypeName, 16> TypeNames{{{"char", PlyType::Int8},
                                              {"int8", PlyType::Int8},
                                              {"uchar", PlyType::UInt8},
                                              {"uint8", PlyType::UInt8},
                                              {"short", PlyType::Int16},
                                              {"int16", PlyType::Int16},
                                              {"ushort", PlyType::UInt16},
                                              {"uint16", PlyType::UInt16},
                                              {"int", PlyType::Int32},
                                              {"int32", PlyType::Int32},
                                              {"uint", PlyType::UInt32},
                                              {"uint32", PlyType::UInt32},
                                              {"float", PlyType::Float32},
                                              {"float32", PlyType::Float32},
                                              {"double", PlyType::Float64},
                                              {"float64", PlyType::Float64}}};

PlyType TypeOnLine(std::string_view word, int line)
{
    for (const TypeName& known : TypeNames)
        if (word == known.name)
            return known.type;
    FailOnLine(line, word.empty() ? "a property type is missing" : Shown(word) + " is not a property type");
}

PlyFormat FormatOnLine(std::string_view word, int line)
{
    if (word == "ascii")
        return PlyFormat::Ascii;
    if (word == "binary_little_endian")
        return PlyFormat::BinaryLittleEndian;
    if (word == "binary_big_endian")
        return PlyFormat::BinaryBigEndian;
    FailOnLine(line, Shown(word) + " is not a PLY format");
}

PlyElement ElementOnLine(WordReader& words)
{
    PlyElement element;
    element.name = std::string(words.nextOnLine());
    const std::string_view count = words.nextOnLine();
    const char* const end = count.data() + count.size();
    const auto [stop, error] = std::from_chars(count.data(), end, element.count);
    if (element.name.empty() || count.empty() || stop != end || error != std::errc())
        FailOnLine(words.line(), "an element needs a name and a whole count, as in 'element vertex 8'");
    return element;
}

PlyProperty PropertyOnLine(WordReader& words)
{
    PlyProperty property;
    std::string_view word = words.nextOnLine();
    property.isList = word == "list";
    if (property.isList)
    {
        property.countType = TypeOnLine(words.nextOnLine(), words.line());
        word = words.nextOnLine();
    }
    property.type = TypeOnLine(word, words.line());
    property.name = std::string(words.nextOnLine());
    if (property.name.empty())
        FailOnLine(words.line(), "a property needs a name");
    return property;
}

// The least a record of the element takes in the data.
std::uint64_t LeastRecordBytes(const PlyElement& element, PlyFormat format)
{
    std::uint64_t bytes = 0;
    for (const PlyProperty& property : element.properties)
        if (format == PlyFormat::Ascii)
            bytes += 1;
        else
            bytes += PlyTypeSize(property.isList ? property.countType : property.type);
    return bytes;
}

void CheckRoom(const PlyHeader& header, std::uint64_t dataBytes)
{
    std::uint64_t left = dataBytes;
    for (const PlyElement& element : header.elements)
    {
        const std::uint64_t recordBytes = LeastRecordBytes(element, header.format);
        if (recordBytes == 0)
            continue; // records of no properties take no room and are never read
        if (element.count > left / recordBytes)
            throw MeshFormatError("the header claims " + std::to_string(element.count) + " " +
                                  element.plural() + " but the file has room for at most " +
                                  std::to_string(left / recordBytes));
        left -= element.count * recordBytes;
    }
}

} // namespace

std::size_t PlyTypeSize(PlyType type)
{
    switch (type)
    {
    case PlyType::Int8:
    case PlyType::UInt8:
        return 1;
    case PlyType::Int16:
    case PlyType::UInt16:
        return 2;
    case PlyType::Int32:
    case PlyType::UInt32:
    case PlyType::Float32:
        return 4;
    case PlyType::Float64:
        return 8;
    }
    return 1;
}

std::string PlyElement::plural() const
{
    if (name == "vertex")
        return "vertices";
    if (name == "face")
        return "faces";
    return Shown(name) + " elements";
}

std::string PlyElement::numbered(std::uint64_t index) const
{
    const std::string number = std::to_string(index + 1);
    return name == "vertex" || name == "face" ? name + " " + number : Shown(name) + " element " + number;
}

PlyHeader ReadPlyHeader(std::string_view bytes, WordReader& words)
{
    if (words.nextOnLine() != "ply")
        throw MeshFormatError("it does not begin with 'ply'");
    PlyHeader header;
    bool hasFormat = false;
    for (words.skipLine();; words.skipLine())
    {
        const std::string_view keyword = words.next();
        if (keyword == "format")
        {
            header.format = FormatOnLine(words.nextOnLine(), words.line());
            hasFormat = true;
        }
        else if (keyword == "element")
            header.elements.push_back(ElementOnLine(words));
        else if (keyword == "property")
        {
            if (header.elements.empty())
                FailOnLine(words.line(), "a property before any element");
            header.elements.back().properties.push_back(PropertyOnLine(words));
        }
        else if (keyword == "end_header")
            break;
        else if (keyword.empty())
            throw MeshFormatError("the header has no 'end_header' line");
        else if (keyword != "comment" && keyword != "obj_info")
            FailOnLine(words.line(), Shown(keyword) + " does not begin a header line");
    }
    if (!hasFormat)
        throw MeshFormatError("the header has no 'format' line");
    words.skipLine();
    CheckRoom(header, bytes.size() - words.offset());
    return header;
}

} // namespace vantix::host::detail
