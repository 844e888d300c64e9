// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/items/WindowLayoutSummary.h"

#include "ui/controls/Button.h"
#include "ui/controls/Label.h"
#include "ui/controls/Surfaces.h"
#include "ui/controls/UndoBanner.h"
#include "ui/items/ItemList.h"
#include "ui/items/ItemText.h"

#include <cmath>
#include <variant>

namespace ardeno {

namespace {

QString sizeText(const WindowRect &frame)
{
    const auto points = [](double length) { return std::isfinite(length) ? QString::number(length, 'f', 0) : "?"; };
    return u"%1 × %2"_qs.arg(points(frame.width), points(frame.height));
}

ItemRow windowRow(const SavedWindow &window)
{
    const QString app = ItemText::line(window.appName);
    const QString title = ItemText::line(window.title);
    const QString display = ItemText::line(window.displayName.value_or(QString()));
    return {
        .key = uuidText(window.id),
        .title = title.isEmpty() ? app : title,
        .detail = (title.isEmpty() ? QString() : app + u" · "_qs) + sizeText(window.frame),
        .trailing =
            display.isEmpty() ? QCoreApplication::translate("ardeno::WindowLayoutSummary", "Saved display") : display,
        .symbol = "app",
        .appID = window.appID,
    };
}

} // namespace

WindowLayoutSummary::WindowLayoutSummary(WorkspaceEditing &workspace, RemovalUndo &removals, ApplicationIcons &icons,
                                         const Checkpoint &checkpoint)
    : m_workspace(workspace),
      m_removals(removals),
      m_none(makeParagraph(tr("No window positions saved yet. New checkpoints include the position and size of visible "
                              "windows."),
                           TextStyle::Small, Role::Dim)),
      m_disclosure(new Button({}, Button::Kind::Disclosure, "chevron.right"))
{
    auto *card = new Card;
    makeColumn(0, this)->addWidget(card);
    auto *column = makeColumn(8, card);
    column->setContentsMargins(0, 13, 0, 12);
    column->addWidget(makeHead(checkpoint));
    auto *undo = makeRow(0);
    undo->setContentsMargins(15, 0, 15, 0);
    m_undo = new UndoBanner([this] { m_removals.undoWorkspaceRemoval(); });
    m_undo->setText(tr("Window positions replaced"));
    undo->addWidget(m_undo);
    column->addLayout(undo);
    auto *delegate = new ItemDelegate(icons, ItemDelegate::Lines::Two, ItemDelegate::Removal::None, this);
    m_list = new ItemList(tr("Saved windows"), m_model, delegate, card);
    m_list->hide();
    column->addWidget(m_list);
    auto *note = makeRow(0);
    note->setContentsMargins(15, 0, 15, 0);
    note->addWidget(makeParagraph(tr("Resume can optionally move matching windows back. Accessibility access is needed "
                                     "only for moving windows."),
                                  TextStyle::Small, Role::Dim));
    column->addLayout(note);
    m_disclosure->setCheckable(true);
    connect(m_disclosure, &QAbstractButton::toggled, this, [this](bool isOpen) {
        m_disclosure->setSymbol(isOpen ? "chevron.down" : "chevron.right");
        m_list->setVisible(isOpen);
    });
    m_subscriptions.watch([this, id = checkpoint.id] { showUndo(id); }, removals.lastRemoval);
}

void WindowLayoutSummary::showUndo(const QUuid &checkpointID)
{
    const std::optional<WorkspaceRemoval> &removal = m_removals.lastRemoval();
    m_undo->setVisible(removal && removal->checkpointID == checkpointID &&
                       std::holds_alternative<RemovedLayout>(removal->item.item));
}

QWidget *WindowLayoutSummary::makeHead(const Checkpoint &checkpoint)
{
    auto *head = new QWidget;
    auto *row = makeRow(10, head);
    row->setContentsMargins(15, 0, 15, 0);
    row->addWidget(new SymbolView("rectangle.3.group"), 0, Qt::AlignTop);
    auto *texts = makeColumn(1);
    texts->addWidget(makeLabel(tr("Window positions"), TextStyle::Strong));
    texts->addWidget(m_none);
    texts->addWidget(m_disclosure, 0, Qt::AlignLeft);
    row->addLayout(texts, 1);
    if (!checkpoint.isSample) {
        m_update = new Button({});
        connect(m_update, &QAbstractButton::clicked, this,
                [this, id = checkpoint.id] { m_workspace.addCurrentWindowLayout(id); });
        row->addWidget(m_update);
    }
    return head;
}

void WindowLayoutSummary::show(const Checkpoint &checkpoint)
{
    const QList<SavedWindow> windows = checkpoint.windows.value_or(QList<SavedWindow>());
    QList<ItemRow> rows;
    for (const SavedWindow &window : windows)
        rows.append(windowRow(window));
    m_model.setRows(rows);
    const bool hasWindows = !windows.isEmpty();
    m_none->setVisible(!hasWindows);
    m_disclosure->setVisible(hasWindows);
    m_disclosure->setText(tr("Show %n saved windows", "", static_cast<int>(windows.size())));
    m_disclosure->updateGeometry();
    m_list->setVisible(hasWindows && m_disclosure->isChecked());
    if (m_update) {
        m_update->setText(hasWindows ? tr("Update to current positions") : tr("Save current positions"));
        m_update->updateGeometry();
    }
}

} // namespace ardeno
