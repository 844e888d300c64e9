// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/Updates.h"

#include "services/Endpoints.h"
#include "services/UpdateVersion.h"
#include "store/PreferenceKeys.h"

namespace ardeno {

namespace {

constexpr qint64 secondsBetweenChecks = 86'400;

bool wasRecent(const std::optional<QDateTime> &last)
{
    const qint64 elapsed = last ? last->secsTo(QDateTime::currentDateTimeUtc()) : secondsBetweenChecks;
    // A check in the future was noted by a clock that has been set right since.
    return elapsed >= 0 && elapsed < secondsBetweenChecks;
}

} // namespace

Updates::Updates(Preferences &preferences, Fetch fetch)
    : m_preferences(preferences), m_fetch(std::move(fetch)), m_lastUpdateCheck(preferences.value(keys::lastUpdateCheck))
{
}

QString Updates::currentAppVersion()
{
    const QString version = ApplicationBundle::current().version;
    return version.isEmpty() ? u"0.1.0"_qs : version;
}

QCoro::Task<void> Updates::checkForUpdates(Force force)
{
    if (!m_fetch || checkingForUpdates() || (force == Force::No && wasRecent(m_lastUpdateCheck)))
        co_return;
    checkingForUpdates.set(true);
    updateAnswer.set(std::nullopt);
    const std::weak_ptr<bool> life = m_life; // The answer may come after this object has gone.
    std::optional<AppUpdateManifest> manifest;
    try {
        manifest = co_await m_fetch();
    } catch (...) {
        // As silent as every other failure of a check.
    }
    if (life.expired())
        co_return;
    if (manifest)
        availableUpdate.set(UpdateVersion::isNewer(manifest->latestVersion, currentAppVersion()) ? manifest
                                                                                                 : std::nullopt);
    if (force == Force::Yes && !manifest)
        updateAnswer.set(tr("Could not check for updates. Try again when you are online."));
    else if (force == Force::Yes && !availableUpdate())
        updateAnswer.set(tr("Ardeno %1 is up to date.").arg(currentAppVersion()));
    checkingForUpdates.set(false);
    m_lastUpdateCheck = QDateTime::currentDateTimeUtc();
    m_preferences.setValue(keys::lastUpdateCheck, *m_lastUpdateCheck);
}

void Updates::dismissUpdate()
{
    availableUpdate.set(std::nullopt);
}

} // namespace ardeno
