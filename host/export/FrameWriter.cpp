#include "export/FrameWriter.h"

#include "export/MovieWriter.h"
#include "export/RasterMetafile.h"

extern "C"
{
#include <libavcodec/avcodec.h>
#include <libswscale/swscale.h>
}

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace vantix::host::detail
{

namespace
{

std::string FfmpegText(int error)
{
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(error, text, sizeof text);
    return text;
}

// The encoder of a still-image format and the picture format it takes.
std::pair<AVCodecID, AVPixelFormat> StillEncoder(ExportFormat_e format)
{
    switch (format)
    {
    case ExportFormat_PNG:
        return {AV_CODEC_ID_PNG, AV_PIX_FMT_RGB24};
    case ExportFormat_BMP:
        return {AV_CODEC_ID_BMP, AV_PIX_FMT_BGR24};
    case ExportFormat_TIFF:
        return {AV_CODEC_ID_TIFF, AV_PIX_FMT_RGB24};
    case ExportFormat_JPEG:
        return {AV_CODEC_ID_MJPEG, AV_PIX_FMT_YUVJ444P};
    default:
        throw ExportError("the export format is not a still-image format");
    }
}

// Owners of the FFmpeg objects of one still image.
struct CodecContextFree
{
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
};
struct FrameFree
{
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};
struct PacketFree
{
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};
struct ScalerFree
{
    void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
};

} // namespace

std::unique_ptr<FrameWriter> OpenFrameWriter(const MovieOptions& options)
{
    if (options.format == ExportFormat_RasterMetafile)
        return std::make_unique<RasterMetafileWriter>(options);
    return std::make_unique<MovieWriter>(options);
}

void WriteStillImage(ExportFormat_e format, const Image& image, const std::string& path)
{
    const auto [codecId, pixelFormat] = StillEncoder(format);
    const AVCodec* codec = avcodec_find_encoder(codecId);
    if (!codec)
        throw ExportError("this host has no encoder for the image format");
    std::unique_ptr<AVCodecContext, CodecContextFree> context(avcodec_alloc_context3(codec));
    std::unique_ptr<AVFrame, FrameFree> frame(av_frame_alloc());
    std::unique_ptr<AVPacket, PacketFree> packet(av_packet_alloc());
    if (!context || !frame || !packet)
        throw ExportError("not enough memory to export");
    context->width = image.width;
    context->height = image.height;
    context->pix_fmt = pixelFormat;
    context->time_base = AVRational{1, 1};
    if (codecId == AV_CODEC_ID_MJPEG)
    {
        context->color_range = AVCOL_RANGE_JPEG;
        context->flags |= AV_CODEC_FLAG_QSCALE;
        context->global_quality = FF_QP2LAMBDA * 2;
    }
    int result = avcodec_open2(context.get(), codec, nullptr);
    if (result < 0)
        throw ExportError("cannot start the image encoder: " + FfmpegText(result));

    frame->format = pixelFormat;
    frame->width = image.width;
    frame->height = image.height;
    frame->quality = context->global_quality;
    if (av_frame_get_buffer(frame.get(), 0) < 0)
        throw ExportError("not enough memory to export");
    std::unique_ptr<SwsContext, ScalerFree> scaler(sws_getContext(image.width, image.height, AV_PIX_FMT_RGB24,
                                                                  image.width, image.height, pixelFormat,
                                                                  SWS_BICUBIC, nullptr, nullptr, nullptr));
    if (!scaler)
        throw ExportError("cannot convert the image for its encoder");
    const std::uint8_t* source[] = {image.rgb.data()};
    const int sourceStride[] = {image.width * 3};
    sws_scale(scaler.get(), source, sourceStride, 0, image.height, frame->data, frame->linesize);

    if ((result = avcodec_send_frame(context.get(), frame.get())) < 0 ||
        (result = avcodec_receive_packet(context.get(), packet.get())) < 0)
        throw ExportError("cannot encode the image: " + FfmpegText(result));

    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file)
        throw ExportError("cannot write " + path + ": " + std::strerror(errno));
    const bool written =
        std::fwrite(packet->data, 1, std::size_t(packet->size), file) == std::size_t(packet->size);
    const bool closed = std::fclose(file) == 0;
    if (!written || !closed)
    {
        std::remove(path.c_str());
        throw ExportError("cannot write " + path);
    }
}

} // namespace vantix::host::detail
