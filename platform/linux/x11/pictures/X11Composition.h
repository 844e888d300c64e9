// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/x11/pictures/WindowVisibility.h"
#include "platform/linux/x11/pictures/X11Background.h"
#include "platform/linux/x11/pictures/X11Canvas.h"
#include "platform/linux/x11/pictures/X11RedirectionHold.h"
#include "platform/linux/x11/pictures/X11ScreenChanges.h"

#include <chrono>
#include <memory>
#include <optional>

namespace ardeno {

// The frames of a recording that leaves windows out, put together from the others. Keeps between frames what seldom
// changes.
class X11Composition final {
public:
    // What is referred to outlives the composition.
    X11Composition(std::shared_ptr<X11RedirectionHold> hold, const RenderFormats &formats, DesktopEntries &entries,
                   const Exclusion &exclusion);
    X11Composition(const X11Composition &) = delete;
    X11Composition &operator=(const X11Composition &) = delete;
    ~X11Composition();

    // Valid until the next call. Absent when it could not be said for certain what may be shown. Throws Failure.
    std::optional<FetchedPixels> frame(const DisplayPlacement &placement, QSize size, X11ScreenChanges &changes);

    // What has changed since the last frame.
    void forgetChoice() { m_visibility.reset(); }

    void forgetWallpaper() { m_hasOldBackground = true; }

    void forgetDisplays() { m_hasOldCanvas = true; }

private:
    using Clock = std::chrono::steady_clock;

    void choose(X11Redirection &redirection);
    void prepare(X11Redirection &redirection, const DisplayPlacement &placement, QSize size);
    // Absent when a window has come that nobody has judged yet.
    std::optional<FetchedPixels> grabbed(X11Redirection &redirection, const DisplayPlacement &placement,
                                         X11ScreenChanges &changes);

    std::shared_ptr<X11RedirectionHold> m_hold;
    const RenderFormats &m_formats;
    DesktopEntries &m_entries;
    const Exclusion &m_exclusion;
    std::optional<WindowVisibility> m_visibility = {};
    QSet<xcb_window_t> m_leftOut = {}; // Whatever has been, for as long as it is there.
    quint32 m_revision = 0;            // Of the windows when they were chosen.
    std::optional<X11Canvas> m_canvas = {};
    std::optional<X11Background> m_background = {};
    Clock::time_point m_backgroundTime = {};
    bool m_hasOldCanvas = false;
    bool m_hasOldBackground = false;
};

} // namespace ardeno
