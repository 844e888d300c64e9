// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Files.h"

namespace ardeno {

// Looks at files beside the main thread, at those of disks that may never answer last.
class LinuxFiles final : public Files {
public:
    QCoro::Task<QHash<QString, PathFacts>> facts(QStringList paths) override;
};

} // namespace ardeno
