// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/checkpoint/BulletContinuation.h"

#include <QRegularExpression>

namespace ardeno {

namespace {

const QString bullet = u"• "_qs;

bool isLoneMarker(const QString &text)
{
    return text.size() == 1 && QString(u"•*-"_qs).contains(text.front());
}

QString lineAt(const QString &text, qsizetype start)
{
    const qsizetype end = text.indexOf('\n', start);
    return text.mid(start, end < 0 ? -1 : end - start);
}

} // namespace

std::optional<BulletContinuation::Edit> BulletContinuation::edit(const QString &text, const Selection &selection)
{
    const qsizetype caret = selection.location;
    if (caret < 0 || caret > text.size() || selection.length < 0 || selection.length > text.size() - caret)
        return std::nullopt;
    const qsizetype start = caret == 0 ? 0 : text.lastIndexOf('\n', caret - 1) + 1;
    static const QRegularExpression markerPattern(u"^[ \\t]*[•*-] "_qs);
    const QString marker = markerPattern.match(text.mid(start, caret - start)).captured();
    if (marker.isEmpty())
        return std::nullopt;
    if (selection.length == 0 && isLoneMarker(lineAt(text, start).trimmed()))
        return Edit{{start, caret - start}, {}};
    return Edit{selection, '\n' + marker};
}

std::optional<BulletContinuation::Edit> BulletContinuation::insertion(const QString &text, const Selection &selection,
                                                                      const QString &inserted)
{
    if (inserted.isEmpty() || inserted.contains('\n'))
        return std::nullopt;
    const bool followsMarker =
        isLoneMarker(text) && selection == Selection{1, 0} && !inserted.front().isSpace() && inserted.front() != text;
    if (followsMarker)
        return Edit{{0, 1}, bullet + text + inserted};
    const bool bringsMarker = inserted.startsWith(bullet) || inserted.startsWith("- ") || inserted.startsWith("* ");
    if (!text.isEmpty() || bringsMarker || isLoneMarker(inserted))
        return std::nullopt;
    return Edit{{0, 0}, bullet + inserted};
}

} // namespace ardeno
