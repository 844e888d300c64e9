// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/ProjectCard.h"

#include "ui/controls/Label.h"
#include "ui/controls/Menu.h"
#include "ui/controls/Surfaces.h"
#include "ui/projects/ProjectActions.h"
#include "ui/projects/ProjectText.h"
#include "ui/theme/Drawing.h"
#include "ui/theme/Symbols.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

#include <algorithm>

namespace ardeno {

namespace {

constexpr int cardPadding = 14;
constexpr int headerHeight = 28;

int heightOf(TextStyle style)
{
    return QFontMetrics(AppTheme::instance().font(style)).height();
}

// At the foot, what a click does.
int footHeight()
{
    return heightOf(TextStyle::Medium) + 8;
}

} // namespace

ProjectCard::ProjectCard(const ProjectParts &parts, ThumbnailShelf &pictures)
    : m_parts(parts),
      m_pictures(pictures),
      m_symbol(new SymbolView("folder")),
      m_name(new LineLabel({}, TextStyle::BarTitle)),
      m_actions(Button::makeIcon("ellipsis.circle", tr("Actions"))),
      m_saved(new LineLabel({}, TextStyle::Small, Role::Dim)),
      m_noteLabel(makeLabel({}, TextStyle::Eyebrow)),
      m_note(new LineLabel)
{
    setText(tr("Open project"));
    setFont(AppTheme::instance().font(TextStyle::Medium));
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    auto *row = makeRow(0, this);
    row->addWidget(makeTexts(), 1, Qt::AlignTop);
    connect(this, &QAbstractButton::clicked, this, [this] { m_parts.navigation.selectProject(m_projectID); });
    setMenu(m_actions, [this](QMenu *menu) { ProjectActions::fill(menu, m_parts, m_projectID); });
}

int ProjectCard::cardHeight()
{
    const int texts = std::max(headerHeight, heightOf(TextStyle::BarTitle)) + heightOf(TextStyle::Small) +
                      heightOf(TextStyle::Eyebrow) + heightOf(TextStyle::Body);
    constexpr int between = 10 + 10 + 8 + 10; // Above, within and below the texts, and below the foot.
    return texts + footHeight() + between;
}

QList<QWidget *> ProjectCard::controls()
{
    return {this, m_actions};
}

QWidget *ProjectCard::makeHeader()
{
    auto *header = new QWidget;
    auto *row = makeRow(6, header);
    row->addWidget(m_symbol);
    row->addWidget(m_name, 1);
    row->addWidget(m_actions);
    row->addStrut(headerHeight); // Also where there are no actions.
    return header;
}

QWidget *ProjectCard::makeTexts()
{
    auto *texts = new QWidget;
    auto *column = makeColumn(0, texts);
    column->addWidget(makeHeader());
    column->addSpacing(1);
    column->addWidget(m_saved);
    column->addSpacing(7);
    column->addWidget(m_noteLabel);
    column->addSpacing(2);
    column->addWidget(m_note);
    return texts;
}

void ProjectCard::show(const Project &project, const Checkpoint *latest)
{
    m_projectID = project.id;
    m_latest = latest ? *latest : Checkpoint();
    const bool isBlocked = project.blockedReason.has_value();
    m_symbol->setSymbol(isBlocked          ? "pause.circle.fill"
                        : project.isSample ? "sparkle"
                                           : "folder",
                        isBlocked ? Role::AmberText : Role::AccentText);
    m_name->setText(project.name);
    m_actions->setVisible(!project.isSample); // Nothing changes the sample.
    m_actions->setHint(tr("Actions for %1").arg(project.name));
    const QString saved =
        latest ? tr("Saved %1").arg(ProjectText::momentInSentence(latest->createdAt)) : tr("No checkpoints yet");
    m_saved->setText(saved);
    showNote(project, latest);
    setAccessibleName(tr("Open project %1").arg(project.name));
    setAccessibleDescription(
        m_note->isHidden() ? saved : QStringList{saved, m_noteLabel->text(), m_note->accessibleName()}.join(", "));
    update();
}

void ProjectCard::showNote(const Project &project, const Checkpoint *latest)
{
    const bool isBlocked = project.blockedReason.has_value();
    const QString step = latest ? ProjectText::firstStep(*latest) : QString();
    m_noteLabel->setText(isBlocked ? tr("WAITING FOR") : tr("NEXT SMALL STEP"));
    m_noteLabel->setForegroundRole(AppTheme::paletteRole(isBlocked ? Role::AmberText : Role::Dim));
    m_note->setText(isBlocked ? project.blockerDescription() : step);
    m_noteLabel->setVisible(isBlocked || !step.isEmpty());
    m_note->setVisible(isBlocked || !step.isEmpty());
}

QRect ProjectCard::pictureArea() const
{
    constexpr int leastForWhole = 380; // Names come before pictures where a card is narrow.
    const QSize size = width() < leastForWhole ? pictureSize * 2 / 3 : pictureSize;
    return {QPoint(cardPadding, cardPadding), size};
}

void ProjectCard::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const bool isHovered = underMouse() || isDown();
    Drawing::panel(painter, rect(), 12, themeColor(Role::Card), themeColor(isHovered ? Role::Outline : Role::Line));
    if (isHovered)
        Drawing::panel(painter, rect(), 12, themeColor(Role::Hover), Qt::transparent);
    m_pictures.draw(painter, pictureArea(), m_latest, 7);
    // What a click does, in the corner where the eye ends.
    const QColor ink = themeColor(Role::AccentText);
    const QRectF foot(cardPadding, height() - footHeight() - 10, width() - 2 * cardPadding, footHeight());
    Symbols::draw(painter, "arrow.right", {foot.right() - 16, foot.center().y() - 8, 16, 16}, ink);
    Drawing::text(painter, foot.adjusted(0, 0, -22, 0), text(), TextStyle::Medium, ink,
                  Qt::AlignRight | Qt::AlignVCenter);
    if (m_showsFocus)
        Drawing::focusRing(painter, rect(), 12);
}

void ProjectCard::resizeEvent(QResizeEvent *)
{
    layout()->setContentsMargins(pictureArea().right() + 12, 10, 8, cardPadding);
}

void ProjectCard::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else if (event->key() == Qt::Key_F2)
        ProjectActions::rename(this, m_parts, m_projectID);
    else
        QAbstractButton::keyPressEvent(event);
}

void ProjectCard::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const QPoint place = isByKey ? m_actions->mapToGlobal(m_actions->rect().bottomLeft()) : event->globalPos();
    if (!m_actions->isHidden())
        showMenu(m_actions, place, [this](QMenu *menu) { ProjectActions::fill(menu, m_parts, m_projectID); });
}

void ProjectCard::focusInEvent(QFocusEvent *event)
{
    m_showsFocus = event->reason() != Qt::MouseFocusReason;
    QAbstractButton::focusInEvent(event);
}

void ProjectCard::focusOutEvent(QFocusEvent *event)
{
    m_showsFocus = false;
    QAbstractButton::focusOutEvent(event);
}

} // namespace ardeno
