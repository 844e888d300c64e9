// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/EncodedCheckpoints.h"

#include "json/SameRecord.h"

#include <QHash>

#include <utility>

namespace ardeno {

EncodedCheckpoints::EncodedCheckpoints(ReadCheckpoints read, const std::shared_ptr<const json::PaddedBytes> &bytes)
{
    m_records.reserve(read.size());
    m_pieces.reserve(static_cast<size_t>(read.size()));
    for (json::Verbatim<Checkpoint> &checkpoint : read) {
        m_records.append(std::move(checkpoint.value));
        m_pieces.push_back({checkpoint.source, bytes});
    }
}

EncodedCheckpoints EncodedCheckpoints::updated(const QList<Checkpoint> &checkpoints) const
{
    QHash<QUuid, qsizetype> places;
    places.reserve(m_records.size());
    for (qsizetype i = 0; i < m_records.size(); ++i)
        places.insert(m_records[i].id, i);

    EncodedCheckpoints next;
    next.m_records = checkpoints;
    next.m_pieces.resize(static_cast<size_t>(checkpoints.size()));
    for (qsizetype i = 0; i < checkpoints.size(); ++i) {
        const qsizetype known = places.value(checkpoints[i].id, -1);
        if (known >= 0 && isSame(checkpoints[i], m_records[known]))
            next.m_pieces[static_cast<size_t>(i)] = m_pieces[static_cast<size_t>(known)];
    }
    next.encodeMissing();
    return next;
}

void EncodedCheckpoints::encodeMissing()
{
    // All go into one buffer, whose pieces have their place only when it no longer grows.
    const auto buffer = std::make_shared<QByteArray>();
    std::vector<std::pair<size_t, qsizetype>> ends; // Which piece, and where it ends.
    for (size_t i = 0; i < m_pieces.size(); ++i) {
        if (!m_pieces[i].bytes.isEmpty())
            continue;
        json::append(*buffer, m_records.at(static_cast<qsizetype>(i)));
        ends.emplace_back(i, buffer->size());
    }
    buffer->squeeze();
    qsizetype start = 0;
    for (const auto &[piece, end] : ends) {
        m_pieces[piece] = {QByteArrayView(*buffer).sliced(start, end - start), buffer};
        start = end;
    }
}

void EncodedCheckpoints::appendTo(std::vector<QByteArrayView> &pieces) const
{
    bool isFirst = true;
    for (const Piece &piece : m_pieces) {
        if (!std::exchange(isFirst, false))
            pieces.emplace_back(",");
        pieces.push_back(piece.bytes);
    }
}

} // namespace ardeno
