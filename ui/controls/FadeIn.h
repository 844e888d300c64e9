// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/theme/AppTheme.h"

#include <QWidget>

#include <chrono>

namespace ardeno::FadeIn {

// Lets what has just come appear softly out of this background; at once with reduced motion. Keys, clicks and screen
// readers find it from the beginning.
void begin(QWidget *shown, Role background, qreal radius = 0);

// The same whenever the widget is shown.
void follow(QWidget *widget, Role background);

// How long it takes; none at all: nothing fades.
void setDuration(std::chrono::milliseconds duration);

} // namespace ardeno::FadeIn
