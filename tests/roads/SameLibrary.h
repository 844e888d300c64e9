// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace ardeno::SameLibrary {

// What two libraries have in common that were made by doing the same: everything but identifiers and times, and of
// pictures whether they were taken or what was imported.
QByteArray of(const QString &root);

} // namespace ardeno::SameLibrary
