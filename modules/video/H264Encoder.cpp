// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/VideoModule.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <new>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

namespace ardeno {

namespace {

constexpr int ticksPerSecond = 1000;
constexpr int frameDuration = 100; // Milliseconds, of a frame whose successor is not known yet.
constexpr int framesPerGroup = 100;
constexpr int framesPerSecond = 10;
constexpr int bufferSize = 64 * 1024;

template <typename T, void (*release)(T **)>
struct Release {
    void operator()(T *object) const { release(&object); }
};

using CodecContext = std::unique_ptr<AVCodecContext, Release<AVCodecContext, avcodec_free_context>>;
using Frame = std::unique_ptr<AVFrame, Release<AVFrame, av_frame_free>>;
using Packet = std::unique_ptr<AVPacket, Release<AVPacket, av_packet_free>>;

struct FreeFormat {
    void operator()(AVFormatContext *format) const
    {
        if (format->pb) {
            av_freep(&format->pb->buffer);
            avio_context_free(&format->pb);
        }
        avformat_free_context(format);
    }
};

struct FreeScaler {
    void operator()(SwsContext *scaler) const { sws_freeContext(scaler); }
};

// H.264 in fragmented MPEG-4.
class H264Encoder final : public VideoEncoder {
public:
    int open(VideoFormat format, VideoSink sink);
    int write(const unsigned char *pixels, std::int64_t milliseconds) noexcept override;
    int flush() noexcept override;
    int finish(std::int64_t milliseconds) noexcept override;

private:
    static int writeBytes(void *encoder, uint8_t *bytes, int size);

    int openCodec(VideoFormat format);
    int openScaler(VideoFormat format);
    int openFile();
    int encode(std::int64_t milliseconds, std::int64_t duration);
    int writePackets(std::int64_t duration);
    int fillGap(std::int64_t until);

    VideoSink m_sink = {};
    CodecContext m_codec = {};
    std::unique_ptr<SwsContext, FreeScaler> m_scaler = {};
    Frame m_frame = {};
    Packet m_packet = {};
    std::unique_ptr<AVFormatContext, FreeFormat> m_file = {};
    AVStream *m_stream = nullptr;
    std::int64_t m_last = -1;       // The time of the last frame.
    bool m_hasOpenFragment = false; // Frames that have not been flushed.
};

int H264Encoder::writeBytes(void *encoder, uint8_t *bytes, int size)
{
    const VideoSink &sink = static_cast<H264Encoder *>(encoder)->m_sink;
    const int error = sink.write(sink.context, bytes, size);
    return error == 0 ? size : AVERROR(error);
}

int H264Encoder::open(VideoFormat format, VideoSink sink)
{
    m_sink = sink;
    if (const int error = openCodec(format); error < 0)
        return error;
    if (const int error = openScaler(format); error < 0)
        return error;
    return openFile();
}

int H264Encoder::openCodec(VideoFormat format)
{
    const AVCodec *codec = avcodec_find_encoder_by_name("libx264");
    if (!codec)
        return AVERROR_ENCODER_NOT_FOUND;
    m_codec.reset(avcodec_alloc_context3(codec));
    m_packet.reset(av_packet_alloc());
    if (!m_codec || !m_packet)
        return AVERROR(ENOMEM);
    m_codec->width = format.width;
    m_codec->height = format.height;
    m_codec->time_base = {1, ticksPerSecond};
    m_codec->framerate = {framesPerSecond, 1};
    m_codec->pix_fmt = AV_PIX_FMT_YUV420P;
    m_codec->gop_size = framesPerGroup;
    m_codec->max_b_frames = 0;
    m_codec->thread_count = 1;
    m_codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    m_codec->color_range = AVCOL_RANGE_MPEG;
    m_codec->color_primaries = AVCOL_PRI_BT709;
    m_codec->color_trc = AVCOL_TRC_BT709;
    m_codec->colorspace = AVCOL_SPC_BT709;
    av_opt_set(m_codec->priv_data, "preset", "superfast", 0);
    av_opt_set(m_codec->priv_data, "tune", "zerolatency", 0); // Every frame is in the file at once.
    av_opt_set(m_codec->priv_data, "crf", "23", 0);
    return avcodec_open2(m_codec.get(), codec, nullptr);
}

int H264Encoder::openScaler(VideoFormat format)
{
    m_frame.reset(av_frame_alloc());
    if (!m_frame)
        return AVERROR(ENOMEM);
    m_frame->format = m_codec->pix_fmt;
    m_frame->width = format.width;
    m_frame->height = format.height;
    m_frame->color_range = m_codec->color_range;
    m_frame->colorspace = m_codec->colorspace;
    m_scaler.reset(sws_getContext(format.width, format.height, AV_PIX_FMT_BGR0, format.width, format.height,
                                  m_codec->pix_fmt, SWS_POINT, nullptr, nullptr, nullptr));
    if (!m_scaler)
        return AVERROR(ENOMEM);
    constexpr int one = 1 << 16;
    const int *colours = sws_getCoefficients(SWS_CS_ITU709);
    sws_setColorspaceDetails(m_scaler.get(), colours, 1, colours, 0, 0, one, one);
    return av_frame_get_buffer(m_frame.get(), 0);
}

int H264Encoder::openFile()
{
    AVFormatContext *file = nullptr;
    if (const int error = avformat_alloc_output_context2(&file, nullptr, "mp4", nullptr); error < 0)
        return error;
    m_file.reset(file);
    auto *buffer = static_cast<unsigned char *>(av_malloc(bufferSize));
    file->pb = buffer ? avio_alloc_context(buffer, bufferSize, 1, this, nullptr, writeBytes, nullptr) : nullptr;
    m_stream = avformat_new_stream(file, nullptr);
    if (!file->pb || !m_stream)
        return AVERROR(ENOMEM);
    m_stream->time_base = m_codec->time_base;
    if (const int error = avcodec_parameters_from_context(m_stream->codecpar, m_codec.get()); error < 0)
        return error;
    AVDictionary *options = nullptr;
    av_dict_set(&options, "movflags", "frag_custom+empty_moov+default_base_moof", 0);
    const int error = avformat_write_header(file, &options);
    av_dict_free(&options);
    if (error < 0)
        return error;
    avio_flush(file->pb);
    return file->pb->error;
}

int H264Encoder::write(const unsigned char *pixels, std::int64_t milliseconds) noexcept
{
    if (const int error = fillGap(milliseconds); error < 0)
        return error;
    if (const int error = av_frame_make_writable(m_frame.get()); error < 0)
        return error;
    const std::array<const uint8_t *, 1> planes = {pixels};
    const std::array<int, 1> strides = {m_codec->width * 4};
    sws_scale(m_scaler.get(), planes.data(), strides.data(), 0, m_codec->height, m_frame->data, m_frame->linesize);
    return encode(std::max(milliseconds, m_last + 1), frameDuration);
}

// The length of a flushed frame is written down already. What follows much later begins with that picture once more, so
// that players find no hole between the two.
int H264Encoder::fillGap(std::int64_t until)
{
    if (m_hasOpenFragment || m_last < 0 || until <= m_last + 2 * frameDuration)
        return 0;
    return encode(m_last + frameDuration, until - m_last - frameDuration);
}

int H264Encoder::encode(std::int64_t milliseconds, std::int64_t duration)
{
    m_frame->pts = milliseconds;
    m_last = milliseconds;
    if (const int error = avcodec_send_frame(m_codec.get(), m_frame.get()); error < 0)
        return error;
    return writePackets(duration);
}

int H264Encoder::writePackets(std::int64_t duration)
{
    for (;;) {
        const int received = avcodec_receive_packet(m_codec.get(), m_packet.get());
        if (received == AVERROR(EAGAIN) || received == AVERROR_EOF)
            return 0;
        if (received < 0)
            return received;
        m_packet->duration = duration;
        m_packet->stream_index = m_stream->index;
        av_packet_rescale_ts(m_packet.get(), m_codec->time_base, m_stream->time_base);
        m_hasOpenFragment = true;
        const int written = av_write_frame(m_file.get(), m_packet.get());
        av_packet_unref(m_packet.get());
        if (written < 0)
            return written;
    }
}

int H264Encoder::flush() noexcept
{
    m_hasOpenFragment = false;
    if (const int error = av_write_frame(m_file.get(), nullptr); error < 0)
        return error;
    avio_flush(m_file->pb);
    return m_file->pb->error;
}

int H264Encoder::finish(std::int64_t milliseconds) noexcept
{
    const std::int64_t next = m_last + frameDuration;
    if (m_last >= 0 && milliseconds > next) {
        if (const int error = encode(next, milliseconds - next); error < 0)
            return error;
    }
    avcodec_send_frame(m_codec.get(), nullptr);
    if (const int error = writePackets(frameDuration); error < 0)
        return error;
    if (const int error = av_write_trailer(m_file.get()); error < 0)
        return error;
    avio_flush(m_file->pb);
    return m_file->pb->error;
}

} // namespace

} // namespace ardeno

extern "C" __attribute__((visibility("default"))) ardeno::VideoEncoder *
ardenoMakeVideoEncoder(ardeno::VideoFormat format, ardeno::VideoSink sink, int *error)
{
    av_log_set_level(AV_LOG_QUIET); // What goes wrong is reported, not printed.
    std::unique_ptr<ardeno::H264Encoder> encoder(new (std::nothrow) ardeno::H264Encoder);
    *error = encoder ? encoder->open(format, sink) : -ENOMEM;
    return *error < 0 ? nullptr : encoder.release();
}
