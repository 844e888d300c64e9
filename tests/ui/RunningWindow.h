// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/app/Program.h"
#include "tests/ui/AccessibleWindow.h"

#include <QJsonArray>
#include <QTest>

namespace ardeno {

inline bool waitUntil(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, 30'000);
}

inline QString outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}

// The finished program with its window, worked through the X server.
struct RunningWindow : ProgramFixture {
    std::unique_ptr<QProcess> program;
    QString window; // Its number.

    void open()
    {
        program = start({});
        const bool isThere = waitUntil([this] {
            window = outputOf("xdotool", {"search", "--onlyvisible", "--pid", QString::number(program->processId())})
                         .section('\n', 0, 0);
            return !window.isEmpty() && outputOf("wmctrl", {"-l"}).contains("Ardeno");
        });
        const QByteArray said = program->readAllStandardError();
        CAPTURE(said);
        REQUIRE(isThere);
    }

    ~RunningWindow()
    {
        if (program && program->state() != QProcess::NotRunning) {
            program->kill();
            program->waitForFinished();
        }
    }

    void key(const QString &keys) const { outputOf("xdotool", {"key", "--window", "0", keys}); }

    void type(const QString &text) const { outputOf("xdotool", {"type", "--delay", "20", text}); }

    void focus() const { outputOf("xdotool", {"windowactivate", "--sync", window}); }

    QJsonArray stored(const char *list) const { return library().value(list).toArray(); }

    // Keys are lost while the program is still busy with the one before, so they are sent until they show.
    bool keyUntil(const QString &keys, const std::function<bool()> &condition) const
    {
        for (int attempt = 0; attempt < 20; ++attempt) {
            key(keys);
            if (QTest::qWaitFor(condition, 2000))
                return true;
        }
        return false;
    }

    // What the window shows, as a screen reader finds it.
    AccessibleWindow shown() const { return AccessibleWindow(program->processId()); }

    // Presses a button once it can be pressed.
    bool click(const QString &button) const
    {
        return waitUntil([&] { return shown().press(button); });
    }

    bool sees(const QString &name) const
    {
        return waitUntil([&] { return shown().has(name); });
    }

    void picture(const QString &name) const
    {
        QDir().mkpath(ARDENO_PICTURES);
        outputOf("maim", {"-i", window, QString(ARDENO_PICTURES "/%1.png").arg(name)});
    }
};

} // namespace ardeno
