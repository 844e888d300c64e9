// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Documents.h"
#include "desktop/FileBrowser.h"
#include "platform/linux/running/LiveWindow.h"

#include <QStringList>

namespace ardeno {

// Folders of file managers' windows, found out beside the main thread.
class LinuxFileBrowser final : public FileBrowser {
public:
    LinuxFileBrowser(LiveWindowList windows, QStringList fileBrowserIDs);

    Capability availability() const override { return Capability::available(); }

    QCoro::Task<QList<WindowLocation>> locations() override;

private:
    LiveWindowList m_windows;
    QStringList m_fileBrowserIDs;
};

// Documents of the windows of all other applications but browsers and mail programs, found out beside the main thread.
class LinuxDocuments final : public Documents {
public:
    LinuxDocuments(LiveWindowList windows, QStringList fileBrowserIDs);

    Capability availability() const override { return Capability::available(); }

    QCoro::Task<QList<WindowLocation>> locations(QSet<qint64> processIDs) override;
    QCoro::Task<QList<WindowLocation>> locationsOf(QString applicationID) override;
    QCoro::Task<QStringList> held(QString applicationID, QStringList paths) override;

private:
    QList<LiveWindow> documentWindows() const;

    LiveWindowList m_windows;
    QStringList m_fileBrowserIDs;
};

} // namespace ardeno
