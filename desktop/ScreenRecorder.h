// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Capability.h"
#include "desktop/ScreenCapture.h"
#include "support/Failure.h"

#include <QCoroTask>
#include <QList>
#include <QSet>
#include <QSize>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace ardeno {

// What there is to record now.
struct RecordableContent {
    QList<CaptureDisplay> displays = {};
    std::optional<quint32> mainDisplayID = {};
    // The running applications that have windows, without this program; empty text for one without an identifier.
    QStringList applicationIDs = {};
};

// A video of one display.
struct RecordingRequest {
    QString path = {}; // The file to be written; one that is there already is replaced.
    CaptureDisplay display = {};
    QSize size = {}; // Of the frames in pixels, both sides even.
    QSet<QString> excludedAppIDs = {};
    bool onlyRunningApps = false; // What starts later is left out, too.
};

// What a recording reports, on whatever thread; at most one `finished`, and nothing after the stream has gone.
struct RecordingEvents {
    std::function<void()> finished = {}; // The file is complete, after stop().
    std::function<void(const Failure &)> failed = {};
};

// A running recording; it ends with the object, at the latest.
class RecordingStream {
public:
    virtual ~RecordingStream() = default;

    // Takes no more frames. The file may take longer, see RecordingEvents.
    virtual QCoro::Task<void> stop() = 0;
};

// Videos of the screen: MPEG-4 with H.264, the pointer in it and no sound, a frame whenever something changes and at
// most ten a second. The program's own windows are in no frame.
class ScreenRecorder {
public:
    virtual ~ScreenRecorder() = default;

    virtual Capability availability() const = 0;
    // Throws Failure when nothing can be recorded here.
    virtual RecordableContent content() = 0;
    // Returns when the first frame is in the file. Throws Failure.
    virtual QCoro::Task<std::unique_ptr<RecordingStream>> start(RecordingRequest request, RecordingEvents events) = 0;
};

} // namespace ardeno
