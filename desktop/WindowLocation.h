// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

namespace ardeno {

// What one window shows: a folder of a file browser, or the document of another application.
struct WindowLocation {
    QString title = {};                   // Exactly the window's; empty when it has none.
    QString path = {};                    // Absolute, neither an address nor escaped.
    std::optional<quint32> windowID = {}; // The very window, when the source knows it.
    std::optional<qint64> processID = {}; // The window's owner, when the source knows it.

    bool operator==(const WindowLocation &) const = default;
};

} // namespace ardeno
