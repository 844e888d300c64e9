// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/TabSource.h"

#include <utility>

namespace ardeno {

// Where no browser can be read.
class NullTabSource final : public TabSource {
public:
    explicit NullTabSource(QString reason) : m_reason(std::move(reason)) {}

    QList<Browser> furtherBrowsers() override { return {}; }

    Capability availability(const QString &) const override { return Capability::unavailable(m_reason); }

    bool isRunning(const QString &) override { return false; }

    QCoro::Task<TabReport> openTabs(Browser, QString) override
    {
        throw notAvailable(m_reason);
        co_return TabReport();
    }

    QCoro::Task<BrowserWindows> browserWindows() override { co_return {}; }

private:
    QString m_reason;
};

} // namespace ardeno
