// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace ardeno {

// What a window's title says without counters ("(3) Inbox", "[2/4]"), marks of unsaved changes and the name of its
// application at the end. Empty when nothing else is left.
QString bareTitle(const QString &title, const QStringList &applicationNames);

} // namespace ardeno
