// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractListModel>
#include <QString>

namespace ardeno {

// Something that a checkpoint saved, as a row shows it.
struct ItemRow {
    QString key = {}; // The same for the same item.
    QString title = {};
    QString detail = {};   // Below the title, when there is one.
    QString trailing = {}; // At the right.
    QString symbol = {};
    QString appID = {}; // Whose icon takes the symbol's place.

    bool operator==(const ItemRow &) const = default;
};

// The rows of one list. What stays the same stays where it is, and keeps the focus.
class ItemModel final : public QAbstractListModel {
public:
    void setRows(const QList<ItemRow> &rows);

    const QList<ItemRow> &rows() const { return m_rows; }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    QList<ItemRow> m_rows;
};

} // namespace ardeno
