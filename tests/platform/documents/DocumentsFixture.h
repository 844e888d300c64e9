// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/WindowLayout.h"
#include "platform/MakeDesktop.h"

#include "support/BlockOn.h"
#include "tests/desktop/Desktop.h"
#include "tests/support/Files.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

namespace ardeno::desktop_test {

// A desktop and a folder of the user for each test. The home itself stays: services that run meanwhile keep files in
// it.
class DocumentsFixture {
public:
    DocumentsFixture() : desktop(makeDesktop()) {}

    QString home(const QString &path) const { return m_folder.filePath(path); }

    QString makeFolder(const QString &path)
    {
        QDir().mkpath(home(path));
        return home(path);
    }

    QString makeFile(const QString &path, const QByteArray &content = "text\n")
    {
        writeFile(home(path), content);
        return home(path);
    }

    // The smallest document with a page.
    QString makePdf(const QString &path)
    {
        return makeFile(path, "%PDF-1.4\n"
                              "1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n"
                              "2 0 obj<</Type/Pages/Kids[3 0 R]/Count 1>>endobj\n"
                              "3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 200 200]>>endobj\n"
                              "trailer<</Root 1 0 R>>\n");
    }

    // All windows of the desktop as a checkpoint would keep them.
    QList<SavedWindow> layout()
    {
        QList<SavedApp> apps;
        for (const WindowInfo &window : desktop.windowServer->windows())
            apps.append({window.applicationID.value_or(QString()), window.applicationName});
        return blockOn(WindowLayout::capture(apps, desktop, {}, QCoreApplication::applicationPid()));
    }

    // What the windows of this application show: absent when nothing is certain.
    QList<std::optional<QString>> shown(const QString &appID)
    {
        QList<std::optional<QString>> paths;
        for (const SavedWindow &window : layout()) {
            if (window.appID.compare(appID, Qt::CaseInsensitive) == 0)
                paths.append(window.locationURL ? window.locationURL : window.documentURL);
        }
        return paths;
    }

    bool comesToShow(const QString &appID, const QString &path)
    {
        return eventually([&] { return shown(appID).contains(path); });
    }

    Desktop desktop;

private:
    QTemporaryDir m_folder{QDir::homePath() + "/work-XXXXXX"};
};

} // namespace ardeno::desktop_test
