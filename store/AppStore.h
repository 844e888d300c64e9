// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/BrowserTabs.h"
#include "capture/CaptureService.h"
#include "capture/LocationRestore.h"
#include "capture/RestoreSummary.h"
#include "capture/WindowRestore.h"
#include "desktop/Desktop.h"
#include "model/LibraryLock.h"
#include "store/AppState.h"
#include "store/ExclusionsFile.h"
#include "store/ProjectHistories.h"
#include "store/ProjectSearch.h"
#include "store/StoreParts.h"
#include "store/UnsavedMedia.h"

#include <QCoreApplication>
#include <QCoroTask>
#include <QHash>
#include <QTimer>

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

namespace ardeno {

class MediaRemoval;

enum class CaptureKind { Checkpoint, Session };
enum class CaptureForm { Sheet, QuickPanel };
enum class Force { No, Yes };

struct ResumeOutcome final : Outcome {
    RestoreReport report = {};
};

// The items of a plan that are wanted.
struct ResumeChoice {
    QSet<QString> appIDs = {};
    QSet<QUuid> tabIDs = {};

    // What is missing, each page once.
    static ResumeChoice missing(const RestorePlan &plan);
};

using ChooseItems = std::function<ResumeChoice(const RestorePlan &plan)>;

// One immediate checkpoint to be saved, apart from the form and its drafts.
struct CaptureRequest {
    QUuid projectID = {};
    QString title = {}; // Empty: named after the time.
    QString next = {};
    bool includeBrowser = false;
};

// The application's one state object: its properties are those of AppState, its operations are all a user can do.
// Every change of the library is written first and published second. Operations tell how they ended by their Outcome;
// the window shows it by notice, error, remarks and captureIssue, unless the caller says what went wrong itself. An
// operation that is refused because another one is under way has no outcome. Changes take what they are about by value,
// since callers often have it from the lists that a change replaces.
class AppStore final : public AppState {
    Q_DECLARE_TR_FUNCTIONS(ardeno::AppStore)

public:
    // Reads the settings and the library; a library that cannot be read is left in place and named in error. The
    // desktop outlives the store.
    explicit AppStore(Desktop &desktop, StoreParts parts = {});
    ~AppStore();
    AppStore(const AppStore &) = delete;
    AppStore &operator=(const AppStore &) = delete;

    // Projects. While the library has none, the sample project is the one in filteredProjects(), selectedProject(),
    // checkpointsFor() and selected(), and nowhere else: no operation changes or writes it.
    // The id is that of the new project, or of the one that has this name already. A blank name does nothing.
    Outcome createProject(const QString &name, Audience audience = Audience::Window);
    void selectProject(QUuid id);
    void selectCheckpoint(const std::optional<QUuid> &id);
    // Back to the overview of all projects that are not archived.
    void showProjects();
    Outcome setProjectBlocker(QUuid id, const std::optional<QString> &reason);
    // A project that is shown goes from the page with its archiving, and with its return the list shows where it is.
    // lastArchiving says what an undo takes back.
    Outcome setProjectArchived(QUuid id, bool archived);
    Outcome undoArchiving();
    void dismissArchiving();
    // A blank name does nothing; one that another project has is refused.
    Outcome renameProject(QUuid id, const QString &name);
    // In front of the target; absent: behind the last that is visible.
    Outcome reorderProjects(QUuid dragged, std::optional<QUuid> target, const QList<QUuid> &visibleIDs);
    Outcome deleteProject(QUuid id);
    QList<Project> availableProjects() const;
    QList<Project> filteredProjects() const;
    const Project *selectedProject() const;
    const Project *project(const QUuid &id) const;

    // False when the library exists and could not be read; the lists are then empty.
    bool isLibraryRead() const { return m_isLibraryRead; }

    // Checkpoints.
    QList<Checkpoint> checkpointsFor(const QUuid &projectID) const;
    const Checkpoint *selected() const; // The checkpoint shown.
    const Checkpoint *checkpoint(const QUuid &id) const;
    Outcome save(Checkpoint checkpoint);
    Outcome deleteCheckpoint(QUuid id);
    // The files of a checkpoint as its records name them, only from the folder of its own media. A picture's may be
    // missing; a recording that cannot be opened throws Failure.
    std::optional<QString> screenshotFile(const Checkpoint &checkpoint) const;
    QString recordingFile(const Checkpoint &checkpoint) const;
    // Removes media that are on their way into the library, for a process that ends before they got there.
    void discardUnsaved();
    // Whether all of its applications run; false for one without any. Follows runningApplicationIDs.
    bool isWorkspaceActive(const Checkpoint &checkpoint) const;
    // Small pictures of screenshots; made at the first call.
    Thumbnails &thumbnails();

    // Changing a saved checkpoint. A write that fails leaves it as it was; samples and checkpoints that are not in the
    // library stay untouched, without a message.
    // The field is title, objective, decision or nextStep; the text is kept as it is.
    // What cannot be written is kept in unsavedNotes, also across starts, and tried again.
    Outcome updateNote(QString Checkpoint::*field, const QString &text, QUuid checkpointID);
    // The text as it was typed last, whether it is written or not.
    QString noteText(QString Checkpoint::*field, const Checkpoint &checkpoint) const;
    // Tries now, without a word about another failure.
    void saveUnsavedNotes();
    // Makes a copy of the picture in this file the screenshot. As long as lastRemoval names it, the former one stays.
    QCoro::Task<Outcome> importScreenshot(QString file, QUuid checkpointID);
    // The picture stays as it was, unless the new one is there already.
    void stopAddingPicture(QUuid checkpointID);
    Outcome removeScreenshot(QUuid checkpointID);
    QCoro::Task<Outcome> addCurrentBrowserTabs(QUuid checkpointID);
    QCoro::Task<Outcome> addCurrentWindowLayout(QUuid checkpointID);
    // lastRemoval says what an undo brings back.
    Outcome removeApp(SavedApp app, QUuid checkpointID);
    Outcome removeTab(SavedTab tab, QUuid checkpointID);
    Outcome undoWorkspaceRemoval();

    // Capturing.
    void requestCapture(CaptureKind kind, CaptureForm form);
    QCoro::Task<Outcome> captureMoment(QString title, QString next, CaptureKind kind);
    void cancelCapture();
    // Saves without the form: its drafts stay as they are. The id is that of the checkpoint.
    QCoro::Task<Outcome> saveMoment(CaptureRequest request, Audience audience = Audience::Window);
    // Starts a recorded session without the form; captureMoment() does so with it. The id is that of its checkpoint,
    // which is saved by stop().
    QCoro::Task<Outcome> startSession(CaptureRequest request, Audience audience = Audience::Window);
    // Ends the session and saves its checkpoint, whose id it gives; waits for what is under way. Without a session
    // nothing happens.
    QCoro::Task<Outcome> stop(Audience audience = Audience::Window);
    // Tries again to save the checkpoints of sessions that could not be written. Every other change tries it, too.
    Outcome saveUnsavedSessions();
    // Ends when nothing is busy.
    QCoro::Task<void> whenIdle();
    // The open tabs that a capture keeps: without excluded browsers and websites.
    QCoro::Task<WorkspaceCapture::OpenTabs> capturedTabs();
    void refreshRunningApplications();
    // Keeps runningApplicationIDs current from now on, without asking again and again.
    void watchRunningApplications();

    // Screen access, as known from the last look; what is wrong with it is told by captureIssue.
    void refreshScreenAccess();
    // Asks the user, once in a run of the program.
    void requestScreenAccess();
    // Looks again without asking, also whether a picture can really be taken.
    QCoro::Task<void> verifyAccessNow();
    // Shows where the user gives the consent.
    void openScreenSettings();
    // Replaces this process by a new one, which opens the form with its drafts.
    QCoro::Task<void> restartForPermission();

    // Resuming.
    // Whether windows of other applications can be moved; asking may show the desktop's question.
    Capability windowPositioning() const;
    void askWindowPositioning();
    // The icon's name in the desktop's theme or its path; empty when the application is not known.
    QString iconName(const QString &appID);
    // What resuming would do now. Never throws; what could not be checked is the plan's warning.
    QCoro::Task<RestorePlan> restorePlan(Checkpoint checkpoint);
    // One resume of a library at a time, whichever process begins it: waits for the others, then makes the plan and
    // opens what is chosen of it and, with the layout, the folders and documents of the chosen and the active
    // applications and their windows' places.
    QCoro::Task<ResumeOutcome> restore(Checkpoint checkpoint, ChooseItems choose, bool restoreLayout,
                                       Audience audience = Audience::Window);
    // Tries those of unplacedWindows again that are among these, which are all of one checkpoint.
    QCoro::Task<Outcome> placeRemainingWindows(const QList<SavedWindow> &windows);
    // The resume that `resuming` names begins nothing more. What it has done stays; what it left is named as such.
    void stopResume();
    // Takes back what the last resume did not do.
    void dismissShortfall();

    // Exclusions.
    Outcome excludeApp(const SavedApp &app, Audience audience = Audience::Window);
    Outcome allowApp(const QString &id, Audience audience = Audience::Window);
    // Without an error where the text is no valid domain or address.
    Outcome excludeDomain(const QString &text, Audience audience = Audience::Window);
    Outcome allowDomain(const QString &domain, Audience audience = Audience::Window);
    // Reads what stands on disk now, as before each capture: why none must take place.
    std::optional<QString> exclusionsObstacle();
    // For exclusions that cannot be read (exclusionsIssue): keeps what there is aside and starts without any.
    Outcome startExclusionsOver(Audience audience = Audience::Window);
    // The applications that run now and could be excluded, by name.
    QList<SavedApp> runningApps() const;
    // Those that could be opened, by name, one entry each.
    QList<InstalledApplication> installedApps() const;

    // Where everything is saved.
    const QString &storageFolder() const { return m_repository.root(); }

    // Shows a file in its folder.
    QCoro::Task<Outcome> showFile(QString path);

    // Opens a "mailto:" address as a draft; false without a mail program.
    bool openMail(const QUrl &address);

    // Updates.
    static QString currentAppVersion();

    bool canCheckForUpdates() const { return static_cast<bool>(m_fetchUpdate); }

    // Asks for a newer version, at most once a day unless forced. Failures leave the offer as it was; only a check
    // that was forced is answered, in updateAnswer.
    QCoro::Task<void> checkForUpdates(Force force);
    // Takes back the offer of a newer version.
    void dismissUpdate();
    // Never asks about the newsletter again.
    void dismissNewsletterPrompt();

private:
    // Start-up.
    void readPreferences();
    void takeOverExclusions();
    void remindOfCopies();
    void keepCopiesInMind();
    enum class Successor { Empty, FromMemory }; // Of an unreadable library.
    static Remark keptCopy(const QString &path, Successor successor);
    void readLibrary(const std::function<WorkspaceLibrary()> &load);
    void prepareSamples();
    void chooseFirstProject();
    template <typename T>
    void mirror(Editable<T> &property, PreferenceKey<T> key);
    void mirrorDraftProject();
    void setSelectedProjectID(const std::optional<QUuid> &id);
    void setSelection(const std::optional<QUuid> &id);
    bool isShown(const Outcome &outcome) const;

    // Ends an operation: its audience is told.
    template <typename Result>
    Result concluded(Result outcome, Audience audience = Audience::Window);
    // The same for one that takes time, whatever ends it.
    template <typename Result>
    QCoro::Task<Result> carryOut(QCoro::Task<Result> work, Audience audience = Audience::Window);

    // A change of the library; false when there is nothing to change. It is made once more where another program has
    // changed the library meanwhile.
    using Change = std::function<bool(WorkspaceLibrary &library)>;
    // The only way to change the library: on disk first, on screen second.
    // In between, media settle where the library now says that they are; that may throw Failure.
    using SettleMedia = std::function<void()>;
    bool commit(const Change &change, const QString &failurePrefix, Outcome *outcome, const SettleMedia &settle = {});

    struct DeletionTexts {
        QString failed;
        QString remains; // What is said before the folder whose media could not be removed.
    };

    // Takes checkpoints out of the library and gives their identifiers; absent when there is nothing to take.
    using TakeCheckpoints = std::function<std::optional<QSet<QUuid>>(WorkspaceLibrary &library)>;
    bool commitDeletion(const TakeCheckpoints &take, const DeletionTexts &texts, Outcome *outcome);
    void addUnsavedSessions(WorkspaceLibrary *library) const;
    bool writeChanged(const Change &change, Outcome *outcome, const SettleMedia &settle);
    void publish(WorkspaceLibrary library);
    void readAgain(Outcome *outcome);
    WorkspaceLibrary library() const;
    Outcome updateProject(QUuid id, const std::function<void(Project &)> &change);
    Outcome archive(QUuid id, const std::optional<Date> &since);

    // A checkpoint together with the project that it belongs to: another program's library may not have it.
    struct OwnedCheckpoint {
        Checkpoint checkpoint;
        std::optional<Project> project = {};
    };

    OwnedCheckpoint owned(const Checkpoint &checkpoint) const;
    bool write(OwnedCheckpoint saved, Outcome *outcome, const SettleMedia &settle = {});
    void show(const Checkpoint &saved);
    Outcome makeProject(const QString &name);
    void beginWith(const QUuid &projectID);
    bool isShowingSamples() const;
    void forgetProject(QUuid id);
    QString mediaFolder(const QUuid &checkpointID) const;

    // Changing a saved checkpoint.
    std::optional<Checkpoint> editable(const QUuid &id) const;
    // Not concluded yet; "what" is the matter. The change says whether there is anything to write.
    Outcome edit(QUuid checkpointID, const char *what, const std::function<bool(Checkpoint &)> &change,
                 const QString &failurePrefix = {}, const SettleMedia &settle = {});
    template <typename Item>
    Outcome removeItem(QUuid checkpointID, QList<Item> Checkpoint::*list, Item item);
    // What can be undone from now on; what could be until now leaves for good.
    void remember(const std::optional<WorkspaceRemoval> &removal);
    void settleRemoved(const WorkspaceRemoval &removal);
    bool isUndoable(const WorkspaceRemoval &removal) const;
    Outcome putPictureBack(const Checkpoint &before, const RemovedPicture &picture);
    bool isNamed(const QUuid &checkpointID, const QString &file) const;
    void keepNote(const UnsavedNote &note);
    void forgetNote(const QUuid &checkpointID, const QString &field);
    void readUnsavedNotes();
    void mirrorUnsavedNotes();
    QCoro::Task<Outcome> addTabs(QUuid checkpointID);
    QCoro::Task<Outcome> addLayout(QUuid checkpointID);

    // An import, which goes on as long as it is wanted.
    struct PictureImport {
        QUuid checkpointID;
        std::shared_ptr<std::atomic<bool>> isWanted = std::make_shared<std::atomic<bool>>(true);
    };

    QCoro::Task<Outcome> addPicture(QString file, PictureImport import);
    void showImports();
    void importFailed(QUuid checkpointID, const Failure &failure, Outcome *outcome) const;
    void adoptScreenshot(QUuid checkpointID, const QString &path, Outcome *outcome);
    void pictureAdopted(const Checkpoint &before, MediaRemoval &removal, Outcome *outcome);
    Outcome clearScreenshot(const Checkpoint &before, MediaRemoval &removal);
    static void putBack(MediaRemoval &removal, Outcome *outcome);
    void forgetPictures(const QList<Checkpoint> &gone);
    QSet<QString> screenshotFiles(const QList<Checkpoint> &of) const;

    // Capturing.
    std::optional<QUuid> draftProject(Outcome *outcome);
    QCoro::Task<Outcome> captureForm(QString title, QString next, CaptureKind kind);
    QCoro::Task<Outcome> capture(CaptureRequest request, CaptureKind kind, Audience audience);
    void finishCapture(const OwnedCheckpoint &captured, CaptureKind kind, Audience audience, UnsavedMedia *media,
                       Outcome *outcome);
    // The limits are what the note says beside how the capture went.
    QCoro::Task<void> fill(Checkpoint *checkpoint, QString mediaFolder, bool withTabs, QString *limits = nullptr);
    QCoro::Task<void> collect(Checkpoint *checkpoint, QString mediaFolder, bool withTabs, QString *limits);
    QCoro::Task<void> takePicture(Checkpoint *checkpoint, QString mediaFolder);

    // What of the form is being saved.
    struct FormInUse {
        QString title;
        QString next;
        bool hasSheet;
        bool hasPanel;
    };

    void finishForm(const FormInUse &saved);
    void considerNewsletter();

    // Exclusions.
    // Throws Failure.
    StoredExclusions storedExclusions();
    // Publishes what stands on disk now; absent, and why in exclusionsIssue, when that cannot be known.
    std::optional<StoredExclusions> readExclusions();
    // On disk first, in force second.
    Outcome changeExclusions(const std::function<void(CaptureExclusions &)> &change, Audience audience);
    // With what is known of the applications now. Throws Failure.
    void writeExclusions(const CaptureExclusions &rules, const QList<ApplicationMarks> &earlier);
    QList<ApplicationMarks> marksOf(const QList<SavedApp> &apps, const QList<ApplicationMarks> &earlier) const;
    // What is in force from now on, also for the desktop.
    void enforce(const StoredExclusions &stored);
    bool runsUnseen(const QString &appID) const;
    void keepMarks(const QList<ApplicationMarks> &marks);

    QCoro::Task<Outcome> reveal(QString path);

    // Screen access.
    void endSheets();
    QCoro::Task<void> startSuccessor();

    // Resuming.
    ResumeControl controlFor(Audience audience);
    QCoro::Task<LibraryLock> turnToResume(ResumeControl control);
    QCoro::Task<ResumeOutcome> resume(Checkpoint checkpoint, ChooseItems choose, bool restoreLayout, Audience audience);
    QCoro::Task<void> reopen(Checkpoint checkpoint, ChooseItems choose, bool restoreLayout, RestoreReport *report,
                             ResumeControl control);
    QCoro::Task<Outcome> placeWindows(WindowLayout::RestoreRequest request);
    // Gives the windows whose folders and documents were opened.
    QCoro::Task<QList<SavedWindow>> restorePlaces(WindowLayout::LocationRequest places, RestoreReport *report);
    void keepUnplaced(const QList<SavedWindow> &windows, const RestoreResult &result);

    // Work sessions.
    // Why none can be started.
    std::optional<QString> sessionObstacle() const;
    QCoro::Task<void> beginRecording(OwnedCheckpoint session, UnsavedMedia *media);
    void recordingFailed(const Failure &failure);
    QCoro::Task<Outcome> stopSession(Audience audience);
    void endSession();
    QCoro::Task<std::optional<QString>> finishVideo(Checkpoint *checkpoint);
    QCoro::Task<void> captureEnd(Checkpoint *checkpoint);
    QCoro::Task<void> captureWorkspaceAtEnd(Checkpoint *checkpoint);
    void saveSession(const OwnedCheckpoint &session, Audience audience, Outcome *outcome);
    QSet<QUuid> resolveMedia();
    QList<Checkpoint> interruptedSessions(const QSet<QUuid> &journals, Outcome *outcome) const;
    // Saves the checkpoints of sessions that were cut short, whose journals are in these folders.
    void recoverSessions(const QSet<QUuid> &journals);
    // Sessions whose checkpoints could not be written are kept beside their media and go with the next change.
    Remark keepUnsaved(const OwnedCheckpoint &session);
    static Remark sessionSaved(const Checkpoint &session);
    void sessionsSaved(const WorkspaceLibrary &written, Outcome *outcome);

    Desktop &m_desktop;
    Preferences m_preferences;
    ExclusionsFile m_exclusionsFile;
    QList<ApplicationMarks> m_formerMarks = {}; // Of applications that may be excluded again.
    CheckpointRepository m_repository;
    std::function<void()> m_beforeWrite;
    std::function<bool()> m_checkScreenAccess;
    std::function<bool()> m_askScreenAccess;
    std::function<QCoro::Task<void>()> m_verifyScreenAccess;
    std::function<QCoro::Task<qint64>()> m_startInstance;
    std::function<void()> m_endApplication;
    std::function<QSet<QString>()> m_runningApplicationIDs;
    CaptureService m_capture;
    OpenedPages m_openedPages;
    QString m_thumbnailFolder;
    std::function<QCoro::Task<std::optional<AppUpdateManifest>>()> m_fetchUpdate;
    std::optional<QDateTime> m_lastUpdateCheck = {};
    std::shared_ptr<bool> m_life = std::make_shared<bool>(true); // Gone with the store.
    bool m_seedStarterExample;
    bool m_isWatchingApplications = false;
    std::optional<QHash<QString, QString>> m_iconNames = {}; // By application; read when first asked for.
    mutable ProjectSearch m_projectSearch = {};              // It remembers what it was asked last.
    mutable ProjectHistories m_histories = {};               // So do these.
    std::unique_ptr<Thumbnails> m_thumbnails = {};
    Project m_sampleProject = {};
    bool m_isLibraryRead = false;
    // What is being recorded, from before the recorder is started: its project and the exclusions stay as they are.
    std::optional<OwnedCheckpoint> m_active;
    QList<OwnedCheckpoint> m_unsavedSessions;
    QStringList m_shownCopies;
    QTimer m_noteRetry;
    QList<PictureImport> m_imports;
    int m_running = 0; // Operations that take time.
    std::vector<QPropertyNotifier> m_mirrors;
};

} // namespace ardeno
