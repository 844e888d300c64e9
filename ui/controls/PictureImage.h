// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Picture.h"

#include <QImage>

namespace ardeno {

// The pixels of a picture as an image, which owns them.
QImage toImage(Picture picture);

} // namespace ardeno
