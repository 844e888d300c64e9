// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/FileDescriptor.h"

#include <QSize>

#include <memory>
#include <optional>

namespace ardeno {

// Reads PNG files row by row, in the memory of a few rows: those with 8 bits of grey or red, green and blue, with or
// without transparency, which is shown over white, and not interlaced. That is what screenshots are.
class PngReader final {
public:
    // Absent when the file is anything else. Throws Failure when it cannot be read.
    static std::optional<PngReader> opened(FileDescriptor file);

    PngReader(PngReader &&) noexcept;
    PngReader &operator=(PngReader &&) noexcept;
    ~PngReader();

    QSize size() const;

    // The next of as many rows as the picture is high: pixels of 32 bits in memory order blue, green, red, unused. They
    // stay until the next call. Throws Failure when the file is damaged or cut short.
    const uchar *nextRow();

private:
    struct State;

    explicit PngReader(std::unique_ptr<State> state);

    std::unique_ptr<State> m_state;
};

} // namespace ardeno
