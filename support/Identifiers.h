// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QSet>

#include <type_traits>
#include <utility>

namespace ardeno {

// What each of these records is known by.
template <typename Record>
auto idsOf(const QList<Record> &records)
{
    QSet<std::remove_cvref_t<decltype(std::declval<Record>().id)>> ids;
    ids.reserve(records.size());
    for (const Record &record : records)
        ids.insert(record.id);
    return ids;
}

} // namespace ardeno
