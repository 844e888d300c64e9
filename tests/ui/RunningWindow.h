// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/app/Program.h"
#include "tests/desktop/Desktop.h"
#include "tests/ui/ScreenReader.h"

#include <QJsonArray>

namespace ardeno {

using desktop_test::eventually;
using desktop_test::outputOf;

// The finished program with its window, worked with the X server's pointer and keys, and read as a screen reader does.
struct RunningWindow : ProgramFixture {
    std::unique_ptr<QProcess> program;
    std::unique_ptr<ScreenReader> reader;
    QString window; // Its number.

    ~RunningWindow();

    // Starts it, waits until its window is there and gives it the keyboard.
    void open();
    // Asks it to end, and checks that it did so without a word.
    void close();

    void key(const QString &keys) const;
    void type(const QString &text) const;
    // By keys alone, as soon as the views are there.
    void createProject(const QString &name) const;
    bool hasViews() const;

    // Whether it is seen before long.
    bool sees(const QString &name) const;

    bool seesNow(const QString &name) const { return reader->find(name).has_value(); }

    // Where it is, once it is there and stands still; scrolled into the window.
    enum class Kind { Any, Field }; // A field has a label of its name.
    QRect place(const QString &name, Kind kind = Kind::Any) const;
    // With the pointer's own button: 1 the left one, 3 the right one.
    void click(const QString &name, int button = 1, Kind kind = Kind::Any) const;
    // Where the menu is that is open, a window of its own, which readers only hear of; empty while there is none.
    QRect menuPlace() const;
    // In the screen's own pixels.
    static QRect geometry(const QString &number);
    void drag(const QString &name, const QString &target) const;

    QJsonArray stored(const char *list) const { return library().value(list).toArray(); }

    QStringList storedNames() const;

    // Leaves a picture of the window for people to look at.
    void picture(const QString &name) const;
};

} // namespace ardeno
