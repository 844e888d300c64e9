// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/ProjectTimeline.h"

#include "ui/controls/Button.h"
#include "ui/controls/FadedEdges.h"
#include "ui/controls/FollowingList.h"
#include "ui/controls/Label.h"
#include "ui/controls/Menu.h"
#include "ui/controls/Sheet.h"
#include "ui/controls/Surfaces.h"
#include "ui/projects/CheckpointActions.h"
#include "ui/projects/CheckpointManagerSheet.h"
#include "ui/projects/TimelineDelegate.h"

#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace ardeno {

namespace {

constexpr int scrollBarRoom = 12;

// A strip that the wheel moves sideways.
class Banner final : public FollowingList {
public:
    using FollowingList::FollowingList;

protected:
    void wheelEvent(QWheelEvent *event) override
    {
        const QPoint delta = event->pixelDelta().isNull() ? event->angleDelta() : event->pixelDelta();
        const int along = std::abs(delta.x()) > std::abs(delta.y()) ? delta.x() : delta.y();
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - along);
        event->accept();
    }
};

} // namespace

ProjectTimeline::ProjectTimeline(const CheckpointListParts &parts, const Operations &operations,
                                 const SessionRecorder &recorder, std::function<void()> save, QWidget *parent)
    : QWidget(parent),
      m_parts(parts),
      m_operations(operations),
      m_recorder(recorder),
      m_pictures(parts.media, [this] { m_strip->viewport()->update(); }),
      m_count(makeLabel({}, TextStyle::Small, Role::Dim)),
      m_manage(new Button(tr("Manage checkpoints"), Button::Kind::Plain)),
      m_latest(new Button(tr("Back to latest"), Button::Kind::Plain)),
      m_save(new Button(tr("Save checkpoint"), Button::Kind::Prominent, "plus.circle.fill")),
      m_strip(makeBanner())
{
    auto *column = makeColumn(9, this);
    column->setContentsMargins(28, 12, 28, 3);
    column->addWidget(makeHeader());
    column->addWidget(m_strip);
    connect(m_save, &QAbstractButton::clicked, this, std::move(save));
    m_subscriptions.watch([this] { showCheckpoints(); }, parts.library.checkpoints, parts.library.projects,
                          parts.navigation.selectedProjectID);
    m_subscriptions.watch([this] { showSelection(); }, parts.navigation.selection);
    m_subscriptions.watch([this] { showBusy(); }, operations.busy, recorder.recording);
}

QWidget *ProjectTimeline::makeHeader()
{
    auto *header = new QWidget;
    auto *row = makeRow(8, header);
    row->addWidget(new SymbolView("clock.arrow.circlepath", Role::Dim));
    row->addWidget(makeLabel(tr("Checkpoint history"), TextStyle::Strong));
    row->addWidget(m_count);
    row->addStretch();
    row->addWidget(m_latest);
    row->addWidget(m_manage);
    row->addWidget(m_save);
    connect(m_latest, &QAbstractButton::clicked, this, [this] {
        if (!m_model.rows().isEmpty())
            m_parts.navigation.selectCheckpoint(m_model.rows().first().id);
    });
    connect(m_manage, &QAbstractButton::clicked, this, [this] { manage(); });
    m_save->setHint(tr("Capture this workspace"), "Ctrl+S");
    m_save->setAccessibleDescription(tr("Save a screenshot and your open workspace"));
    return header;
}

FollowingList *ProjectTimeline::makeBanner()
{
    auto *strip = new Banner(tr("Checkpoint history"));
    strip->setModel(&m_model);
    strip->setItemDelegate(new TimelineDelegate(m_pictures, strip));
    strip->setFlow(QListView::LeftToRight);
    strip->setWrapping(false);
    strip->setUniformItemSizes(true);
    strip->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    strip->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    strip->setFixedHeight(TimelineDelegate::cardSize.height() + scrollBarRoom);
    new FadedEdges(strip, Role::Paper);
    strip->setOnActivate(
        [this](const QModelIndex &index) { m_parts.navigation.selectCheckpoint(m_model.rows().at(index.row()).id); });
    strip->setOnMenu([this](const QModelIndex &index, const QPoint &place) {
        showMenu(this, place, [&](QMenu *menu) {
            CheckpointActions::fill(menu, m_parts, m_model.rows().at(index.row()), this, {});
        });
    });
    strip->setOnDelete([this](const QModelIndex &index) {
        if (const Checkpoint &checkpoint = m_model.rows().at(index.row()); !checkpoint.isSample)
            CheckpointActions::confirmDelete(this, m_parts, checkpoint);
    });
    return strip;
}

void ProjectTimeline::showCheckpoints()
{
    const Project *const project = m_parts.navigation.selectedProject();
    if (!project)
        return;
    m_manage->setVisible(!project->isSample); // The sample stays as it is.
    m_model.setProjectName(project->name);
    m_model.setRows(m_parts.library.checkpointsFor(project->id));
    m_count->setText(tr("%n saved", "", m_model.rowCount()));
    showSelection();
}

void ProjectTimeline::showSelection()
{
    const int row = m_parts.navigation.selection() ? m_model.rowOf(*m_parts.navigation.selection()) : -1;
    m_strip->showChosen(row);
    m_latest->setVisible(row > 0);
}

void ProjectTimeline::showBusy()
{
    m_save->setEnabled(!m_operations.busy() && !m_recorder.recording());
}

void ProjectTimeline::selectNeighbour(int step)
{
    const int row = m_parts.navigation.selection() ? m_model.rowOf(*m_parts.navigation.selection()) : -1;
    if (row < 0)
        return;
    const int other = std::clamp(row + step, 0, m_model.rowCount() - 1);
    m_parts.navigation.selectCheckpoint(m_model.rows().at(other).id);
}

void ProjectTimeline::manage()
{
    SheetHost *const host = SheetHost::of(this);
    const Project *const project = m_parts.navigation.selectedProject();
    if (host && project)
        host->present(new CheckpointManagerSheet(m_parts, *project));
}

} // namespace ardeno
