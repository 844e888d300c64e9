// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Application.h"
#include "app/window/ApplicationMenu.h"
#include "app/window/HiddenFailures.h"
#include "app/window/TrayItem.h"
#include "app/window/WindowPlace.h"
#include "ui/Screens.h"
#include "ui/controls/Sheet.h"
#include "ui/main/MainWindow.h"
#include "ui/quicksave/QuickSaveController.h"
#include "ui/theme/AppearanceSettings.h"

#include <QCoroTask>
#include <QPointer>

#include <memory>
#include <optional>

class QSessionManager;
class QShortcut;

namespace ardeno {

// The application on a display. Its window is made when it is wanted first: it is painted, then the library is locked
// and read on a worker, then the views appear.
class WindowApplication final : public QObject {
    Q_DECLARE_TR_FUNCTIONS(ardeno::AppDelegate)

public:
    enum class Reach { Bus, WindowAlone }; // Alone: there is no session bus.

    WindowApplication(BusService &bus, Reach reach);
    ~WindowApplication() override;

    // What the bus may ask for.
    BusService::Actions actions();

    void startWithWindow();
    void startInBackground();

    // As the system asks: at once, but what is being done or recorded is saved first, and what is typed is kept.
    void end();

protected:
    // The end of the desktop's session comes as an event.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QCoro::Task<void> openStore();
    void adopt(OpenedLibrary library);
    void openWindow();
    void fail(const QString &problem);
    // What every window needs, before the first one.
    void prepareWindows();
    MainWindow &window();
    void comeToFront();
    void finish();
    // As the user asks: refused while a session is recorded.
    void quit();
    // The user is asked to finish first, where the session manager allows it.
    void refuseLogout(QSessionManager &manager);
    // The next session begins as this one ended: with the window, or without.
    void describeRestart(QSessionManager &manager);
    void refuseWhileRecording();
    bool holdsInput();
    bool isWindowSeen() const;
    void tellHiddenFailures();
    void askBeforeQuitting();
    bool mayClose();
    void askBeforeClosing();
    void explainClosing();
    void adviseMove();

    BusService &m_bus;
    Reach m_reach;
    StandardOutput m_errors; // For those who start it without a window.
    std::optional<AppearanceSettings> m_appearance;
    Screens m_screens;
    // The window goes first, as it keeps what was typed last.
    std::unique_ptr<Application> m_application;
    std::unique_ptr<ApplicationMenu> m_menu;
    std::unique_ptr<QuickSaveController> m_quickSave;
    std::unique_ptr<TrayItem> m_tray;
    std::unique_ptr<HiddenFailures> m_hiddenFailures;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<WindowPlace> m_place;
    QShortcut *m_quitShortcut = nullptr; // Until the window is open.
    QPointer<Sheet> m_alert;
    bool m_keepsInput = false;
};

} // namespace ardeno
