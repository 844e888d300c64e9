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

    // The number of a visible window of the application; empty when there is none.
    QString window(const QString &title) const;
    bool waitForWindow(const QString &title) const;
    bool waitForNoWindow(const QString &title) const;
    QString activeWindow() const;
    // To whatever has the keyboard.
    static void key(const QString &keys);
    static void type(const QString &text);
    // A button or the like of this name, as a screen reader finds it.
    bool waitForControl(const QString &name) const;
    // For the window, which then takes keys.
    bool waitForKeyboard() const;
    bool waitForEnd() const;

    // Leaves a picture of the screen for people to look at.
    static void picture(const QString &name);
};

} // namespace ardeno
