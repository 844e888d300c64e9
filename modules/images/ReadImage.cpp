// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ImageModule.h"
#include "modules/images/ImageFile.h"
#include "modules/images/ImageFormats.h"

#include <exception>
#include <vector>

namespace ardeno {

namespace {

// What the program is told in the middle of a picture.
struct Output {
    const ImageJob &job;
    std::vector<unsigned char> pixels = {}; // Of some rows, as the program wants them.
    bool isEnded = false;
};

bool startLibrary()
{
    // Its warnings are about pictures, and say nothing that the user could do about them.
    g_log_set_handler(
        "VIPS", GLogLevelFlags(G_LOG_LEVEL_WARNING | G_LOG_LEVEL_INFO | G_LOG_LEVEL_DEBUG),
        [](const char *, GLogLevelFlags, const char *, void *) {}, nullptr);
    if (vips_init("ardeno") != 0)
        return false;
    vips_block_untrusted_set(TRUE);
    vips_concurrency_set(1); // Among several threads the library loses the error of a picture that ends too early.
    vips_cache_set_max(0);   // A picture that has been read stays nowhere.
    return true;
}

void convertRow(const VipsPel *row, int width, unsigned char *out)
{
    for (int x = 0; x < width; ++x, row += 3, out += 4) {
        out[0] = row[2];
        out[1] = row[1];
        out[2] = row[0];
        out[3] = 0xff;
    }
}

// Called with rows from top to bottom, by one thread at a time.
int writeRows(VipsRegion *region, VipsRect *area, void *context)
{
    Output &output = *static_cast<Output *>(context);
    const auto stride = static_cast<size_t>(area->width) * 4;
    output.pixels.resize(stride * static_cast<size_t>(area->height));
    for (int y = 0; y < area->height; ++y)
        convertRow(VIPS_REGION_ADDR(region, area->left, area->top + y), area->width,
                   output.pixels.data() + stride * static_cast<size_t>(y));
    output.isEnded = !output.job.rows(output.job.context, output.pixels.data(), area->height);
    return output.isEnded ? -1 : 0;
}

// What is known before the picture is read.
struct Header {
    ImageOutcome outcome = ImageOutcome::NotAnImage;
    bool hasProfile = false; // The colours are those of some device.
};

Header readHeader(VipsSource *source)
{
    const char *const loader = vips_foreign_find_load_source(source);
    if (!loader || !ImageFormats::isWanted(loader))
        return {};
    const VipsImagePointer header(vips_image_new_from_source(source, "", "access", VIPS_ACCESS_SEQUENTIAL, nullptr));
    if (!header)
        return {};
    return {ImageFormats::isTooLarge(loader, header.get()) ? ImageOutcome::TooLarge : ImageOutcome::Done,
            vips_image_get_typeof(header.get(), VIPS_META_ICC_NAME) != 0};
}

using Step = int (*)(VipsImage *in, VipsImage **out);

bool applyStep(VipsImagePointer &image, Step step)
{
    VipsImage *out = nullptr;
    if (step(image.get(), &out) != 0)
        return false;
    image.reset(out);
    return true;
}

int flattenOntoWhite(VipsImage *in, VipsImage **out)
{
    constexpr double white = 255;
    VipsArrayDouble *const background = vips_array_double_newv(1, white);
    const int result = vips_flatten(in, out, "background", background, nullptr);
    vips_area_unref(VIPS_AREA(background));
    return result;
}

// Eight bits each of red, green and blue.
bool makePlain(VipsImagePointer &image)
{
    const bool isPlain = vips_image_get_interpretation(image.get()) == VIPS_INTERPRETATION_sRGB;
    if (!isPlain && !applyStep(image, [](VipsImage *in, VipsImage **out) {
            return vips_colourspace(in, out, VIPS_INTERPRETATION_sRGB, nullptr);
        }))
        return false;
    if (vips_image_hasalpha(image.get()) && !applyStep(image, flattenOntoWhite))
        return false;
    if (vips_image_get_format(image.get()) != VIPS_FORMAT_UCHAR &&
        !applyStep(image, [](VipsImage *in, VipsImage **out) { return vips_cast_uchar(in, out, nullptr); }))
        return false;
    return vips_image_get_bands(image.get()) == 3;
}

// Truncated pictures are refused, mere warnings are not. As an option in the file's name, because the property
// "fail_on" does not reach the loader when it reads from a custom source.
constexpr auto loaderOptions = "[fail_on=error]";

ImageOutcome readRows(VipsSource *source, bool hasProfile, const ImageJob &job)
{
    // Colours without a profile are those of sRGB; the library would bend them on a way through other spaces.
    const char *const profile = hasProfile ? "srgb" : nullptr;
    VipsImage *small = nullptr;
    if (vips_thumbnail_source(source, &small, job.longestSide, "height", job.longestSide, "size", VIPS_SIZE_DOWN,
                              "export_profile", profile, "option_string", loaderOptions, nullptr) != 0)
        return ImageOutcome::Damaged;
    VipsImagePointer image(small);
    if (!makePlain(image))
        return ImageOutcome::Damaged;
    if (!job.begin(job.context, vips_image_get_width(image.get()), vips_image_get_height(image.get())))
        return ImageOutcome::Ended;
    Output output{job};
    if (vips_sink_disc(image.get(), writeRows, &output) != 0)
        return output.isEnded ? ImageOutcome::Ended : ImageOutcome::Damaged;
    return ImageOutcome::Done;
}

ImageOutcome readImage(const ImageJob &job)
{
    static const bool isStarted = startLibrary();
    if (!isStarted)
        return ImageOutcome::NoLibrary;
    const ImageFile file(job.descriptor);
    const Header header = readHeader(file.source());
    const ImageOutcome outcome =
        header.outcome == ImageOutcome::Done ? readRows(file.source(), header.hasProfile, job) : header.outcome;
    vips_error_clear();
    vips_thread_shutdown(); // What the library keeps for this thread.
    return outcome;
}

} // namespace

} // namespace ardeno

extern "C" __attribute__((visibility("default"))) ardeno::ImageOutcome ardenoReadImage(const ardeno::ImageJob &job)
{
    return ardeno::readImage(job);
}
