// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Capability.h"
#include "model/WorkspaceRecords.h"

#include <QByteArray>
#include <QCoroTask>
#include <QList>
#include <QSet>
#include <QSize>

#include <memory>

namespace ardeno {

// A display that can be captured. Bounds in global coordinates, origin top left, in points.
struct CaptureDisplay {
    quint32 id = 0;
    WindowRect bounds = {};

    bool operator==(const CaptureDisplay &) const = default;
};

// Where a display is drawn on the canvas: pixels from the canvas's top left, fractions kept.
struct DisplayPlacement {
    CaptureDisplay display = {};
    WindowRect target = {};

    bool operator==(const DisplayPlacement &) const = default;
};

// A picture to be composed by the desktop, of these displays and without the windows of these applications.
struct CanvasRequest {
    QSize size = {};            // Pixels.
    quint8 backgroundGrey = 31; // The level of areas that no display covers.
    QList<DisplayPlacement> placements = {};
    QSet<QString> excludedAppIDs = {};
};

// Pixels of 32 bits in memory order blue, green, red, unused; rows of `size.width() * 4` bytes without gaps.
struct Canvas {
    QSize size = {};
    QByteArray pixels = {};
    std::shared_ptr<const void> memory = {}; // Keeps the pixels where they are when they are not the array's own.
};

// Still pictures of the displays. The program's own windows are in no picture.
class ScreenCapture {
public:
    virtual ~ScreenCapture() = default;

    virtual Capability availability() const = 0;
    // Whether the windows of chosen applications can be left out.
    virtual Capability exclusionAvailability() const = 0;
    // Empty when no display is connected. Throws Failure when pictures are not available here.
    virtual QList<CaptureDisplay> displays() = 0;
    // Tells from when on these applications must be left out. A back end that needs a "before" (so that no other
    // window inherits their pixels) prepares itself here; without this call it starts with the first picture.
    virtual void prepareExclusion(const QSet<QString> &appIDs) = 0;
    // Throws Failure; domain "Capture" for what the capture itself finds (displays that changed meanwhile).
    virtual QCoro::Task<Canvas> compose(CanvasRequest request) = 0;
};

} // namespace ardeno
