// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/Endpoints.h"
#include "services/UpdateVersion.h"
#include "store/AppStore.h"
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

bool AppStore::openMail(const QUrl &address)
{
    return m_desktop.mailProgram->openDraft(address);
}

QString AppStore::currentAppVersion()
{
    const QString version = ApplicationBundle::current().version;
    return version.isEmpty() ? u"0.1.0"_qs : version;
}

QCoro::Task<Outcome> AppStore::showFile(QString path)
{
    return carryOut(reveal(std::move(path)));
}

QCoro::Task<Outcome> AppStore::reveal(QString path)
{
    Outcome outcome{.subject = "show file"};
    try {
        co_await m_desktop.launcher->reveal(path);
        outcome.isDone = true;
    } catch (...) {
        outcome.fail(tr("Could not show the file: ") + Failure::current().description());
    }
    co_return outcome;
}

QCoro::Task<void> AppStore::checkForUpdates(Force force)
{
    if (!m_fetchUpdate || checkingForUpdates() || (force == Force::No && wasRecent(m_lastUpdateCheck)))
        co_return;
    checkingForUpdates.set(true);
    updateAnswer.set(std::nullopt);
    const std::weak_ptr<bool> life = m_life; // The answer may come after the store has gone.
    std::optional<AppUpdateManifest> manifest;
    try {
        manifest = co_await m_fetchUpdate();
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

} // namespace ardeno
