// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace ardeno {

// Whether to advise, once, that the application be moved to where applications belong: it is when its own folder is
// exactly that one. An empty folder: this desktop has none.
bool advisesMove(const QString &application, const QString &applicationsFolder, bool wasAdvised);

} // namespace ardeno
