// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/controls/Button.h"

#include <QLabel>

namespace ardeno {

// The texts of labels and buttons that do not fit, among those that are seen.
inline QStringList textsThatAreCut(const QWidget *window)
{
    QStringList cut;
    for (const QLabel *const label : window->findChildren<QLabel *>()) {
        const bool isCut = label->wordWrap() ? label->height() < label->heightForWidth(label->width())
                                             : label->width() < label->sizeHint().width();
        if (label->isVisible() && isCut)
            cut << label->text();
    }
    for (const QAbstractButton *const candidate : window->findChildren<QAbstractButton *>()) {
        const auto *const button = dynamic_cast<const Button *>(candidate);
        if (button && !button->text().isEmpty() && button->isVisible() && button->width() < button->sizeHint().width())
            cut << button->text();
    }
    return cut;
}

} // namespace ardeno
