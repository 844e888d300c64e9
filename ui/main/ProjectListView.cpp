// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main/ProjectListView.h"

#include "ui/controls/FadedEdges.h"
#include "ui/controls/Menu.h"
#include "ui/main/ProjectRowDelegate.h"
#include "ui/projects/ProjectActions.h"

#include <QDrag>
#include <QDragMoveEvent>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QPointer>

#include <utility>

namespace ardeno {

namespace {

// A write that takes longer is felt while the pointer moves.
constexpr qint64 mostUnfelt = 30; // Milliseconds.
constexpr int pointerRest = 150;

// Before whom a row of the list stands once it has taken the place of another one.
std::optional<QUuid> followerAt(const QList<QUuid> &rows, const QUuid &moved, const QUuid &place)
{
    const qsizetype at = rows.indexOf(place);
    if (rows.indexOf(moved) > at)
        return place;
    return at + 1 < rows.size() ? std::optional(rows.at(at + 1)) : std::nullopt;
}

} // namespace

ProjectListView::ProjectListView(const ProjectParts &parts, QWidget *parent)
    : FollowingList(tr("Projects"), parent),
      m_parts(parts),
      m_drop([this](const QUuid &dragged, const QUuid &target, const QList<QUuid> &) { enter(dragged, target); })
{
    setModel(&m_model);
    setItemDelegate(new ProjectRowDelegate(this));
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    new FadedEdges(this, Role::Sidebar);
    m_rest.setSingleShot(true);
    connect(&m_rest, &QTimer::timeout, this, [this] { writeOrder(); });
    setToolTip(tr("Drag a project to another place, or press Alt with an arrow key"));
    setOnActivate(
        [this](const QModelIndex &index) { m_parts.navigation.selectProject(m_model.rows().at(index.row()).id); });
    setOnMenu([this](const QModelIndex &index, const QPoint &place) {
        showMenu(this, place,
                 [&](QMenu *menu) { ProjectActions::fill(menu, m_parts, m_model.rows().at(index.row()).id); });
    });
    setOnDelete([this](const QModelIndex &index) {
        if (const Project *const project = m_parts.library.project(m_model.rows().at(index.row()).id))
            m_parts.sheets.askToDelete(*project);
    });
    m_subscriptions.watch(
        [this] {
            m_counts = ProjectListModel::count(m_parts.library.projects().isEmpty() ? m_parts.library.sampleHistory()
                                                                                    : m_parts.library.checkpoints());
            showProjects();
        },
        parts.library.projects, parts.library.checkpoints, parts.library.sampleHistory);
    m_subscriptions.watch([this] { showProjects(); }, parts.navigation.search, parts.navigation.showArchivedProjects);
    m_subscriptions.watch([this] { showSelection(); }, parts.navigation.selectedProjectID);
}

void ProjectListView::showProjects()
{
    m_model.setRows(ProjectListModel::makeRows(m_parts.navigation.filteredProjects(), m_counts));
    showSelection();
}

void ProjectListView::showSelection()
{
    showChosen(m_parts.navigation.selectedProjectID() ? m_model.rowOf(*m_parts.navigation.selectedProjectID()) : -1);
}

void ProjectListView::startDrag(Qt::DropActions)
{
    const QModelIndex index = currentIndex();
    if (!index.isValid())
        return;
    const QUuid id = m_model.rows().at(index.row()).id;
    m_drop.begin(id);
    auto *offered = new QMimeData;
    offered->setText(uuidText(id));
    const QPointer<QDrag> drag = new QDrag(this);
    drag->setMimeData(offered);
    QPixmap row = viewport()->grab(visualRect(index));
    drag->setPixmap(row);
    drag->setHotSpot(viewport()->mapFromGlobal(QCursor::pos()) - visualRect(index).topLeft());
    drag->exec(Qt::MoveAction);
    m_drop.end();
    writeOrder();
    setState(NoState);
    returnToChosen();
}

void ProjectListView::enter(const QUuid &dragged, const QUuid &target)
{
    m_unwritten = std::pair(dragged, followerAt(m_model.ids(), dragged, target));
    if (m_writeMilliseconds <= mostUnfelt) {
        writeOrder();
        return;
    }
    QList<ProjectRow> rows = m_model.rows();
    rows.move(m_model.rowOf(dragged), m_model.rowOf(target));
    m_model.setRows(rows);
    m_rest.start(pointerRest);
}

void ProjectListView::writeOrder()
{
    m_rest.stop();
    const auto moved = std::exchange(m_unwritten, std::nullopt);
    if (!moved)
        return;
    QElapsedTimer time;
    time.start();
    const Outcome outcome = m_parts.projects.reorderProjects(moved->first, moved->second, m_model.ids());
    m_writeMilliseconds = time.elapsed();
    // As the store has it: a write that failed takes the row back.
    if (!outcome)
        showProjects();
}

void ProjectListView::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->source() == this && m_drop.draggedID()) {
        event->setDropAction(Qt::MoveAction);
        event->accept();
    }
}

void ProjectListView::dragMoveEvent(QDragMoveEvent *event)
{
    if (event->source() != this)
        return;
    event->setDropAction(Qt::MoveAction);
    event->accept();
    const QModelIndex index = indexAt(event->position().toPoint());
    m_drop.moveOver(index.isValid() ? std::optional(m_model.rows().at(index.row()).id) : std::nullopt, m_model.ids());
}

void ProjectListView::dragLeaveEvent(QDragLeaveEvent *event)
{
    event->accept();
}

void ProjectListView::dropEvent(QDropEvent *event)
{
    m_drop.end();
    event->setDropAction(Qt::MoveAction);
    event->accept();
}

void ProjectListView::keyPressEvent(QKeyEvent *event)
{
    const bool isMove = event->modifiers() == Qt::AltModifier;
    if (isMove && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down))
        moveCurrent(event->key() == Qt::Key_Up ? -1 : 1);
    else if (event->key() == Qt::Key_F2 && currentIndex().isValid())
        ProjectActions::rename(this, m_parts, m_model.rows().at(currentIndex().row()).id);
    else
        FollowingList::keyPressEvent(event);
}

void ProjectListView::moveCurrent(int step)
{
    const QList<QUuid> ids = m_model.ids();
    const qsizetype at = currentIndex().row();
    const qsizetype other = at + step;
    if (at < 0 || other < 0 || other >= ids.size())
        return;
    m_parts.projects.reorderProjects(ids.at(at), followerAt(ids, ids.at(at), ids.at(other)), ids);
}

} // namespace ardeno
