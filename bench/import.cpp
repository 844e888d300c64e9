// SPDX-License-Identifier: GPL-3.0-or-later
// What importing a picture of 300 million pixels costs in memory, against the pixels of the result: import FOLDER.
#include "bench/Bench.h"
#include "media/ImageImport.h"
#include "media/PngWriter.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>
#include <cstdio>

using namespace ardeno;

namespace {

// Rows of light, shapes and noise, which compress like a photograph.
QByteArray rows(int width, int from, int to)
{
    QByteArray pixels;
    pixels.reserve(qsizetype(width) * (to - from) * 4);
    quint32 noise = quint32(from) + 1;
    for (int y = from; y < to; ++y) {
        for (int x = 0; x < width; ++x) {
            noise = noise * 1664525U + 1013904223U;
            const int grain = int(noise >> 30);
            pixels.append(char(x / 97 + grain));
            pixels.append(char(y / 53 + grain));
            pixels.append(char((x + y) / 71 + grain));
            pixels.append('\0');
        }
    }
    return pixels;
}

void writePicture(const QString &path, QSize size)
{
    constexpr int atOnce = 100; // Rows.
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("%s cannot be written.", qPrintable(path));
    PngStream stream(size, [&](const QByteArray &bytes) { file.write(bytes); });
    for (int y = 0; y < size.height(); y += atOnce) {
        const int end = std::min(y + atOnce, size.height());
        stream.add(reinterpret_cast<const uchar *>(rows(size.width(), y, end).constData()), end - y);
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "Usage: import FOLDER\n");
        return 2;
    }
    const QCoreApplication application(argc, argv); // Which knows where the modules are.
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const QString large = folder + "/large.png";
    bench::inChild([&] { writePicture(large, {20'000, 15'000}); });

    bench::Table table;
    constexpr double resultBytes = 8192.0 * 6144 * 4;
    const double memory = bench::peakMemoryOf([&] { ImageImport::writePng(large, folder + "/imported.png"); });
    table.add("memory of importing 20000×15000", bench::megabytes(memory), bench::megabytes(resultBytes),
              memory / resultBytes, 1);
    QFile::remove(folder + "/imported.png");
    QFile::remove(large);
    return table.finish();
}
