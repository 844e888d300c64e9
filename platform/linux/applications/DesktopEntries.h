// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>
#include <mutex>
#include <optional>

namespace ardeno {

class DesktopIndex;

// An installed application, as its desktop file describes it.
struct DesktopEntry {
    QString id = {};        // The application's identifier: the file's, or the one that a browser is known by.
    QString path = {};      // Of the desktop file.
    QString name = {};      // Localised; empty when it has none.
    QString iconName = {};  // Of the icon theme, or a full path; empty when it has none.
    bool isBrowser = false; // It says that it shows pages of the web.
    bool isMailProgram = false;

    bool operator==(const DesktopEntry &) const = default;
};

// What may be said of an application by its windows and processes, as far as its desktop files tell; in lower case.
struct ApplicationTraces {
    QSet<QString> identifiers = {};
    QSet<QString> names = {};      // Its windows may be told by these alone.
    QSet<QString> imaginable = {}; // With what may be meant by names of programs, words of names and the like.
    QStringList programs = {};     // The programs of its commands, as they are written there.
    bool isKnown = false;          // A desktop file tells or told, even if it stands for a removed application.

    ApplicationTraces &operator+=(const ApplicationTraces &other);
};

// What was known of applications when they were excluded, for all threads that ask whose a window is.
class RememberedTraces final {
public:
    ApplicationTraces of(const QString &id) const;
    void set(QHash<QString, ApplicationTraces> traces);

private:
    mutable std::mutex m_mutex = {};
    QHash<QString, ApplicationTraces> m_traces = {}; // By the application's identifier.
};

// The installed applications. Nothing is read before it is asked for, each file at most once until the folders change.
class DesktopEntries final {
public:
    DesktopEntries();
    explicit DesktopEntries(std::shared_ptr<RememberedTraces> remembered);
    // With the desktop files of these folders instead of the desktop session's, in falling precedence.
    explicit DesktopEntries(QStringList roots,
                            std::shared_ptr<RememberedTraces> remembered = std::make_shared<RememberedTraces>());
    ~DesktopEntries();
    DesktopEntries(const DesktopEntries &) = delete;
    DesktopEntries &operator=(const DesktopEntries &) = delete;

    // By the identifier of an application or of a desktop file (without ".desktop", letter case ignored).
    std::optional<DesktopEntry> find(const QString &id);
    // Whose windows have this class or instance, letter case ignored: by the desktop file's own word, its name or the
    // last part of a reverse-DNS name, those that menus show before others. More than one when several claim it alike.
    QList<DesktopEntry> findByWindowName(const QString &name);
    // By the program (full path) and the arguments of a process: the application that fits best, or several that fit
    // equally well.
    QList<DesktopEntry> findByCommand(const QString &program, const QStringList &arguments);
    // Of an application that is installed, hidden, removed, or only known by its identifier.
    ApplicationTraces traces(const QString &id);
    // The identifier of the browser that this starts under whatever name; absent when it starts none.
    static std::optional<QString> browserOf(const DesktopEntry &entry);
    // Those that menus show.
    QList<DesktopEntry> shown();

    // The identifiers of the applications that are left out of everything that is shown: what may be one of theirs
    // counts as theirs.
    const QSet<QString> &excluded() const { return m_excluded; }

    void setExcluded(const QSet<QString> &ids) { m_excluded = ids; }

    const std::shared_ptr<RememberedTraces> &remembered() const { return m_remembered; }

private:
    DesktopIndex &index();
    std::optional<DesktopEntry> load(const QString &fileID);
    ApplicationTraces readTraces(const QString &id);
    // Each application once.
    QList<DesktopEntry> loadAll(const QStringList &fileIDs);

    QStringList m_roots;
    std::shared_ptr<RememberedTraces> m_remembered;
    std::unique_ptr<DesktopIndex> m_index;
    QHash<QString, std::optional<DesktopEntry>> m_loaded = {}; // Of the index's files.
    QHash<QString, ApplicationTraces> m_traces = {};
    QSet<QString> m_excluded = {};
};

} // namespace ardeno
