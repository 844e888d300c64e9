// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/applications/DesktopIndex.h"

#include "platform/linux/applications/ApplicationNames.h"
#include "platform/linux/files/PathEntry.h"

#include <QFile>
#include <QStandardPaths>

#include <algorithm>

namespace ardeno {

namespace {

// The file that is run for the first word of a command, links followed; empty when there is none.
QString programFile(const QString &program)
{
    const QString path = program.startsWith('/') ? program : QStandardPaths::findExecutable(program);
    const PathFacts facts = path.isEmpty() ? PathFacts() : PathEntry::of(path).facts;
    return facts.kind == PathFacts::Kind::File ? facts.canonicalPath : QString();
}

bool containsAll(const QStringList &arguments, const QStringList &wanted)
{
    return std::all_of(wanted.begin(), wanted.end(), [&](const QString &word) { return arguments.contains(word); });
}

} // namespace

DesktopIndex::DesktopIndex(const QStringList &roots) : m_folders(roots)
{
    for (auto file = m_folders.files().begin(); file != m_folders.files().end(); ++file)
        m_folded.insert(file.key().toLower(), file.key());
}

QString DesktopIndex::fileID(const QString &id) const
{
    return files().contains(id) ? id : m_folded.value(id.toLower());
}

DesktopFileSummary DesktopIndex::readSummary(const QString &path)
{
    constexpr qint64 longestFile = 1 << 20;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? DesktopFileSummary::parsed(file.read(longestFile)) : DesktopFileSummary();
}

QList<DesktopFileSummary> DesktopIndex::everySummary(const QString &fileID) const
{
    QList<DesktopFileSummary> found;
    for (const QString &path : m_folders.allFiles().values(this->fileID(fileID)))
        found.append(readSummary(path));
    return found;
}

void DesktopIndex::readSummaries()
{
    if (m_areSummariesRead)
        return;
    m_areSummariesRead = true;
    for (auto file = files().begin(); file != files().end(); ++file) {
        const DesktopFileSummary summary = readSummary(file.value());
        if (!summary.isHidden)
            enter(file.key(), summary);
        m_summaries.insert(file.key(), summary);
    }
}

void DesktopIndex::enter(const QString &fileID, const DesktopFileSummary &summary)
{
    const int first = summary.hasWindows ? 0 : int(Rank::Hidden);
    const QString windowClass = ApplicationNames::folded(summary.windowClass);
    if (!windowClass.isEmpty())
        m_claims.insert(windowClass, {fileID, first + Rank::Class});
    const QString own = ApplicationNames::folded(fileID);
    for (const QString &name : ApplicationNames::ofApplication(fileID))
        m_claims.insert(name, {fileID, first + (name == own ? Rank::Name : Rank::LastPart)});
}

QList<QStringList> DesktopIndex::claimants(const QString &windowName)
{
    readSummaries();
    QList<QStringList> found(Rank::RankCount);
    const QString own = ApplicationNames::folded(windowName);
    for (const QString &name : ApplicationNames::ofWindow(windowName)) {
        for (const Claim &claim : m_claims.values(name)) {
            // Whatever agrees in a last part alone is the weakest claim of its kind.
            const bool isPart = name != own;
            const int rank = isPart ? claim.rank - claim.rank % Rank::Hidden + Rank::LastPart : claim.rank;
            if (!found[rank].contains(claim.fileID))
                found[rank].append(claim.fileID);
        }
    }
    found.removeIf([](const QStringList &files) { return files.isEmpty(); });
    return found;
}

void DesktopIndex::readCommands()
{
    readSummaries();
    if (m_areCommandsRead)
        return;
    m_areCommandsRead = true;
    for (auto summary = m_summaries.begin(); summary != m_summaries.end(); ++summary) {
        if (summary->isHidden || !summary->hasWindows || summary->program.isEmpty())
            continue;
        const QString file = programFile(summary->program);
        if (!file.isEmpty())
            m_commands.insert(file, {summary.key(), summary->arguments});
    }
}

QStringList DesktopIndex::filesOfCommand(const QString &program, const QStringList &arguments)
{
    readCommands();
    const QString file = m_commands.contains(program) ? program : programFile(program);
    QStringList best;
    qsizetype most = 0;
    for (const Command &command : m_commands.values(file)) {
        if (command.arguments.size() < most || !containsAll(arguments, command.arguments))
            continue;
        if (command.arguments.size() > most)
            best.clear();
        most = command.arguments.size();
        best.append(command.fileID);
    }
    return best;
}

} // namespace ardeno
