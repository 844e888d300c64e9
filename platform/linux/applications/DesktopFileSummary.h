// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace ardeno {

// What identifies the windows and processes of an application, read without the rest of its desktop file: reading
// all files in full takes ten times as long.
struct DesktopFileSummary {
    QString name = {};        // Not a translated one.
    QString windowClass = {}; // Empty when the file claims none.
    QString program = {};     // As written: a name or a full path.
    QStringList arguments = {};
    QString neededProgram = {}; // Without it the application counts as not installed; empty when there is none.
    bool isHidden = false;      // The file stands for an application that was removed.
    bool hasWindows = true;     // Not a terminal program, and shown in menus.

    bool operator==(const DesktopFileSummary &) const = default;

    // Of the text of a desktop file, however damaged.
    static DesktopFileSummary parsed(const QByteArray &text);
};

} // namespace ardeno
