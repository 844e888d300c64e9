// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/CheckpointManagerSheet.h"

#include "ui/controls/Label.h"
#include "ui/controls/Menu.h"
#include "ui/controls/PlainList.h"
#include "ui/controls/Surfaces.h"
#include "ui/projects/CheckpointActions.h"
#include "ui/projects/TimelineDelegate.h"

#include <utility>

namespace ardeno {

CheckpointManagerSheet::CheckpointManagerSheet(const CheckpointListParts &parts, const Project &project)
    : Sheet(tr("Manage checkpoints"), 600),
      m_parts(parts),
      m_projectID(project.id),
      m_count(makeLabel({}, TextStyle::Body, Role::Dim)),
      m_pictures(parts.media, [this] { m_list->viewport()->update(); }),
      m_list(makeList()),
      m_empty(makeEmpty()),
      m_chosen(new LineLabel({}, TextStyle::Small, Role::Dim)),
      m_delete(new Button(tr("Delete selected checkpoint…"), Button::Kind::Bordered, "trash"))
{
    m_model.setProjectName(project.name);
    auto *head = makeColumn(2);
    head->addWidget(makeLabel(tr("Manage checkpoints"), TextStyle::SheetTitle));
    head->addWidget(m_count);
    column()->addLayout(head);
    column()->addWidget(m_list, 1);
    column()->addWidget(m_empty, 1);
    column()->addWidget(makeFooter());
    addButton(tr("Done"), Button::Kind::Prominent, [this] { close(); });
    setMinimumHeight(540);
    setFirstFocus(m_list);
    m_subscriptions.watch([this] { showCheckpoints(); }, parts.library.checkpoints);
    m_list->showCurrent(parts.navigation.selection() ? m_model.rowOf(*parts.navigation.selection()) : -1);
}

PlainList *CheckpointManagerSheet::makeList()
{
    auto *list = new PlainList(tr("Checkpoints"));
    list->setModel(&m_model);
    list->setItemDelegate(new ManagerDelegate(m_pictures, list));
    list->setUniformItemSizes(true);
    list->setOnMenu([this](const QModelIndex &index, const QPoint &place) {
        showMenu(this, place, [&](QMenu *menu) {
            CheckpointActions::fill(menu, m_parts, m_model.rows().at(index.row()), this, [this] { close(); });
        });
    });
    list->setOnDelete([this](const QModelIndex &index) {
        CheckpointActions::confirmDelete(this, m_parts, m_model.rows().at(index.row()));
    });
    connect(list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex &current, const QModelIndex &before) {
                if (before.isValid() && before != m_pointed)
                    m_list->setIndexWidget(before, nullptr);
                placeRowMenu(current);
                showChosen();
            });
    connect(list, &QAbstractItemView::entered, this, [this](const QModelIndex &index) { pointTo(index); });
    connect(list, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex &index) {
        m_parts.navigation.selectCheckpoint(m_model.rows().at(index.row()).id);
        close();
    });
    return list;
}

void CheckpointManagerSheet::pointTo(const QModelIndex &index)
{
    const QModelIndex before = std::exchange(m_pointed, QPersistentModelIndex(index));
    if (before.isValid() && before != m_list->currentIndex())
        m_list->setIndexWidget(before, nullptr);
    placeRowMenu(index);
}

// The rows that are current and pointed to have their menu as a button at their right end.
void CheckpointManagerSheet::placeRowMenu(const QModelIndex &index)
{
    if (!index.isValid() || m_list->indexWidget(index))
        return;
    const QUuid id = m_model.rows().at(index.row()).id;
    auto *holder = new QWidget;
    auto *row = makeRow(0, holder);
    row->setContentsMargins(0, 0, ManagerDelegate::menuInset, 0);
    row->addStretch();
    Button *const actions = Button::makeIcon("ellipsis.circle", tr("Actions for %1").arg(m_model.title(index.row())));
    row->addWidget(actions);
    setMenu(actions, [this, id](QMenu *menu) {
        if (const Checkpoint *const checkpoint = m_parts.library.checkpoint(id))
            CheckpointActions::fill(menu, m_parts, *checkpoint, this, [this] { close(); });
    });
    m_list->setIndexWidget(index, holder);
}

QWidget *CheckpointManagerSheet::makeEmpty()
{
    auto *empty = new QWidget;
    auto *column = makeColumn(6, empty);
    column->addStretch();
    column->addWidget(makeLabel(tr("No checkpoints"), TextStyle::BarTitle), 0, Qt::AlignHCenter);
    column->addWidget(makeLabel(tr("Save a checkpoint to start building this history."), TextStyle::Body, Role::Dim), 0,
                      Qt::AlignHCenter);
    column->addStretch();
    return empty;
}

QWidget *CheckpointManagerSheet::makeFooter()
{
    auto *footer = new QWidget;
    auto *row = makeRow(12, footer);
    row->addWidget(m_chosen, 1);
    row->addWidget(m_delete);
    connect(m_delete, &QAbstractButton::clicked, this, [this] {
        if (const auto checkpoint = chosen())
            CheckpointActions::confirmDelete(this, m_parts, *checkpoint);
    });
    return footer;
}

std::optional<Checkpoint> CheckpointManagerSheet::chosen() const
{
    const int row = m_list->currentIndex().row();
    if (row < 0 || row >= m_model.rowCount())
        return std::nullopt;
    return m_model.rows().at(row);
}

void CheckpointManagerSheet::showCheckpoints()
{
    if (!m_parts.library.project(m_projectID)) {
        close(); // Deleted meanwhile.
        return;
    }
    m_model.setRows(m_parts.library.checkpointsFor(m_projectID));
    m_count->setText(tr("%n saved", "", m_model.rowCount()));
    m_list->setVisible(m_model.rowCount() > 0);
    m_empty->setVisible(m_model.rowCount() == 0);
    showChosen();
}

void CheckpointManagerSheet::showChosen()
{
    const bool hasChosen = chosen().has_value();
    m_chosen->setText(hasChosen ? tr("Selected: %1").arg(m_model.title(m_list->currentIndex().row())) : QString());
    m_delete->setEnabled(hasChosen);
}

} // namespace ardeno
