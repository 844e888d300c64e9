// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Launcher.h"

#include <utility>

namespace ardeno {

// Where nothing can be opened.
class NullLauncher final : public Launcher {
public:
    explicit NullLauncher(QString reason) : m_reason(std::move(reason)) {}

    Capability availability() const override { return Capability::unavailable(m_reason); }

    bool isInstalled(const QString &) override { return false; }

    QCoro::Task<void> openApplication(QString, QStringList) override { return refuse(m_reason); }

    QCoro::Task<void> openPath(QString) override { return refuse(m_reason); }

    QCoro::Task<void> reveal(QString) override { return refuse(m_reason); }

    QCoro::Task<void> openPages(QString, QStringList, PagePlace) override { return refuse(m_reason); }

    QCoro::Task<SavedBrowserWindow> findSavedWindow(SavedTab, QList<SavedTab>) override
    {
        co_return SavedBrowserWindow();
    }

    QCoro::Task<bool> openInSavedWindow(quint32, QList<TabToReopen>) override { co_return false; }

    bool isStarting(const QString &) const override { return false; }

    QCoro::Task<QList<FailedStart>> settle() override { co_return QList<FailedStart>(); }

private:
    static QCoro::Task<void> refuse(QString reason)
    {
        throw notAvailable(reason);
        co_return;
    }

    QString m_reason;
};

} // namespace ardeno
