// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

namespace ardeno {

// A file in the desktop's list of those that were used lately.
struct RecentDocument {
    QString path = {};
    QDateTime lastUsed = {};
    QStringList applications = {}; // Names and programs of those that used it.

    bool operator==(const RecentDocument &) const = default;
};

namespace RecentDocuments {

// The user's list; empty when there is none.
QList<RecentDocument> read();

// Files of this machine in the text of such a list ("recently-used.xbel"); what is broken is left out.
QList<RecentDocument> parsed(const QByteArray &text);

} // namespace RecentDocuments

} // namespace ardeno
