// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/CaptureService.h"
#include "platform/linux/x11/recording/X11ScreenRecorder.h"
#include "support/BlockOn.h"
#include "tests/desktop/Desktop.h"
#include "tests/desktop/Video.h"
#include "tests/platform/x11screen/ScreenFixture.h"

#include <doctest/doctest.h>

namespace ardeno::screen_test {

// A recording of this desktop, as the program makes it.
struct RecordingFixture : ScreenFixture {
    std::shared_ptr<X11RedirectionKeeper> keeper = std::make_shared<X11RedirectionKeeper>(qgetenv("DISPLAY"));
    X11ScreenCapture sharing{"org.ardeno.Ardeno", keeper};
    X11ScreenRecorder recorder{"org.ardeno.Ardeno", keeper};
    CaptureService service{sharing, &recorder};
    QString path = folder.filePath("session.mp4");
    QString failure = {};

    RecordingFixture()
    {
        service.onFailure = [this](const Failure &reported) { failure = reported.description(); };
    }

    void start(const QSet<QString> &excluded = {})
    {
        sharing.prepareExclusion(excluded);
        blockOn(service.startRecording(path, excluded));
    }

    // Lets something happen and waits until the file shows it.
    void record(const std::function<void()> &happening) const
    {
        const int before = desktop_test::Video(path).frames();
        happening();
        CHECK(desktop_test::eventually([&] { return desktop_test::Video(path).frames() > before; }));
    }

    desktop_test::Video stop()
    {
        blockOn(service.stopRecording());
        sharing.prepareExclusion({});
        return desktop_test::Video(path);
    }

    // In how many frames of the video the colour is.
    static int framesWith(const desktop_test::Video &video, QRgb colour)
    {
        int found = 0;
        for (const QImage &image : video.pictures())
            found += countOf(image, colour) > 500 ? 1 : 0;
        return found;
    }
};

} // namespace ardeno::screen_test
