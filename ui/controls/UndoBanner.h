// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/controls/Surfaces.h"

#include <functional>

namespace ardeno {

class LineLabel;

// Says what was taken away, with a button that brings it back. Its owner shows it as long as that is possible.
class UndoBanner final : public Card {
public:
    explicit UndoBanner(std::function<void()> undo);

    void setText(const QString &text);

protected:
    // From then on its place is kept: what stands below would move under the pointer that has just pressed the button.
    void showEvent(QShowEvent *event) override;

private:
    LineLabel *m_text;
};

} // namespace ardeno
