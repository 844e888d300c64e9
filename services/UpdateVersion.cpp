// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/UpdateVersion.h"

#include <algorithm>

namespace ardeno {

namespace {

qint64 partNumber(const QString &piece)
{
    // toLongLong alone would also take what has spaces around it.
    const auto isDigit = [](QChar character) { return character >= QChar('0') && character <= QChar('9'); };
    const bool isSigned = piece.startsWith('-') || piece.startsWith('+');
    return std::all_of(piece.begin() + (isSigned ? 1 : 0), piece.end(), isDigit) ? piece.toLongLong() : 0;
}

} // namespace

QList<qint64> UpdateVersion::parts(const QString &version)
{
    QList<qint64> parts;
    for (const QString &piece : version.split('.', Qt::SkipEmptyParts))
        parts.append(partNumber(piece));
    return parts;
}

bool UpdateVersion::isNewer(const QString &candidate, const QString &current)
{
    const QList<qint64> offered = parts(candidate);
    const QList<qint64> own = parts(current);
    for (qsizetype i = 0; i < std::max(offered.size(), own.size()); ++i) {
        if (offered.value(i) != own.value(i))
            return offered.value(i) > own.value(i);
    }
    return false;
}

} // namespace ardeno
