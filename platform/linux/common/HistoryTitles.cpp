// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/common/HistoryTitles.h"

#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QUrl>
#include <QUuid>
#include <QVariant>

#include <algorithm>

namespace ardeno {

namespace {

bool hasTitle(const SessionTab &tab)
{
    return !tab.title.isEmpty();
}

bool isComplete(const QList<SessionWindow> &windows)
{
    return std::all_of(windows.begin(), windows.end(), [](const SessionWindow &window) {
        return std::all_of(window.tabs.begin(), window.tabs.end(), hasTitle);
    });
}

void fill(QList<SessionWindow> &windows, const QSqlDatabase &database)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (!query.prepare("SELECT title FROM urls WHERE url = ? AND title <> '' LIMIT 1"))
        return;
    for (SessionWindow &window : windows) {
        for (SessionTab &tab : window.tabs) {
            if (hasTitle(tab))
                continue;
            query.bindValue(0, tab.url);
            if (query.exec() && query.next())
                tab.title = query.value(0).toString();
        }
    }
}

} // namespace

void fillTitles(QList<SessionWindow> &windows, const QString &databasePath)
{
    if (isComplete(windows) || !QFileInfo(databasePath).isFile())
        return;
    // Immutable: no lock is taken, no journal looked at, nothing ever written.
    const QByteArray path = QUrl::toPercentEncoding(QFileInfo(databasePath).absoluteFilePath(), "/");
    const QString connection = QUuid::createUuid().toString();
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", connection);
        database.setConnectOptions("QSQLITE_OPEN_READONLY;QSQLITE_OPEN_URI");
        database.setDatabaseName(QString::fromLatin1("file:" + path + "?immutable=1"));
        if (database.open())
            fill(windows, database);
    }
    QSqlDatabase::removeDatabase(connection);
}

} // namespace ardeno
