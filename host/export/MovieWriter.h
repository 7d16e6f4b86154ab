// Movies through FFmpeg's libraries: AVI, Flash (SWF), Flash video (FLV), MPEG-4 and WMV.
#pragma once

#include "export/FfmpegOwners.h"
#include "export/FrameWriter.h"

#include <cstdint>
#include <vector>

namespace vantix::host::detail
{

class MovieWriter : public FrameWriter
{
public:
    explicit MovieWriter(const MovieOptions& options);

private:
    void append(const Image& image) override;
    void complete() override;
    void encode(AVFrame* frame);

    OutputOwner m_format;
    CodecContextOwner m_codec;
    AVStream* m_stream = nullptr; // owned by m_format
    FrameOwner m_frame;           // the converted image
    PacketOwner m_packet;
    ScalerOwner m_convert;
    std::vector<std::uint8_t> m_scalerTail; // reused between frames
    int m_showings;                         // of each frame, for a rate the container cannot carry as it is
    std::int64_t m_nextPts = 0;
};

} // namespace vantix::host::detail
