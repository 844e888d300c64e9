// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/AppStore.h"

#include "store/MediaFolders.h"
#include "store/MediaRecovery.h"
#include "store/PreferenceKeys.h"
#include "store/Subjects.h"
#include "support/Identifiers.h"

#include <QFile>

namespace ardeno {

namespace {

std::optional<QUuid> toUuid(const std::optional<QString> &text)
{
    const QUuid id(text.value_or(QString()));
    return id.isNull() ? std::nullopt : std::optional(id);
}

QCoro::Task<qint64> startNothing()
{
    throw Failure("Restart", 3, "This program cannot start itself.");
    co_return 0;
}

} // namespace

AppStore::AppStore(Desktop &desktop, StoreParts parts)
    : m_desktop(desktop),
      m_preferences(std::move(parts.preferences)),
      m_exclusionsFile(m_preferences.folder()),
      m_repository(std::move(parts.repository)),
      m_beforeWrite(std::move(parts.beforeWrite)),
      m_checkScreenAccess(std::move(parts.checkScreenAccess)),
      m_askScreenAccess(std::move(parts.askScreenAccess)),
      m_verifyScreenAccess(std::move(parts.verifyScreenAccess)),
      m_startInstance(std::move(parts.startInstance)),
      m_endApplication(std::move(parts.endApplication)),
      m_runningApplicationIDs(std::move(parts.runningApplicationIDs)),
      m_capture(*desktop.screenCapture, desktop.screenRecorder.get()),
      m_openedPages(std::move(parts.openedPages)),
      m_thumbnailFolder(std::move(parts.thumbnailFolder)),
      m_fetchUpdate(std::move(parts.fetchUpdate)),
      m_seedStarterExample(parts.seedStarterExample)
{
    if (!m_checkScreenAccess)
        m_checkScreenAccess = [this] { return m_desktop.screenAccess->check(); };
    if (!m_askScreenAccess)
        m_askScreenAccess = [this] { return m_desktop.screenAccess->ask(); };
    if (!m_verifyScreenAccess)
        m_verifyScreenAccess = [this] { return m_capture.verifyAccess(); };
    if (!m_startInstance)
        m_startInstance = startNothing;
    if (!m_endApplication)
        m_endApplication = [] { QCoreApplication::quit(); };
    if (!m_runningApplicationIDs)
        m_runningApplicationIDs = [this] {
            return idsOf(m_desktop.workspace->runningApplications()) - QSet{QString()};
        };
    readPreferences();
    takeOverExclusions();
    if (!readExclusions())
        report(*exclusionsIssue(), subjects::exclusions);
    m_mirrors.push_back(remarks.addNotifier([this] { keepCopiesInMind(); }));
    if (parts.remindOfCopies)
        remindOfCopies();
    readLibrary(parts.loadLibrary);
    m_capture.onFailure = [this](const Failure &failure) { recordingFailed(failure); };
    if (m_isLibraryRead && parts.recoverSessions)
        recoverSessions(resolveMedia());
    prepareSamples();
    chooseFirstProject();
    if (m_isLibraryRead && parts.recoverSessions)
        mirrorUnsavedNotes();
}

AppStore::~AppStore()
{
    if (lastRemoval())
        settleRemoved(*lastRemoval());
    if (m_isWatchingApplications)
        m_desktop.workspace->setChangeHandler({});
}

template <typename T>
void AppStore::mirror(Editable<T> &property, PreferenceKey<T> key)
{
    property.set(m_preferences.value(key).value_or(T()));
    m_mirrors.push_back(property.addNotifier([this, &property, key] { m_preferences.setValue(key, property()); }));
}

void AppStore::readPreferences()
{
    if (!m_preferences.unreadableNote().isEmpty())
        report(m_preferences.unreadableNote());
    mirror(includeBrowser, keys::includeBrowser);
    mirror(shortcutChoice, keys::quickSaveShortcut);
    mirror(draftProjectName, keys::draftProjectName);
    mirror(draftTitle, keys::captureDraftTitle);
    mirror(draftNext, keys::captureDraftNext);
    mirror(launchOverview, keys::launchOverview);
    mirror(keptDetails, keys::keptDetails);
    mirror(keptReport, keys::keptReport);
    mirrorDraftProject();
    m_lastUpdateCheck = m_preferences.value(keys::lastUpdateCheck);
    pendingRecording.set(m_preferences.value(keys::captureDraftRecording).value_or(false));
    showCapture.set(m_preferences.value(keys::resumeCaptureSetup).value_or(false));
}

void AppStore::mirrorDraftProject()
{
    draftProjectID.set(toUuid(m_preferences.value(keys::draftProjectID)));
    m_mirrors.push_back(draftProjectID.addNotifier([this] {
        if (draftProjectID())
            m_preferences.setValue(keys::draftProjectID, uuidText(*draftProjectID()));
        else
            m_preferences.remove(keys::draftProjectID);
    }));
}

void AppStore::remindOfCopies()
{
    for (const QString &path : m_preferences.value(keys::keptCopies).value_or(QStringList())) {
        if (QFile::exists(path))
            remark(keptCopy(path, Successor::Empty));
    }
}

void AppStore::readLibrary(const std::function<WorkspaceLibrary()> &load)
{
    for (const QString &sentence : m_repository.warnings())
        remark({.sentence = sentence});
    try {
        WorkspaceLibrary library = load ? load() : m_repository.loadLibrary();
        publish(std::move(library));
    } catch (const Failure &failure) {
        report(tr("Your saved checkpoints could not be read. Existing files have been left in place. ") +
                   failure.description(),
               subjects::library);
    }
}

void AppStore::prepareSamples()
{
    // Where the library could not be read there may be projects; samples would hide that.
    if (!m_seedStarterExample || !m_isLibraryRead)
        return;
    m_sampleProject = Project::sample();
    sampleHistory.set(Checkpoint::sampleHistory());
    sampleCheckpoint.set(sampleHistory().first());
}

bool AppStore::isShowingSamples() const
{
    return projects().isEmpty() && !sampleHistory().isEmpty();
}

void AppStore::chooseFirstProject()
{
    const bool isSeeded = m_preferences.value(keys::starterExampleMigrationV2).value_or(false);
    if (m_seedStarterExample && m_isLibraryRead && !isSeeded)
        m_preferences.setValue(keys::starterExampleMigrationV2, true);
    if (launchOverview())
        return;
    const std::optional<QUuid> last = toUuid(m_preferences.value(keys::lastOpenedProjectID));
    const QList<Project> available = availableProjects();
    if (last && project(*last))
        selectProject(*last);
    else if (isShowingSamples() && (!isSeeded || last == m_sampleProject.id))
        selectProject(m_sampleProject.id);
    else if (!available.isEmpty())
        selectProject(available.first().id);
}

// Throws Failure, also where a link leads to media elsewhere.
QString AppStore::mediaFolder(const QUuid &checkpointID) const
{
    QString folder = m_repository.directory(checkpointID);
    if (!MediaFolders::isFolder(folder))
        throw Failure::system(ENOTDIR, uuidText(checkpointID));
    return folder;
}

std::optional<QString> AppStore::screenshotFile(const Checkpoint &checkpoint) const
{
    return checkpoint.screenshot ? MediaFolders::fileOf(m_repository.root(), checkpoint.id, *checkpoint.screenshot)
                                 : std::nullopt;
}

QString AppStore::recordingFile(const Checkpoint &checkpoint) const
{
    const auto file =
        MediaFolders::fileOf(m_repository.root(), checkpoint.id, checkpoint.recording.value_or(QString()));
    if (!file)
        throw Failure("Media", 1, tr("It is not in this checkpoint’s storage folder."));
    if (!MediaFolders::isFolder(MediaFolders::own(m_repository.root(), checkpoint.id)) || !MediaFolders::isFile(*file))
        throw Failure("Media", 2, tr("There is no such file."));
    return *file;
}

void AppStore::discardUnsaved()
{
    if (m_isLibraryRead)
        resolveMedia();
}

QSet<QUuid> AppStore::resolveMedia()
{
    return MediaRecovery::resolve(m_repository.root(), m_repository.hasFile() ? &checkpoints() : nullptr);
}

void AppStore::refreshRunningApplications()
{
    runningApplicationIDs.set(m_runningApplicationIDs());
}

void AppStore::watchRunningApplications()
{
    m_isWatchingApplications = true;
    m_desktop.workspace->setChangeHandler([this] { refreshRunningApplications(); });
    refreshRunningApplications(); // After the watch has begun, so that nothing falls in between.
}

QString AppStore::iconName(const QString &appID)
{
    if (!m_iconNames) {
        m_iconNames.emplace();
        for (const InstalledApplication &application : m_desktop.workspace->installedApplications())
            m_iconNames->insert(application.id, application.iconName);
    }
    return m_iconNames->value(appID);
}

void AppStore::dismissNewsletterPrompt()
{
    m_preferences.setValue(keys::newsletterPromptDismissed, true);
    showNewsletterPrompt.set(false);
}

void AppStore::dismissUpdate()
{
    availableUpdate.set(std::nullopt);
}

} // namespace ardeno
