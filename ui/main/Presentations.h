// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Deletion.h"
#include "ui/Screens.h"
#include "ui/controls/Sheet.h"
#include "ui/projects/ProjectParts.h"

#include <QPointer>

namespace ardeno {

// Shows the sheets and questions that the store's flags ask for, each as long as its flag is set.
class Presentations final {
public:
    Presentations(const ProjectParts &parts, Messages &messages, Deletion &deletion, const Screens &screens,
                  SheetHost &host);

    // Asks whether the selected checkpoint is to be deleted.
    void confirmDelete();

private:
    using Make = std::function<Sheet *()>;

    // The slot holds the sheet while the flag is set.
    void follow(QPointer<Sheet> &slot, bool isWanted, const Make &make);
    void showSheets();
    void showDeletingProject();
    void showError();

    ProjectParts m_parts;
    Messages &m_messages;
    Deletion &m_deletion;
    const Screens &m_screens;
    SheetHost &m_host;
    QPointer<Sheet> m_capture;
    QPointer<Sheet> m_restore;
    QPointer<Sheet> m_preferences;
    QPointer<Sheet> m_exclusions;
    QPointer<Sheet> m_newProject;
    QPointer<Sheet> m_blocker;
    QPointer<Sheet> m_deleting;
    QPointer<Sheet> m_error;
    QObject m_waiting; // What waits for a pause in writing ends with it.
    Subscriptions m_subscriptions;
};

} // namespace ardeno
