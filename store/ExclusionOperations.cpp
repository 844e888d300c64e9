// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Json.h"
#include "store/AppStore.h"
#include "store/PreferenceKeys.h"

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
