// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/settings/Links.h"

#include "services/AppUpdateManifest.h"
#include "services/Endpoints.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QGuiApplication>

namespace ardeno {

void Links::openUpdateURL(const std::optional<QUrl> &url)
{
    if (isOpenable(url))
        QDesktopServices::openUrl(*url);
}

void Links::openNewsletter()
{
    QDesktopServices::openUrl(Endpoints::newsletter());
}

bool Links::openFolder(const QString &path)
{
    return QDir(path).exists() && QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

bool Links::copyToClipboard(const QString &text)
{
    QClipboard *const clipboard = QGuiApplication::clipboard();
    clipboard->setText(text);
    return clipboard->ownsClipboard() && clipboard->text() == text;
}

} // namespace ardeno
