// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Failure.h"

#include <QString>
#include <QUuid>

#include <optional>

namespace ardeno {

// A file of a checkpoint on its way out: it stands aside in its folder, under another name, until the library has been
// written without it.
class MediaRemoval final {
public:
    // The file that a record names, when it may be removed at all: a plain one, or none any more, directly in the
    // checkpoint's media folder; neither the file nor the folder is a link. Throws Failure when that cannot be known.
    static std::optional<QString> allowed(const QString &root, const QUuid &checkpointID, const QString &recorded);

    // Of no file when the path is empty. Nothing happens before begin().
    explicit MediaRemoval(const QString &path);

    const QString &aside() const { return m_aside; }

    // Moves the file aside; a missing one is fine. Like the others it gives the failure, if any, and has then changed
    // nothing.
    std::optional<Failure> begin();
    std::optional<Failure> putBack();

    bool isAside() const { return m_isAside; }

    // What stands aside for this path, whoever moved it there: to its place, or for good, also where it is still in its
    // place. What is not there is fine.
    static std::optional<Failure> bringBack(const QString &path);
    static std::optional<Failure> discard(const QString &path);

private:
    QString m_path;
    QString m_aside;
    bool m_isAside = false;
};

} // namespace ardeno
