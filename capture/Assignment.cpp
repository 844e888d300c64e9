// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/Assignment.h"

#include <algorithm>
#include <limits>

namespace ardeno {

namespace {

constexpr qint64 farthest = std::numeric_limits<qint64>::max() / 4;

// Rows are taken in one after the other, each by the cheapest chain of changes to what was assigned before; prices of
// rows and columns keep the costs of all that are not assigned from being negative. Beside the columns there is one for
// each row that stands for none.
class CheapestAssignment final {
public:
    explicit CheapestAssignment(const QList<QList<qint64>> &scores)
        : m_scores(scores),
          m_columnCount((scores.isEmpty() ? 0 : scores.first().size()) + scores.size()),
          m_rowPrices(scores.size(), 0),
          m_columnPrices(m_columnCount, 0),
          m_owners(m_columnCount, -1)
    {
        for (qsizetype row = 0; row < scores.size(); ++row)
            takeIn(row);
    }

    // The row that has each column; -1: none.
    const QList<qsizetype> &owners() const { return m_owners; }

private:
    // How a chain reaches each column.
    struct Search {
        QList<qint64> distances;
        QList<qsizetype> before; // The column from which it is reached; -1: from the new row.
        QList<bool> isDone;
    };

    qint64 cost(qsizetype row, qsizetype column) const
    {
        return column < m_scores[row].size() ? -std::max<qint64>(m_scores[row][column], 0) : 0;
    }

    // The nearest column that is not done, after a step from this row.
    qsizetype step(Search *search, qsizetype row, qsizetype from) const
    {
        qsizetype nearest = -1;
        for (qsizetype column = 0; column < m_columnCount; ++column) {
            if (search->isDone[column])
                continue;
            const qint64 distance = cost(row, column) - m_rowPrices[row] - m_columnPrices[column];
            if (distance < search->distances[column]) {
                search->distances[column] = distance;
                search->before[column] = from;
            }
            if (nearest < 0 || search->distances[column] < search->distances[nearest])
                nearest = column;
        }
        return nearest;
    }

    void raisePrices(Search *search, qsizetype newRow, qint64 by)
    {
        m_rowPrices[newRow] += by;
        for (qsizetype column = 0; column < m_columnCount; ++column) {
            if (search->isDone[column]) {
                m_rowPrices[m_owners[column]] += by;
                m_columnPrices[column] -= by;
            } else if (search->distances[column] < farthest) {
                search->distances[column] -= by;
            }
        }
    }

    void takeIn(qsizetype newRow)
    {
        Search search{QList<qint64>(m_columnCount, farthest), QList<qsizetype>(m_columnCount, -1),
                      QList<bool>(m_columnCount, false)};
        qsizetype row = newRow;
        qsizetype column = -1;
        for (;;) {
            column = step(&search, row, column);
            raisePrices(&search, newRow, search.distances[column]);
            if (m_owners[column] < 0)
                break;
            search.isDone[column] = true;
            row = m_owners[column];
        }
        for (; column >= 0; column = search.before[column])
            m_owners[column] = search.before[column] < 0 ? newRow : m_owners[search.before[column]];
    }

    const QList<QList<qint64>> &m_scores;
    qsizetype m_columnCount;
    QList<qint64> m_rowPrices;
    QList<qint64> m_columnPrices;
    QList<qsizetype> m_owners;
};

} // namespace

Assignment Assignment::best(const QList<QList<qint64>> &scores)
{
    Assignment found;
    found.columns.fill(-1, scores.size());
    const CheapestAssignment cheapest(scores);
    for (qsizetype column = 0; column < cheapest.owners().size(); ++column) {
        const qsizetype row = cheapest.owners()[column];
        if (row < 0 || column >= scores[row].size() || scores[row][column] <= 0)
            continue;
        found.columns[row] = column;
        found.sum += scores[row][column];
    }
    return found;
}

} // namespace ardeno
