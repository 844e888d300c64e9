// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/images/ImageFile.h"

#include <cerrno>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

namespace ardeno {

ImageFile::ImageFile(int descriptor) : m_descriptor(descriptor), m_source(VIPS_SOURCE(vips_source_custom_new()))
{
    g_signal_connect(m_source.get(), "read", G_CALLBACK(read), this);
    g_signal_connect(m_source.get(), "seek", G_CALLBACK(seek), this);
}

gint64 ImageFile::read(VipsSourceCustom *, void *buffer, gint64 length, ImageFile *file)
{
    ssize_t got = -1;
    do {
        got = ::pread(file->m_descriptor, buffer, static_cast<size_t>(length), file->m_position);
    } while (got < 0 && errno == EINTR);
    file->m_position += got > 0 ? got : 0;
    return got;
}

gint64 ImageFile::seek(VipsSourceCustom *, gint64 offset, int whence, ImageFile *file)
{
    struct stat status = {};
    if (::fstat(file->m_descriptor, &status) != 0)
        return -1;
    const gint64 base = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? file->m_position : status.st_size;
    if (base + offset < 0)
        return -1;
    file->m_position = base + offset;
    return file->m_position;
}

} // namespace ardeno
