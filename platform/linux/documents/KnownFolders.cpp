// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/documents/KnownFolders.h"

#include "platform/linux/documents/RecentDocuments.h"
#include "platform/linux/files/PathEntry.h"
#include "platform/linux/files/PathText.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QByteArrayView>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <algorithm>
#include <dirent.h>
#include <memory>

namespace ardeno {

namespace {

// "file:///home/me/Texts My texts", one a line.
QStringList bookmarks()
{
    QStringList found;
    QFile file(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/gtk-3.0/bookmarks");
    if (!file.open(QIODevice::ReadOnly))
        return found;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (const auto path = PathText::fromAddress(line.left(line.indexOf(' '))))
            found.append(*path);
    }
    return found;
}

// What a folder holds, as far as it may matter. Most names are looked at and forgotten: they stay bytes.
struct Listing {
    QByteArrayList folders = {}; // Also what may be one.
    QByteArrayList named = {};   // Folders and links of the names that were asked for.
};

Listing listingOf(const QByteArray &folder, const QSet<QByteArray> &names)
{
    Listing listing;
    const std::unique_ptr<DIR, int (*)(DIR *)> opened(::opendir(folder.constData()), ::closedir);
    for (const dirent *entry = nullptr; opened && (entry = ::readdir(opened.get()));) {
        const QByteArrayView name(entry->d_name);
        const bool isFolder = entry->d_type == DT_DIR || entry->d_type == DT_UNKNOWN;
        if (!(isFolder || entry->d_type == DT_LNK) || name == QByteArrayView(".") || name == QByteArrayView(".."))
            continue;
        const QByteArray path = folder + '/' + name.toByteArray();
        if (names.contains(name.toByteArray()))
            listing.named.append(path);
        // Links are not followed further, so that none leads round in circles.
        if (isFolder && !name.startsWith('.'))
            listing.folders.append(path);
    }
    return listing;
}

Listing askedFor(const QByteArray &folder, const QSet<QByteArray> &names)
{
    constexpr std::chrono::milliseconds timeForDisk(300);
    const auto question = [folder, names] { return listingOf(folder, names); };
    return SlowMounts::ofMachine().ask(folder, question, timeForDisk).value_or(Listing());
}

QStringList mountPoints()
{
    QStringList found;
    const QString user = qEnvironmentVariable("USER");
    for (const QString &folder : {"/media/" + user, "/run/media/" + user, QString("/media"), QString("/mnt")}) {
        for (const QByteArray &path : askedFor(folder.toUtf8(), {}).folders)
            found.append(QString::fromUtf8(path));
    }
    return found;
}

// Those on disks that may never answer last.
QStringList quickFirst(QStringList paths)
{
    std::stable_partition(paths.begin(), paths.end(),
                          [](const QString &path) { return !SlowMounts::ofMachine().isSlow(path.toUtf8()); });
    return paths;
}

QStringList userFolders()
{
    QStringList found = {QDir::homePath()};
    for (const auto kind :
         {QStandardPaths::DesktopLocation, QStandardPaths::DocumentsLocation, QStandardPaths::DownloadLocation,
          QStandardPaths::MusicLocation, QStandardPaths::MoviesLocation, QStandardPaths::PicturesLocation,
          QStandardPaths::TemplatesLocation, QStandardPaths::PublicShareLocation})
        found.append(QStandardPaths::writableLocation(kind));
    return found;
}

// Empty for the root.
QString parent(const QString &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return slash > 0 ? path.left(slash) : QString(path.size() > 1 ? "/" : "");
}

// Collects the folders of the names asked for, each once.
class FolderSearch final {
public:
    FolderSearch(const QSet<QString> &names, const KnownFolders::Bounds &bounds)
        : m_names(names), m_left(bounds.folders), m_deadline(bounds.time)
    {
        for (const QString &name : names)
            m_encodedNames.insert(name.toUtf8());
    }

    // A path and the folders it is in.
    void addWithParents(QString path)
    {
        for (; !path.isEmpty() && !m_seen.contains(path); path = parent(path)) {
            m_seen.insert(path);
            if (m_names.contains(PathText::baseName(path)) && PathText::isFolder(path))
                keep(path);
        }
    }

    void addContents(const QStringList &roots)
    {
        QStringList folders;
        for (const QString &root : roots)
            folders.append(PathEntry::of(root).facts.canonicalPath);
        QByteArrayList queue;
        for (const QString &folder : quickFirst(folders))
            queue.append(folder.toUtf8());
        for (qsizetype i = 0; i < queue.size() && m_left > 0 && !m_deadline.hasExpired(); ++i) {
            const QByteArray folder = queue[i];
            if (m_listed.contains(folder))
                continue;
            m_listed.insert(folder);
            --m_left;
            list(folder, &queue);
        }
    }

    QHash<QString, QStringList> found() const { return m_found; }

private:
    void keep(const QString &path)
    {
        QStringList &paths = m_found[PathText::baseName(path)];
        if (!paths.contains(path))
            paths.append(path);
    }

    void list(const QByteArray &folder, QByteArrayList *queue)
    {
        const Listing listing = askedFor(folder, m_encodedNames);
        for (const QByteArray &path : listing.named)
            keepEntry(path);
        *queue += listing.folders;
    }

    void keepEntry(const QByteArray &bytes)
    {
        const auto path = PathText::fromBytes(bytes);
        if (path && PathText::isFolder(*path))
            keep(*path);
    }

    const QSet<QString> &m_names;
    QSet<QByteArray> m_encodedNames;
    int m_left;
    QDeadlineTimer m_deadline;
    QSet<QString> m_seen;
    QSet<QByteArray> m_listed;
    QHash<QString, QStringList> m_found;
};

} // namespace

QStringList KnownFolders::places()
{
    QStringList found = userFolders() + bookmarks() + mountPoints();
    for (const RecentDocument &document : RecentDocuments::read())
        found.append(document.path);
    found.removeDuplicates();
    return found;
}

QHash<QString, QStringList> KnownFolders::named(const QSet<QString> &names, const QStringList &furtherPaths,
                                                const Bounds &bounds)
{
    FolderSearch search(names, bounds);
    for (const QString &path : quickFirst(furtherPaths + places()))
        search.addWithParents(path);
    search.addContents(userFolders() + bookmarks() + mountPoints());
    return search.found();
}

} // namespace ardeno
