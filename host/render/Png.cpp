#include "render/Png.h"

#include <zlib.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace vantix::host::detail
{

namespace
{

constexpr std::array<std::uint8_t, 8> Signature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};

void PutBigEndian(std::vector<std::uint8_t>& out, std::uint32_t value)
{
    out.insert(out.end(), {static_cast<std::uint8_t>(value >> 24), static_cast<std::uint8_t>(value >> 16),
                           static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)});
}

std::uint32_t BigEndian(const std::uint8_t* bytes)
{
    return std::uint32_t(bytes[0]) << 24 | std::uint32_t(bytes[1]) << 16 | std::uint32_t(bytes[2]) << 8 |
           bytes[3];
}

void PutChunk(std::vector<std::uint8_t>& out, const char* type, const std::vector<std::uint8_t>& data)
{
    PutBigEndian(out, static_cast<std::uint32_t>(data.size()));
    const std::size_t typeAt = out.size();
    out.insert(out.end(), type, type + 4);
    out.insert(out.end(), data.begin(), data.end());
    const uLong crc = crc32(0L, out.data() + typeAt, static_cast<uInt>(4 + data.size()));
    PutBigEndian(out, static_cast<std::uint32_t>(crc));
}

int Paeth(int a, int b, int c)
{
    const int p = a + b - c, pa = std::abs(p - a), pb = std::abs(p - b), pc = std::abs(p - c);
    return pa <= pb && pa <= pc ? a : pb <= pc ? b : c;
}

} // namespace

void WritePng(const Image& image, const std::string& path)
{
    const auto fail = [&](const std::string& reason)
    { throw std::runtime_error("cannot write PNG file '" + path + "': " + reason); };
    if (image.width <= 0 || image.height <= 0 ||
        image.rgb.size() != static_cast<std::size_t>(image.width) * image.height * 3)
        fail("the image is empty or its pixels do not match its size");

    // Each row starts with its filter type; 0 (none) keeps the writer simple and the output exact.
    const std::size_t row = static_cast<std::size_t>(image.width) * 3;
    std::vector<std::uint8_t> raw;
    raw.reserve((row + 1) * image.height);
    for (int y = 0; y < image.height; ++y)
    {
        raw.push_back(0);
        const auto* start = image.rgb.data() + y * row;
        raw.insert(raw.end(), start, start + row);
    }
    uLongf packedSize = compressBound(static_cast<uLong>(raw.size()));
    std::vector<std::uint8_t> packed(packedSize);
    if (compress2(packed.data(), &packedSize, raw.data(), static_cast<uLong>(raw.size()), 6) != Z_OK)
        fail("the pixels cannot be compressed");
    packed.resize(packedSize);

    std::vector<std::uint8_t> file(Signature.begin(), Signature.end());
    std::vector<std::uint8_t> header;
    PutBigEndian(header, static_cast<std::uint32_t>(image.width));
    PutBigEndian(header, static_cast<std::uint32_t>(image.height));
    header.insert(header.end(), {8, 2, 0, 0, 0}); // 8 bits, RGB, deflate, adaptive filters, no interlace
    PutChunk(file, "IHDR", header);
    PutChunk(file, "IDAT", packed);
    PutChunk(file, "IEND", {});

    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out)
        fail("it cannot be opened for writing");
    out.write(reinterpret_cast<const char*>(file.data()), static_cast<std::streamsize>(file.size()));
    out.close();
    if (!out)
        fail("writing failed");
}

Image ReadPng(const std::string& path)
{
    const auto fail = [&](const std::string& reason)
    { throw std::runtime_error("cannot read PNG file '" + path + "': " + reason); };
    std::ifstream in(path, std::ios::binary);
    if (!in)
        fail("it cannot be opened");
    const std::vector<std::uint8_t> file((std::istreambuf_iterator<char>(in)),
                                         std::istreambuf_iterator<char>());
    if (file.size() < Signature.size() || !std::equal(Signature.begin(), Signature.end(), file.begin()))
        fail("it is not a PNG file");

    int width = 0, height = 0, channels = 0;
    std::vector<std::uint8_t> packed;
    bool ended = false;
    for (std::size_t at = Signature.size(); !ended;)
    {
        if (at + 12 > file.size())
            fail("it ends in the middle of a chunk");
        const std::uint32_t length = BigEndian(&file[at]);
        if (length > file.size() - at - 12)
            fail("it ends in the middle of a chunk");
        const std::string type(reinterpret_cast<const char*>(&file[at + 4]), 4);
        const std::uint8_t* data = &file[at + 8];
        if (crc32(crc32(0L, nullptr, 0), &file[at + 4], length + 4) != BigEndian(data + length))
            fail("the " + type + " chunk is damaged (CRC)");
        if (type == "IHDR")
        {
            if (length != 13)
                fail("its header has the wrong length");
            width = static_cast<int>(BigEndian(data));
            height = static_cast<int>(BigEndian(data + 4));
            const int depth = data[8], colourType = data[9], interlace = data[12];
            channels = colourType == 0   ? 1
                       : colourType == 2 ? 3
                       : colourType == 4 ? 2
                       : colourType == 6 ? 4
                                         : 0;
            if (depth != 8 || channels == 0 || interlace != 0)
                fail("only 8-bit grey, RGB and RGBA files without interlacing are read");
            if (width <= 0 || height <= 0 || static_cast<long>(width) * height > 100L * 1000 * 1000)
                fail("its size is not one an image can have here");
        }
        else if (type == "IDAT")
            packed.insert(packed.end(), data, data + length);
        else if (type == "IEND")
            ended = true;
        at += 12 + length;
    }
    if (channels == 0)
        fail("it has no header");

    const std::size_t stride = static_cast<std::size_t>(width) * channels;
    std::vector<std::uint8_t> raw((stride + 1) * height);
    uLongf rawSize = static_cast<uLongf>(raw.size());
    if (uncompress(raw.data(), &rawSize, packed.data(), static_cast<uLong>(packed.size())) != Z_OK ||
        rawSize != raw.size())
        fail("its pixel data does not inflate to the image size");

    std::vector<std::uint8_t> pixels(stride * height);
    for (int y = 0; y < height; ++y)
    {
        const std::uint8_t filter = raw[y * (stride + 1)];
        const std::uint8_t* source = &raw[y * (stride + 1) + 1];
        std::uint8_t* target = &pixels[y * stride];
        const std::uint8_t* above = y > 0 ? &pixels[(y - 1) * stride] : nullptr;
        for (std::size_t i = 0; i < stride; ++i)
        {
            const int a = i >= static_cast<std::size_t>(channels) ? target[i - channels] : 0;
            const int b = above ? above[i] : 0;
            const int c = above && i >= static_cast<std::size_t>(channels) ? above[i - channels] : 0;
            int predicted = 0;
            switch (filter)
            {
            case 0:
                break;
            case 1:
                predicted = a;
                break;
            case 2:
                predicted = b;
                break;
            case 3:
                predicted = (a + b) / 2;
                break;
            case 4:
                predicted = Paeth(a, b, c);
                break;
            default:
                fail("row " + std::to_string(y) + " has the unknown filter " + std::to_string(filter));
            }
            target[i] = static_cast<std::uint8_t>(source[i] + predicted);
        }
    }

    Image image;
    image.width = width;
    image.height = height;
    image.rgb.resize(static_cast<std::size_t>(width) * height * 3);
    for (std::size_t p = 0; p < static_cast<std::size_t>(width) * height; ++p)
        for (int c = 0; c < 3; ++c)
            image.rgb[p * 3 + c] = pixels[p * channels + (channels >= 3 ? c : 0)];
    return image;
}

} // namespace vantix::host::detail
