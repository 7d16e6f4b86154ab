#include "export/StillImage.h"

#include "export/FfmpegLog.h"
#include "export/FfmpegOwners.h"
#include "export/FrameWriter.h"
#include "export/PngWriter.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace vantix::host::detail
{

namespace
{

// The encoder of a still-image format and the picture format it takes.
std::pair<AVCodecID, AVPixelFormat> StillEncoder(ExportFormat_e format)
{
    switch (format)
    {
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

// Converts between picture formats of the same size, exactly where no colour conversion is needed.
ScalerOwner PictureConverter(int width, int height, AVPixelFormat from, AVPixelFormat to)
{
    ScalerOwner scaler(
        sws_getContext(width, height, from, width, height, to, SWS_POINT, nullptr, nullptr, nullptr));
    if (!scaler)
        throw ExportError("cannot convert the picture");
    return scaler;
}

// A codec of one picture, with the frame and the packet that pass through it.
struct PictureCodec
{
    explicit PictureCodec(const AVCodec* codec)
        : context(avcodec_alloc_context3(codec)), frame(av_frame_alloc()), packet(av_packet_alloc())
    {
        if (!context || !frame || !packet)
            throw ExportError("not enough memory for the picture");
    }

    void open(const AVCodec* codec) const
    {
        const int result = avcodec_open2(context.get(), codec, nullptr);
        if (result < 0)
            throw ExportError(std::string("cannot start the ") + codec->name +
                              " codec: " + FfmpegErrorText(result));
    }

    CodecContextOwner context;
    FrameOwner frame;
    PacketOwner packet;
};

// A picture larger than any the host draws is refused rather than converted.
constexpr long LargestPictureArea = 100L * 1000 * 1000;

} // namespace

std::vector<std::uint8_t> EncodeStillImage(ExportFormat_e format, const Image& image)
{
    if (image.empty() || image.rgb.size() != static_cast<std::size_t>(image.width) * image.height * 3)
        throw ExportError("the image is empty or its pixels do not match its size");
    if (format == ExportFormat_PNG)
        return EncodePng(image);
    CaptureFfmpegMessages();
    ForgetFfmpegComplaint();
    const auto [codecId, pixelFormat] = StillEncoder(format);
    const AVCodec* codec = avcodec_find_encoder(codecId);
    if (!codec)
        throw ExportError("this host has no encoder for the image format");
    const PictureCodec coder(codec);
    AVCodecContext* context = coder.context.get();
    AVFrame* frame = coder.frame.get();
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
    coder.open(codec);

    frame->format = pixelFormat;
    frame->width = image.width;
    frame->height = image.height;
    frame->quality = context->global_quality;
    if (av_frame_get_buffer(frame, 0) < 0)
        throw ExportError("not enough memory to export");
    std::vector<std::uint8_t> tail;
    ScaleRgbPicture(PictureConverter(image.width, image.height, AV_PIX_FMT_RGB24, pixelFormat).get(),
                    image.rgb, image.width, image.height, frame->data, frame->linesize, tail);

    const AVPacket* packet = coder.packet.get();
    int result = 0;
    if ((result = avcodec_send_frame(context, frame)) < 0 ||
        (result = avcodec_receive_packet(context, coder.packet.get())) < 0)
        throw ExportError("cannot encode the image: " + FfmpegErrorText(result));
    return std::vector<std::uint8_t>(packet->data, packet->data + packet->size);
}

Image DecodePng(std::vector<std::uint8_t> bytes)
{
    CaptureFfmpegMessages();
    ForgetFfmpegComplaint();
    static const std::uint8_t Signature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
    if (bytes.size() < sizeof Signature ||
        !std::equal(std::begin(Signature), std::end(Signature), bytes.begin()))
        throw ExportError("it is not a PNG file");
    const AVCodec* codec = avcodec_find_decoder(AV_CODEC_ID_PNG);
    if (!codec)
        throw ExportError("this host has no PNG decoder");
    const PictureCodec decoder(codec);
    decoder.open(codec);
    const AVFrame* frame = decoder.frame.get();

    // The decoder reads a little beyond the data it is given, into padding that must be there.
    const std::size_t size = bytes.size();
    bytes.resize(size + AV_INPUT_BUFFER_PADDING_SIZE, 0);
    decoder.packet->data = bytes.data();
    decoder.packet->size = static_cast<int>(size);
    int result = 0;
    if ((result = avcodec_send_packet(decoder.context.get(), decoder.packet.get())) < 0 ||
        (result = avcodec_receive_frame(decoder.context.get(), decoder.frame.get())) < 0)
        throw ExportError("it is damaged: " + FfmpegErrorText(result));
    if (frame->width <= 0 || frame->height <= 0 ||
        static_cast<long>(frame->width) * frame->height > LargestPictureArea)
        throw ExportError("its size is not one an image can have here");

    Image image;
    image.width = frame->width;
    image.height = frame->height;
    image.rgb.resize(static_cast<std::size_t>(image.width) * image.height * 3);
    std::uint8_t* target[] = {image.rgb.data()};
    const int targetStride[] = {image.width * 3};
    const ScalerOwner toRgb = PictureConverter(image.width, image.height,
                                               static_cast<AVPixelFormat>(frame->format), AV_PIX_FMT_RGB24);
    // A decoded frame has room after each row.
    sws_scale(toRgb.get(), frame->data, frame->linesize, 0, image.height, target, targetStride);
    return image;
}

} // namespace vantix::host::detail
