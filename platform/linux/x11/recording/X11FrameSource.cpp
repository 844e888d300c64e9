// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/recording/X11FrameSource.h"

#include "desktop/RecordingLayout.h"
#include "platform/linux/x11/pictures/X11Cursor.h"
#include "platform/linux/x11/pictures/X11TopLevels.h"
#include "platform/linux/x11/windows/X11Displays.h"

#include <algorithm>
#include <utility>

namespace ardeno {

namespace {

// A monitor goes for about half a second when its mode changes.
constexpr auto modeChangeTime = std::chrono::seconds(2);

Exclusion exclusionOf(const RecordingRequest &request, const QString &ownAppID, const X11Connection &connection)
{
    Exclusion exclusion{ownAppID, request.excludedAppIDs};
    if (request.onlyRunningApps)
        exclusion.onlyProcesses = RunningProcesses::of(connection);
    return exclusion;
}

bool isPixelByPixel(const DisplayPlacement &placement, QSize size)
{
    const WindowRect &target = placement.target;
    return X11Canvas::isUnscaled(placement) && target.x == 0 && target.y == 0 && target.width >= size.width() &&
           target.height >= size.height();
}

} // namespace

X11FrameSource::X11FrameSource(const RecordingRequest &request, const QString &ownAppID,
                               std::shared_ptr<X11RedirectionKeeper> keeper,
                               std::shared_ptr<RememberedTraces> remembered)
    : m_keeper(std::move(keeper)),
      m_size(request.size),
      m_displayID(request.display.id),
      m_connection(m_keeper->displayName()),
      m_extensions(X11Extensions::of(m_connection)),
      m_formats(m_connection),
      m_entries(std::move(remembered)),
      m_exclusion(exclusionOf(request, ownAppID, m_connection)),
      m_changes(m_connection, m_extensions)
{
}

bool X11FrameSource::hasChanged()
{
    readEvents();
    if (m_placement)
        m_changes.readPointer(X11Canvas::screenArea(m_placement->display));
    requireAlive(m_connection);
    return m_isFrameDue || m_changes.isVisible();
}

void X11FrameSource::readEvents()
{
    m_changes.readEvents();
    if (m_changes.takeWindows()) {
        m_isScreenSafe = false;
        if (m_composition)
            m_composition->forgetChoice();
    }
    if (m_changes.takeDisplays()) {
        m_placement.reset();
        m_isFrameDue = true;
    }
    if (m_changes.takeWallpaper() && m_composition)
        m_composition->forgetWallpaper();
}

std::optional<FetchedPixels> X11FrameSource::frame()
{
    m_isFrameDue = true; // Until there is one.
    readEvents();
    if (!m_placement && !findDisplay())
        return std::nullopt;
    std::optional<FetchedPixels> pixels;
    if (!needsComposition())
        pixels = screenFrame();
    if (!pixels && m_composition)
        pixels = m_composition->frame(*m_placement, m_size, m_changes);
    m_isFrameDue = !pixels;
    return pixels;
}

// False while the display is missing; it may come back.
bool X11FrameSource::findDisplay()
{
    const QList<Display> displays = readDisplays(m_connection);
    requireAlive(m_connection);
    const auto found = std::find_if(displays.cbegin(), displays.cend(),
                                    [&](const Display &display) { return display.id == m_displayID; });
    if (found != displays.cend() && found->bounds.width >= 1 && found->bounds.height >= 1) {
        m_missingSince.reset();
        place({found->id, found->bounds});
        return true;
    }
    if (!m_missingSince)
        m_missingSince = Clock::now();
    if (*m_missingSince + modeChangeTime < Clock::now())
        throw Failure("Capture", 1, "The display that was recorded is no longer connected.");
    return false;
}

void X11FrameSource::place(const CaptureDisplay &display)
{
    m_placement = RecordingLayout::placement(display, m_size);
    m_canvas.reset();
    if (m_composition)
        m_composition->forgetDisplays();
}

// A window that must be left out may leave its pixels behind on the screen, so there is no way back.
bool X11FrameSource::needsComposition()
{
    if (m_composition)
        return true;
    if (!m_isScreenSafe) {
        const QList<TopLevel> windows = topLevels(m_connection);
        const WindowVisibility visibility = chooseWindows(m_connection, m_entries, windows, m_exclusion);
        m_isScreenSafe = m_exclusion.appIDs.isEmpty() && !mayShowLeftOut(visibility, windows, m_exclusion);
    }
    if (!m_isScreenSafe)
        m_composition.emplace(m_keeper->acquire(), m_formats, m_entries, m_exclusion);
    return !m_isScreenSafe;
}

// Absent when it cannot be shown after all.
std::optional<FetchedPixels> X11FrameSource::screenFrame()
{
    const DisplayPlacement placement = *m_placement;
    m_changes.beginFrame(m_connection);
    FetchedPixels pixels;
    try {
        pixels = readScreen();
    } catch (const Failure &) {
        requireAlive(m_connection);
        m_placement.reset(); // A screen that has become smaller refuses.
        return std::nullopt;
    }
    // The server has reported every window that can be in these pixels.
    readEvents();
    if (needsComposition())
        return std::nullopt;
    if (m_extensions.hasFixes)
        X11Cursor::read(m_connection).blend(pixels, placement);
    return pixels;
}

FetchedPixels X11FrameSource::readScreen()
{
    const QRect screen = X11Canvas::screenArea(m_placement->display);
    if (isPixelByPixel(*m_placement, m_size) && hasUsualPixels(m_connection)) {
        if (!m_buffer)
            m_buffer.emplace(m_connection, m_size, m_extensions.hasSharedMemory);
        return m_buffer->fetch(m_connection.root(), screen.topLeft());
    }
    if (!m_canvas) {
        CanvasRequest request;
        request.size = m_size;
        request.backgroundGrey = 0;
        request.placements = {*m_placement};
        m_canvas.emplace(m_connection, m_extensions, m_formats, request);
    }
    const RenderPicture root(m_connection, m_connection.root(), m_formats.ofVisual(m_connection.screen().root_visual),
                             RenderPicture::Owns::Nothing);
    m_canvas->draw(*m_placement, [&](const RenderPicture &picture, const QRect &area, const QPoint &at) {
        clip(m_connection, picture, QRect(at, area.size()));
        xcb_render_composite(m_connection.xcb(), XCB_RENDER_PICT_OP_SRC, root.id(), XCB_NONE, picture.id(),
                             qint16(area.x()), qint16(area.y()), 0, 0, qint16(at.x()), qint16(at.y()),
                             quint16(area.width()), quint16(area.height()));
    });
    return m_canvas->pixels();
}

} // namespace ardeno
