// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Messages.h"
#include "store/ScreenshotEditing.h"

#include <memory>

class QMimeData;
class QTemporaryFile;

namespace ardeno {

// An image from another application: a file of it, or a copy of what has no file, which goes with the last of these.
class OfferedPicture final {
public:
    // Whether what is dragged or in the clipboard may be one; only reading tells for certain.
    static bool isIn(const QMimeData *data);

    // Throws Failure when the copy cannot be written.
    explicit OfferedPicture(const QMimeData &data);

    const QString &file() const { return m_file; }

private:
    QString m_file;
    std::shared_ptr<QTemporaryFile> m_copy;
};

// Makes it the checkpoint's screenshot; what fails is reported.
void adoptPicture(ScreenshotEditing &screenshots, Messages &messages, const QUuid &checkpointID, const QMimeData *data);

} // namespace ardeno
