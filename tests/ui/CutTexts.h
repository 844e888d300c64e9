// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/controls/Button.h"
#include "ui/controls/DropDown.h"
#include "ui/controls/Fields.h"

#include <QLabel>
#include <QLineEdit>

namespace ardeno {

inline bool isLabelCut(const QLabel &label)
{
    return label.wordWrap() ? label.height() < label.heightForWidth(label.width())
                            : label.width() < label.sizeHint().width();
}

inline bool isButtonCut(const QAbstractButton &button)
{
    const bool isOurs = dynamic_cast<const Button *>(&button) || dynamic_cast<const DropDown *>(&button) ||
                        dynamic_cast<const Switch *>(&button);
    return isOurs && !button.text().isEmpty() && button.width() < button.sizeHint().width();
}

inline bool isPlaceholderCut(const QLineEdit &field)
{
    const int room = field.width() - field.textMargins().left() - field.textMargins().right();
    return field.text().isEmpty() && !field.placeholderText().isEmpty() &&
           room < field.fontMetrics().horizontalAdvance(field.placeholderText());
}

// The texts that do not fit among those that are seen, whatever kind of control shows them.
inline QStringList textsThatAreCut(const QWidget *window)
{
    QStringList cut;
    for (const QWidget *const widget : window->findChildren<QWidget *>()) {
        if (!widget->isVisible())
            continue;
        const auto *const label = qobject_cast<const QLabel *>(widget);
        const auto *const button = qobject_cast<const QAbstractButton *>(widget);
        const auto *const field = qobject_cast<const QLineEdit *>(widget);
        if (label && isLabelCut(*label))
            cut << label->text();
        else if (button && isButtonCut(*button))
            cut << button->text();
        else if (field && isPlaceholderCut(*field))
            cut << field->placeholderText();
    }
    return cut;
}

} // namespace ardeno
