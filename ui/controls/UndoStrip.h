// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/controls/Ground.h"

#include <functional>

namespace ardeno {

class LineLabel;

// Says what was taken away, with a button that brings it back. Its owner shows it as long as that is possible.
class UndoStrip final : public Card {
public:
    explicit UndoStrip(std::function<void()> undo);

    void setText(const QString &text);

private:
    LineLabel *m_text;
};

} // namespace ardeno
