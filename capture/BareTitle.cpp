// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/BareTitle.h"

#include <QRegularExpression>

#include <algorithm>

namespace ardeno {

namespace {

QString withoutMarks(QString text)
{
    static const QRegularExpression front(R"(^\s*(?:[*•●]|\[\*\]|\(\d+\+?\)\s)\s*)");
    static const QRegularExpression back(R"(\s*(?:[*•●]|\[\*\]|\s\+|[\[(]\d+\s*/\s*\d+[\])])\s*$)");
    static const QRegularExpression changed(R"(\s\+(?= \())"); // "notes.txt + (~/folder)"
    for (qsizetype length = -1; length != text.size();) {
        length = text.size();
        text.remove(front).remove(back);
    }
    return text.remove(changed).trimmed();
}

// Whether it is what the application calls itself, with a number or a remark: "GVIM1", "Geany (new instance)".
bool isName(const QString &text, const QStringList &applicationNames)
{
    static const QRegularExpression remark(R"(\s*\([^)]*\)$|\d+$)");
    const QString own = QString(text).remove(remark).trimmed();
    return own.size() > 1 && std::any_of(applicationNames.begin(), applicationNames.end(), [&](const QString &name) {
               return !name.isEmpty() &&
                      (own.contains(name, Qt::CaseInsensitive) || name.contains(own, Qt::CaseInsensitive));
           });
}

} // namespace

QString bareTitle(const QString &title, const QStringList &applicationNames)
{
    static const QRegularExpression lastPart(R"(\s+[-—–]\s+((?:(?!\s[-—–]\s).)+)$)");
    QString text = withoutMarks(title);
    const QRegularExpressionMatch match = lastPart.match(text);
    if (match.hasMatch() && isName(withoutMarks(match.captured(1)), applicationNames))
        text = withoutMarks(text.first(match.capturedStart()));
    return isName(text, applicationNames) ? QString() : text;
}

} // namespace ardeno
