// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyledItemDelegate>

namespace ardeno {

class ThumbnailShelf;

// A checkpoint as a small card in the timeline.
class TimelineDelegate final : public QStyledItemDelegate {
public:
    TimelineDelegate(ThumbnailShelf &pictures, QObject *parent) : QStyledItemDelegate(parent), m_pictures(pictures) {}

    static constexpr QSize cardSize = QSize(280, 62);
    static constexpr int gap = 10;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    ThumbnailShelf &m_pictures;
};

// A checkpoint as a row of the manager: its picture, and a mark for its menu at the right.
class ManagerDelegate final : public QStyledItemDelegate {
public:
    ManagerDelegate(ThumbnailShelf &pictures, QObject *parent) : QStyledItemDelegate(parent), m_pictures(pictures) {}

    static constexpr int rowHeight = 56;
    static constexpr int menuInset = 12; // Between the menu's mark and the end of the row.

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    ThumbnailShelf &m_pictures;
};

} // namespace ardeno
