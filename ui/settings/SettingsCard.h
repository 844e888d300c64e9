// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/controls/Surfaces.h"

#include <QLabel>

namespace ardeno {

// A card of rows with thin lines between them: at the left a title with an explanation, at the right what is set.
class SettingsCard final : public Card {
public:
    SettingsCard();

    // What stands at the left of a row.
    struct Text {
        QString title = {};
        QString explanation = {};
        QString symbol = {};
    };

    // Returns the column at the left, for more.
    QVBoxLayout *addRow(const Text &text, const QList<QWidget *> &controls);

    // A row with contents of its own.
    QHBoxLayout *addPlainRow();

private:
    QVBoxLayout *m_column;
};

} // namespace ardeno
