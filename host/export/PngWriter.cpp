#include "export/PngWriter.h"

#include "export/FrameWriter.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <new>
#include <thread>

namespace vantix::host::detail
{

namespace
{

// A slice is worth a thread of its own from about this size on.
constexpr std::size_t SliceSize = 256 * 1024;
constexpr std::size_t MostSlices = 8;
// Each slice starts from the end of the one before, as if it had been compressed in one go.
constexpr std::size_t Window = 32 * 1024;
constexpr std::uint8_t SubFilter = 1;

void PutBigEndian(std::vector<std::uint8_t>& out, std::uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        out.push_back(static_cast<std::uint8_t>(value >> shift));
}

// A chunk's length and type; its CRC covers the type and the data that follows.
void StartChunk(std::vector<std::uint8_t>& out, std::size_t length, const char* type)
{
    if (length > 0x7fffffffU)
        throw ExportError("the picture is too large for a PNG file");
    PutBigEndian(out, static_cast<std::uint32_t>(length));
    out.insert(out.end(), type, type + 4);
}

void EndChunk(std::vector<std::uint8_t>& out, std::size_t start)
{
    const std::size_t covered = out.size() - start - 8;
    PutBigEndian(
        out, static_cast<std::uint32_t>(crc32(0, out.data() + start + 4, static_cast<uInt>(covered + 4))));
}

// The rows as PNG stores them: a filter byte, then each byte less the same channel's byte to its left.
std::vector<std::uint8_t> FilteredRows(const Image& image)
{
    const std::size_t stride = static_cast<std::size_t>(image.width) * 3;
    std::vector<std::uint8_t> rows((stride + 1) * static_cast<std::size_t>(image.height));
    for (std::size_t y = 0; y < static_cast<std::size_t>(image.height); ++y)
    {
        const std::uint8_t* in = image.rgb.data() + y * stride;
        std::uint8_t* out = rows.data() + y * (stride + 1);
        out[0] = SubFilter;
        std::copy(in, in + 3, out + 1);
        for (std::size_t x = 3; x < stride; ++x)
            out[x + 1] = static_cast<std::uint8_t>(in[x] - in[x - 3]);
    }
    return rows;
}

// One slice of the compressed stream: raw deflate blocks that end on a byte boundary (the last slice
// ends the stream), and the checksum of its own bytes.
struct Slice
{
    const std::uint8_t* begin = nullptr;
    std::size_t size = 0;
    std::size_t dictionary = 0; // bytes before begin that it may refer back to
    bool last = false;
    std::vector<std::uint8_t> compressed;
    uLong adler = 1;
    int status = Z_OK;
};

void Compress(Slice& slice)
{
    z_stream stream{};
    slice.status = deflateInit2(&stream, 1, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY);
    if (slice.status != Z_OK)
        return;
    if (slice.dictionary > 0)
        deflateSetDictionary(&stream, slice.begin - slice.dictionary, static_cast<uInt>(slice.dictionary));
    try
    {
        // Room for the worst case and the empty block a flush adds, so that one call does all.
        slice.compressed.resize(deflateBound(&stream, slice.size) + 16);
    }
    catch (const std::bad_alloc&)
    {
        deflateEnd(&stream);
        slice.status = Z_MEM_ERROR;
        return;
    }
    stream.next_in = const_cast<Bytef*>(slice.begin);
    stream.avail_in = static_cast<uInt>(slice.size);
    stream.next_out = slice.compressed.data();
    stream.avail_out = static_cast<uInt>(slice.compressed.size());
    const int result = deflate(&stream, slice.last ? Z_FINISH : Z_SYNC_FLUSH);
    const bool done = slice.last ? result == Z_STREAM_END : result == Z_OK && stream.avail_in == 0;
    slice.status = done ? Z_OK : Z_BUF_ERROR;
    slice.compressed.resize(stream.total_out);
    deflateEnd(&stream);
    slice.adler = adler32(1, slice.begin, static_cast<uInt>(slice.size));
}

// The filtered rows cut into slices of whole rows. Their number depends on the picture's size alone, so
// that a picture makes the same file on every machine.
std::vector<Slice> Slices(const std::vector<std::uint8_t>& rows, std::size_t rowSize)
{
    const std::size_t count = std::clamp<std::size_t>(rows.size() / SliceSize, 1, MostSlices);
    const std::size_t rowCount = rows.size() / rowSize;
    std::vector<Slice> slices(count);
    std::size_t row = 0;
    for (std::size_t i = 0; i < count; ++i)
    {
        const std::size_t end = rowCount * (i + 1) / count;
        slices[i].begin = rows.data() + row * rowSize;
        slices[i].size = (end - row) * rowSize;
        slices[i].dictionary = std::min(Window, row * rowSize);
        slices[i].last = i + 1 == count;
        row = end;
    }
    return slices;
}

// Compresses the slices on as many threads as there are cores, this one among them.
void CompressAll(std::vector<Slice>& slices)
{
    std::atomic<std::size_t> next{0};
    const auto work = [&slices, &next]
    {
        for (std::size_t i = next++; i < slices.size(); i = next++)
            Compress(slices[i]);
    };
    const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
    std::vector<std::thread> helpers;
    for (std::size_t i = 1; i < std::min(cores, slices.size()); ++i)
        helpers.emplace_back(work);
    work();
    for (std::thread& helper : helpers)
        helper.join();
}

} // namespace

std::vector<std::uint8_t> EncodePng(const Image& image)
{
    const std::vector<std::uint8_t> rows = FilteredRows(image);
    std::vector<Slice> slices = Slices(rows, static_cast<std::size_t>(image.width) * 3 + 1);
    CompressAll(slices);
    std::size_t compressed = 2 + 4;
    for (const Slice& slice : slices)
    {
        if (slice.status == Z_MEM_ERROR)
            throw ExportError("not enough memory to export");
        if (slice.status != Z_OK)
            throw ExportError("cannot compress the picture");
        compressed += slice.compressed.size();
    }

    static const std::array<std::uint8_t, 8> Signature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
    std::vector<std::uint8_t> file(Signature.begin(), Signature.end());
    file.reserve(Signature.size() + 25 + 12 + compressed + 12);
    std::size_t start = file.size();
    StartChunk(file, 13, "IHDR");
    PutBigEndian(file, static_cast<std::uint32_t>(image.width));
    PutBigEndian(file, static_cast<std::uint32_t>(image.height));
    file.insert(file.end(), {8, 2, 0, 0, 0}); // 8 bits a channel, RGB, deflate, filters by row, no interlace
    EndChunk(file, start);

    start = file.size();
    StartChunk(file, compressed, "IDAT");
    file.insert(file.end(), {0x78, 0x01}); // deflate with a 32 KB window, fastest level
    uLong adler = 1;
    for (const Slice& slice : slices)
    {
        file.insert(file.end(), slice.compressed.begin(), slice.compressed.end());
        adler = adler32_combine(adler, slice.adler, static_cast<z_off_t>(slice.size));
    }
    PutBigEndian(file, static_cast<std::uint32_t>(adler));
    EndChunk(file, start);

    start = file.size();
    StartChunk(file, 0, "IEND");
    EndChunk(file, start);
    return file;
}

} // namespace vantix::host::detail
