// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

namespace ardeno {

// Which column each row gets, each column once, so that the sum of the scores is the greatest; -1: none. Only positive
// scores count.
struct Assignment {
    QList<qsizetype> columns = {};
    qint64 sum = 0;

    static Assignment best(const QList<QList<qint64>> &scores);
};

} // namespace ardeno
