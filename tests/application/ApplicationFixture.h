// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/app/Program.h"
#include "tests/desktop/Desktop.h"

#include <QJsonArray>

namespace ardeno {

// The finished program as an application, worked through the X server and the session bus.
struct ApplicationFixture : ProgramFixture {
    std::unique_ptr<QProcess> application;

    ~ApplicationFixture();

    // Starts it and waits until commands reach it.
    void startApplication(const QStringList &arguments);

    bool isRunning() const { return application->state() == QProcess::Running; }

    // Ends it as the system does.
    ProgramResult terminate() const;

    QJsonArray checkpoints() const { return library().value("checkpoints").toArray(); }

    // The number of a visible window of the application; empty when there is none.
    QString window(const QString &title) const;
    bool waitForWindow(const QString &title) const;
    bool waitForNoWindow(const QString &title) const;
    QString activeWindow() const;
    // To whatever has the keyboard.
    static void key(const QString &keys);
    static void type(const QString &text);
    // Keys are lost while a window is still busy, so they are sent until they show.
    static bool keyUntil(const QString &keys, const std::function<bool()> &condition);

    // Leaves a picture of the screen for people to look at.
    static void picture(const QString &name);
};

} // namespace ardeno
