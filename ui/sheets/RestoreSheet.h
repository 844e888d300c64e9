// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Applications.h"
#include "store/OpenSheets.h"
#include "store/Operations.h"
#include "store/ResumeFlow.h"
#include "ui/controls/Sheet.h"
#include "ui/sheets/RestoreListModel.h"

class QLabel;

namespace ardeno {

class Chip;
class RestoreList;
class Switch;

// Shows what resuming a checkpoint would do and lets the user choose. It follows applications that start and end.
class RestoreSheet final : public Sheet {
public:
    RestoreSheet(ResumeFlow &resumes, const Library &library, Applications &applications, OpenSheets &sheets,
                 const Operations &operations, const Checkpoint &checkpoint);

private:
    QWidget *makeHead();
    QWidget *makeChips();
    QWidget *makeRemaining();
    QWidget *makeLayoutBlock();
    QWidget *makeAccess();
    QCoro::Task<void> refreshPlan();
    void readAccess();
    void showPlan();
    void showChoice();
    void showUnplaced();
    QString primaryActionTitle() const;
    void resume();

    ResumeFlow &m_resumes;
    const Library &m_library;
    OpenSheets &m_sheets;
    const Operations &m_operations;
    Checkpoint m_checkpoint;
    RestoreListModel m_model;
    RestoreList *m_list;
    Chip *m_toOpen = nullptr;
    Chip *m_active = nullptr;
    Chip *m_unavailable = nullptr;
    Chip *m_toReview = nullptr;
    QWidget *m_remaining = nullptr;
    QLabel *m_remainingText = nullptr;
    Button *m_place = nullptr;
    Switch *m_restoreLayout;
    QWidget *m_access = nullptr;
    QLabel *m_accessText = nullptr;
    QWidget *m_accessButtons = nullptr;
    Button *m_primary = nullptr;
    int m_plansAsked = 0; // Only the answer to the last question counts.
    Subscriptions m_subscriptions;
};

} // namespace ardeno
