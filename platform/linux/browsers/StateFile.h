// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Date.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace ardeno {

// A file that a browser may be writing.
struct StateFile {
    QByteArray bytes = {};
    Date writtenAt = {};

    // Absent when it cannot be read, is no ordinary file or is larger than any state.
    static std::optional<StateFile> read(const QString &path);
};

} // namespace ardeno
