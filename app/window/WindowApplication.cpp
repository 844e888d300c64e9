// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/WindowApplication.h"

#include "app/Output.h"
#include "app/window/Relaunch.h"
#include "platform/MakeDesktop.h"
#include "services/UpdateProgram.h"
#include "store/PreferenceKeys.h"
#include "store/macos/ApplicationsFolder.h"
#include "support/InWorker.h"
#include "ui/ViewParts.h"
#include "ui/controls/Alert.h"
#include "ui/settings/SettingsScreens.h"
#include "ui/sheets/SheetScreens.h"

#include <QApplication>
#include <QEvent>
#include <QSessionManager>
#include <QShortcut>

namespace ardeno {

namespace {

Screens makeScreens(AppStore &store)
{
    Screens screens;
    addSettingsScreens(&screens, store);
    addSheetScreens(screens, store);
    return screens;
}

StoreParts windowParts()
{
    StoreParts parts;
    parts.fetchUpdate = UpdateProgram::fetch(QCoreApplication::applicationDirPath() + "/ardeno-updates");
    parts.startInstance = Relaunch::start;
    return parts;
}

} // namespace

WindowApplication::WindowApplication(BusService &bus, Reach reach) : m_bus(bus), m_reach(reach)
{
    qApp->installEventFilter(this);
    connect(qApp, &QGuiApplication::commitDataRequest, this, &WindowApplication::refuseLogout, Qt::DirectConnection);
    connect(qApp, &QGuiApplication::saveStateRequest, this, &WindowApplication::describeRestart, Qt::DirectConnection);
}

WindowApplication::~WindowApplication()
{
    if (m_keepsInput && m_window) // More was typed while what was being done came to its end.
        m_window->sheets().keepInput();
}

BusService::Actions WindowApplication::actions()
{
    return {.activate = [this] { comeToFront(); },
            .quickSave =
                [this] {
                    if (m_quickSave)
                        m_quickSave->trigger();
                },
            .stopRecording =
                [this] {
                    if (m_application)
                        m_application->store().sessions.stop();
                }};
}

void WindowApplication::startWithWindow()
{
    // The first picture of the window comes before everything else, and nothing else takes time from it.
    window().setOnFirstPaint([this] { openStore(); });
    window().show();
}

void WindowApplication::startInBackground()
{
    openStore();
}

QCoro::Task<void> WindowApplication::openStore()
{
    QString problem;
    try {
        OpenedLibrary library = co_await inWorker(&openLibrary);
        adopt(std::move(library));
    } catch (const Failure &failure) {
        problem = failure.description();
    }
    if (!problem.isEmpty())
        fail(problem);
}

void WindowApplication::adopt(OpenedLibrary library)
{
    const auto quickSave = [this] { m_quickSave->trigger(); };
    m_application = std::make_unique<Application>(std::move(library), m_bus, quickSave, windowParts());
    AppStore &store = m_application->store();
    m_screens = makeScreens(store);
    const ApplicationMenu::Actions menuActions{
        .quickSave = quickSave,
        .openWindow = [this] { comeToFront(); },
        .openNewsletter = m_screens.openNewsletter,
        .quit = [this] { quit(); },
    };
    m_menu = std::make_unique<ApplicationMenu>(store.sessions, store.operations, store.recorder, menuActions);
    if (m_window)
        openWindow();
    else
        reportAtStart(m_errors, store);
    prepareWindows();
    m_quickSave = std::make_unique<QuickSaveController>(ViewParts::ofCapture(store), store.shortcut,
                                                        m_application->desktop(), [this] { comeToFront(); });
    if (m_reach == Reach::Bus)
        m_tray = std::make_unique<TrayItem>(store.recorder, *m_menu, QDBusConnection::sessionBus());
    else
        store.messages.remark(
            {.sentence = tr("There is no session bus: folders and documents of windows are not found, the desktop’s "
                            "appearance is not followed, commands do not reach this window, and closing it quits "
                            "Ardeno."),
             .subject = "session bus"});
    tellHiddenFailures();
    adviseMove();
    m_application->serveCommands();
    store.updates.checkForUpdates(Force::No);
}

void WindowApplication::openWindow()
{
    delete std::exchange(m_quitShortcut, nullptr);
    m_window->open(m_application->store(), m_screens);
    m_window->addMenuActions(m_menu->windowActions());
}

void WindowApplication::fail(const QString &problem)
{
    if (!m_window) {
        m_errors.printError(problem);
        QCoreApplication::exit(1);
        return;
    }
    const AlertText text{.title = QCoreApplication::translate("ardeno::MainWindow", "Something needs attention"),
                         .message = problem,
                         .confirm = tr("Quit")};
    presentAlert(m_window->sheets(), text, [](bool) { QCoreApplication::exit(1); });
}

void WindowApplication::prepareWindows()
{
    if (m_appearance)
        return;
    installSheetAccessibility();
    m_appearance.emplace(makeDesktopAppearance());
}

MainWindow &WindowApplication::window()
{
    if (m_window)
        return *m_window;
    prepareWindows();
    m_window = std::make_unique<MainWindow>();
    m_window->setOnClose([this] { return mayClose(); });
    m_window->installEventFilter(this);
    m_place = std::make_unique<WindowPlace>(*m_window);
    if (m_application)
        openWindow();
    else // The menu comes with the store, which may take its time.
        m_quitShortcut = new QShortcut(Qt::CTRL | Qt::Key_Q, m_window.get(), [this] { quit(); });
    return *m_window;
}

void WindowApplication::comeToFront()
{
    MainWindow &front = window();
    front.setWindowState(front.windowState() & ~Qt::WindowMinimized);
    front.show();
    front.raise();
    front.activateWindow();
    if (m_application)
        m_application->desktop().ownWindows->bringToFront(front.winId());
}

// What would be lost or put off by the end of the program, now.
bool WindowApplication::holdsInput()
{
    return m_window && (m_window->sheets().holdsInput() || m_window->hasUnsavedNotes());
}

void WindowApplication::quit()
{
    if (m_application && m_application->store().recorder.recording())
        refuseWhileRecording();
    else if (holdsInput())
        askBeforeQuitting();
    else
        finish();
}

void WindowApplication::askBeforeQuitting()
{
    comeToFront();
    const bool isNote = m_window->hasUnsavedNotes();
    const AlertText text{.title = tr("Quit without saving?"),
                         .message = isNote ? tr("A note could not be written yet. Ardeno keeps it in its settings and "
                                                "tries again at its next start.")
                                           : tr("What you typed has not been saved."),
                         .confirm = tr("Quit without saving"),
                         .cancel = tr("Keep open"),
                         .kind = Button::Kind::Destructive};
    if (m_alert)
        return;
    m_alert = presentAlert(m_window->sheets(), text, [this](bool isConfirmed) {
        if (isConfirmed)
            finish();
    });
}

void WindowApplication::refuseWhileRecording()
{
    comeToFront();
    const AlertText text{.title = tr("Finish saving before quitting"),
                         .message = tr("Use Stop & save checkpoint to finish your recording, then quit."),
                         .confirm = tr("Keep open")};
    if (!m_alert)
        m_alert = presentAlert(m_window->sheets(), text, [](bool) {});
}

void WindowApplication::end()
{
    m_keepsInput = true;
    if (m_window)
        m_window->sheets().keepInput();
    finish();
}

void WindowApplication::finish()
{
    if (m_application)
        m_application->end();
    else
        QCoreApplication::exit(0);
}

void WindowApplication::refuseLogout(QSessionManager &manager)
{
    const bool isRecording = m_application && m_application->store().recorder.recording();
    if (!manager.allowsInteraction() || (!isRecording && !holdsInput()))
        return; // What is recorded is saved when the end comes.
    quit();
    manager.cancel();
}

void WindowApplication::describeRestart(QSessionManager &manager)
{
    if (!m_window || !m_window->isVisible())
        manager.setRestartCommand({QCoreApplication::arguments().first(), "--background"});
}

bool WindowApplication::isWindowSeen() const
{
    return m_window && m_window->isVisible() && !m_window->isMinimized();
}

void WindowApplication::tellHiddenFailures()
{
    if (m_reach != Reach::Bus)
        return;
    const HiddenFailures::Window shown{.isSeen = [this] { return isWindowSeen(); },
                                       .show = [this] { comeToFront(); },
                                       .mark = [this](bool hasUnseen) { m_tray->setMarked(hasUnseen); }};
    m_hiddenFailures =
        std::make_unique<HiddenFailures>(m_application->store().messages, QDBusConnection::sessionBus(), shown);
}

bool WindowApplication::eventFilter(QObject *watched, QEvent *event)
{
    const bool isShown = event->type() == QEvent::Show || event->type() == QEvent::WindowStateChange;
    if (watched == m_window.get() && isShown && m_hiddenFailures && isWindowSeen())
        m_hiddenFailures->seen();
    if (watched != qApp || event->type() != QEvent::Quit)
        return false;
    event->ignore();
    end();
    return true;
}

// The application goes on without its window, where there is a way to get it back.
bool WindowApplication::mayClose()
{
    if (!m_application || m_reach == Reach::WindowAlone) {
        quit();
        return false;
    }
    if (m_window->hasUnsavedNotes()) {
        askBeforeClosing();
        return false;
    }
    if (m_application->store().recorder.recording() && !m_tray->isShown()) {
        m_window->showMinimized(); // Else nothing would tell that the recording goes on.
        return false;
    }
    if (m_tray->isShown())
        return true;
    const Preferences preferences(Preferences::defaultFolder());
    if (preferences.value(keys::closeNoticeShown).value_or(false))
        return true;
    if (!m_alert)
        explainClosing();
    return false;
}

void WindowApplication::askBeforeClosing()
{
    const AlertText text{.title = tr("A note is not saved yet"),
                         .message = tr("It could not be written. Ardeno keeps it and tries again while it runs."),
                         .confirm = tr("Close window"),
                         .cancel = tr("Keep open")};
    if (m_alert)
        return;
    m_alert = presentAlert(m_window->sheets(), text, [this](bool isConfirmed) {
        if (isConfirmed)
            m_window->hide();
    });
}

void WindowApplication::explainClosing()
{
    const AlertText text{
        .title = tr("Ardeno keeps running"),
        .message = tr("Start Ardeno again to get this window back. To quit, choose Quit in the window’s menu."),
        .confirm = tr("Close window"),
        .cancel = tr("Keep open")};
    m_alert = presentAlert(m_window->sheets(), text, [this](bool isConfirmed) {
        Preferences(Preferences::defaultFolder()).setValue(keys::closeNoticeShown, true);
        if (isConfirmed)
            m_window->hide();
    });
}

void WindowApplication::adviseMove()
{
    Preferences preferences(Preferences::defaultFolder());
    const bool wasAdvised = preferences.value(keys::applicationsFolderNoticeShown).value_or(false);
    if (!advisesMove(QCoreApplication::applicationFilePath(), applicationsFolder(), wasAdvised))
        return;
    preferences.setValue(keys::applicationsFolderNoticeShown, true); // Whatever the answer is.
    comeToFront();
    const AlertText text{.title = tr("Move Ardeno to Applications"),
                         .message = tr("For the best experience, move this app to your Applications folder before "
                                       "using it. You can continue here for now."),
                         .confirm = tr("Show Applications Folder"),
                         .cancel = tr("Continue Here")};
    presentAlert(m_window->sheets(), text, [this](bool isConfirmed) {
        if (isConfirmed)
            m_application->desktop().launcher->openPath(applicationsFolder());
    });
}

} // namespace ardeno
