// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/quicksave/QuickSaveContent.h"

#include "ui/controls/Button.h"
#include "ui/controls/DropDown.h"
#include "ui/controls/Fields.h"
#include "ui/controls/Label.h"
#include "ui/controls/Progress.h"
#include "ui/controls/Surfaces.h"
#include "ui/projects/DraftProject.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPointer>

namespace ardeno {

namespace {

constexpr int panelWidth = 470;
constexpr int labelWidth = 62;

QCoro::Task<void> saveDraft(CaptureParts parts, QPointer<QuickSaveContent> form)
{
    const Outcome outcome =
        co_await parts.form.captureMoment(parts.drafts.draftTitle(), parts.drafts.draftNext(), CaptureKind::Checkpoint);
    if (form)
        form->showError(outcome.error);
}

} // namespace

QuickSaveContent::QuickSaveContent(const CaptureParts &parts, QWidget *parent)
    : QWidget(parent),
      m_parts(parts),
      m_project(new DropDown(tr("Project"))),
      m_newProject(new TextField(tr("New project name"), tr("New project name"))),
      m_next(new TextField(tr("Next time, start by…"), tr("Optional — e.g. Test the navigation on mobile"))),
      m_disclosure(new Button(tr("More options"), Button::Kind::Disclosure)),
      m_problem(makeParagraph({}, TextStyle::Body, Role::RecordingText)),
      m_progress(new Progress(tr("Saving"))),
      m_cancel(new Button(tr("Cancel"))),
      m_save(new Button(tr("Save checkpoint"), Button::Kind::Prominent))
{
    setFixedWidth(panelWidth);
    m_details = makeDetails();
    auto *column = makeColumn(8, this);
    column->setContentsMargins(18, 16, 18, 16);
    column->addWidget(makeLabel(tr("Leave yourself a starting point."), TextStyle::BarTitle));
    column->addSpacing(2);
    column->addWidget(makeProjectRow());
    column->addWidget(m_newProject);
    column->addSpacing(2);
    column->addWidget(makeLabel(tr("Next time, start by…"), TextStyle::Medium, Role::Dim));
    column->addWidget(m_next);
    column->addWidget(m_disclosure, 0, Qt::AlignLeft);
    column->addWidget(m_details);
    column->addWidget(m_problem);
    column->addWidget(makeFooter());
    bind(
        m_newProject, m_parts.drafts.draftProjectName,
        [this](const QString &text) { m_parts.drafts.setDraftProjectName(text); }, m_subscriptions);
    bind(
        m_next, m_parts.drafts.draftNext, [this](const QString &text) { m_parts.drafts.setDraftNext(text); },
        m_subscriptions);
    DraftProject::offer(m_project, tr("New project…"), parts.library, parts.drafts, m_subscriptions);
    connect(m_disclosure, &QAbstractButton::clicked, this, [this] { showDetails(m_details->isHidden()); });
    showDetails(false);
    m_subscriptions.watch([this] { m_newProject->setVisible(DraftProject::isNew(m_parts.library, m_parts.drafts)); },
                          parts.library.projects, parts.drafts.draftProjectID);
    m_subscriptions.watch([this] { showState(); }, parts.operations.busy, parts.form.savingForm,
                          parts.screenAccess.requestingAccess, parts.drafts.draftProjectID,
                          parts.drafts.draftProjectName, parts.messages.captureIssue);
}

QWidget *QuickSaveContent::makeProjectRow()
{
    auto *row = new QWidget;
    auto *layout = makeRow(10, row);
    QLabel *const label = makeLabel(tr("Project"), TextStyle::Medium, Role::Dim);
    label->setFixedWidth(labelWidth);
    layout->addWidget(label);
    layout->addWidget(m_project, 1);
    return row;
}

QWidget *QuickSaveContent::makeDetails()
{
    auto *details = new QWidget(this);
    auto *column = makeColumn(10, details);
    auto *title =
        new TextField(tr("Checkpoint title (automatic if empty)"), tr("Checkpoint title (automatic if empty)"));
    bind(
        title, m_parts.drafts.draftTitle, [this](const QString &text) { m_parts.drafts.setDraftTitle(text); },
        m_subscriptions);
    column->addWidget(title);
    auto *tabs = new Switch(tr("Include browser tabs"));
    bind(
        tabs, m_parts.drafts.includeBrowser, [this](bool isOn) { m_parts.drafts.setIncludeBrowser(isOn); },
        m_subscriptions);
    column->addWidget(tabs);
    return details;
}

QWidget *QuickSaveContent::makeFooter()
{
    auto *footer = new QWidget;
    auto *row = makeRow(10, footer);
    row->setContentsMargins(2, 4, 0, 0);
    row->addWidget(new SymbolView("lock", Role::Dim));
    // Has what the buttons leave, whatever the language.
    row->addWidget(makeParagraph(tr("All screens and workspace saved on this Mac."), TextStyle::Small, Role::Dim), 1);
    row->addWidget(m_progress);
    row->addWidget(m_cancel);
    row->addWidget(m_save);
    connect(m_cancel, &QAbstractButton::clicked, this, [this] { m_parts.setup.cancelCapture(); });
    connect(m_save, &QAbstractButton::clicked, this, [this] { save(); });
    return footer;
}

void QuickSaveContent::showState()
{
    const bool isSaving = m_parts.form.savingForm() || m_parts.screenAccess.requestingAccess();
    const bool lacksName =
        DraftProject::isNew(m_parts.library, m_parts.drafts) && m_parts.drafts.draftProjectName().trimmed().isEmpty();
    m_progress->setVisible(m_parts.form.savingForm());
    m_cancel->setEnabled(!isSaving);
    m_save->setEnabled(!isSaving && !m_parts.operations.busy() && !lacksName);
    const std::optional<QString> problem = m_parts.messages.captureIssue() ? m_parts.messages.captureIssue() : m_error;
    m_problem->setText(problem.value_or(QString()));
    m_problem->setVisible(problem.has_value());
}

void QuickSaveContent::showError(const std::optional<QString> &error)
{
    m_error = error;
    showState();
}

void QuickSaveContent::showDetails(bool isOpen)
{
    m_details->setVisible(isOpen);
    m_disclosure->setSymbol(isOpen ? "chevron.down" : "chevron.right");
}

void QuickSaveContent::begin()
{
    showError(std::nullopt); // Of what was given up the last time.
    const bool needsName = !m_newProject->isHidden() && m_newProject->text().isEmpty();
    (needsName ? m_newProject : m_next)->setFocus(Qt::OtherFocusReason);
}

void QuickSaveContent::save()
{
    m_error.reset();
    saveDraft(m_parts, this);
}

void QuickSaveContent::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), themeColor(Role::Paper));
}

void QuickSaveContent::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        m_cancel->click();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        m_save->click();
    else
        QWidget::keyPressEvent(event);
}

} // namespace ardeno
