// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/browsers/BrowserIdentities.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <optional>

namespace ardeno {

// What a window says of its application; empty where it says nothing.
struct WindowHints {
    QString gtkApplication = {};
    QString kdeFile = {};
    QString instance = {};
    QString windowClass = {};
    std::optional<qint32> processID = {}; // Absent also for a process of another machine.
};

// Which application a window or a process is one of, and what else it may be.
struct ApplicationIdentity {
    enum class Certainty {
        None,    // No installed application is known.
        Likely,  // By how its process was started, or one of several that claim the window.
        Certain, // The only one that the window's own words fit.
    };

    std::optional<DesktopEntry> entry = {};
    Certainty certainty = Certainty::None;
    QSet<QString> names = {};      // That the window bears, in lower case.
    QSet<QString> imaginable = {}; // With those that its process suggests.
    QString startedAs = {};        // The only application whose command its process runs; empty when there is none.
};

// Finds out whose windows and processes are, the same for every list, picture and recording. Remembers processes, so it
// is for one round of questions. The entries outlive it.
class ApplicationIdentification final {
public:
    explicit ApplicationIdentification(DesktopEntries &entries);

    // A window that the window manager looks after.
    ApplicationIdentity ofWindow(const WindowHints &hints);
    // By what the window itself says, which a popup may say of anything.
    ApplicationIdentity ofHints(const WindowHints &hints);
    ApplicationIdentity ofProcess(qint32 processID);

    bool hasExclusions() const { return !m_excluded.isEmpty(); }

    // For what may be a window of any of them; empty when none is excluded.
    QString anyExcluded() const { return m_excluded.isEmpty() ? QString() : m_excluded.cbegin().key(); }

    // The excluded application that this may be one of; absent when it is certainly none.
    std::optional<QString> excludedBy(const ApplicationIdentity &identity) const;

private:
    std::optional<DesktopEntry> findID(const QString &id);
    std::optional<DesktopEntry> named(const WindowHints &hints);
    QList<DesktopEntry> claimants(const WindowHints &hints);
    ApplicationIdentity lookUpProcess(qint32 processID);
    std::optional<KnownBrowser> browserOf(qint32 processID);
    void beBrowser(const KnownBrowser &browser, ApplicationIdentity &identity);

    DesktopEntries &m_entries;
    QHash<QString, ApplicationTraces> m_excluded = {};
    QHash<qint32, ApplicationIdentity> m_processes = {};
    QHash<qint32, std::optional<KnownBrowser>> m_browsers = {};
};

} // namespace ardeno
