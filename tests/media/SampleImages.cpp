// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/media/SampleImages.h"

#include <QtEndian>

#include <array>
#include <memory>
#include <vector>

#include <isa-l/crc.h>
#include <vips/vips.h>

namespace ardeno::samples {

namespace {

struct Unreference {
    void operator()(VipsImage *image) const { g_object_unref(image); }
};

using Pointer = std::unique_ptr<VipsImage, Unreference>;

Pointer halves(QSize size)
{
    std::vector<unsigned char> pixels(size_t(size.width()) * size_t(size.height()) * 3);
    for (size_t i = 0; i < pixels.size() / 3; ++i) {
        const bool isLeft = int(i % size_t(size.width())) < size.width() / 2;
        pixels[i * 3] = isLeft ? 255 : 0;
        pixels[i * 3 + 2] = isLeft ? 0 : 255;
    }
    Pointer image(vips_image_new_from_memory_copy(pixels.data(), pixels.size(), size.width(), size.height(), 3,
                                                  VIPS_FORMAT_UCHAR));
    image->Type = VIPS_INTERPRETATION_sRGB;
    return image;
}

Pointer noise(QSize size)
{
    VipsImage *grey = nullptr;
    VipsImage *out = nullptr;
    vips_gaussnoise(&grey, size.width(), size.height(), "mean", 128.0, "sigma", 40.0, nullptr);
    const Pointer source(grey);
    vips_cast_uchar(source.get(), &out, nullptr);
    return Pointer(out);
}

Pointer coloured(Pointer image, Colours colours)
{
    VipsImage *out = nullptr;
    constexpr double half = 128;
    switch (colours) {
    case Colours::Plain:
        return image;
    case Colours::Grey:
        vips_colourspace(image.get(), &out, VIPS_INTERPRETATION_B_W, nullptr);
        break;
    case Colours::Cmyk:
        vips_icc_export(image.get(), &out, "output_profile", "cmyk", nullptr);
        break;
    case Colours::SixteenBits:
        vips_colourspace(image.get(), &out, VIPS_INTERPRETATION_RGB16, nullptr);
        break;
    case Colours::Transparent:
        vips_bandjoin_const1(image.get(), &out, half, nullptr);
        break;
    }
    return Pointer(out);
}

} // namespace

bool write(const QString &pathAndOptions, const Image &image)
{
    static const bool isStarted = vips_init("samples") == 0;
    Pointer made = coloured(image.isNoisy ? noise(image.size) : halves(image.size), image.colours);
    if (!isStarted || !made)
        return false;
    vips_image_set_int(made.get(), VIPS_META_ORIENTATION, image.orientation);
    return vips_image_write_to_file(made.get(), pathAndOptions.toUtf8().constData(), nullptr) == 0;
}

QByteArray pngHeader(quint32 width, quint32 height, int bitDepth, int colourType)
{
    QByteArray chunk = "IHDR";
    for (const quint32 number : {width, height}) {
        std::array<char, 4> bytes = {};
        qToBigEndian(number, bytes.data());
        chunk.append(bytes.data(), bytes.size());
    }
    chunk += QByteArray(1, char(bitDepth)) + QByteArray(1, char(colourType)) + QByteArray(3, '\0');
    std::array<char, 4> sum = {};
    qToBigEndian(crc32_gzip_refl(0, reinterpret_cast<const uchar *>(chunk.constData()), quint64(chunk.size())),
                 sum.data());
    return QByteArray("\x89PNG\r\n\x1a\n\0\0\0\x0d", 12) + chunk + QByteArray(sum.data(), sum.size()) +
           QByteArray("\0\0\x04\0IDAT", 8) + QByteArray(1024, '\0');
}

} // namespace ardeno::samples
