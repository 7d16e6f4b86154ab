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

// Converts a picture of rows of RGB bytes, top row first, with scaler. swscale reads a row in blocks of up
// to 16 bytes and may read past its end: the rows but the last two are read where they lie (what is read
// past one of them lies in the next), the last two from tail, a copy with room after the end. A copy of
// the whole picture would cost as much memory again as the picture; the result is the same.
inline void ScaleRgbPicture(SwsContext* scaler, const std::vector<std::uint8_t>& rgb, int width, int height,
                            std::uint8_t* const* target, const int* targetStrides,
                            std::vector<std::uint8_t>& tail)
{
    const int stride[] = {width * 3};
    const int tailRows = std::min(height, 2);
    const int bodyRows = height - tailRows;
    if (bodyRows > 0)
    {
        const std::uint8_t* body[] = {rgb.data()};
        sws_scale(scaler, body, stride, 0, bodyRows, target, targetStrides);
    }
    const auto tailStart = rgb.end() - static_cast<std::ptrdiff_t>(tailRows) * stride[0];
    tail.assign(tailStart, rgb.end());
    tail.resize(tail.size() + AV_INPUT_BUFFER_PADDING_SIZE);
    const std::uint8_t* last[] = {tail.data()};
    sws_scale(scaler, last, stride, bodyRows, tailRows, target, targetStrides);
}

} // namespace vantix::host::detail
