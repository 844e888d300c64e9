// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/checkpoint/CheckpointDetail.h"

#include "ui/checkpoint/InlineNote.h"
#include "ui/checkpoint/ResumeShortfallCard.h"
#include "ui/checkpoint/ScreenshotCard.h"
#include "ui/controls/Button.h"
#include "ui/controls/Label.h"
#include "ui/controls/Sheet.h"
#include "ui/projects/ProjectText.h"

#include <QDesktopServices>

#include <algorithm>

namespace ardeno {

namespace {

constexpr int mostTitleLines = 4;
constexpr int leastForTwoNotes = 800;

} // namespace

CheckpointDetail::CheckpointDetail(const CheckpointParts &parts, const Screens &screens, const Checkpoint &checkpoint)
    : m_parts(parts),
      m_screens(screens),
      m_sample(checkpoint.isSample ? checkpoint : Checkpoint()),
      m_id(checkpoint.id),
      m_title(makeParagraphOfLines(mostTitleLines, TextStyle::Title)),
      m_objective(makeNote(&Checkpoint::objective)),
      m_nextStep(makeNote(&Checkpoint::nextStep))
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(tr("Checkpoint"));
    setWidget(makePage(checkpoint));
    viewport()->setAutoFillBackground(false);
    widget()->setAutoFillBackground(false);
    m_subscriptions.watch([this] { showCheckpoint(); }, parts.library.checkpoints, parts.library.projects,
                          parts.applications.runningApplicationIDs, parts.editing.unsavedNotes);
}

QWidget *CheckpointDetail::makePage(const Checkpoint &checkpoint)
{
    auto *page = new QWidget;
    auto *column = makeColumn(0, page);
    column->setContentsMargins(28, 16, 28, 28);
    column->addWidget(makeEyebrow(checkpoint));
    column->addSpacing(5);
    column->addWidget(m_title);
    column->addSpacing(3);
    column->addWidget(makeParagraph(checkpoint.isSample ? tr("A sample checkpoint. Explore the saved workspace below.")
                                                        : tr("A screenshot, your workspace and a place to continue."),
                                    TextStyle::Body, Role::Dim));
    column->addSpacing(10);
    column->addWidget(makeResumeRow());
    column->addSpacing(12);
    m_shortfall = new ResumeShortfallCard(m_parts.resumes, m_parts.library, m_parts.sheets, m_id);
    column->addWidget(m_shortfall);
    m_screenshot = new ScreenshotCard(m_parts.picture, m_screens, checkpoint);
    column->addWidget(m_screenshot);
    column->addSpacing(4);
    column->addWidget(makeFooter(checkpoint));
    column->addSpacing(4);
    m_notes = new QBoxLayout(QBoxLayout::TopToBottom);
    m_notes->setSpacing(4);
    m_notes->addWidget(m_objective, 1, Qt::AlignTop);
    m_notes->addWidget(m_nextStep, 1, Qt::AlignTop);
    column->addLayout(m_notes);
    if (m_screens.workspaceItems)
        column->addWidget(m_screens.workspaceItems(m_id));
    column->addStretch();
    return page;
}

const Checkpoint *CheckpointDetail::current() const
{
    return m_sample.isSample ? &m_sample : m_parts.library.checkpoint(m_id);
}

QWidget *CheckpointDetail::makeEyebrow(const Checkpoint &checkpoint)
{
    auto *line = new QWidget;
    auto *row = makeRow(8, line);
    const QString saved = tr("SAVED %1").arg(DateText::mediumDateShortTime(checkpoint.createdAt)).toUpper();
    row->addWidget(
        makeLabel(checkpoint.isSample ? tr("A GLIMPSE OF YOUR NEXT RETURN") : saved, TextStyle::Eyebrow, Role::Dim));
    if (checkpoint.isSample) {
        auto *badge = new Chip;
        badge->show(tr("SAMPLE"), {}, Role::AccentText, Role::AccentSoft);
        badge->setSmall();
        row->addWidget(badge);
    }
    row->addStretch();
    return line;
}

QWidget *CheckpointDetail::makeResumeRow()
{
    auto *line = new QWidget;
    auto *row = makeRow(14, line);
    if (m_screens.restore) {
        m_resume = new Button(tr("Resume workspace"), Button::Kind::Prominent, "arrow.up.right");
        m_resume->setLarge();
        connect(m_resume, &QAbstractButton::clicked, this, [this] { m_parts.sheets.open(&OpenSheets::showRestore); });
        row->addWidget(m_resume);
    }
    m_caption = makeLabel({}, TextStyle::Small, Role::Dim);
    row->addWidget(m_caption);
    row->addStretch();
    return line;
}

QWidget *CheckpointDetail::makeFooter(const Checkpoint &checkpoint)
{
    auto *footer = new QWidget;
    auto *row = makeRow(7, footer);
    row->addWidget(new SymbolView("lock", Role::Dim, 14));
    row->addWidget(makeLabel(checkpoint.isSample ? tr("Sample content · no capture has taken place")
                                                 : tr("Stored on this Mac · no cloud upload"),
                             TextStyle::Small, Role::Dim));
    row->addStretch();
    if (checkpoint.isSample)
        return footer;
    m_recording = new Button(tr("View recording"), Button::Kind::Plain, "film");
    connect(m_recording, &QAbstractButton::clicked, this, [this] {
        if (const Checkpoint *const shown = current(); shown && shown->recording)
            viewRecording(*shown);
    });
    row->addWidget(m_recording);
    if (m_screens.edit) {
        auto *edit = new Button(tr("Checkpoint details…"), Button::Kind::Plain);
        connect(edit, &QAbstractButton::clicked, this, [this] {
            SheetHost *const host = SheetHost::of(this);
            if (const Checkpoint *const shown = current(); host && shown)
                host->present(m_screens.edit(*shown));
        });
        row->addWidget(edit);
    }
    return footer;
}

void CheckpointDetail::viewRecording(const Checkpoint &checkpoint)
{
    try {
        if (!QDesktopServices::openUrl(QUrl::fromLocalFile(m_parts.picture.media.recordingFile(checkpoint))))
            m_parts.messages.report(tr("Could not open the recording: there is no application for it."));
    } catch (const Failure &failure) {
        m_parts.messages.report(tr("Could not open the recording. ") + failure.description());
    }
}

InlineNote *CheckpointDetail::makeNote(QString Checkpoint::*field)
{
    const bool isNext = field == &Checkpoint::nextStep;
    const InlineNote::Text text{
        .title = isNext ? tr("Your next small step") : tr("Where you left off"),
        .symbol = isNext ? "arrow.turn.down.right" : "arrow.uturn.backward",
        .placeholder =
            isNext ? tr("Click to add your next step…") : tr("Add progress, context or decisions for your next visit…"),
        .size = isNext ? InlineNote::Size::Prominent : InlineNote::Size::Normal,
        .isSample = m_sample.isSample,
    };
    auto *note = new InlineNote(text);
    note->installEventFilter(this);
    if (!m_sample.isSample)
        note->setOnCommit([parts = m_parts, id = m_id, field](const QString &typed) {
            return parts.editing.updateNote(field, typed, id).isDone;
        });
    return note;
}

bool CheckpointDetail::eventFilter(QObject *watched, QEvent *event)
{
    // A note that grows while it is written stays in view. The page's own events come here, too.
    const bool isNote = watched == m_objective || watched == m_nextStep;
    auto *const note = isNote ? static_cast<QWidget *>(watched) : nullptr;
    const bool isWritten = note && note->isAncestorOf(window()->focusWidget());
    if (event->type() == QEvent::Resize && note && !isWritten)
        fitPicture();
    if (event->type() == QEvent::Resize && isWritten)
        QMetaObject::invokeMethod(note, [this, note] { ensureWidgetVisible(note, 0, 16); }, Qt::QueuedConnection);
    return QScrollArea::eventFilter(watched, event);
}

void CheckpointDetail::resizeEvent(QResizeEvent *event)
{
    QScrollArea::resizeEvent(event);
    fitPicture();
}

void CheckpointDetail::fitPicture()
{
    if (!widget() || !m_screenshot)
        return;
    constexpr int least = 150;
    constexpr int mostAtDefaultSize = 250;
    constexpr double share = 0.45; // Of what is seen of the page.
    // Where there is room for two columns of text, the next step stands beside what was done.
    const bool isWide = viewport()->width() >= leastForTwoNotes;
    m_notes->setDirection(isWide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    widget()->layout()->activate();
    const int end = std::max(m_objective->geometry().bottom(), m_nextStep->geometry().bottom());
    const int others = end - m_screenshot->pictureHeight();
    const int room = viewport()->height() - others;
    m_screenshot->setMostHeight(
        std::clamp(room, least, std::max(mostAtDefaultSize, qRound(viewport()->height() * share))));
}

void CheckpointDetail::commitNotes()
{
    m_objective->commit();
    m_nextStep->commit();
}

void CheckpointDetail::showCheckpoint()
{
    const Checkpoint *const checkpoint = current();
    if (!checkpoint)
        return;
    const Project *const project = m_parts.navigation.selectedProject();
    m_title->setText(ProjectText::title(*checkpoint, project ? project->name : QString()));
    m_caption->setText(ProjectText::resumeCaption(*checkpoint));
    showNote(m_objective, &Checkpoint::objective, *checkpoint);
    showNote(m_nextStep, &Checkpoint::nextStep, *checkpoint);
    if (m_recording)
        m_recording->setVisible(checkpoint->recording.has_value());
    if (m_resume)
        showResume(*checkpoint);
}

void CheckpointDetail::showNote(InlineNote *note, QString Checkpoint::*field, const Checkpoint &checkpoint)
{
    const QString text = m_parts.editing.noteText(field, checkpoint);
    note->setText(text);
    note->setUnsaved(text != checkpoint.*field);
}

void CheckpointDetail::showShortfall()
{
    ensureWidgetVisible(m_shortfall, 0, 16);
    m_shortfall->setFocus(Qt::OtherFocusReason);
}

void CheckpointDetail::showResume(const Checkpoint &checkpoint)
{
    const bool isActive = m_parts.applications.isWorkspaceActive(checkpoint);
    const bool hasItems = !checkpoint.tabs.isEmpty() || (checkpoint.windows && !checkpoint.windows->isEmpty());
    m_resume->setText(!isActive ? tr("Resume workspace") : hasItems ? tr("Review workspace") : tr("Workspace active"));
    m_resume->setSymbol(isActive && !hasItems ? "checkmark" : "arrow.up.right");
    m_resume->setEnabled(!isActive || hasItems);
}

} // namespace ardeno
