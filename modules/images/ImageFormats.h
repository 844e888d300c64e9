// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vips/vips.h>

namespace ardeno {

// Which pictures are read, and how large they may be.
namespace ImageFormats {

// Whether this loader of the library reads a format that is wanted; others bring along parsers of documents and
// scripts.
bool isWanted(const char *loader);

// How many pixels a picture may have whose header is this, by what the format keeps in memory.
gint64 mostPixels(const char *loader, VipsImage *header);

} // namespace ImageFormats

} // namespace ardeno
