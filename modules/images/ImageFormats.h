// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vips/vips.h>

namespace ardeno {

// Which pictures are read, and how large they may be.
namespace ImageFormats {

// Whether this loader of the library reads a format that is wanted; others bring along parsers of documents and
// scripts.
bool isWanted(const char *loader);

// Whether a picture of this header would take too much memory, by what the format keeps of it.
bool isTooLarge(const char *loader, VipsImage *header);

} // namespace ImageFormats

} // namespace ardeno
