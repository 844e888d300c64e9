// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/window/SingleInstance.h"
#include "model/LibraryLock.h"
#include "store/AppStore.h"
#include "ui/main/MainWindow.h"

#include <QCoroTask>

#include <memory>
#include <optional>

namespace ardeno {

// The application with its window: the window is painted first, then the library is locked and read on a worker, then
// the views appear.
class WindowApplication final {
public:
    explicit WindowApplication(SingleInstance &instance);

    void start();

private:
    struct Opened {
        LibraryLock lock;
        CheckpointRepository repository;
        // What came of reading; the store reports a failure.
        std::function<WorkspaceLibrary()> load;
    };

    static Opened openLibrary();
    QCoro::Task<void> openStore();
    void comeToFront();

    // The window goes first, as it keeps what was typed last.
    std::optional<LibraryLock> m_lock;
    Desktop m_desktop;
    std::unique_ptr<AppStore> m_store;
    MainWindow m_window;
};

} // namespace ardeno
