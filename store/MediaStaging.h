// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Failure.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QUuid>

#include <optional>

namespace ardeno {

// Media folders set aside in "<root>/.deleting-<UUID>" while a deletion is written: a deletion that fails, or is cut
// short, can put them back.
class MediaStaging final {
public:
    // Moves the media folders of these checkpoints aside. When one cannot be moved, those moved already go back and
    // the Failure is thrown.
    MediaStaging(const QString &root, const QList<QUuid> &checkpointIDs);

    const QString &folder() const { return m_folder; }

    // Where the media came from. The failure of a folder that could not be moved, if any; it then stays in folder().
    std::optional<Failure> putBack();
    // Removes what was set aside, for good. The failure if anything remains.
    std::optional<Failure> remove();

    // What a deletion that was cut short left behind: media of checkpoints that still exist go back, the rest is
    // removed. What cannot be moved or removed stays for the next time.
    static void resolveLeftovers(const QString &root, const QSet<QUuid> &existingCheckpointIDs);

private:
    explicit MediaStaging(const QString &folder, const QString &root) : m_root(root), m_folder(folder) {}

    QString m_root;
    QString m_folder;
};

} // namespace ardeno
