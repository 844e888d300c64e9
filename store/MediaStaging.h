// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Failure.h"

#include <QString>
#include <QUuid>

#include <optional>

namespace ardeno {

// Media folders set aside in "<root>/.deleting-<UUID>" while a deletion is written: a deletion that fails, or is cut
// short, can put them back.
class MediaStaging final {
public:
    // What could not be put back or removed, and why.
    struct Remains {
        QString folder;
        Failure reason;
    };

    // There is no folder before the first media.
    explicit MediaStaging(const QString &root);

    // Moves this folder aside, as that of the checkpoint; a missing one is fine. One that is a link is not followed: it
    // stays and is among what remains in the end. Throws Failure when the folder is still in its place.
    void add(const QString &mediaFolder, const QUuid &checkpointID);

    // To the checkpoints' own folders.
    std::optional<Remains> putBack();
    // For good.
    std::optional<Remains> remove();

    // Whether it is the name of a folder of this kind.
    static bool isName(const QString &name);

private:
    QString m_root;
    QString m_folder;
    std::optional<Remains> m_link = {};
};

} // namespace ardeno
