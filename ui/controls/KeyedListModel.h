// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Identifiers.h"

#include <QAbstractListModel>
#include <QSet>
#include <QUuid>

#include <functional>

namespace ardeno {

// A list of records with an id each. New rows are taken over in as few steps as needed, so that a view keeps its place,
// its focus and a drag that is under way.
template <typename Row>
class KeyedListModel : public QAbstractListModel {
public:
    using Same = std::function<bool(const Row &, const Row &)>;

    // Same tells whether two rows of one id look alike.
    explicit KeyedListModel(Same same) : m_same(std::move(same)) {}

    const QList<Row> &rows() const { return m_rows; }

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }

    int rowOf(const QUuid &id) const
    {
        for (qsizetype i = 0; i < m_rows.size(); ++i) {
            if (m_rows.at(i).id == id)
                return static_cast<int>(i);
        }
        return -1;
    }

    QList<QUuid> ids() const
    {
        QList<QUuid> ids;
        ids.reserve(m_rows.size());
        for (const Row &row : m_rows)
            ids.append(row.id);
        return ids;
    }

    void setRows(const QList<Row> &rows)
    {
        if (changesOfPlace(rows) > mostSteps) {
            beginResetModel();
            m_rows = rows;
            endResetModel();
            return;
        }
        removeOthers(rows);
        for (qsizetype i = 0; i < rows.size(); ++i)
            place(rows.at(i), static_cast<int>(i));
    }

private:
    // More would take longer than to start anew.
    static constexpr qsizetype mostSteps = 40;

    // How many rows come, go or move, roughly.
    qsizetype changesOfPlace(const QList<Row> &rows) const
    {
        qsizetype same = 0;
        while (same < rows.size() && same < m_rows.size() && rows.at(same).id == m_rows.at(same).id)
            ++same;
        qsizetype tail = 0;
        while (tail < rows.size() - same && tail < m_rows.size() - same &&
               rows.at(rows.size() - 1 - tail).id == m_rows.at(m_rows.size() - 1 - tail).id)
            ++tail;
        return qMax(rows.size(), m_rows.size()) - same - tail;
    }

    void removeOthers(const QList<Row> &rows)
    {
        const QSet<QUuid> kept = idsOf(rows);
        for (int i = rowCount() - 1; i >= 0; --i) {
            if (kept.contains(m_rows.at(i).id))
                continue;
            this->beginRemoveRows({}, i, i);
            m_rows.removeAt(i);
            this->endRemoveRows();
        }
    }

    void place(const Row &row, int at)
    {
        if (at >= m_rows.size() || m_rows.at(at).id != row.id) {
            const int from = rowOf(row.id);
            if (from < 0) {
                this->beginInsertRows({}, at, at);
                m_rows.insert(at, row);
                this->endInsertRows();
                return;
            }
            this->beginMoveRows({}, from, from, {}, at);
            m_rows.move(from, at);
            this->endMoveRows();
        }
        if (m_same(m_rows.at(at), row))
            return;
        m_rows[at] = row;
        Q_EMIT this->dataChanged(this->index(at), this->index(at));
    }

    QList<Row> m_rows;
    Same m_same;
};

} // namespace ardeno
