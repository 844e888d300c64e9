// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/CaptureService.h"
#include "platform/linux/x11/pictures/X11ScreenCapture.h"
#include "tests/desktop/Desktop.h"

#include <QImage>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

namespace ardeno::screen_test {

using desktop_test::BareServer;

constexpr QRgb secretColour = 0xffff00ff; // Of the application "org.example.Secret", which tests exclude.
constexpr QRgb openColour = 0xff00c000;   // Of the application "org.example.Open".
constexpr QRgb grey = 0xff1f1f1f;         // What cannot or must not be shown.

inline const QString secretID = "org.example.Secret";

// An application of its own process with one painted window, shown when the object is there.
class Painter final {
public:
    // See painter/main.cpp. The class tells the application: "secret" or "open".
    explicit Painter(const QStringList &description);
    Painter(const Painter &) = delete;
    Painter &operator=(const Painter &) = delete;
    ~Painter();

    void drawNow();

private:
    void waitFor(const QByteArray &word);

    QProcess m_process;
};

// The pictures of this desktop, as the program takes them.
struct ScreenFixture {
    ScreenFixture();
    ~ScreenFixture();

    QImage picture(const QSet<QString> &excluded = {}) { return picture(screen, excluded); }

    QImage picture(X11ScreenCapture &of, const QSet<QString> &excluded);
    // The picture as another program takes it, without the pointer.
    QImage peerPicture() const;
    // Waits until the screen shows the colour: a compositing manager draws a window some time after its owner has.
    bool shows(QRgb colour) const;
    void movePointer(int x, int y) const;
    // A wallpaper of this colour, left on the root window as programs do; without one only the root's own background.
    void setWallpaper(quint32 colour) const;
    void removeWallpaper() const;
    // Replaces the monitors by these: name and geometry as xrandr has it ("800/200x600/150+0+0").
    void setMonitors(const QList<QStringList> &monitors);

    QTemporaryDir folder = {};
    X11ScreenCapture screen = X11ScreenCapture("org.ardeno.Ardeno");

private:
    void settle() const;
    void removeMonitors();

    QStringList m_monitors = {};
};

// How many pixels have the colour, or nearly: a scaled picture mixes them.
int countOf(const QImage &image, QRgb colour);

} // namespace ardeno::screen_test
