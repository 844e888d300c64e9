// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <sqlite3.h>

#include <stdexcept>

namespace ardeno::sessions {

// A history database as a browser of the Chromium family keeps it.
class History final {
public:
    explicit History(const QString &path)
    {
        if (sqlite3_open(path.toUtf8().constData(), &m_database) != SQLITE_OK)
            throw std::runtime_error("The history cannot be written.");
        run("CREATE TABLE urls(id INTEGER PRIMARY KEY, url LONGVARCHAR, title LONGVARCHAR)");
        run("CREATE INDEX urls_url_index ON urls(url)");
    }

    ~History() { sqlite3_close(m_database); }

    History(const History &) = delete;
    History &operator=(const History &) = delete;

    void run(const QByteArray &statement)
    {
        if (sqlite3_exec(m_database, statement.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(m_database));
    }

    void add(const QByteArray &url, const QByteArray &title)
    {
        run("INSERT INTO urls(url, title) VALUES('" + url + "', '" + title + "')");
    }

    // As a browser does for as long as it runs.
    void lock() { run("BEGIN EXCLUSIVE"); }

private:
    sqlite3 *m_database = nullptr;
};

} // namespace ardeno::sessions
