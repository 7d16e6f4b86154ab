#include "export/MovieWriter.h"

#include "export/FfmpegLog.h"

#include <cmath>

extern "C"
{
#include <libavutil/dict.h>
}

namespace vantix::host::detail
{

namespace
{

// How each format is written: the container, the codec and its picture format, and a fixed quantiser for
// the codecs that would otherwise use a low default bit rate (0: the codec's own rate control).
struct Recipe
{
    const char* container;
    const char* codec;
    AVPixelFormat pixelFormat;
    int quantiser;
};

Recipe RecipeFor(const MovieOptions& options)
{
    switch (options.format)
    {
    case ExportFormat_AVI:
        switch (options.aviCompression)
        {
        case AVICompression_LinePreserving:
            // Intra-coded, no colour subsampling: thin lines keep their colour and sharpness.
            return {"avi", "mjpeg", AV_PIX_FMT_YUVJ444P, 2};
        case AVICompression_LosslessUncompressed:
            return {"avi", "rawvideo", AV_PIX_FMT_BGR24, 0};
        case AVICompression_ColorPreserving:
            break;
        }
        return {"avi", "mpeg4", AV_PIX_FMT_YUV420P, 2};
    case ExportFormat_Flash:
    {
        // Flash video inside SWF keeps the frame count in the file's header. The image type and the
        // compression choice trade picture quality against file size.
        int quantiser = options.flashImageType == FlashImageType_Lossless ? 2
                        : options.flashImageType == FlashImageType_JPEG   ? 4
                                                                          : 6;
        if (options.flashCompression == FlashCompressionType_SmallestSize)
            quantiser += 3;
        return {"swf", "flv", AV_PIX_FMT_YUV420P, quantiser};
    }
    case ExportFormat_FLV:
        return {"flv", "flv", AV_PIX_FMT_YUV420P, 3};
    case ExportFormat_MPEG4:
        if (avcodec_find_encoder_by_name("libx264"))
            return {"mp4", "libx264", AV_PIX_FMT_YUV420P, 0};
        return {"mp4", "mpeg4", AV_PIX_FMT_YUV420P, 2};
    case ExportFormat_WMV:
        return {"asf", "wmv2", AV_PIX_FMT_YUV420P, 3};
    default:
        break;
    }
    throw ExportError("the export format does not hold an animation");
}

// Flash keeps its rate in 8.8 fixed point, which cannot carry a rate below 1/256 frame a second and
// carries slow rates coarsely. Below 1 frame a second each frame is shown several times at a rate of 1 to 2
// frames a second, which the fixed point carries to within 0.2 %.
int ShowingsOfEachFrame(const MovieOptions& options)
{
    if (options.format != ExportFormat_Flash || options.framesPerSecond >= 1.0)
        return 1;
    return static_cast<int>(std::ceil(1.0 / options.framesPerSecond));
}

} // namespace

MovieWriter::MovieWriter(const MovieOptions& options)
    : FrameWriter(options, "movie"), m_showings(ShowingsOfEachFrame(options))
{
    CaptureFfmpegMessages();
    ForgetFfmpegComplaint();
    const Recipe recipe = RecipeFor(options);
    AVFormatContext* format = nullptr;
    int result = avformat_alloc_output_context2(&format, nullptr, recipe.container, options.path.c_str());
    m_format.reset(format);
    if (result < 0 || !m_format)
        throw ExportError("cannot prepare a " + std::string(recipe.container) +
                          " file: " + FfmpegErrorText(result));

    const AVCodec* codec = avcodec_find_encoder_by_name(recipe.codec);
    if (!codec)
        throw ExportError(std::string("this host has no ") + recipe.codec + " encoder");
    m_stream = avformat_new_stream(m_format.get(), nullptr);
    m_codec.reset(avcodec_alloc_context3(codec));
    m_packet.reset(av_packet_alloc());
    m_frame.reset(av_frame_alloc());
    if (!m_stream || !m_codec || !m_packet || !m_frame)
        throw ExportError("not enough memory to export");

    const AVRational rate = av_d2q(options.framesPerSecond * m_showings, 65535);
    m_codec->width = options.width;
    m_codec->height = options.height;
    m_codec->pix_fmt = recipe.pixelFormat;
    m_codec->time_base = av_inv_q(rate);
    m_codec->framerate = rate;
    m_codec->gop_size = 12;
    m_codec->color_range = recipe.pixelFormat == AV_PIX_FMT_YUVJ444P ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
    if (recipe.quantiser > 0)
    {
        m_codec->flags |= AV_CODEC_FLAG_QSCALE;
        m_codec->global_quality = FF_QP2LAMBDA * recipe.quantiser;
    }
    if (m_format->oformat->flags & AVFMT_GLOBALHEADER)
        m_codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;

    AVDictionary* codecOptions = nullptr;
    if (std::string(recipe.codec) == "libx264")
    {
        // The look of crf 18 at the "fast" preset, in half the time and a sixth of the memory: the encoder
        // runs on the export's own thread beside the drawing of the next frame, so it needs no threads of
        // its own, and a look-ahead of two frames without B-frames keeps few pictures in memory (the files
        // come out about a tenth larger than with five frames and a B-frame, at the same PSNR).
        m_codec->gop_size = 250;
        m_codec->thread_count = 1;
        av_dict_set(&codecOptions, "preset", "veryfast", 0);
        av_dict_set(&codecOptions, "crf", "16", 0);
        av_dict_set(&codecOptions, "x264-params", "rc-lookahead=2:bframes=0", 0);
    }
    result = avcodec_open2(m_codec.get(), codec, &codecOptions);
    av_dict_free(&codecOptions);
    if (result < 0)
        throw ExportError("cannot start the " + std::string(recipe.codec) + " encoder at " +
                          std::to_string(options.width) + " x " + std::to_string(options.height) + ": " +
                          FfmpegErrorText(result));
    avcodec_parameters_from_context(m_stream->codecpar, m_codec.get());
    m_stream->time_base = m_codec->time_base;
    m_stream->avg_frame_rate = rate;

    result = avio_open(&m_format->pb, file().temporaryPath().c_str(), AVIO_FLAG_WRITE);
    if (result < 0)
        throw ExportError("cannot write " + options.path + ": " + FfmpegErrorText(result));
    result = avformat_write_header(m_format.get(), nullptr);
    if (result < 0)
        throw ExportError("cannot write the header of " + options.path + ": " + FfmpegErrorText(result));

    m_frame->format = recipe.pixelFormat;
    m_frame->width = options.width;
    m_frame->height = options.height;
    if (av_frame_get_buffer(m_frame.get(), 0) < 0)
        throw ExportError("not enough memory to export");
    m_convert.reset(sws_getContext(options.width, options.height, AV_PIX_FMT_RGB24, options.width,
                                   options.height, recipe.pixelFormat, SWS_BICUBIC, nullptr, nullptr,
                                   nullptr));
    if (!m_convert)
        throw ExportError("cannot convert images for the " + std::string(recipe.codec) + " encoder");
}

void MovieWriter::append(const Image& image)
{
    if (av_frame_make_writable(m_frame.get()) < 0)
        throw ExportError("not enough memory to export");
    ScaleRgbPicture(m_convert.get(), image.rgb, image.width, image.height, m_frame->data, m_frame->linesize,
                    m_scalerTail);
    if (m_codec->flags & AV_CODEC_FLAG_QSCALE)
        m_frame->quality = m_codec->global_quality;
    for (int showing = 0; showing < m_showings; ++showing)
    {
        m_frame->pts = m_nextPts++;
        encode(m_frame.get());
    }
}

void MovieWriter::complete()
{
    encode(nullptr); // drains what the encoder still holds
    int result = av_write_trailer(m_format.get());
    if (result >= 0)
        result = avio_closep(&m_format->pb);
    if (result < 0)
        throw ExportError("cannot complete " + path() + ": " + FfmpegErrorText(result));
}

void MovieWriter::encode(AVFrame* frame)
{
    int result = avcodec_send_frame(m_codec.get(), frame);
    if (result < 0)
        throw ExportError("the encoder refused a frame: " + FfmpegErrorText(result));
    while ((result = avcodec_receive_packet(m_codec.get(), m_packet.get())) >= 0)
    {
        // Every frame lasts one tick; without the duration the last frame would have none and some
        // containers would come out a frame short.
        m_packet->duration = 1;
        av_packet_rescale_ts(m_packet.get(), m_codec->time_base, m_stream->time_base);
        m_packet->stream_index = m_stream->index;
        result = av_interleaved_write_frame(m_format.get(), m_packet.get());
        if (result < 0)
            throw ExportError("cannot write to " + path() + ": " + FfmpegErrorText(result));
    }
    if (result != AVERROR(EAGAIN) && result != AVERROR_EOF)
        throw ExportError("the encoder failed: " + FfmpegErrorText(result));
}

} // namespace vantix::host::detail
