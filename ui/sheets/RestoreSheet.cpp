// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/RestoreSheet.h"

#include "ui/controls/Fields.h"
#include "ui/controls/Label.h"
#include "ui/controls/Surfaces.h"
#include "ui/sheets/RestoreList.h"

#include <QGuiApplication>
#include <QPointer>

namespace ardeno {

namespace {

void showChip(Chip *chip, int count, const QString &text, const QString &symbol, Role role)
{
    chip->show(text, symbol, count > 0 ? role : Role::Dim, Role::Card);
}

} // namespace

RestoreSheet::RestoreSheet(ResumeFlow &resumes, const Library &library, Applications &applications, OpenSheets &sheets,
                           const Operations &operations, const Checkpoint &checkpoint)
    : Sheet(tr("Ready to resume."), RestoreList::contentWidth + 56),
      m_resumes(resumes),
      m_library(library),
      m_sheets(sheets),
      m_operations(operations),
      m_checkpoint(checkpoint),
      m_model(checkpoint),
      m_list(new RestoreList(applications, m_model)),
      m_restoreLayout(new Switch({}))
{
    column()->setSpacing(10);
    column()->addWidget(makeHead());
    column()->addWidget(makeChips());
    column()->addWidget(m_list, 1);
    column()->addWidget(makeRemaining());
    column()->addWidget(makeLayoutBlock());
    column()->addWidget(makeParagraph(tr("Browser pages reopen in their saved browser when available. Documents and "
                                         "projects reopen when macOS exposes a file path. Finder locations are "
                                         "restored when accessible. Unsaved edits and exact in-app positions aren’t "
                                         "restored."),
                                      TextStyle::Small, Role::Dim));
    column()->addSpacing(4);
    addButton(tr("Cancel"), Button::Kind::Bordered, [this] { close(); });
    m_primary = addButton({}, Button::Kind::Prominent, [this] { resume(); });
    m_list->setVisible(m_model.rowCount() > 0);
    m_model.setOnChoose([this] { showChoice(); });
    setFirstFocus(m_model.rowCount() > 0 ? static_cast<QWidget *>(m_list) : this);
    setOnCancel([this] { m_sheets.close(&OpenSheets::showRestore); });
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state != Qt::ApplicationActive)
            return;
        readAccess();
        refreshPlan(); // Pages may have been opened meanwhile.
    });
    readAccess();
    m_subscriptions.watch(
        [this] {
            if (!m_checkpoint.isSample && !m_library.checkpoint(m_checkpoint.id))
                m_sheets.close(&OpenSheets::showRestore); // It was deleted meanwhile.
        },
        library.checkpoints);
    m_subscriptions.watch([this] { showUnplaced(); }, resumes.unplacedWindows, operations.busy);
    // A resume that was begun elsewhere has opened pages, too.
    m_subscriptions.watch([this] { refreshPlan(); }, applications.runningApplicationIDs, operations.busy);
    m_subscriptions.watch([this] { showChoice(); }, operations.busy);
}

QWidget *RestoreSheet::makeHead()
{
    auto *head = new QWidget;
    auto *texts = makeColumn(4, head);
    texts->addWidget(makeParagraph(tr("Ready to resume."), TextStyle::SheetTitle));
    texts->addWidget(makeParagraph(m_checkpoint.isSample ? tr("Preview what this sample would open.")
                                                         : tr("Only missing items are selected. Already-open apps and "
                                                              "pages will not be duplicated."),
                                   TextStyle::Body, Role::Dim));
    return head;
}

QWidget *RestoreSheet::makeChips()
{
    auto *chips = new QWidget;
    auto *row = makeRow(8, chips);
    for (Chip **const chip : {&m_toOpen, &m_active, &m_unavailable, &m_toReview}) {
        *chip = new Chip;
        row->addWidget(*chip);
    }
    row->addStretch();
    m_toOpen->show(tr("Checking what is open…"), "ellipsis", Role::Dim, Role::Card);
    return chips;
}

QWidget *RestoreSheet::makeRemaining()
{
    m_remaining = new QWidget;
    auto *row = makeRow(12, m_remaining);
    m_remainingText = makeParagraph({}, TextStyle::Small, Role::Dim);
    m_place = new Button(tr("Place remaining windows"));
    connect(m_place, &QAbstractButton::clicked, this,
            [this] { m_resumes.placeRemainingWindows(m_checkpoint.windows.value_or(QList<SavedWindow>())); });
    row->addWidget(m_remainingText, 1);
    row->addWidget(m_place);
    return m_remaining;
}

QWidget *RestoreSheet::makeLayoutBlock()
{
    const QString title = tr("Restore saved windows and Finder locations");
    const QString text =
        tr("Documents and projects exposed by supported apps, Finder folders/files, Preview documents, "
           "plus positions and sizes for matching windows. Full-screen Spaces and ambiguous windows "
           "are skipped.");
    const bool hasWindows = m_checkpoint.windows && !m_checkpoint.windows->isEmpty();
    m_restoreLayout->setFixedWidth(38); // The track alone; its text stands beside it.
    m_restoreLayout->setAccessibleName(title);
    m_restoreLayout->setAccessibleDescription(text);
    m_restoreLayout->setChecked(hasWindows);
    m_restoreLayout->setEnabled(hasWindows);
    connect(m_restoreLayout, &QAbstractButton::toggled, this, [this] { showChoice(); });
    auto *block = new QWidget;
    auto *row = makeRow(8, block);
    row->addWidget(m_restoreLayout, 0, Qt::AlignTop);
    auto *texts = makeColumn(2);
    texts->addWidget(makeLabel(title, TextStyle::Strong));
    texts->addWidget(makeParagraph(text, TextStyle::Small, Role::Dim));
    texts->addWidget(makeAccess());
    row->addLayout(texts, 1);
    return block;
}

QWidget *RestoreSheet::makeAccess()
{
    m_access = new QWidget;
    auto *rows = makeColumn(7, m_access);
    rows->setContentsMargins(0, 6, 0, 4);
    m_accessText = makeParagraph({}, TextStyle::Small, Role::AmberText);
    rows->addWidget(m_accessText);
    m_accessButtons = new QWidget;
    auto *row = makeRow(8, m_accessButtons);
    auto *allow = new Button(tr("Allow window positioning…"));
    auto *check = new Button(tr("Check access"));
    connect(allow, &QAbstractButton::clicked, this, [this] {
        m_resumes.askWindowPositioning();
        readAccess();
    });
    connect(check, &QAbstractButton::clicked, this, [this] { readAccess(); });
    row->addWidget(allow);
    row->addWidget(check);
    row->addStretch();
    rows->addWidget(m_accessButtons);
    return m_access;
}

// Without asking the user.
void RestoreSheet::readAccess()
{
    const Capability access = m_resumes.windowPositioning();
    const bool canBeAllowed = access.state == Capability::State::NeedsConsent;
    m_access->setVisible(!access.isAvailable());
    m_accessButtons->setVisible(canBeAllowed);
    m_accessText->setText(canBeAllowed ? tr("Moving other apps’ windows needs Accessibility access. Opening apps and "
                                            "tabs works without it.")
                                       : access.reason);
}

QCoro::Task<void> RestoreSheet::refreshPlan()
{
    const int question = ++m_plansAsked;
    const QPointer<RestoreSheet> self(this);
    const RestorePlan plan = co_await m_resumes.restorePlan(m_checkpoint);
    if (!self || question != m_plansAsked)
        co_return;
    m_model.setPlan(plan);
    showPlan();
    showChoice();
}

void RestoreSheet::showPlan()
{
    const RestorePlan &plan = *m_model.plan();
    const auto both = [](const QList<SavedApp> &apps, const QList<SavedTab> &tabs) {
        return static_cast<int>(apps.size() + tabs.size());
    };
    const int toOpen = both(plan.appsToOpen, plan.tabsToOpen);
    const int active = both(plan.activeApps, plan.activeTabs);
    const int unavailable = both(plan.unavailableApps, plan.unavailableTabs);
    const int toReview = both({}, plan.unverifiedTabs);
    showChip(m_toOpen, toOpen, tr("%n to open", "", toOpen), "arrow.up.right", Role::AccentText);
    showChip(m_active, active, tr("%n active", "", active), "checkmark", Role::SageText);
    showChip(m_unavailable, unavailable, tr("%n unavailable", "", unavailable), "exclamationmark.triangle",
             Role::AmberText);
    showChip(m_toReview, toReview, tr("%n to review", "", toReview), "questionmark", Role::Text);
}

QString RestoreSheet::primaryActionTitle() const
{
    const int count = static_cast<int>(m_model.selectedCount());
    if (count > 0)
        return tr("Open %n missing items", "", count);
    return m_restoreLayout->isChecked() ? tr("Restore window positions") : tr("Nothing to open");
}

void RestoreSheet::showChoice()
{
    m_primary->setText(primaryActionTitle());
    m_primary->updateGeometry();
    const bool hasChoice = m_model.selectedCount() > 0 || m_restoreLayout->isChecked();
    m_primary->setEnabled(m_model.plan() && hasChoice && !m_operations.busy() && !m_checkpoint.isSample);
    m_primary->setToolTip(m_checkpoint.isSample ? tr("A sample opens nothing.") : QString());
}

void RestoreSheet::showUnplaced()
{
    m_model.setUnplaced(m_resumes.unplacedWindows());
    m_list->setVisible(m_model.rowCount() > 0);
    m_remaining->setVisible(m_model.unplacedCount() > 0);
    m_remainingText->setText(
        tr("%n windows were not placed by the last resume.", "", static_cast<int>(m_model.unplacedCount())));
    m_place->setEnabled(!m_operations.busy());
}

void RestoreSheet::resume()
{
    const ResumeSelection ticked{m_model.apps(), m_model.tabs()};
    const auto choose = [ticked](const RestorePlan &) { return ticked; };
    m_resumes.restore(m_checkpoint, choose, m_restoreLayout->isChecked());
    close();
}

} // namespace ardeno
