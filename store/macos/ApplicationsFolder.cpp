// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/macos/ApplicationsFolder.h"

#include <QDir>
#include <QFileInfo>

namespace ardeno {

bool advisesMove(const QString &application, const QString &applicationsFolder, bool wasAdvised)
{
    if (applicationsFolder.isEmpty() || wasAdvised)
        return false;
    return QFileInfo(QDir::cleanPath(application)).path() != QDir::cleanPath(applicationsFolder);
}

} // namespace ardeno
