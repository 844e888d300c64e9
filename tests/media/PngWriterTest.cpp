// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PngWriter.h"

#include "tests/Printing.h"

#include <QImage>

#include <random>

using namespace ardeno;

namespace {

enum class Content { Noise, Flat, Gradient };

// The fourth byte is filled as well: it must not come through.
QByteArray pixelsOf(QSize size, Content content)
{
    QByteArray pixels(qsizetype(size.width()) * size.height() * 4, '\x7f');
    std::minstd_rand random(quint32(size.width() * 31 + size.height()));
    if (content == Content::Noise) {
        for (char &byte : pixels)
            byte = char(random() >> 8);
    }
    if (content == Content::Gradient) {
        for (qsizetype i = 0; i < pixels.size(); ++i)
            pixels[i] = char(i / 4 % size.width() * 3 + i / 4 / size.width() * (i % 4));
    }
    return pixels;
}

// What another decoder reads from the file.
bool showsExactly(const QByteArray &png, QSize size, const QByteArray &pixels)
{
    const QImage read = QImage::fromData(png, "PNG").convertToFormat(QImage::Format_RGB32);
    const QImage expected =
        QImage(reinterpret_cast<const uchar *>(pixels.constData()), size.width(), size.height(), QImage::Format_RGB32)
            .copy();
    return read.size() == size && read == expected;
}

} // namespace

TEST_CASE("another decoder reads the same pixels from a picture of any size")
{
    const QSize sizes[] = {{1, 1},    {1, 7},    {2, 3},      {3, 2},       {5, 5},     {17, 1},
                           {8192, 1}, {1, 8192}, {1279, 719}, {1920, 1247}, {4001, 53}, {53, 4001}};
    for (const QSize size : sizes) {
        for (const Content content : {Content::Noise, Content::Flat, Content::Gradient}) {
            CAPTURE(size.width());
            CAPTURE(size.height());
            const QByteArray pixels = pixelsOf(size, content);
            CHECK(showsExactly(PngWriter::encoded(size, pixels), size, pixels));
        }
    }
}

TEST_CASE("a picture without alpha or anything else than red, green and blue is written, and written small")
{
    const QSize size(1920, 1080);
    const QByteArray flat = PngWriter::encoded(size, pixelsOf(size, Content::Flat));
    CHECK(flat.size() < 200'000);
    CHECK_FALSE(QImage::fromData(flat, "PNG").hasAlphaChannel());
    // What cannot be compressed costs next to nothing more than it has.
    CHECK(PngWriter::encoded(size, pixelsOf(size, Content::Noise)).size() < 1920 * 1080 * 3 * 1.02);
}

TEST_CASE("pixels that do not fill the size make no file")
{
    CHECK(PngWriter::encoded({2, 2}, QByteArray(15, 'a')).isEmpty());
    CHECK(PngWriter::encoded({0, 2}, QByteArray()).isEmpty());
    CHECK(PngWriter::encoded({-1, -1}, QByteArray(4, 'a')).isEmpty());
}
