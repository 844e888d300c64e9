// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/ExclusionRules.h"

#include <QHash>

namespace ardeno {

// The other programs of the desktop: which run, which could be opened, how they look, and what they are asked to show.
class Applications final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::Applications)

public:
    template <typename T>
    using Published = PublishedBy<T, Applications>;
    using RunningIDs = std::function<QSet<QString>()>;

    Published<QSet<QString>> runningApplicationIDs;

    // Without a function the desktop is asked which run.
    Applications(Operations &operations, Desktop &desktop, const ExclusionRules &rules, RunningIDs runningIDs);

    void refreshRunningApplications();
    // Keeps runningApplicationIDs current from now on, without asking again and again.
    void watchRunningApplications();
    void stopWatching();
    // Whether all of a checkpoint's applications run; false for one without any. Follows runningApplicationIDs.
    bool isWorkspaceActive(const Checkpoint &checkpoint) const;

    // Those that run now and could be excluded, by name.
    QList<SavedApp> runningApps() const;
    // Those that could be opened, by name, one entry each.
    QList<InstalledApplication> installedApps() const;
    // The icon's name in the desktop's theme or its path; empty when the application is not known.
    QString iconName(const QString &appID);

    // Shows a file in its folder.
    QCoro::Task<Outcome> showFile(QString path);
    // Opens a "mailto:" address as a draft; false without a mail program.
    bool openMail(const QUrl &address);

    FileDialogs &fileDialogs() const { return *m_desktop.fileDialogs; }

private:
    QCoro::Task<Outcome> reveal(QString path);

    Operations &m_operations;
    Desktop &m_desktop;
    const ExclusionRules &m_rules;
    RunningIDs m_runningIDs;
    bool m_isWatching = false;
    std::optional<QHash<QString, QString>> m_iconNames = {}; // By application; read when first asked for.
};

} // namespace ardeno
