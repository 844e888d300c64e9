// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11Canvas.h"

#include "platform/linux/x11/pictures/X11TopLevels.h"

#include <cmath>
#include <string_view>
#include <utility>

namespace ardeno {

namespace {

xcb_render_fixed_t fixed(double value)
{
    return xcb_render_fixed_t(std::llround(value * 65536));
}

// How pixels of a target find theirs in a source: times the factor, then plus the offset; between pixels the four
// nearest are mixed, beyond the border its last ones are repeated.
void scaleSource(const X11Connection &connection, const RenderPicture &source, double factorX, double factorY,
                 double offsetX, double offsetY)
{
    xcb_connection_t *xcb = connection.xcb();
    const xcb_render_transform_t transform = {
        fixed(factorX), 0, fixed(offsetX), 0, fixed(factorY), fixed(offsetY), 0, 0, fixed(1)};
    xcb_render_set_picture_transform(xcb, source.id(), transform);
    constexpr std::string_view filter = "bilinear";
    xcb_render_set_picture_filter(xcb, source.id(), filter.size(), filter.data(), 0, nullptr);
    const quint32 padded = XCB_RENDER_REPEAT_PAD;
    xcb_render_change_picture(xcb, source.id(), XCB_RENDER_CP_REPEAT, &padded);
}

void copy(const X11Connection &connection, const RenderPicture &source, const RenderPicture &target, const QRect &area)
{
    xcb_render_composite(connection.xcb(), XCB_RENDER_PICT_OP_SRC, source.id(), XCB_NONE, target.id(), 0, 0, 0, 0,
                         qint16(area.x()), qint16(area.y()), quint16(area.width()), quint16(area.height()));
}

QSize half(QSize size)
{
    return {(size.width() + 1) / 2, (size.height() + 1) / 2};
}

} // namespace

X11Canvas::X11Canvas(const X11Connection &connection, const X11Extensions &extensions, const RenderFormats &formats,
                     const CanvasRequest &request)
    : m_connection(connection), m_extensions(extensions), m_formats(formats), m_size(request.size)
{
    if (!extensions.hasSharedPixmaps || !drawInSharedMemory())
        m_picture = RenderPicture(connection, formats, m_size);
    fillBetween(request);
}

// Spares the copy; only servers that draw with the processor offer it.
bool X11Canvas::drawInSharedMemory()
{
    xcb_connection_t *xcb = m_connection.xcb();
    auto shared = std::make_shared<X11SharedBytes>(size_t(m_size.width()) * size_t(m_size.height()) * 4);
    const xcb_shm_seg_t segment = xcb_generate_id(xcb);
    if (!shared->attach(m_connection, segment))
        return false;
    const xcb_pixmap_t pixmap = xcb_generate_id(xcb);
    const X11Reply<xcb_generic_error_t> error(
        xcb_request_check(xcb, xcb_shm_create_pixmap_checked(xcb, pixmap, m_connection.root(), quint16(m_size.width()),
                                                             quint16(m_size.height()), 32, segment, 0)));
    xcb_shm_detach(xcb, segment); // The pixmap keeps it.
    if (error)
        return false;
    m_picture = RenderPicture(m_connection, pixmap, m_formats.withAlpha(), RenderPicture::Owns::Pixmap);
    m_shared = std::move(shared);
    return true;
}

void X11Canvas::fillBetween(const CanvasRequest &request)
{
    X11Region between = QRect(QPoint(0, 0), m_size);
    for (const DisplayPlacement &placement : request.placements)
        between.subtract(pixelArea(placement.target, m_size));
    if (!between.isEmpty())
        fillGrey(m_connection, m_picture, request.backgroundGrey, between);
}

FetchedPixels X11Canvas::pixels() const
{
    if (!m_shared) {
        const auto transport = m_extensions.hasSharedMemory ? PixelTransport::SharedMemory : PixelTransport::Socket;
        return fetchPixels(m_connection, m_picture.drawable(), QRect(QPoint(0, 0), m_size), transport);
    }
    xcb_connection_t *xcb = m_connection.xcb();
    const X11Reply<xcb_get_input_focus_reply_t> drawn(
        xcb_get_input_focus_reply(xcb, xcb_get_input_focus(xcb), nullptr));
    requireAlive(m_connection);
    FetchedPixels pixels = {m_shared->bytes(), m_size, m_shared};
    toLittleEndian(m_connection, pixels);
    return pixels;
}

QRect X11Canvas::screenArea(const CaptureDisplay &display)
{
    const WindowRect &bounds = display.bounds;
    const QPoint from(int(std::lround(bounds.x)), int(std::lround(bounds.y)));
    const QPoint to(int(std::lround(bounds.maxX())), int(std::lround(bounds.maxY())));
    return {from, QSize(to.x() - from.x(), to.y() - from.y())};
}

QRect X11Canvas::pixelArea(const WindowRect &target, QSize canvas)
{
    const int left = target.x < 1 ? 0 : int(std::lround(target.x));
    const int top = target.y < 1 ? 0 : int(std::lround(target.y));
    const int right = target.maxX() > canvas.width() - 1 ? canvas.width() : int(std::lround(target.maxX()));
    const int bottom = target.maxY() > canvas.height() - 1 ? canvas.height() : int(std::lround(target.maxY()));
    return {left, top, right - left, bottom - top};
}

bool X11Canvas::isUnscaled(const DisplayPlacement &placement)
{
    const WindowRect &target = placement.target;
    return target.width == placement.display.bounds.width && target.height == placement.display.bounds.height &&
           target.x == std::floor(target.x) && target.y == std::floor(target.y);
}

void X11Canvas::draw(const DisplayPlacement &placement, const PaintDesktop &paint)
{
    const QRect pixels = pixelArea(placement.target, m_size);
    const QRect screen = screenArea(placement.display);
    if (pixels.isEmpty() || screen.isEmpty())
        return;
    if (isUnscaled(placement)) {
        paint(m_picture, screen, pixels.topLeft());
        return;
    }
    const RenderPicture desktop(m_connection, m_formats, screen.size());
    paint(desktop, screen, {0, 0});
    drawScaled(desktop, placement, pixels);
}

// Below one half the four nearest pixels would leave others out, so it is halved first.
void X11Canvas::drawScaled(const RenderPicture &desktop, const DisplayPlacement &placement, const QRect &pixels)
{
    const WindowRect &target = placement.target;
    QSize size = screenArea(placement.display).size();
    double factorX = size.width() / target.width;
    double factorY = size.height() / target.height;
    const RenderPicture *source = &desktop;
    RenderPicture halved;
    while (factorX > 2) {
        size = half(size);
        RenderPicture smaller(m_connection, m_formats, size);
        scaleSource(m_connection, *source, 2, 2, 0, 0);
        copy(m_connection, *source, smaller, QRect(QPoint(0, 0), size));
        halved = std::move(smaller);
        source = &halved;
        factorX /= 2;
        factorY /= 2;
    }
    scaleSource(m_connection, *source, factorX, factorY, (pixels.x() - target.x) * factorX,
                (pixels.y() - target.y) * factorY);
    clip(m_connection, m_picture, QRect(QPoint(0, 0), m_size));
    copy(m_connection, *source, m_picture, pixels);
}

} // namespace ardeno
