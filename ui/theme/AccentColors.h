// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/theme/AppTheme.h"

namespace ardeno {

// The colours that are made of an accent which somebody chose for all applications.
struct AccentColors {
    // What they lie on.
    struct Grounds {
        QColor paper = {};
        QColor sidebar = {};
        Scheme scheme = Scheme::Light;
        double leastContrast = 4.5; // Of letters in the accent.
    };

    QColor fill = {}; // White letters can be read on it.
    QColor soft = {};
    QColor text = {}; // Can be read on the grounds, also where the soft colour lies over them.

    // As near to what was chosen as can be read.
    static AccentColors fitted(const QColor &chosen, const Grounds &grounds);
};

// From 1 to 21, as it is counted for letters on a background. Both are opaque.
double contrastBetween(const QColor &a, const QColor &b);

} // namespace ardeno
