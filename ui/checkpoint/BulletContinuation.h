// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

// How a note behaves like a list while it is typed; pure. Positions and lengths count UTF-16 units.
namespace ardeno::BulletContinuation {

struct Selection {
    qsizetype location = 0;
    qsizetype length = 0;

    bool operator==(const Selection &) const = default;
};

// What to put in the place of a part of the text.
struct Edit {
    Selection range = {};
    QString replacement = {};

    bool operator==(const Edit &) const = default;
};

// What Return does: it continues the bullet of the caret's line, or ends the list on an empty bullet. Absent where
// Return is a plain line break.
std::optional<Edit> edit(const QString &text, const Selection &selection);

// What typing or pasting this string does to a note: the first text of an empty one becomes a list item, unless it
// brings a marker or lines of its own. A lone marker waits for what follows it. Absent where the string is inserted as
// it is.
std::optional<Edit> insertion(const QString &text, const Selection &selection, const QString &inserted);

} // namespace ardeno::BulletContinuation
