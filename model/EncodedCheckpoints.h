// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"
#include "json/Json.h"

#include <QByteArrayView>
#include <QList>

#include <memory>
#include <vector>

namespace ardeno {

// Checkpoints as they are on disk, each with its JSON, so that a save encodes only what has changed. A plain value: the
// bytes are shared between copies.
class EncodedCheckpoints final {
public:
    using ReadCheckpoints = QList<json::Verbatim<Checkpoint>>;

    EncodedCheckpoints() = default;
    // Takes over what was read from the bytes.
    EncodedCheckpoints(ReadCheckpoints read, const std::shared_ptr<const json::PaddedBytes> &bytes);

    const QList<Checkpoint> &records() const { return m_records; }

    // The given checkpoints; the JSON of those that are known and unchanged is taken over.
    EncodedCheckpoints updated(const QList<Checkpoint> &checkpoints) const;

    // Appends the elements of the JSON list, separated by commas. The views live as long as any copy of this.
    void appendTo(std::vector<QByteArrayView> &pieces) const;

private:
    struct Piece {
        QByteArrayView bytes = {}; // Empty: not encoded yet.
        std::shared_ptr<const void> owner = {};
    };

    void encodeMissing();

    QList<Checkpoint> m_records;
    std::vector<Piece> m_pieces; // One for each record.
};

} // namespace ardeno
