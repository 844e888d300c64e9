// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/CaptureSheet.h"

#include "ui/controls/DropDown.h"
#include "ui/controls/Fields.h"
#include "ui/controls/Label.h"
#include "ui/controls/ScrollColumn.h"
#include "ui/controls/Surfaces.h"
#include "ui/projects/DraftProject.h"
#include "ui/sheets/ScreenAccessSetup.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QKeyEvent>

namespace ardeno {

namespace {

constexpr int columnGap = 24;

// As wide as the form, its knob at the end.
Switch *makeSwitch(const QString &text)
{
    auto *control = new Switch(text);
    control->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return control;
}

} // namespace

CaptureSheet::CaptureSheet(const CaptureParts &parts)
    : Sheet(tr("Save a checkpoint."), formWidth + 56),
      m_parts(parts),
      m_heading(makeParagraph({}, TextStyle::SheetTitle)),
      m_lead(makeParagraph({}, TextStyle::Body, Role::Dim)),
      m_project(new DropDown(tr("Project"))),
      m_name(new TextField(tr("New project name"))),
      m_title(new TextField(tr("Checkpoint title (optional)"), tr("e.g. Mobile navigation"))),
      m_next(new TextField(tr("Your next small step (optional)"), tr("A useful thought for your future self"))),
      m_browser(makeSwitch(tr("Include browser tabs"))),
      m_recording(makeSwitch(tr("Record a work session")))
{
    DraftProject::offer(m_project, tr("New project"), parts.library, parts.drafts, m_subscriptions);
    column()->addWidget(makeMiddle(), 1);
    column()->addWidget(makeMessages());
    m_cancel = addButton(tr("Cancel"), Button::Kind::Bordered, [this] { close(); });
    m_primary = addButton({}, Button::Kind::Prominent, [this] { carryOut(); });
    bindDrafts();
    parts.screenAccess.refreshScreenAccess();
    // The user may come back from the system's settings.
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationActive && !m_parts.operations.busy())
            m_parts.screenAccess.refreshScreenAccess();
    });
    // When the form was finished or another process goes on with it, nothing is cancelled.
    setOnCancel([this] {
        if (m_parts.sheets.showCapture())
            m_parts.setup.cancelCapture();
    });
    m_subscriptions.watch([this] { showNewName(); }, parts.drafts.draftProjectID, parts.library.projects);
    m_subscriptions.watch([this] { showKind(); }, parts.drafts.pendingRecording);
    m_subscriptions.watch([this] { showState(); }, parts.operations.busy, parts.form.savingForm,
                          parts.drafts.pendingRecording, parts.screenAccess.screenAccessGranted,
                          parts.screenAccess.screenAccessReason, parts.screenAccess.permissionRequestSent,
                          parts.screenAccess.requestingAccess, parts.screenAccess.restartingApp);
    m_subscriptions.watch([this] { showMessages(); }, parts.messages.captureIssue,
                          parts.screenAccess.screenAccessReason);
    setFirstFocus(m_newName->isHidden() ? m_title : m_name);
}

void CaptureSheet::bindDrafts()
{
    CaptureDrafts &drafts = m_parts.drafts;
    bind(
        m_name, drafts.draftProjectName, [&drafts](const QString &text) { drafts.setDraftProjectName(text); },
        m_subscriptions);
    bind(m_title, drafts.draftTitle, [&drafts](const QString &text) { drafts.setDraftTitle(text); }, m_subscriptions);
    bind(m_next, drafts.draftNext, [&drafts](const QString &text) { drafts.setDraftNext(text); }, m_subscriptions);
    bind(m_browser, drafts.includeBrowser, [&drafts](bool isOn) { drafts.setIncludeBrowser(isOn); }, m_subscriptions);
    bind(
        m_recording, drafts.pendingRecording, [&drafts](bool isOn) { drafts.setPendingRecording(isOn); },
        m_subscriptions);
}

QWidget *CaptureSheet::makeMiddle()
{
    auto *middle = new ScrollColumn(0);
    auto *row = makeRow(columnGap);
    middle->column()->addLayout(row);
    m_form = makeForm();
    m_setup = new ScreenAccessSetup(m_parts.screenAccess, m_parts.operations, m_parts.recorder);
    m_setup->setFixedWidth(setupWidth);
    row->addWidget(m_form, 1, Qt::AlignTop);
    row->addWidget(m_setup, 0, Qt::AlignTop);
    return middle;
}

QWidget *CaptureSheet::makeForm()
{
    auto *form = new QWidget;
    form->setMaximumWidth(formWidth); // Less where the bar takes room.
    auto *column = makeColumn(14, form);
    column->addWidget(makeHead());
    column->addLayout(makeLabelled(tr("Project"), m_project));
    m_newName = new QWidget;
    makeLabelled(tr("New project name"), m_name, m_newName);
    column->addWidget(m_newName);
    column->addLayout(makeLabelled(tr("Checkpoint title (optional)"), m_title));
    column->addLayout(makeLabelled(tr("Your next small step (optional)"), m_next));
    column->addWidget(m_browser);
    column->addWidget(makeRecordingRow());
    return form;
}

QWidget *CaptureSheet::makeHead()
{
    auto *head = new QWidget;
    auto *column = makeColumn(4, head);
    column->addWidget(m_heading);
    column->addWidget(m_lead);
    return head;
}

QWidget *CaptureSheet::makeRecordingRow()
{
    auto *line = new QWidget;
    auto *row = makeRow(10, line);
    row->addWidget(new SymbolView("record.circle", Role::RecordingText));
    row->addWidget(m_recording, 1);
    return line;
}

QWidget *CaptureSheet::makeMessages()
{
    auto *messages = new QWidget;
    auto *column = makeColumn(8, messages);
    m_hopelessRow = new QWidget;
    m_hopeless = makeParagraph({}, TextStyle::Body, Role::AmberText);
    makeMarked("exclamationmark.circle", Role::AmberText, m_hopeless, m_hopelessRow);
    column->addWidget(m_hopelessRow);
    m_issue = makeParagraph({}, TextStyle::Body, Role::AmberText);
    column->addWidget(m_issue);
    return messages;
}

bool CaptureSheet::needsSetup() const
{
    return !m_parts.screenAccess.screenAccessGranted() && !m_parts.screenAccess.screenAccessReason();
}

void CaptureSheet::showNewName()
{
    m_newName->setVisible(DraftProject::isNew(m_parts.library, m_parts.drafts));
}

void CaptureSheet::showKind()
{
    const bool isSession = m_parts.drafts.pendingRecording();
    m_heading->setText(isSession ? tr("Record a work session.") : tr("Save a checkpoint."));
    m_lead->setText(isSession ? tr("Record your main display while you work. Stop & save checkpoint finishes the "
                                   "video and captures your workspace.")
                              : tr("A checkpoint saves your screenshot, open apps, browser tabs and next step "
                                   "together."));
    setAccessibleName(m_heading->text());
}

QString CaptureSheet::primaryText() const
{
    const bool isSession = m_parts.drafts.pendingRecording();
    if (m_parts.form.savingForm())
        return isSession ? tr("Starting session…") : tr("Saving checkpoint…");
    if (!needsSetup())
        return isSession ? tr("Start session") : tr("Save checkpoint");
    return m_parts.screenAccess.permissionRequestSent() ? tr("Open Screen Settings…") : tr("Allow screen access…");
}

void CaptureSheet::showState()
{
    const bool isIdle =
        !m_parts.form.savingForm() && !m_parts.screenAccess.restartingApp() && !m_parts.screenAccess.requestingAccess();
    m_setup->setVisible(needsSetup());
    setWantedWidth(formWidth + 56 + (needsSetup() ? columnGap + setupWidth : 0));
    m_form->setEnabled(isIdle);
    m_cancel->setEnabled(isIdle);
    m_primary->setText(primaryText());
    m_primary->updateGeometry();
    m_primary->setEnabled(isIdle && !m_parts.operations.busy() && !m_parts.screenAccess.screenAccessReason());
}

void CaptureSheet::showMessages()
{
    m_hopelessRow->setVisible(m_parts.screenAccess.screenAccessReason().has_value());
    m_hopeless->setText(m_parts.screenAccess.screenAccessReason().value_or(QString()));
    const bool isNews =
        m_parts.messages.captureIssue() && m_parts.messages.captureIssue() != m_parts.screenAccess.screenAccessReason();
    m_issue->setVisible(isNews);
    m_issue->setText(isNews ? tr("Capture status: %1").arg(*m_parts.messages.captureIssue()) : QString());
    m_issue->parentWidget()->setVisible(isNews || m_parts.screenAccess.screenAccessReason());
    QAccessibleEvent said(m_issue, QAccessible::Alert);
    if (isNews)
        QAccessible::updateAccessibility(&said);
}

void CaptureSheet::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && !m_cancel->isEnabled())
        event->accept();
    else
        Sheet::keyPressEvent(event);
}

void CaptureSheet::carryOut()
{
    if (!needsSetup()) {
        m_parts.form.captureMoment(m_parts.drafts.draftTitle(), m_parts.drafts.draftNext(),
                                   m_parts.drafts.pendingRecording() ? CaptureKind::Session : CaptureKind::Checkpoint);
    } else if (m_parts.screenAccess.permissionRequestSent()) {
        m_parts.screenAccess.openScreenSettings();
    } else {
        m_parts.screenAccess.requestScreenAccess();
    }
}

} // namespace ardeno
