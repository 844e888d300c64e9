// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/HistoryTitles.h"

#include <QFileInfo>
#include <QUrl>

#include <sqlite3.h>

#include <algorithm>
#include <memory>

namespace ardeno {

namespace {

struct Close {
    void operator()(sqlite3 *database) const { sqlite3_close(database); }

    void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
};

using Database = std::unique_ptr<sqlite3, Close>;
using Statement = std::unique_ptr<sqlite3_stmt, Close>;

bool hasTitle(const ListedTab &tab)
{
    return !tab.title.isEmpty();
}

bool isComplete(const QList<ListedWindow> &windows)
{
    return std::all_of(windows.begin(), windows.end(), [](const ListedWindow &window) {
        return std::all_of(window.tabs.begin(), window.tabs.end(), hasTitle);
    });
}

// Immutable: no lock is taken, no journal looked at, nothing ever written.
Database open(const QString &path)
{
    const QByteArray name = "file:" + QUrl::toPercentEncoding(QFileInfo(path).absoluteFilePath(), "/") + "?immutable=1";
    sqlite3 *database = nullptr;
    const int result = sqlite3_open_v2(name.constData(), &database,
                                       SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX, nullptr);
    Database opened(database); // There is one to be closed even when it could not be opened.
    return result == SQLITE_OK ? std::move(opened) : nullptr;
}

QString titleOf(const QString &url, sqlite3_stmt *statement)
{
    const QByteArray key = url.toUtf8();
    QString title;
    sqlite3_bind_text(statement, 1, key.constData(), static_cast<int>(key.size()), SQLITE_STATIC);
    if (sqlite3_step(statement) == SQLITE_ROW) {
        const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, 0));
        title = QString::fromUtf8(text, text ? sqlite3_column_bytes(statement, 0) : 0);
    }
    sqlite3_reset(statement);
    return title;
}

} // namespace

void fillTitles(QList<ListedWindow> &windows, const QString &databasePath)
{
    if (isComplete(windows) || !QFileInfo(databasePath).isFile())
        return;
    const Database database = open(databasePath);
    sqlite3_stmt *prepared = nullptr;
    if (!database ||
        sqlite3_prepare_v2(database.get(), "SELECT title FROM urls WHERE url = ?", -1, &prepared, nullptr) != SQLITE_OK)
        return;
    const Statement statement(prepared);
    for (ListedWindow &window : windows) {
        for (ListedTab &tab : window.tabs) {
            if (!hasTitle(tab))
                tab.title = titleOf(tab.url, statement.get());
        }
    }
}

} // namespace ardeno
