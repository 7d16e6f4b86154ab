// Owners of FFmpeg's objects, one type for each kind: each frees its object once, with the function FFmpeg
// gives for it, whatever way the code that made it is left.
#pragma once

extern "C"
{
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

namespace vantix::host::detail
{

// Frees with a function that takes the object.
template <typename T, void (*Free)(T*)>
struct FfmpegFree
{
    void operator()(T* object) const { Free(object); }
};

// Frees with a function that takes the owner's pointer to the object, to null it.
template <typename T, void (*Free)(T**)>
struct FfmpegFreeAndNull
{
    void operator()(T* object) const { Free(&object); }
};

// An output format context closes the file it writes before it is freed.
struct FfmpegCloseOutput
{
    void operator()(AVFormatContext* context) const
    {
        if (context->pb)
            avio_closep(&context->pb);
        avformat_free_context(context);
    }
};

using CodecContextOwner =
    std::unique_ptr<AVCodecContext, FfmpegFreeAndNull<AVCodecContext, avcodec_free_context>>;
using FrameOwner = std::unique_ptr<AVFrame, FfmpegFreeAndNull<AVFrame, av_frame_free>>;
using PacketOwner = std::unique_ptr<AVPacket, FfmpegFreeAndNull<AVPacket, av_packet_free>>;
using ScalerOwner = std::unique_ptr<SwsContext, FfmpegFree<SwsContext, sws_freeContext>>;
using OutputOwner = std::unique_ptr<AVFormatContext, FfmpegCloseOutput>;

// swscale reads its input in blocks of up to 16 bytes and may read past the last pixel: it is given a
// copy with room after the end.
inline const std::uint8_t* ScalerInput(const std::vector<std::uint8_t>& pixels,
                                       std::vector<std::uint8_t>& copy)
{
    copy.resize(pixels.size() + AV_INPUT_BUFFER_PADDING_SIZE);
    std::copy(pixels.begin(), pixels.end(), copy.begin());
    return copy.data();
}

} // namespace vantix::host::detail
