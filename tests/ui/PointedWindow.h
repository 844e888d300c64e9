// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/app/Program.h"
#include "tests/ui/ScreenReader.h"

#include <QJsonArray>

namespace ardeno {

// The finished program with its window, worked with the X server's pointer and keys, and read as a screen reader does.
struct PointedWindow : ProgramFixture {
    std::unique_ptr<QProcess> program;
    std::unique_ptr<ScreenReader> reader;
    QString window; // Its number.

    ~PointedWindow();

    // Starts it and waits until its window is there.
    void open();
    // Asks it to end, and checks that it did so without a word.
    void close();

    void focus() const;
    void key(const QString &keys) const;
    void type(const QString &text) const;
    // Waits generously.
    static bool becomes(const std::function<bool()> &condition);
    // Waits a moment, to try again.
    static bool becomesSoon(const std::function<bool()> &condition);
    static QString outputOf(const QString &tool, const QStringList &arguments);

    // Whether it is seen before long.
    bool sees(const QString &name) const;

    bool seesNow(const QString &name) const { return reader->find(name).has_value(); }

    // Where it is, once it is there and stands still; scrolled into the window.
    QRect place(const QString &name) const;
    // With the pointer's own button: 1 the left one, 3 the right one.
    void click(const QString &name, int button = 1) const;
    // Of the menu that opens, the entry at this place; menus are windows of their own, which readers only hear of.
    void chooseEntry(int at) const;
    void drag(const QString &name, const QString &target) const;

    QJsonArray stored(const char *list) const { return library().value(list).toArray(); }

    QStringList storedNames() const;

    // Leaves a picture of the window for people to look at.
    void picture(const QString &name) const;
};

} // namespace ardeno
