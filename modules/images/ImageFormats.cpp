// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/images/ImageFormats.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace ardeno {

namespace {

constexpr int longestSide = 100'000; // Many rows of a wider picture are kept at a time.
constexpr gint64 mostStreamed = 500'000'000;
constexpr gint64 mostInMemory = 64'000'000;

// A loader of the library, by the beginning of its name.
struct Loader {
    std::string_view name;
    bool streams; // It gives rows without keeping the picture.
};

constexpr std::array loaders = {
    Loader{"VipsForeignLoadPng", true},   Loader{"VipsForeignLoadJpeg", true},  Loader{"VipsForeignLoadTiff", true},
    Loader{"VipsForeignLoadHeif", false}, Loader{"VipsForeignLoadWebp", false}, Loader{"VipsForeignLoadNsgif", false},
};

const Loader *known(std::string_view name)
{
    const auto *const found = std::find_if(loaders.begin(), loaders.end(),
                                           [&](const Loader &loader) { return name.starts_with(loader.name); });
    return found == loaders.end() ? nullptr : found;
}

bool isSet(VipsImage *header, const char *field)
{
    int value = 0;
    return vips_image_get_typeof(header, field) != 0 && vips_image_get_int(header, field, &value) == 0 && value != 0;
}

} // namespace

bool ImageFormats::isWanted(const char *loader)
{
    return known(loader) != nullptr;
}

bool ImageFormats::isTooLarge(const char *loader, VipsImage *header)
{
    const int width = vips_image_get_width(header);
    const int height = vips_image_get_height(header);
    // The first rows of an interlaced or progressive picture are only known when all of it has been read.
    const bool isInterlaced = isSet(header, "interlaced") || isSet(header, "jpeg-multiscan");
    const gint64 mostPixels = known(loader)->streams && !isInterlaced ? mostStreamed : mostInMemory;
    return std::max(width, height) > longestSide || gint64{width} * height > mostPixels;
}

} // namespace ardeno
