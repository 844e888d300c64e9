// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSet>
#include <QStringList>

class QWidget;

namespace ardeno {

// What a screen reader finds in a window.
struct ReadScreen {
    QStringList unnamed = {}; // Where it would stop without being able to say what it is.
    QSet<QString> names = {};
};

ReadScreen readScreen(QWidget *window);

} // namespace ardeno
