// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/LocationRestore.h"
#include "capture/OpenedPages.h"
#include "capture/WindowRestore.h"
#include "model/LibraryLock.h"
#include "store/ExclusionRules.h"
#include "store/ResumeOutcome.h"

namespace ardeno {

// A saved window that a resume left alone, and why.
struct UnplacedWindow {
    SavedWindow window = {};
    QString reason = {}; // A few words that can be shown.

    bool operator==(const UnplacedWindow &) const = default;
};

// What a resume wanted to open and could not.
struct ResumeShortfall {
    QUuid checkpointID = {};
    QStringList unavailable = {}; // Names of applications that are not installed and of pages without an address.
    QStringList failures = {};    // Each names the application, page or document.

    bool operator==(const ResumeShortfall &) const = default;
};

// A resume that the window began and that goes on.
struct ResumeProgress {
    QUuid checkpointID = {};
    QString awaited = {}; // The application, page or window that it waits for; empty: for no single one.
    bool isStopping = false;

    bool operator==(const ResumeProgress &) const = default;
};

// The items of a plan that are wanted.
struct ResumeSelection {
    QSet<QString> appIDs = {};
    QSet<QUuid> tabIDs = {};

    // What is missing, each page once.
    static ResumeSelection missing(const RestorePlan &plan);
};

using ChooseItems = std::function<ResumeSelection(const RestorePlan &plan)>;

// Resumes checkpoints, and says what of the last one is still missing.
class ResumeFlow final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::ResumeFlow)

public:
    template <typename T>
    using Published = PublishedBy<T, ResumeFlow>;

    Published<std::optional<ResumeProgress>> resuming;
    Published<QList<UnplacedWindow>> unplacedWindows;          // By the last resume.
    Published<std::optional<ResumeShortfall>> resumeShortfall; // Of the last resume.

    ResumeFlow(Operations &operations, Desktop &desktop, const Library &library, const ExclusionRules &rules,
               OpenedPages openedPages);

    // Whether windows of other applications can be moved; asking may show the desktop's question.
    Capability windowPositioning() const;
    void askWindowPositioning();
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

private:
    ResumeControl controlFor(Audience audience);
    QCoro::Task<LibraryLock> turnToResume(ResumeControl control);
    QCoro::Task<ResumeOutcome> resume(Checkpoint checkpoint, ChooseItems choose, bool restoreLayout, Audience audience);
    QCoro::Task<void> reopen(Checkpoint checkpoint, ChooseItems choose, bool restoreLayout, RestoreReport *report,
                             ResumeControl control);
    QCoro::Task<Outcome> placeWindows(WindowLayout::RestoreRequest request);
    // Gives the windows whose folders and documents were opened.
    QCoro::Task<QList<SavedWindow>> restorePlaces(WindowLayout::LocationRequest places, RestoreReport *report);
    void keepUnplaced(const QList<SavedWindow> &windows, const RestoreResult &result);

    Operations &m_operations;
    Desktop &m_desktop;
    const Library &m_library;
    const ExclusionRules &m_rules;
    OpenedPages m_openedPages;
};

} // namespace ardeno
