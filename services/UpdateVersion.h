// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace ardeno {

// The order of dotted versions.
namespace UpdateVersion {

// The numbers between the dots; empty pieces are left out, and what is no number as a whole counts as 0.
QList<qint64> parts(const QString &version);

// A missing part counts as 0, so "1.2" and "1.2.0" are equal.
bool isNewer(const QString &candidate, const QString &current);

} // namespace UpdateVersion

} // namespace ardeno
