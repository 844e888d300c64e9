// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/WindowApplication.h"

#include "app/window/Successor.h"
#include "network/UpdateFetch.h"
#include "platform/MakeDesktop.h"
#include "services/Endpoints.h"
#include "support/InWorker.h"
#include "ui/controls/Alert.h"
#include "ui/settings/SettingsScreens.h"
#include "ui/sheets/SheetScreens.h"

#include <QApplication>

#include <chrono>
#include <exception>

namespace ardeno {

namespace {

Screens makeScreens()
{
    Screens screens;
    addSettingsScreens(&screens);
    addSheetScreens(screens);
    return screens;
}

UpdateFetchOptions updateFetchOptions()
{
    UpdateFetchOptions options;
    options.manifest = Endpoints::updateManifest();
    return options;
}

} // namespace

WindowApplication::WindowApplication(SingleInstance &instance) : m_window(makeScreens())
{
    instance.setOnActivate([this] { comeToFront(); });
}

void WindowApplication::start()
{
    // The first picture of the window comes before everything else, and nothing else takes time from it.
    m_window.setOnFirstPaint([this] { openStore(); });
    m_window.show();
}

WindowApplication::Opened WindowApplication::openLibrary()
{
    // A command may be at work; it is soon done.
    constexpr std::chrono::seconds patience(10);
    const QString root = CheckpointRepository::defaultRoot();
    const LibraryLock::Request request{root, LibraryLock::Kind::Application, LibraryLock::Access::Write};
    Opened opened{
        .lock = LibraryLock::waitFor(request, patience), .repository = CheckpointRepository(root), .load = {}};
    try {
        const auto library = std::make_shared<WorkspaceLibrary>(opened.repository.loadLibrary());
        opened.load = [library] { return std::move(*library); };
    } catch (const Failure &) {
        opened.load = [failure = std::current_exception()]() -> WorkspaceLibrary { std::rethrow_exception(failure); };
    }
    return opened;
}

QCoro::Task<void> WindowApplication::openStore()
{
    QString problem;
    try {
        Opened opened = co_await inWorker(&WindowApplication::openLibrary);
        m_lock.emplace(std::move(opened.lock));
        m_desktop = makeDesktop();
        StoreParts parts;
        parts.repository = opened.repository;
        parts.loadLibrary = opened.load;
        parts.seedStarterExample = true;
        parts.fetchUpdate = makeUpdateFetch(updateFetchOptions());
        parts.startInstance = Successor::start;
        m_store = std::make_unique<AppStore>(m_desktop, std::move(parts));
        m_window.open(*m_store);
        m_store->checkForUpdates(Force::No);
    } catch (const Failure &failure) {
        problem = failure.description();
    }
    if (problem.isEmpty())
        co_return;
    const AlertText text{.title = QCoreApplication::translate("ardeno::MainWindow", "Something needs attention"),
                         .message = problem,
                         .confirm = QCoreApplication::translate("ardeno::MainWindow", "Quit")};
    presentAlert(m_window.sheets(), text, [](bool) { QCoreApplication::exit(1); });
}

void WindowApplication::comeToFront()
{
    m_window.setWindowState(m_window.windowState() & ~Qt::WindowMinimized);
    m_window.show();
    m_window.raise();
    m_window.activateWindow();
}

} // namespace ardeno
