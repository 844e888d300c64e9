// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/items/ItemModel.h"

#include <QStringList>

#include <algorithm>

namespace ardeno {

void ItemModel::setRows(const QList<ItemRow> &rows)
{
    const qsizetype shorter = std::min(rows.size(), m_rows.size());
    qsizetype head = 0;
    while (head < shorter && rows.at(head) == m_rows.at(head))
        ++head;
    qsizetype tail = 0;
    while (tail < shorter - head && rows.at(rows.size() - 1 - tail) == m_rows.at(m_rows.size() - 1 - tail))
        ++tail;
    const qsizetype gone = m_rows.size() - head - tail;
    const qsizetype come = rows.size() - head - tail;
    if (gone > 0) {
        beginRemoveRows({}, static_cast<int>(head), static_cast<int>(head + gone - 1));
        m_rows.remove(head, gone);
        endRemoveRows();
    }
    if (come > 0) {
        beginInsertRows({}, static_cast<int>(head), static_cast<int>(head + come - 1));
        m_rows = rows;
        endInsertRows();
    }
}

int ItemModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant ItemModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const ItemRow &row = m_rows.at(index.row());
    if (role == Qt::DisplayRole)
        return row.title;
    if (role == Qt::ToolTipRole && !row.detail.isEmpty())
        return QString(row.title + '\n' + row.detail).toHtmlEscaped().replace('\n', "<br>");
    if (role != Qt::AccessibleTextRole)
        return {};
    QStringList parts{row.title, row.detail, row.trailing};
    parts.removeAll(QString());
    return parts.join(", ");
}

} // namespace ardeno
