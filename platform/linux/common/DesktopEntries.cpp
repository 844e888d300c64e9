// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/common/DesktopEntries.h"

#include "platform/linux/common/BrowserIdentities.h"
#include "platform/linux/common/DesktopFileSummary.h"
#include "platform/linux/common/DesktopFolders.h"
#include "platform/linux/common/PathEntry.h"

#include <gio/gdesktopappinfo.h>

#include <QFile>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace ardeno {

namespace {

struct Unreference {
    void operator()(void *object) const { g_object_unref(object); }
};

using AppInfo = std::unique_ptr<GDesktopAppInfo, Unreference>;

QString iconName(GAppInfo *info)
{
    GIcon *icon = g_app_info_get_icon(info); // Owned by the info.
    if (!icon)
        return {};
    char *text = g_icon_to_string(icon);
    const QString name = QString::fromUtf8(text);
    g_free(text);
    return name;
}

bool hasCategory(GDesktopAppInfo *info, const char *category)
{
    return QString::fromUtf8(g_desktop_app_info_get_categories(info)).split(';').contains(QLatin1String(category));
}

DesktopEntry entryFrom(const AppInfo &info, const QString &fileID, const QString &path)
{
    GAppInfo *application = G_APP_INFO(info.get());
    return {.id = BrowserIdentities::applicationID(fileID),
            .path = path,
            .name = QString::fromUtf8(g_app_info_get_display_name(application)),
            .iconName = iconName(application),
            .isBrowser = BrowserIdentities::named(fileID) || hasCategory(info.get(), "WebBrowser"),
            .isMailProgram = hasCategory(info.get(), "Email")};
}

DesktopFileSummary readSummary(const QString &path)
{
    constexpr qint64 longestFile = 1 << 20;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? DesktopFileSummary::parsed(file.read(longestFile)) : DesktopFileSummary();
}

// A program on a disk that does not answer, which whoever opens the file would wait for.
bool isSilent(const QString &program)
{
    return program.startsWith('/') && PathEntry::of(program).facts.kind == PathFacts::Kind::Silent;
}

// Empty when the file is damaged, removed by the user or its program is not installed or cannot be reached.
AppInfo openDesktopFile(const QString &path)
{
    const DesktopFileSummary summary = readSummary(path);
    if (isSilent(summary.program) || isSilent(summary.neededProgram))
        return {};
    AppInfo info(g_desktop_app_info_new_from_filename(QFile::encodeName(path).constData()));
    if (info && g_desktop_app_info_get_is_hidden(info.get()))
        info.reset();
    return info;
}

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

// What has been read since the folders last changed.
struct DesktopEntries::Index {
    struct Command {
        QString fileID;
        QStringList arguments;
    };

    explicit Index(const QStringList &roots) : folders(roots)
    {
        for (auto file = folders.files().begin(); file != folders.files().end(); ++file)
            folded.insert(file.key().toLower(), file.key());
    }

    // The identifier as the file has it; empty when there is no such file.
    QString fileID(const QString &id) const { return folders.files().contains(id) ? id : folded.value(id.toLower()); }

    const QHash<QString, DesktopFileSummary> &summaries()
    {
        if (!summariesAreRead) {
            for (auto file = folders.files().begin(); file != folders.files().end(); ++file)
                summariesByID.insert(file.key(), readSummary(file.value()));
            summariesAreRead = true;
        }
        return summariesByID;
    }

    const QMultiHash<QString, Command> &commands()
    {
        if (commandsAreRead)
            return commandsByProgram;
        const auto &all = summaries();
        for (auto summary = all.begin(); summary != all.end(); ++summary) {
            if (summary->isHidden || !summary->hasWindows || summary->program.isEmpty())
                continue;
            const QString file = programFile(summary->program);
            if (!file.isEmpty())
                commandsByProgram.insert(file, {summary.key(), summary->arguments});
        }
        commandsAreRead = true;
        return commandsByProgram;
    }

    DesktopFolders folders;
    QHash<QString, QString> folded; // From the lower-case identifier.
    QHash<QString, std::optional<DesktopEntry>> loaded = {};
    QHash<QString, DesktopFileSummary> summariesByID = {};
    QMultiHash<QString, Command> commandsByProgram = {};
    bool summariesAreRead = false;
    bool commandsAreRead = false;
};

DesktopEntries::DesktopEntries() : DesktopEntries(DesktopFolders::standardRoots()) {}

DesktopEntries::DesktopEntries(QStringList roots) : m_roots(std::move(roots)) {}

DesktopEntries::~DesktopEntries() = default;

DesktopEntries::Index &DesktopEntries::index()
{
    if (!m_index || m_index->folders.haveChanged())
        m_index = std::make_unique<Index>(m_roots);
    return *m_index;
}

std::optional<DesktopEntry> DesktopEntries::load(Index &index, const QString &fileID)
{
    const auto known = index.loaded.constFind(fileID);
    if (known != index.loaded.constEnd())
        return *known;
    std::optional<DesktopEntry> entry;
    const QString path = index.folders.files().value(fileID);
    if (const AppInfo info = path.isEmpty() ? AppInfo() : openDesktopFile(path))
        entry = entryFrom(info, fileID, path);
    index.loaded.insert(fileID, entry);
    return entry;
}

std::optional<DesktopEntry> DesktopEntries::find(const QString &id)
{
    Index &current = index();
    QStringList candidates{id};
    candidates += BrowserIdentities::desktopFileIDs(id);
    for (const QString &candidate : std::as_const(candidates)) {
        if (auto entry = load(current, current.fileID(candidate)))
            return entry;
    }
    return std::nullopt;
}

std::optional<DesktopEntry> DesktopEntries::findByWindowClass(const QString &windowClass)
{
    if (windowClass.isEmpty())
        return std::nullopt;
    Index &current = index();
    std::optional<DesktopEntry> found;
    const auto &summaries = current.summaries();
    for (auto summary = summaries.begin(); summary != summaries.end(); ++summary) {
        if (summary->isHidden || summary->windowClass != windowClass)
            continue;
        auto entry = load(current, summary.key());
        if (entry && found && entry->id != found->id)
            return std::nullopt;
        if (entry)
            found = std::move(entry);
    }
    return found;
}

std::optional<DesktopEntry> DesktopEntries::findByCommand(const QString &program, const QStringList &arguments)
{
    Index &current = index();
    // The application whose command names most of the arguments; another one that names as many makes it a guess.
    QString best;
    qsizetype most = -1;
    bool isUnique = false;
    const auto [begin, end] = current.commands().equal_range(program);
    for (auto command = begin; command != end; ++command) {
        if (command->arguments.size() < most || !containsAll(arguments, command->arguments))
            continue;
        isUnique = command->arguments.size() > most;
        most = command->arguments.size();
        best = command->fileID;
    }
    return isUnique ? load(current, best) : std::nullopt;
}

QList<DesktopEntry> DesktopEntries::shown()
{
    Index &current = index();
    QList<DesktopEntry> entries;
    const QHash<QString, QString> &files = current.folders.files();
    for (auto file = files.begin(); file != files.end(); ++file) {
        const AppInfo info = openDesktopFile(file.value());
        if (info && g_app_info_should_show(G_APP_INFO(info.get())))
            entries.append(entryFrom(info, file.key(), file.value()));
    }
    return entries;
}

} // namespace ardeno
