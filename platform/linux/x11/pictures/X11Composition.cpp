// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11Composition.h"

#include "platform/linux/x11/pictures/X11Cursor.h"
#include "platform/linux/x11/pictures/X11Scene.h"
#include "platform/linux/x11/pictures/X11TopLevels.h"

#include <algorithm>

namespace ardeno {

namespace {

// How often a frame is begun anew because a window has come that nobody has judged yet.
constexpr int mostAttempts = 5;
constexpr quint8 obscuredGrey = 31; // What must not be shown.
constexpr auto backgroundAge = std::chrono::seconds(10);

bool knowsAll(const WindowVisibility &visibility, const QList<TopLevel> &windows)
{
    return std::all_of(windows.cbegin(), windows.cend(),
                       [&](const TopLevel &window) { return visibility.knows(window.id); });
}

} // namespace

X11Composition::X11Composition(std::shared_ptr<X11RedirectionHold> hold, const RenderFormats &formats,
                               DesktopEntries &entries, const Exclusion &exclusion)
    : m_hold(std::move(hold)), m_formats(formats), m_entries(entries), m_exclusion(exclusion)
{
}

X11Composition::~X11Composition()
{
    const X11RedirectionHold::Use use = m_hold->use(); // What is freed belongs to its connection.
    m_background.reset();
    m_canvas.reset();
}

std::optional<FetchedPixels> X11Composition::frame(const DisplayPlacement &placement, QSize size,
                                                   X11ScreenChanges &changes)
{
    const X11RedirectionHold::Use use = m_hold->use();
    X11Redirection &redirection = use.redirection;
    requireAlive(redirection.connection());
    std::optional<FetchedPixels> pixels;
    for (int attempt = 0; attempt < mostAttempts && !pixels; ++attempt) {
        redirection.processEvents();
        if (!m_visibility || m_revision != redirection.revision())
            choose(redirection);
        prepare(redirection, placement, size);
        waitForDrawing(redirection, *m_visibility, X11Canvas::screenArea(placement.display));
        pixels = grabbed(redirection, placement, changes);
    }
    if (!pixels) {
        // Windows come and go faster than they can be judged.
        const ServerGrab grab(redirection.connection());
        redirection.processAllEvents();
        m_visibility->leaveOutStrangers(topLevels(redirection.connection()), [&](xcb_window_t window) {
            return redirection.hasComeSince(window, m_revision);
        });
        m_revision = redirection.revision();
        pixels = grabbed(redirection, placement, changes);
        m_visibility.reset(); // The strangers are judged for the next frame.
    }
    redirection.processEvents(); // What was read meanwhile does not wake the hold's own thread.
    requireAlive(redirection.connection());
    return pixels;
}

void X11Composition::choose(X11Redirection &redirection)
{
    const X11Connection &connection = redirection.connection();
    m_revision = redirection.revision();
    const bool wasComposited = m_visibility && m_visibility->isComposited;
    const QList<TopLevel> windows = topLevels(connection);
    m_visibility = chooseWindows(connection, m_entries, windows, m_exclusion);
    // A frame whose window has gone still shows it.
    for (const TopLevel &window : windows) {
        if (m_leftOut.contains(window.id) && m_visibility->allowed.remove(window.id))
            m_visibility->leftOut.insert(window.id);
    }
    m_leftOut = m_visibility->leftOut;
    m_hasOldBackground = m_hasOldBackground || m_visibility->isComposited != wasComposited;
}

void X11Composition::prepare(X11Redirection &redirection, const DisplayPlacement &placement, QSize size)
{
    const X11Connection &connection = redirection.connection();
    if (!m_canvas || m_hasOldCanvas) {
        CanvasRequest request;
        request.size = size;
        request.backgroundGrey = 0;
        request.placements = {placement};
        m_canvas.reset();
        m_canvas.emplace(connection, redirection.extensions(), m_formats, request);
        m_hasOldCanvas = false;
        m_hasOldBackground = true; // It is as large as the screen.
    }
}

std::optional<FetchedPixels> X11Composition::grabbed(X11Redirection &redirection, const DisplayPlacement &placement,
                                                     X11ScreenChanges &changes)
{
    const X11Connection &connection = redirection.connection();
    std::optional<ServerGrab> grab(connection);
    const QList<TopLevel> windows = viewableOf(topLevels(connection));
    redirection.processAllEvents();
    if (!knowsAll(*m_visibility, windows) || m_revision != redirection.revision())
        return std::nullopt;
    X11Cursor cursor = X11Cursor::read(connection);
    if (m_visibility->leftOut.contains(cursor.under))
        cursor = {}; // That window chose the pointer's picture.
    const bool isOld = m_background && !m_background->isWallpaper() && m_backgroundTime + backgroundAge < Clock::now();
    if (!m_background || m_hasOldBackground || isOld) {
        m_background.reset();
        m_background.emplace(connection, m_formats, m_visibility->isComposited);
        m_backgroundTime = Clock::now();
        m_hasOldBackground = false;
    }
    {
        const X11Scene scene(redirection, m_formats, windows, *m_visibility, *m_background, obscuredGrey);
        m_canvas->draw(placement, [&](const RenderPicture &picture, const QRect &area, const QPoint &at) {
            scene.draw(picture, area, at);
        });
    }
    changes.beginFrame(connection);
    grab.reset();
    FetchedPixels pixels = m_canvas->pixels();
    cursor.blend(pixels, placement);
    return pixels;
}

} // namespace ardeno
