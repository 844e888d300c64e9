// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/desktop/Video.h"

#include "tests/desktop/Desktop.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

namespace ardeno::desktop_test {

QString Video::probe(const QString &entry, const QStringList &options) const
{
    const QStringList arguments =
        options + QStringList{"-v", "quiet", "-show_entries", entry, "-of", "csv=p=0", m_path};
    return outputOf("ffprobe", arguments).trimmed();
}

QString Video::problems() const
{
    QProcess player;
    player.start("ffprobe", {"-v", "warning", "-count_frames", "-show_entries", "stream=nb_read_frames", m_path});
    player.waitForFinished();
    return QString::fromUtf8(player.readAllStandardError());
}

QImage Video::frameAt(double second) const
{
    const QStringList times = probe("packet=pts_time").split('\n');
    qsizetype shown = 0;
    while (shown + 1 < times.size() && QString(times[shown + 1]).remove(',').toDouble() <= second)
        ++shown;
    return pictures().value(shown);
}

QList<QImage> Video::pictures() const
{
    const QTemporaryDir folder;
    outputOf("ffmpeg", {"-nostdin", "-v", "quiet", "-i", m_path, "-vsync", "0", folder.filePath("%05d.png")});
    QList<QImage> images;
    const QDir found(folder.path());
    for (const QString &name : found.entryList({"*.png"}, QDir::Files, QDir::Name))
        images.append(QImage(found.filePath(name)).convertToFormat(QImage::Format_RGB32));
    return images;
}

} // namespace ardeno::desktop_test
