// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class QWidget;

namespace ardeno {

// The pieces of text that a widget and what it holds draw, whoever draws them: labels, rows of lists, fields.
QStringList drawnTexts(QWidget &widget);

} // namespace ardeno
