// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11Cursor.h"

#include "platform/linux/x11/pictures/X11Canvas.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <xcb/xfixes.h>

namespace ardeno {

namespace {

constexpr int samplesPerSide = 4;

using Channels = std::array<int, 4>; // Blue, green, red, alpha.

// The mean of samples spread over the part of the cursor that one pixel of the canvas shows.
Channels mean(const X11Cursor &cursor, double x, double y, double step)
{
    Channels sum = {};
    for (int sample = 0; sample < samplesPerSide * samplesPerSide; ++sample) {
        const int across = sample % samplesPerSide;
        const int down = sample / samplesPerSide;
        const int column = int(std::floor(x + step * (across + 0.5) / samplesPerSide));
        const int row = int(std::floor(y + step * (down + 0.5) / samplesPerSide));
        if (column < 0 || row < 0 || column >= cursor.area.width() || row >= cursor.area.height())
            continue;
        const quint32 pixel = cursor.pixels[qsizetype(row) * cursor.area.width() + column];
        for (size_t channel = 0; channel < sum.size(); ++channel)
            sum[channel] += int(pixel >> (8 * channel) & 255);
    }
    for (int &value : sum)
        value /= samplesPerSide * samplesPerSide;
    return sum;
}

void blendPixel(char *pixel, const Channels &over)
{
    for (size_t channel = 0; channel < 3; ++channel) {
        const int under = uchar(pixel[channel]) * (255 - over[3]);
        pixel[channel] = char(std::min(255, over[channel] + (under + 127) / 255));
    }
}

} // namespace

X11Cursor X11Cursor::read(const X11Connection &connection)
{
    xcb_connection_t *xcb = connection.xcb();
    const auto imageCookie = xcb_xfixes_get_cursor_image(xcb);
    const auto pointerCookie = xcb_query_pointer(xcb, connection.root());
    const X11Reply<xcb_xfixes_get_cursor_image_reply_t> image(
        xcb_xfixes_get_cursor_image_reply(xcb, imageCookie, nullptr));
    const X11Reply<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(xcb, pointerCookie, nullptr));
    X11Cursor cursor;
    if (!image || !pointer || !pointer->same_screen)
        return cursor;
    cursor.area = QRect(image->x - image->xhot, image->y - image->yhot, image->width, image->height);
    const quint32 *pixels = xcb_xfixes_get_cursor_image_cursor_image(image.get());
    cursor.pixels = QList<quint32>(pixels, pixels + xcb_xfixes_get_cursor_image_cursor_image_length(image.get()));
    cursor.under = pointer->child;
    return cursor;
}

void X11Cursor::blend(const FetchedPixels &canvas, const DisplayPlacement &placement) const
{
    const WindowRect &target = placement.target;
    const WindowRect &bounds = placement.display.bounds;
    const double step = bounds.width / target.width; // Points a pixel.
    const auto pixelX = [&](double x) { return target.x + (x - bounds.x) / step; };
    const auto pixelY = [&](double y) { return target.y + (y - bounds.y) / step; };
    const QPoint from(int(std::floor(pixelX(area.x()))), int(std::floor(pixelY(area.y()))));
    const QPoint to(int(std::ceil(pixelX(area.x() + area.width()))), int(std::ceil(pixelY(area.y() + area.height()))));
    const QRect touched =
        QRect(from, QSize(to.x() - from.x(), to.y() - from.y())).intersected(X11Canvas::pixelArea(target, canvas.size));
    for (int y = touched.y(); y < touched.y() + touched.height(); ++y) {
        char *pixel = canvas.bytes + (qsizetype(y) * canvas.size.width() + touched.x()) * 4;
        for (int x = touched.x(); x < touched.x() + touched.width(); ++x, pixel += 4) {
            blendPixel(pixel, mean(*this, (x - target.x) * step + bounds.x - area.x(),
                                   (y - target.y) * step + bounds.y - area.y(), step));
        }
    }
}

} // namespace ardeno
