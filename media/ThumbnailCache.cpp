// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ThumbnailCache.h"

#include "media/PictureShrinking.h"
#include "media/PngWriter.h"
#include "support/Failure.h"
#include "support/OwnFile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <fcntl.h>

#include <functional>

namespace ardeno {

namespace {

// The same for all states of a picture.
QString pictureName(const QString &path)
{
    return QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha1).toHex();
}

QSet<QString> pictureNames(const QSet<QString> &paths)
{
    QSet<QString> names;
    for (const QString &path : paths)
        names.insert(pictureName(path));
    return names;
}

// Touches nothing but what was made here: the folder may be a link to another one.
void removeWhere(const QString &folder, const std::function<bool(const QString &pictureName)> &isChosen)
{
    static const QRegularExpression form("^([0-9a-f]{40})-[0-9a-f]+--?[0-9a-f]+\\.png(\\.new)?$");
    const QDir kept(folder);
    for (const QString &name : kept.entryList(QDir::Files)) {
        const QRegularExpressionMatch match = form.match(name);
        if (match.hasMatch() && isChosen(match.captured(1)))
            QFile::remove(kept.filePath(name));
    }
}

} // namespace

QString ThumbnailCache::fileOf(const QString &path, const FileStamp &stamp) const
{
    return u"%1/%2-%3-%4.png"_qs.arg(m_folder, pictureName(path), QString::number(stamp.size, 16),
                                     QString::number(stamp.modified, 16));
}

std::optional<Picture> ThumbnailCache::find(const QString &path, const FileStamp &stamp) const
{
    try {
        FileDescriptor file = OwnFile::open(fileOf(path, stamp), O_RDONLY);
        if (!file)
            return std::nullopt;
        constexpr int asItIs = 1024; // Larger ones were not written here.
        std::optional<PngReader> reader = PngReader::opened(std::move(file));
        if (reader && reader->size().width() <= asItIs && reader->size().height() <= asItIs)
            return shrunken(*reader, asItIs, [] { return true; });
    } catch (const Failure &) {
        // Written by a program that was ended; it is made again.
    }
    return std::nullopt;
}

void ThumbnailCache::keep(const QString &path, const FileStamp &stamp, const Picture &thumbnail) const
{
    try {
        AtomicFile::createFolder(m_folder);
    } catch (const Failure &) {
        return;
    }
    remove({path});
    // Not synchronised with the disk: a file that is lost or torn is made again.
    const QString target = fileOf(path, stamp);
    const QString unfinished = target + ".new";
    QFile file(unfinished);
    const QByteArray png = PngWriter::encoded(thumbnail.size, thumbnail.pixels);
    const bool isWritten = file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered,
                                     QFileDevice::ReadOwner | QFileDevice::WriteOwner) &&
                           file.write(png) == png.size();
    file.close();
    if (!isWritten || !file.rename(target))
        QFile::remove(unfinished);
}

void ThumbnailCache::remove(const QSet<QString> &paths) const
{
    const QSet<QString> names = pictureNames(paths);
    if (!names.isEmpty())
        removeWhere(m_folder, [&](const QString &name) { return names.contains(name); });
}

void ThumbnailCache::keepOnly(const QSet<QString> &paths) const
{
    const QSet<QString> names = pictureNames(paths);
    removeWhere(m_folder, [&](const QString &name) { return !names.contains(name); });
}

} // namespace ardeno
