#include "export/RasterMetafile.h"

extern "C"
{
#include <libavutil/rational.h>
}

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <zlib.h>

namespace vantix::host::detail
{

namespace
{

const char Signature[8] = {'V', 'T', 'X', 'R', 'M', 'F', '1', '\n'};
constexpr long FrameCountOffset = 8 + 4 * 4;

std::uint32_t Number(const unsigned char* bytes)
{
    return std::uint32_t(bytes[0]) | std::uint32_t(bytes[1]) << 8 | std::uint32_t(bytes[2]) << 16 |
           std::uint32_t(bytes[3]) << 24;
}

std::array<unsigned char, 4> LittleEndian(std::uint32_t value)
{
    return {static_cast<unsigned char>(value), static_cast<unsigned char>(value >> 8),
            static_cast<unsigned char>(value >> 16), static_cast<unsigned char>(value >> 24)};
}

class RasterMetafileWriter : public FrameWriter
{
public:
    explicit RasterMetafileWriter(const MovieOptions& options) : FrameWriter(options, "raster metafile")
    {
        const AVRational rate = av_d2q(options.framesPerSecond, 65535);
        put(Signature, sizeof Signature);
        putNumber(std::uint32_t(options.width));
        putNumber(std::uint32_t(options.height));
        putNumber(std::uint32_t(rate.num));
        putNumber(std::uint32_t(rate.den));
        putNumber(0);
    }

private:
    void append(const Image& image) override
    {
        uLongf size = compressBound(uLong(image.rgb.size()));
        m_compressed.resize(size);
        // The fastest level: the pictures are large and the file is only an intermediate one.
        if (compress2(m_compressed.data(), &size, image.rgb.data(), uLong(image.rgb.size()), Z_BEST_SPEED) !=
            Z_OK)
            throw ExportError("cannot compress a frame for " + path());
        putNumber(std::uint32_t(size));
        put(m_compressed.data(), size);
        ++m_frames;
    }

    void complete() override
    {
        const auto count = LittleEndian(m_frames);
        file().writeAt(FrameCountOffset, count.data(), count.size());
    }

    void put(const void* bytes, std::size_t count) { file().write(bytes, count); }

    void putNumber(std::uint32_t value)
    {
        const auto bytes = LittleEndian(value);
        put(bytes.data(), bytes.size());
    }

    std::uint32_t m_frames = 0;
    std::vector<unsigned char> m_compressed; // reused between frames
};

} // namespace

std::unique_ptr<FrameWriter> OpenRasterMetafile(const MovieOptions& options)
{
    return std::make_unique<RasterMetafileWriter>(options);
}

RasterMetafile ReadRasterMetafile(const std::string& path)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), std::fclose);
    if (!file)
        throw ExportError("cannot read " + path + ": " + std::strerror(errno));
    const auto read = [&](void* bytes, std::size_t count)
    {
        if (std::fread(bytes, 1, count, file.get()) != count)
            throw ExportError(path + " ends too early");
    };
    const auto readNumber = [&]
    {
        unsigned char bytes[4];
        read(bytes, 4);
        return Number(bytes);
    };

    char signature[8];
    read(signature, 8);
    if (std::memcmp(signature, Signature, 8) != 0)
        throw ExportError(path + " is not a raster metafile");
    RasterMetafile metafile;
    metafile.width = int(readNumber());
    metafile.height = int(readNumber());
    metafile.rateNumerator = readNumber();
    metafile.rateDenominator = readNumber();
    const std::uint32_t frames = readNumber();
    const std::size_t frameBytes = std::size_t(metafile.width) * std::size_t(metafile.height) * 3;
    if (metafile.width <= 0 || metafile.height <= 0 || frameBytes > (std::size_t(1) << 31))
        throw ExportError(path + " has an impossible image size");

    // A frame is never larger than what is left of the file: a damaged count is not allocated.
    std::error_code error;
    const std::uintmax_t fileSize = std::filesystem::file_size(path, error);
    std::vector<unsigned char> compressed;
    for (std::uint32_t i = 0; i < frames; ++i)
    {
        const std::uint32_t frameSize = readNumber();
        const long position = std::ftell(file.get());
        if (error || position < 0 || frameSize > fileSize - static_cast<std::uintmax_t>(position))
            throw ExportError(path + " ends too early");
        compressed.resize(frameSize);
        read(compressed.data(), compressed.size());
        Image image;
        image.width = metafile.width;
        image.height = metafile.height;
        image.rgb.resize(frameBytes);
        uLongf size = uLongf(frameBytes);
        if (uncompress(image.rgb.data(), &size, compressed.data(), uLong(compressed.size())) != Z_OK ||
            size != frameBytes)
            throw ExportError("frame " + std::to_string(i + 1) + " of " + path + " is damaged");
        metafile.frames.push_back(std::move(image));
    }
    return metafile;
}

} // namespace vantix::host::detail
