// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUuid>

namespace ardeno {

// The media folder of a checkpoint that is being made. It has a name that says so until the checkpoint is in the
// library or in a journal, and goes with this object unless it is kept; of a killed process the next start removes it.
class UnsavedMedia final {
public:
    UnsavedMedia(QString root, QUuid checkpointID);
    ~UnsavedMedia();
    UnsavedMedia(const UnsavedMedia &) = delete;
    UnsavedMedia &operator=(const UnsavedMedia &) = delete;

    // Where the media lie now.
    const QString &folder() const { return m_folder; }

    // These throw Failure.
    void create() const;
    // Gives the folder the checkpoint's own name.
    void adopt();

    // Somebody knows of the media from now on.
    void keep() { m_isKept = true; }

private:
    QString m_root;
    QUuid m_id;
    QString m_folder;
    bool m_isKept = false;
};

} // namespace ardeno
