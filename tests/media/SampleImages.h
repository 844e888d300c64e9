// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

// Pictures of other programs' kinds, written by the image library itself.
namespace ardeno::samples {

enum class Colours { Plain, Grey, Cmyk, SixteenBits, Transparent };

struct Image {
    QSize size = {400, 300};
    Colours colours = Colours::Plain;
    int orientation = 1;  // As cameras write it; 6: to be turned clockwise.
    bool isNoisy = false; // Else the left half is red and the right half blue.
};

// The file's ending and options in brackets choose the format. False when the library cannot write it.
bool write(const QString &pathAndOptions, const Image &image);

// The beginning of a PNG file with this header, and data that are none.
QByteArray pngHeader(quint32 width, quint32 height, int bitDepth, int colourType);

} // namespace ardeno::samples
