// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/controls/PlainList.h"
#include "ui/items/ApplicationIcons.h"
#include "ui/sheets/RestoreListModel.h"

namespace ardeno {

// Draws the rows of the restore sheet: each section is a card below its heading.
class RestoreDelegate final : public QStyledItemDelegate {
public:
    RestoreDelegate(ApplicationIcons &icons, QObject *parent) : QStyledItemDelegate(parent), m_icons(icons) {}

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    static int heightOf(const RestoreRow &row);

private:
    void paintItem(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    void paintMarks(QPainter *painter, const QRectF &area, const QModelIndex &index) const;

    ApplicationIcons &m_icons;
};

// The rows of the restore sheet. A click or the space bar ticks; Return is left to the sheet.
class RestoreList final : public PlainList {
public:
    RestoreList(Applications &applications, RestoreListModel &model);

    // What the rows have to share.
    static constexpr int contentWidth = 584;

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    RestoreListModel &m_model;
    ApplicationIcons m_icons;
};

} // namespace ardeno
