// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vips/vips.h>

#include <memory>

namespace ardeno {

struct Unreference {
    void operator()(void *object) const { g_object_unref(object); }
};

using VipsSourcePointer = std::unique_ptr<VipsSource, Unreference>;
using VipsImagePointer = std::unique_ptr<VipsImage, Unreference>;

// A file as the library reads it: piece by piece and never mapped into memory, because a mapped file that another
// program shortens ends this one.
class ImageFile final {
public:
    // The descriptor stays the caller's and is open for as long as this lives.
    explicit ImageFile(int descriptor);
    ImageFile(const ImageFile &) = delete;
    ImageFile &operator=(const ImageFile &) = delete;

    VipsSource *source() const { return m_source.get(); }

private:
    static gint64 read(VipsSourceCustom *source, void *buffer, gint64 length, ImageFile *file);
    static gint64 seek(VipsSourceCustom *source, gint64 offset, int whence, ImageFile *file);

    int m_descriptor;
    gint64 m_position = 0;
    VipsSourcePointer m_source;
};

} // namespace ardeno
