// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUuid>

namespace ardeno {

enum class CaptureKind { Checkpoint, Session };
enum class CaptureForm { Sheet, QuickPanel };

// One immediate checkpoint to be saved, apart from the form and its drafts.
struct CaptureRequest {
    QUuid projectID = {};
    QString title = {}; // Empty: named after the time.
    QString next = {};
    bool includeBrowser = false;
};

} // namespace ardeno
