// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"

namespace ardeno {

inline QStringList addresses(const QList<SavedTab> &tabs)
{
    QStringList list;
    for (const SavedTab &each : tabs)
        list += each.url;
    return list;
}

} // namespace ardeno
