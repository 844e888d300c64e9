// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUuid>

namespace ardeno {

// A file of a checkpoint on its way out: it stands aside in its folder, under another name, until the library has been
// written without it.
class MediaRemoval final {
public:
    // Whether the path may be removed at all: a plain file, or nothing any more, directly in the checkpoint's media
    // folder; neither the file nor the folder is a link.
    static bool isAllowed(const QString &path, const QString &root, const QUuid &checkpointID);

    // Moves the file aside; a missing one is fine. Throws Failure, and then nothing has changed.
    explicit MediaRemoval(const QString &path);

    // Both throw Failure.
    void putBack();
    void finish();

private:
    QString m_path;
    QString m_aside;
    bool m_isAside = false;
};

} // namespace ardeno
