// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/BrowserTabs.h"

#include <QList>
#include <QSet>
#include <QString>

namespace ardeno {

// The pages that a resume opened within the last minute. A browser writes its session down some time after a page was
// opened; until then another resume would open the page once more. Kept in a file, because a command ends with its
// resume; the addresses stand in it as hashes.
class OpenedPages final {
public:
    // A file in a folder of the user's own; it need not exist.
    explicit OpenedPages(QString path) : m_path(std::move(path)) {}

    // "$XDG_RUNTIME_DIR/ardeno/opened-pages"; empty when the session has no such folder, and then nothing is kept.
    static QString defaultPath();

    // With this browser, or the default one when there is no identifier. Never throws: what cannot be kept is
    // forgotten.
    void remember(const QString &browserID, const QList<SavedTab> &tabs, Date now = Date::now());
    // Which of these tabs must count as open although the browser's own list does not say so yet. What was opened with
    // a browser that has ended is no longer open.
    QSet<QString> pendingKeys(const QList<SavedTab> &tabs, const WorkspaceCapture::OpenTabs &open,
                              Date now = Date::now()) const;

private:
    QString m_path;
};

} // namespace ardeno
