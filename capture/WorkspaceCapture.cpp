// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WorkspaceCapture.h"

#include "support/StoredText.h"
#include "support/Text.h"

#include <algorithm>

namespace ardeno {

namespace {

bool isKept(const RunningApplication &application, const DesktopRoles &roles, const QSet<QString> &excludedAppIDs)
{
    if (application.id.isEmpty() || application.id == roles.ownID || excludedAppIDs.contains(application.id))
        return false;
    return application.isRegular || roles.alwaysListedIDs.contains(application.id);
}

} // namespace

QList<SavedApp> WorkspaceCapture::applications(Workspace &workspace, const DesktopRoles &roles,
                                               const QSet<QString> &excludedAppIDs)
{
    QList<SavedApp> apps;
    QSet<QString> seen;
    for (const RunningApplication &application : workspace.runningApplications()) {
        if (!isKept(application, roles, excludedAppIDs) || seen.contains(application.id))
            continue;
        seen.insert(application.id);
        apps.append({application.id, application.name.isEmpty() ? application.id : application.name});
    }
    const NameOrder isBefore;
    std::stable_sort(apps.begin(), apps.end(),
                     [&](const SavedApp &a, const SavedApp &b) { return isBefore(a.name, b.name); });
    return apps;
}

QString WorkspaceCapture::limits(const QList<SavedApp> &apps)
{
    QString text;
    QStringList names;
    for (const SavedApp &app : apps) {
        if (WindowClass::isIdentifier(app.id))
            names.append(app.name);
    }
    if (!names.isEmpty())
        text += ' ' + storedText("Not among the installed apps, so saved by the name of their windows: %1.")
                          .arg(names.join(u", "_qs));
    return text;
}

} // namespace ardeno
