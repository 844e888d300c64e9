// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/PictureImage.h"

#include <utility>

namespace ardeno {

QImage toImage(Picture picture)
{
    if (picture.size.isEmpty())
        return {};
    auto *const kept = new QByteArray(std::move(picture.pixels));
    return {reinterpret_cast<const uchar *>(kept->constData()),
            picture.size.width(),
            picture.size.height(),
            qsizetype(picture.size.width()) * 4,
            QImage::Format_RGB32,
            [](void *pixels) { delete static_cast<QByteArray *>(pixels); },
            kept};
}

} // namespace ardeno
