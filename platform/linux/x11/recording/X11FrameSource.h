// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ScreenRecorder.h"
#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/x11/pictures/X11Composition.h"
#include "platform/linux/x11/pictures/X11RedirectionKeeper.h"
#include "platform/linux/x11/pictures/X11ScreenChanges.h"
#include "platform/linux/x11/recording/X11FrameBuffer.h"

#include <chrono>
#include <memory>
#include <optional>

namespace ardeno {

// The frames of a recording, one after the other. Used by one thread at a time.
class X11FrameSource final {
public:
    // Throws Failure.
    X11FrameSource(const RecordingRequest &request, const QString &ownAppID,
                   std::shared_ptr<X11RedirectionKeeper> keeper, std::shared_ptr<RememberedTraces> remembered);

    // Whether a frame would differ from the last one. Throws Failure when the server has gone.
    bool hasChanged();

    // The display as it is now, with the pointer; valid until the next call. Absent while the displays are being
    // rearranged. Throws Failure when the display or the server has gone.
    std::optional<FetchedPixels> frame();

private:
    using Clock = std::chrono::steady_clock;

    void readEvents();
    bool findDisplay();
    void place(const CaptureDisplay &display);
    bool needsComposition();
    std::optional<FetchedPixels> screenFrame();
    FetchedPixels readScreen();

    std::shared_ptr<X11RedirectionKeeper> m_keeper;
    QSize m_size;
    quint32 m_displayID;
    X11Connection m_connection;
    X11Extensions m_extensions;
    RenderFormats m_formats;
    DesktopEntries m_entries;
    Exclusion m_exclusion;
    X11ScreenChanges m_changes;
    std::optional<DisplayPlacement> m_placement = {}; // Absent while it is not known.
    std::optional<Clock::time_point> m_missingSince = {};
    bool m_isScreenSafe = false;                      // No window that must be left out can be on the screen.
    std::optional<X11FrameBuffer> m_buffer = {};      // For frames that are the screen itself.
    std::optional<X11Canvas> m_canvas = {};           // For frames that are scaled from it.
    std::optional<X11Composition> m_composition = {}; // Once a window had to be left out, for good.
    bool m_isFrameDue = true;
};

} // namespace ardeno
