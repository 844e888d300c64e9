// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace ardeno {

// What the program and the module that encodes videos agree on. Neither Qt nor exceptions cross the border.

// Where the bytes of the file go; returns 0 or the system's error number.
struct VideoSink {
    void *context = nullptr;
    int (*write)(void *context, const unsigned char *bytes, int size) = nullptr;
};

struct VideoFormat {
    int width = 0; // Pixels; both sides even.
    int height = 0;
};

// A video in the making: MPEG-4 in fragments, so that what has been flushed can be played whatever happens next. All
// functions return 0 or a negative error number, the system's where it has one. Times are milliseconds since the first
// frame.
class VideoEncoder {
public:
    virtual ~VideoEncoder() = default;

    // Pixels of 32 bits in memory order blue, green, red, unused, in rows without gaps. Times increase.
    virtual int write(const unsigned char *pixels, std::int64_t milliseconds) noexcept = 0;
    // Everything written so far reaches the sink as a whole fragment.
    virtual int flush() noexcept = 0;
    // The last frame lasts until then.
    virtual int finish(std::int64_t milliseconds) noexcept = 0;
};

// The one function of the module. Null when it fails, with the error set.
using MakeVideoEncoder = VideoEncoder *(*)(VideoFormat format, VideoSink sink, int *error);
inline constexpr auto videoModuleName = "ardeno-video";
inline constexpr const char *makeVideoEncoderName = "ardenoMakeVideoEncoder";

} // namespace ardeno
