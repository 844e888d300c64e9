// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"
#include "support/Observable.h"

#include <optional>

namespace ardeno {

// Which sheets and questions are open.
class OpenSheets final {
public:
    template <typename T>
    using Published = PublishedBy<T, OpenSheets>;
    using Flag = Published<bool> OpenSheets::*;

    Published<bool> showCapture;
    Published<bool> showQuickCapture;
    Published<bool> showRestore;
    Published<bool> showSettings;
    Published<bool> showNewProject;
    Published<bool> showExclusions;
    Published<std::optional<Project>> editingBlocker;
    Published<std::optional<Project>> deletingProject;

    // A start may begin with the capture form.
    explicit OpenSheets(bool showsCapture) : showCapture(showsCapture) {}

    void open(Flag flag);
    void close(Flag flag);
    void editBlocker(const Project &project);
    void closeBlocker();
    void askToDelete(const Project &project);
    void closeDeletion();
    void closeAll();
    void forgetProject(const QUuid &id);
};

} // namespace ardeno
