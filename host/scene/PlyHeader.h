// The header of a PLY file: its format and its elements with their counts and properties.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vantix::host::detail
{

class WordReader;

enum class PlyFormat
{
    Ascii,
    BinaryLittleEndian,
    BinaryBigEndian
};

enum class PlyType
{
    Int8,
    UInt8,
    Int16,
    UInt16,
    Int32,
    UInt32,
    Float32,
    Float64
};

// Bytes a value of the type takes in a binary file.
std::size_t PlyTypeSize(PlyType type);

struct PlyProperty
{
    std::string name;
    PlyType type = PlyType::Float32; // of the value, or of a list's items
    bool isList = false;
    PlyType countType = PlyType::UInt8; // of a list's count
};

struct PlyElement
{
    std::string name;
    std::uint64_t count = 0;
    std::vector<PlyProperty> properties;

    // "vertices", "faces", or "'edge' elements", for messages.
    std::string plural() const;
    // "vertex 3", "face 3" or "'edge' element 3" (counting from 1), for messages.
    std::string numbered(std::uint64_t index) const;
};

struct PlyHeader
{
    PlyFormat format = PlyFormat::Ascii;
    std::vector<PlyElement> elements;
};

// Reads the header from the start of the file up to and including its "end_header" line, leaving the
// reader at the first line of the data, and checks that the data left can hold every element the header
// claims: in a binary file each record takes at least its fixed-size values and its lists' counts, in a
// text file at least one byte a value. So a damaged count is refused before anything is allocated for it.
// Throws MeshFormatError saying what is wrong and on which line.
PlyHeader ReadPlyHeader(std::string_view bytes, WordReader& words);

} // namespace vantix::host::detail
