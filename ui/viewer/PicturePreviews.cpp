// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/PicturePreviews.h"

#include <QDateTime>
#include <QFileInfo>
#include <QList>

#include <algorithm>

namespace ardeno {

namespace {

constexpr qsizetype mostPreviews = 4;

struct KeptPreview {
    QString path = {};
    QDateTime changed = {};
    QImage image = {};
};

QList<KeptPreview> &keptPreviews()
{
    static QList<KeptPreview> kept; // The newest last.
    return kept;
}

} // namespace

void PicturePreviews::keep(const QString &path, const QImage &image)
{
    QList<KeptPreview> &kept = keptPreviews();
    kept.removeIf([&](const KeptPreview &preview) { return preview.path == path; });
    kept.append({path, QFileInfo(path).lastModified(), image});
    if (kept.size() > mostPreviews)
        kept.removeFirst();
}

QImage PicturePreviews::find(const QString &path)
{
    const QList<KeptPreview> &kept = keptPreviews();
    const auto found =
        std::find_if(kept.begin(), kept.end(), [&](const KeptPreview &preview) { return preview.path == path; });
    return found != kept.end() && found->changed == QFileInfo(path).lastModified() ? found->image : QImage();
}

} // namespace ardeno
