// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WorkspaceCapture.h"
#include "model/Json.h"
#include "store/AppStore.h"
#include "store/PreferenceKeys.h"
#include "support/Text.h"

#include <algorithm>

namespace ardeno {

bool AppStore::excludeApp(const SavedApp &app)
{
    CaptureExclusions changed = exclusions();
    changed.apps.removeIf([&](const SavedApp &existing) { return existing.id == app.id; });
    changed.apps.append(app);
    return saveExclusions(changed);
}

bool AppStore::allowApp(const QString &id)
{
    CaptureExclusions changed = exclusions();
    changed.apps.removeIf([&](const SavedApp &existing) { return existing.id == id; });
    return saveExclusions(changed);
}

bool AppStore::excludeDomain(const QString &text)
{
    const std::optional<QString> domain = CaptureExclusions::domainFrom(text);
    if (!domain)
        return false;
    CaptureExclusions changed = exclusions();
    if (!changed.domains.contains(*domain))
        changed.domains.append(*domain);
    return saveExclusions(changed);
}

bool AppStore::allowDomain(const QString &domain)
{
    CaptureExclusions changed = exclusions();
    changed.domains.removeAll(domain);
    return saveExclusions(changed);
}

QList<SavedApp> AppStore::runningApps() const
{
    return WorkspaceCapture::applications(*m_desktop.workspace, m_desktop.roles, exclusions().appIDs());
}

QList<InstalledApplication> AppStore::installedApps() const
{
    QList<InstalledApplication> apps = m_desktop.workspace->installedApplications();
    apps.removeIf([&](const InstalledApplication &app) { return app.id.isEmpty() || app.id == m_desktop.roles.ownID; });
    for (InstalledApplication &app : apps) {
        app.name = app.name.simplified();
        if (app.name.isEmpty())
            app.name = app.id;
    }
    const NameOrder isBefore;
    std::stable_sort(apps.begin(), apps.end(), [&](const InstalledApplication &a, const InstalledApplication &b) {
        return isBefore(a.name, b.name);
    });
    return apps;
}

bool AppStore::saveExclusions(const CaptureExclusions &changed)
{
    clearMessages();
    if (recording()) {
        error.set(tr("Finish the recording before changing exclusions."));
        return false;
    }
    m_preferences.setValue(keys::captureExclusions, json::encode(changed));
    if (!m_preferences.synchronise()) {
        error.set(tr("Could not save the exclusions: the settings cannot be written."));
        return false;
    }
    exclusions.set(changed);
    return true;
}

} // namespace ardeno
