// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/desktop/Desktop.h"

#include <doctest/doctest.h>

#include <QProcess>
#include <QString>

namespace ardeno::desktop_test {

// Serves the pages of a folder from this machine as long as it lives.
class PageServer final {
public:
    explicit PageServer(const QString &folder)
    {
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        m_process.start("/usr/bin/python3",
                        {"-u", "-m", "http.server", "--bind", "127.0.0.1", "--directory", folder, "0"});
        REQUIRE(eventually([&] { return m_process.canReadLine(); }));
        m_address = QString(m_process.readLine()).section('(', 1).section("/)", 0, 0);
    }

    ~PageServer()
    {
        m_process.terminate();
        m_process.waitForFinished();
    }

    // "http://127.0.0.1:4711"
    const QString &address() const { return m_address; }

private:
    QProcess m_process;
    QString m_address;
};

} // namespace ardeno::desktop_test
