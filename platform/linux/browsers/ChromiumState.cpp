// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/ChromiumState.h"

#include "platform/linux/browsers/HistoryTitles.h"
#include "platform/linux/browsers/SnssReader.h"
#include "platform/linux/browsers/StateFile.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace ardeno {

namespace {

constexpr double startUpTime = 10; // Seconds after which a browser has long begun to write its session.

// What one file says and when it was written.
struct ReadFile {
    SnssReader::Session session;
    Date writtenAt;
};

std::optional<ReadFile> readFile(const QString &path)
{
    const auto file = StateFile::read(path);
    if (!file)
        return std::nullopt;
    const auto session = SnssReader::read(file->bytes);
    return session ? std::optional(ReadFile{*session, file->writtenAt}) : std::nullopt;
}

// The number in a file's name: microseconds since 1601.
qint64 numberOf(const QString &name)
{
    return name.mid(name.lastIndexOf('_') + 1).toLongLong();
}

// The files of this run of the browser before the given one, newest first.
QStringList earlierFiles(const BrowserProcess &process, const QFileInfo &current)
{
    constexpr double from1601To2001 = 12622780800; // Seconds.
    constexpr double slack = 2;
    const double start = process.startedAt.seconds + from1601To2001 - slack;
    QStringList names = current.dir().entryList({"Session_*"}, QDir::Files);
    names.removeIf([&](const QString &name) {
        return numberOf(name) >= numberOf(current.fileName()) || double(numberOf(name)) / 1e6 < start;
    });
    std::sort(names.begin(), names.end(), [](const auto &a, const auto &b) { return numberOf(a) > numberOf(b); });
    return names;
}

// The newest file of this run before the given one that holds a whole state.
std::optional<ReadFile> readEarlier(const BrowserProcess &process, const QFileInfo &current)
{
    for (const QString &name : earlierFiles(process, current)) {
        if (auto read = readFile(current.dir().filePath(name)))
            return read;
    }
    return std::nullopt;
}

// A browser that begins a new file may pass over a window that stays open.
void addForgotten(SnssReader::Session &session, const QList<ListedWindow> &earlier)
{
    QSet<QString> known = session.closed;
    for (const ListedWindow &window : std::as_const(session.windows))
        known.insert(window.id.value_or(QString()));
    for (ListedWindow window : earlier) {
        window.isCurrent = false;
        if (!known.contains(window.id.value_or(QString())))
            session.windows.append(window);
    }
}

// A file that the browser has just begun lacks its initial state for a moment; then the one before it holds it.
std::optional<ReadFile> readProfile(const BrowserProcess &process, const QString &path)
{
    const QFileInfo current(path);
    std::optional<ReadFile> earlier = readEarlier(process, current);
    std::optional<ReadFile> read = readFile(path);
    if (!read)
        return earlier;
    if (earlier)
        addForgotten(read->session, earlier->session.windows);
    return read;
}

void addProfile(BrowserState &session, ReadFile read, const QString &path)
{
    fillTitles(read.session.windows, QFileInfo(path).dir().filePath("../History"));
    session.windows += read.session.windows;
    session.writtenAt = session.writtenAt ? std::min(*session.writtenAt, read.writtenAt) : read.writtenAt;
    ++session.readProfiles;
}

// Newer browsers keep an encrypted copy beside the plain file; a profile that has nothing else cannot be read.
bool hasPlainCopy(const QString &path, const QStringList &paths)
{
    const QString profile = path.left(path.lastIndexOf("/Sessions"));
    return std::any_of(paths.begin(), paths.end(),
                       [&](const QString &other) { return other.startsWith(profile + "/Sessions/"); });
}

} // namespace

BrowserState ChromiumState::read(const BrowserProcess &process)
{
    BrowserState session;
    for (const QString &file : process.openFiles) {
        if (file.contains("/Sessions_Encrypted/")) {
            session.unreadProfiles += hasPlainCopy(file, process.openFiles) ? 0 : 1;
            continue;
        }
        const QString path = BrowserProcesses::reachablePath(process, file);
        if (auto read = readProfile(process, path))
            addProfile(session, std::move(*read), path);
        else
            ++session.unreadProfiles;
    }
    // A browser that has only private windows writes no session; one that has just started has not written it yet.
    const bool isStarting =
        process.openFiles.isEmpty() && Date::now().seconds - process.startedAt.seconds < startUpTime;
    if (!process.isVisible || isStarting)
        ++session.unreadProfiles;
    // The identifiers count through all profiles of a process.
    std::sort(session.windows.begin(), session.windows.end(), [](const auto &a, const auto &b) {
        return a.id.value_or(QString()).toLongLong() < b.id.value_or(QString()).toLongLong();
    });
    return session;
}

} // namespace ardeno
