// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WorkspaceCapture.h"
#include "model/Json.h"
#include "store/AppStore.h"
#include "store/PreferenceKeys.h"
#include "store/Subjects.h"
#include "support/Text.h"

#include <algorithm>

namespace ardeno {

Outcome AppStore::excludeApp(const SavedApp &app, Audience audience)
{
    CaptureExclusions changed = exclusions();
    changed.apps.removeIf([&](const SavedApp &existing) { return existing.id == app.id; });
    changed.apps.append(app);
    return saveExclusions(changed, audience);
}

Outcome AppStore::allowApp(const QString &id, Audience audience)
{
    CaptureExclusions changed = exclusions();
    changed.apps.removeIf([&](const SavedApp &existing) { return existing.id == id; });
    return saveExclusions(changed, audience);
}

Outcome AppStore::excludeDomain(const QString &text, Audience audience)
{
    const std::optional<QString> domain = CaptureExclusions::domainFrom(text);
    if (!domain)
        return {};
    CaptureExclusions changed = exclusions();
    if (!changed.domains.contains(*domain))
        changed.domains.append(*domain);
    return saveExclusions(changed, audience);
}

Outcome AppStore::allowDomain(const QString &domain, Audience audience)
{
    CaptureExclusions changed = exclusions();
    changed.domains.removeAll(domain);
    return saveExclusions(changed, audience);
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

Outcome AppStore::saveExclusions(const CaptureExclusions &changed, Audience audience)
{
    Outcome outcome{.subject = subjects::exclusions};
    if (m_active) {
        outcome.subject = subjects::whileRecording;
        outcome.fail(tr("Finish the recording before changing exclusions."));
        return concluded(std::move(outcome), audience);
    }
    m_preferences.setValue(keys::captureExclusions, json::encode(changed));
    outcome.isDone = m_preferences.synchronise();
    if (outcome)
        exclusions.set(changed);
    else
        outcome.fail(tr("Could not save the exclusions: the settings cannot be written."));
    return concluded(std::move(outcome), audience);
}

} // namespace ardeno
