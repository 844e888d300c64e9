// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/Endpoints.h"

#include <QCoreApplication>

namespace ardeno {

QUrl Endpoints::updateManifest()
{
    return QUrl(ARDENO_UPDATE_MANIFEST_URL);
}

QUrl Endpoints::newsletter()
{
    return QUrl(ARDENO_NEWSLETTER_URL);
}

QString Endpoints::supportAddress()
{
    return ARDENO_SUPPORT_ADDRESS;
}

ApplicationBundle ApplicationBundle::current()
{
    return {.version = QCoreApplication::applicationVersion(), .build = ARDENO_BUILD_NUMBER};
}

} // namespace ardeno
