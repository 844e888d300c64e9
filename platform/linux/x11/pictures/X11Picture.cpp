// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11Picture.h"

#include "platform/linux/x11/pictures/X11PixelFetch.h"
#include "platform/linux/x11/pictures/X11Scene.h"
#include "platform/linux/x11/windows/X11Displays.h"
#include "platform/linux/x11/windows/X11Event.h"
#include "support/Failure.h"

#include <algorithm>
#include <utility>

namespace ardeno {

namespace {

// How often a picture is begun anew because a window has come that nobody has judged yet.
constexpr int mostPictureAttempts = 5;

// Counts the windows that go from now on.
class DepartureCount final {
public:
    explicit DepartureCount(const X11Connection &connection) : m_connection(connection)
    {
        const quint32 changes = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection.xcb(), connection.root(), XCB_CW_EVENT_MASK, &changes);
    }

    quint64 operator()()
    {
        xcb_connection_t *xcb = m_connection.xcb();
        for (X11Reply<xcb_generic_event_t> event(xcb_poll_for_event(xcb)); event;
             event.reset(xcb_poll_for_queued_event(xcb)))
            m_count += eventType(*event) == XCB_DESTROY_NOTIFY ? 1 : 0;
        return m_count;
    }

private:
    const X11Connection &m_connection;
    quint64 m_count = 0;
};

} // namespace

X11Picture::X11Picture(CanvasRequest request, Exclusion exclusion, DesktopEntries &entries)
    : m_request(std::move(request)), m_exclusion(std::move(exclusion)), m_entries(entries)
{
}

std::optional<Canvas> X11Picture::ofScreen(const X11Connection &connection, const X11Extensions &extensions)
{
    const IsClean always = [](const WindowVisibility &, const QList<TopLevel> &) { return true; };
    auto canvas = screenIf(always, DepartureCount(connection), connection, extensions);
    m_departures = 0; // A redirection that takes the connection over begins to count with what has not been read.
    return canvas;
}

std::optional<Canvas> X11Picture::ofScreen(X11Redirection &redirection)
{
    const IsClean showsThemselves = [&](const WindowVisibility &visibility, const QList<TopLevel> &windows) {
        redirection.processAllEvents();
        return std::all_of(windows.cbegin(), windows.cend(), [&](const TopLevel &window) {
            return redirection.untrusted(window.id, visibility.allowed).isEmpty();
        });
    };
    const Departures departures = [&] {
        redirection.processEvents();
        return redirection.departures();
    };
    return screenIf(showsThemselves, departures, redirection.connection(), redirection.extensions());
}

std::optional<Canvas> X11Picture::screenIf(const IsClean &isClean, const Departures &departures,
                                           const X11Connection &connection, const X11Extensions &extensions)
{
    for (int attempt = 0; attempt < mostPictureAttempts; ++attempt) {
        const quint64 before = departures();
        const QList<TopLevel> windows = topLevels(connection);
        choose(connection, windows, before);
        if (mayShowLeftOut(*m_visibility, windows, m_exclusion))
            return std::nullopt;
        std::optional<ServerGrab> grab(connection);
        const Moment now = moment(connection, extensions);
        if (!knowsAll(now.windows, departures()))
            continue;
        // One that was hidden when it was judged may have been shown since.
        if (mayShowLeftOut(*m_visibility, now.windows, m_exclusion) || !isClean(*m_visibility, now.windows))
            return std::nullopt;
        return grabbedScreen(connection, extensions, now, grab);
    }
    m_visibility.reset();
    return std::nullopt;
}

void X11Picture::choose(const X11Connection &connection, const QList<TopLevel> &windows, quint64 departures)
{
    m_visibility = chooseWindows(connection, m_entries, windows, m_exclusion);
    m_departures = departures;
}

bool X11Picture::knowsAll(const QList<TopLevel> &windows, quint64 departures) const
{
    return departures == m_departures && std::all_of(windows.cbegin(), windows.cend(), [&](const TopLevel &window) {
               return m_visibility->knows(window.id);
           });
}

Canvas X11Picture::ofWindows(X11Redirection &redirection)
{
    const X11Connection &connection = redirection.connection();
    for (int attempt = 0; attempt < mostPictureAttempts; ++attempt) {
        if (!m_visibility || attempt > 0) {
            m_revision = redirection.revision();
            const quint64 departures = redirection.departures();
            choose(connection, topLevels(connection), departures);
        }
        waitForDrawing(redirection, *m_visibility, displayAreas());
        std::optional<ServerGrab> grab(connection);
        const Moment now = moment(connection, redirection.extensions());
        redirection.processAllEvents();
        if (knowsAll(now.windows, redirection.departures()))
            return grabbedWindows(redirection, now, grab);
    }
    // Windows come and go faster than they can be judged.
    std::optional<ServerGrab> grab(connection);
    const Moment now = moment(connection, redirection.extensions());
    redirection.processAllEvents();
    m_visibility->leaveOutStrangers(now.windows,
                                    [&](xcb_window_t window) { return redirection.hasComeSince(window, m_revision); });
    return grabbedWindows(redirection, now, grab);
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

Canvas X11Picture::grabbedWindows(X11Redirection &redirection, const Moment &now, std::optional<ServerGrab> &grab) const
{
    const X11Connection &connection = redirection.connection();
    const RenderFormats formats(connection);
    X11Canvas canvas(connection, redirection.extensions(), formats, m_request);
    {
        const X11Background background(connection, formats, m_visibility->isComposited);
        const X11Scene scene(redirection, formats, now.windows, *m_visibility, background, m_request.backgroundGrey);
        drawDisplays(canvas, [&](const RenderPicture &picture, const QRect &area, const QPoint &at) {
            scene.draw(picture, area, at);
        });
    }
    grab.reset();
    // The window below it chose the pointer's picture.
    const bool showsPointer = !m_visibility->leftOut.contains(now.cursor.under);
    return finished(connection, canvas.pixels(), showsPointer ? now.cursor : X11Cursor());
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
