// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/applications/DesktopFileSummary.h"
#include "platform/linux/applications/DesktopFolders.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace ardeno {

// The desktop files of some folders by what they say of windows and processes. Each is read at most once, when
// something is first looked for in all of them.
class DesktopIndex final {
public:
    // The roots in falling precedence.
    explicit DesktopIndex(const QStringList &roots);

    bool isOutdated() const { return m_folders.haveChanged(); }

    const QHash<QString, QString> &files() const { return m_folders.files(); }

    // The identifier as the file has it, whatever its letter case; empty when there is no such file.
    QString fileID(const QString &id) const;

    // The files that claim windows of this class or instance, the best kind of claim first: as files that menus show,
    // by their StartupWMClass, by their names, by last parts of names; then as others, in the same order.
    QList<QStringList> claimants(const QString &windowName);

    // The files with this command that say most of its arguments.
    QStringList filesOfCommand(const QString &program, const QStringList &arguments);

    // What all files of this name say, also those that stand for a removed application or are hidden by others.
    QList<DesktopFileSummary> everySummary(const QString &fileID) const;

    static DesktopFileSummary readSummary(const QString &path);

private:
    enum Rank { Class, Name, LastPart, Hidden, RankCount = 2 * Hidden };

    struct Claim {
        QString fileID;
        int rank;
    };

    struct Command {
        QString fileID;
        QStringList arguments;
    };

    void readSummaries();
    void readCommands();
    void enter(const QString &fileID, const DesktopFileSummary &summary);

    DesktopFolders m_folders;
    QHash<QString, QString> m_folded = {}; // From the lower-case identifier.
    QHash<QString, DesktopFileSummary> m_summaries = {};
    QMultiHash<QString, Claim> m_claims = {}; // By the window's name in lower case.
    QMultiHash<QString, Command> m_commands = {};
    bool m_areSummariesRead = false;
    bool m_areCommandsRead = false;
};

} // namespace ardeno
