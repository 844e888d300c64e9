// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/applications/DesktopEntries.h"

#include "desktop/Workspace.h"
#include "platform/linux/applications/ApplicationNames.h"
#include "platform/linux/applications/DesktopIndex.h"
#include "platform/linux/browsers/BrowserIdentities.h"
#include "platform/linux/files/PathEntry.h"

#include <gio/gdesktopappinfo.h>

#include <QFile>

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

// A program on a disk that does not answer, which whoever opens the file would wait for.
bool isSilent(const QString &program)
{
    return program.startsWith('/') && PathEntry::of(program).facts.kind == PathFacts::Kind::Silent;
}

// Empty when the file is damaged, removed by the user or its program is not installed or cannot be reached.
AppInfo openDesktopFile(const QString &path)
{
    const DesktopFileSummary summary = DesktopIndex::readSummary(path);
    if (isSilent(summary.program) || isSilent(summary.neededProgram))
        return {};
    AppInfo info(g_desktop_app_info_new_from_filename(QFile::encodeName(path).constData()));
    if (info && g_desktop_app_info_get_is_hidden(info.get()))
        info.reset();
    return info;
}

// The browser that this starts under whatever name, and not for a single page with windows of its own.
std::optional<QString> startedBrowser(const DesktopFileSummary &summary)
{
    const auto isPage = [](const QString &word) { return word.startsWith("--app=") || word.startsWith("--app-id="); };
    if (std::any_of(summary.arguments.begin(), summary.arguments.end(), isPage))
        return std::nullopt;
    const auto browser = BrowserIdentities::ofProgram(summary.program);
    return browser ? std::optional(browser->id) : std::nullopt;
}

void add(const DesktopFileSummary &summary, ApplicationTraces &traces)
{
    traces.names += ApplicationNames::ofWindow(summary.windowClass);
    traces.imaginable += ApplicationNames::imaginable(summary.name);
    traces.imaginable += ApplicationNames::ofCommand(summary.program, summary.arguments);
    if (const auto browser = startedBrowser(summary))
        traces.identifiers.insert(ApplicationNames::folded(*browser));
    if (!summary.program.isEmpty() && !ApplicationNames::runsOthers(summary.program))
        traces.programs.append(summary.program);
}

} // namespace

ApplicationTraces &ApplicationTraces::operator+=(const ApplicationTraces &other)
{
    identifiers += other.identifiers;
    names += other.names;
    imaginable += other.imaginable;
    for (const QString &program : other.programs) {
        if (!programs.contains(program))
            programs.append(program);
    }
    isKnown = isKnown || other.isKnown;
    return *this;
}

ApplicationTraces RememberedTraces::of(const QString &id) const
{
    const std::scoped_lock lock(m_mutex);
    return m_traces.value(id);
}

void RememberedTraces::set(QHash<QString, ApplicationTraces> traces)
{
    const std::scoped_lock lock(m_mutex);
    m_traces = std::move(traces);
}

DesktopEntries::DesktopEntries() : DesktopEntries(std::make_shared<RememberedTraces>()) {}

DesktopEntries::DesktopEntries(std::shared_ptr<RememberedTraces> remembered)
    : DesktopEntries(DesktopFolders::standardRoots(), std::move(remembered))
{
}

DesktopEntries::DesktopEntries(QStringList roots, std::shared_ptr<RememberedTraces> remembered)
    : m_roots(std::move(roots)), m_remembered(std::move(remembered))
{
}

DesktopEntries::~DesktopEntries() = default;

DesktopIndex &DesktopEntries::index()
{
    if (!m_index || m_index->isOutdated()) {
        m_index = std::make_unique<DesktopIndex>(m_roots);
        m_loaded.clear();
        m_traces.clear();
    }
    return *m_index;
}

std::optional<DesktopEntry> DesktopEntries::load(const QString &fileID)
{
    const auto known = m_loaded.constFind(fileID);
    if (known != m_loaded.constEnd())
        return *known;
    std::optional<DesktopEntry> entry;
    const QString path = m_index->files().value(fileID);
    if (const AppInfo info = path.isEmpty() ? AppInfo() : openDesktopFile(path))
        entry = entryFrom(info, fileID, path);
    m_loaded.insert(fileID, entry);
    return entry;
}

QList<DesktopEntry> DesktopEntries::loadAll(const QStringList &fileIDs)
{
    QList<DesktopEntry> entries;
    for (const QString &fileID : fileIDs) {
        const auto entry = load(fileID);
        const auto isSame = [&](const DesktopEntry &known) { return known.id == entry->id; };
        if (entry && std::none_of(entries.cbegin(), entries.cend(), isSame))
            entries.append(*entry);
    }
    return entries;
}

std::optional<DesktopEntry> DesktopEntries::find(const QString &id)
{
    const DesktopIndex &current = index();
    QStringList candidates{id};
    candidates += BrowserIdentities::desktopFileIDs(id);
    for (const QString &candidate : std::as_const(candidates)) {
        if (auto entry = load(current.fileID(candidate)))
            return entry;
    }
    return std::nullopt;
}

QList<DesktopEntry> DesktopEntries::findByWindowName(const QString &name)
{
    for (const QStringList &files : index().claimants(name)) {
        if (const QList<DesktopEntry> entries = loadAll(files); !entries.isEmpty())
            return entries;
    }
    return {};
}

QList<DesktopEntry> DesktopEntries::findByCommand(const QString &program, const QStringList &arguments)
{
    const QStringList files = index().filesOfCommand(program, arguments);
    return loadAll(files);
}

ApplicationTraces DesktopEntries::traces(const QString &id)
{
    index(); // Which may be a new one.
    if (!m_traces.contains(id))
        m_traces.insert(id, readTraces(id));
    ApplicationTraces traces = m_traces.value(id);
    traces += m_remembered->of(id);
    return traces;
}

ApplicationTraces DesktopEntries::readTraces(const QString &id)
{
    ApplicationTraces traces;
    if (WindowClass::isIdentifier(id)) {
        traces.names = ApplicationNames::ofWindow(id.mid(WindowClass::prefix.size()));
        traces.isKnown = true;
    }
    DesktopIndex &current = index();
    QStringList files{id, BrowserIdentities::applicationID(id)};
    files += BrowserIdentities::desktopFileIDs(files.last());
    for (const QString &file : std::as_const(files))
        traces.identifiers.insert(ApplicationNames::folded(file));
    if (current.fileID(id).isEmpty()) {
        for (const QStringList &claimants : current.claimants(id))
            files += claimants;
    }
    files.removeDuplicates();
    for (const QString &file : std::as_const(files)) {
        traces.names += ApplicationNames::ofApplication(file);
        traces.imaginable += ApplicationNames::imaginable(file);
        for (const DesktopFileSummary &summary : current.everySummary(file)) {
            add(summary, traces);
            traces.isKnown = true;
        }
    }
    traces.imaginable += traces.names;
    return traces;
}

std::optional<QString> DesktopEntries::browserOf(const DesktopEntry &entry)
{
    return startedBrowser(DesktopIndex::readSummary(entry.path));
}

QList<DesktopEntry> DesktopEntries::shown()
{
    const DesktopIndex &current = index();
    QList<DesktopEntry> entries;
    for (auto file = current.files().begin(); file != current.files().end(); ++file) {
        const AppInfo info = openDesktopFile(file.value());
        if (info && g_app_info_should_show(G_APP_INFO(info.get())))
            entries.append(entryFrom(info, file.key(), file.value()));
    }
    return entries;
}

} // namespace ardeno
