// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>

#include <memory>

namespace ardeno::json {

// Bytes to be filled, with the room behind them that the parser may look at.
class PaddedBytes final {
public:
    // Throws std::bad_alloc.
    explicit PaddedBytes(qsizetype size);

    char *data() { return m_bytes.get(); }

    QByteArrayView view() const { return {m_bytes.get(), m_size}; }

private:
    std::unique_ptr<char[]> m_bytes;
    qsizetype m_size;
};

} // namespace ardeno::json
