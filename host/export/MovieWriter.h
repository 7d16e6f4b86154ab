// Movies through FFmpeg's libraries: AVI, Flash (SWF), Flash video (FLV), MPEG-4 and WMV.
#pragma once

#include "export/FrameWriter.h"

#include <cstdint>

struct AVCodecContext;
struct AVFormatContext;
struct AVFrame;
struct AVPacket;
struct AVStream;
struct SwsContext;

namespace vantix::host::detail
{

class MovieWriter : public FrameWriter
{
public:
    explicit MovieWriter(const MovieOptions& options);
    ~MovieWriter() override;
    MovieWriter(const MovieWriter&) = delete;
    MovieWriter& operator=(const MovieWriter&) = delete;

    void write(const Image& image) override;
    void finish() override;

private:
    void encode(AVFrame* frame);
    void release();

    std::string m_path;
    AVFormatContext* m_format = nullptr; // owned, with its file
    AVCodecContext* m_codec = nullptr;   // owned
    AVStream* m_stream = nullptr;        // owned by m_format
    AVFrame* m_frame = nullptr;          // owned: the converted image
    AVPacket* m_packet = nullptr;        // owned
    SwsContext* m_convert = nullptr;     // owned
    std::int64_t m_nextPts = 0;
    bool m_finished = false;
};

} // namespace vantix::host::detail
