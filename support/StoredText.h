// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>

namespace ardeno {

// Tells what is to be stored from what is shown, among the hints that translations are asked with.
inline constexpr const char *storedOnDisk = "stored on disk";

// A sentence for a record: in English whatever language its user speaks, and in the words of this desktop. With a
// number in the place of "%n", if there is one.
inline QString storedText(const char *text, qsizetype number = -1)
{
    return QCoreApplication::translate("ardeno::StoredText", text, storedOnDisk, static_cast<int>(number));
}

} // namespace ardeno
