// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/X11Picture.h"

#include "platform/linux/x11/X11Displays.h"
#include "platform/linux/x11/X11PixelFetch.h"
#include "platform/linux/x11/X11Scene.h"
#include "support/Failure.h"

#include <algorithm>
#include <utility>

namespace ardeno {

namespace {

// How often a picture is begun anew because a window has come that nobody has judged yet.
constexpr int mostAttempts = 5;

bool knowsAll(const WindowChoice &choice, const QList<TopLevel> &windows)
{
    return std::all_of(windows.cbegin(), windows.cend(),
                       [&](const TopLevel &window) { return choice.knows(window.id); });
}

} // namespace

X11Picture::X11Picture(CanvasRequest request, Exclusion exclusion, DesktopEntries &entries)
    : m_request(std::move(request)), m_exclusion(std::move(exclusion)), m_entries(entries)
{
}

std::optional<Canvas> X11Picture::ofScreen(const X11Connection &connection, const X11Extensions &extensions)
{
    const IsClean always = [](const WindowChoice &, const QList<TopLevel> &) { return true; };
    return screenIf(always, connection, extensions);
}

std::optional<Canvas> X11Picture::ofScreen(X11Redirection &redirection)
{
    const IsClean showsThemselves = [&](const WindowChoice &choice, const QList<TopLevel> &windows) {
        redirection.processAllEvents();
        return std::all_of(windows.cbegin(), windows.cend(), [&](const TopLevel &window) {
            return redirection.untrusted(window.id, choice.allowed).isEmpty();
        });
    };
    return screenIf(showsThemselves, redirection.connection(), redirection.extensions());
}

std::optional<Canvas> X11Picture::screenIf(const IsClean &isClean, const X11Connection &connection,
                                           const X11Extensions &extensions)
{
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const QList<TopLevel> windows = topLevels(connection);
        const WindowChoice &choice = m_choice.emplace(chooseWindows(connection, m_entries, windows, m_exclusion));
        if (mayShowLeftOut(choice, windows, m_exclusion))
            return std::nullopt;
        std::optional<ServerGrab> grab(connection);
        const Moment now = moment(connection, extensions);
        if (!knowsAll(choice, now.windows))
            continue;
        if (!isClean(choice, now.windows))
            return std::nullopt;
        return grabbedScreen(connection, extensions, now, grab);
    }
    return std::nullopt;
}

Canvas X11Picture::ofWindows(X11Redirection &redirection)
{
    const X11Connection &connection = redirection.connection();
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        if (!m_choice)
            m_choice = chooseWindows(connection, m_entries, topLevels(connection), m_exclusion);
        waitForDrawing(redirection, *m_choice, displayAreas());
        if (auto canvas = grabbedWindows(redirection, *m_choice))
            return std::move(*canvas);
        m_choice.reset();
    }
    // Windows come and go faster than they can be judged, so the server must stand still for that, too.
    const ServerGrab grab(connection);
    m_choice = chooseWindows(connection, m_entries, topLevels(connection), m_exclusion);
    return grabbedWindows(redirection, *m_choice).value_or(Canvas());
}

X11Picture::Moment X11Picture::moment(const X11Connection &connection, const X11Extensions &extensions) const
{
    Moment moment;
    moment.windows = viewableOf(topLevels(connection));
    if (extensions.hasFixes)
        moment.cursor = X11Cursor::read(connection);
    return moment;
}

Canvas X11Picture::grabbedScreen(const X11Connection &connection, const X11Extensions &extensions, const Moment &now,
                                 std::optional<ServerGrab> &grab) const
{
    if (isScreenItself(connection)) {
        const auto transport = extensions.hasSharedMemory ? PixelTransport::SharedMemory : PixelTransport::Socket;
        const QRect area = X11Canvas::screenArea(m_request.placements.first().display);
        try {
            return finished(connection, fetchPixels(connection, connection.root(), area, transport), now.cursor);
        } catch (const Failure &) {
            requireSameDisplays(connection); // A screen that has become smaller refuses; that is the better reason.
            throw;
        }
    }
    const RenderFormats formats(connection);
    const RenderPicture screen(connection, connection.root(), formats.ofVisual(connection.screen().root_visual),
                               RenderPicture::Owns::Nothing);
    X11Canvas canvas(connection, extensions, formats, m_request);
    drawDisplays(canvas, [&](const RenderPicture &picture, const QRect &area, const QPoint &at) {
        clip(connection, picture, QRect(at, area.size()));
        xcb_render_composite(connection.xcb(), XCB_RENDER_PICT_OP_SRC, screen.id(), XCB_NONE, picture.id(),
                             qint16(area.x()), qint16(area.y()), 0, 0, qint16(at.x()), qint16(at.y()),
                             quint16(area.width()), quint16(area.height()));
    });
    grab.reset();
    return finished(connection, canvas.pixels(), now.cursor);
}

std::optional<Canvas> X11Picture::grabbedWindows(X11Redirection &redirection, const WindowChoice &choice) const
{
    const X11Connection &connection = redirection.connection();
    const RenderFormats formats(connection);
    std::optional<ServerGrab> grab(connection);
    Moment now = moment(connection, redirection.extensions());
    if (!knowsAll(choice, now.windows))
        return std::nullopt;
    redirection.processAllEvents();
    // The window below it chose the pointer's picture.
    if (choice.leftOut.contains(now.cursor.under))
        now.cursor = {};

    X11Canvas canvas(connection, redirection.extensions(), formats, m_request);
    {
        const X11Background background(connection, formats, choice.isComposited);
        const X11Scene scene(redirection, formats, now.windows, choice, background, m_request.backgroundGrey);
        drawDisplays(canvas, [&](const RenderPicture &picture, const QRect &area, const QPoint &at) {
            scene.draw(picture, area, at);
        });
    }
    grab.reset();
    return finished(connection, canvas.pixels(), now.cursor);
}

void X11Picture::drawDisplays(X11Canvas &canvas, const PaintDesktop &paint) const
{
    for (const DisplayPlacement &placement : m_request.placements)
        canvas.draw(placement, paint);
}

Canvas X11Picture::finished(const X11Connection &connection, const FetchedPixels &pixels, const X11Cursor &cursor) const
{
    requireSameDisplays(connection);
    for (const DisplayPlacement &placement : m_request.placements)
        cursor.blend(pixels, placement);
    Canvas canvas;
    canvas.size = pixels.size;
    canvas.pixels = QByteArray::fromRawData(pixels.bytes, qsizetype(pixels.size.width()) * pixels.size.height() * 4);
    canvas.memory = pixels.memory;
    return canvas;
}

// One display of the canvas's own size in pixels of the canvas's own kind needs no drawing.
bool X11Picture::isScreenItself(const X11Connection &connection) const
{
    if (m_request.placements.size() != 1)
        return false;
    const DisplayPlacement &only = m_request.placements.first();
    return X11Canvas::isUnscaled(only) && only.target.x == 0 && only.target.y == 0 &&
           X11Canvas::screenArea(only.display).size() == m_request.size && hasUsualPixels(connection);
}

void X11Picture::requireSameDisplays(const X11Connection &connection) const
{
    const QList<Display> now = readDisplays(connection);
    requireAlive(connection);
    const bool areSame =
        now.size() == m_request.placements.size() &&
        std::equal(now.cbegin(), now.cend(), m_request.placements.cbegin(),
                   [](const Display &display, const DisplayPlacement &placement) {
                       return display.id == placement.display.id && display.bounds == placement.display.bounds;
                   });
    if (!areSame)
        throw Failure("Capture", 2, "The displays changed while the screenshot was taken.");
}

X11Region X11Picture::displayAreas() const
{
    X11Region areas;
    for (const DisplayPlacement &placement : m_request.placements)
        areas.add(X11Canvas::screenArea(placement.display));
    return areas;
}

} // namespace ardeno
