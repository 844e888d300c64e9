// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/documents/WindowTitles.h"

#include <QRegularExpression>
#include <QStringView>

#include <array>

namespace ardeno {

namespace {

bool isDash(QChar character)
{
    return QStringView(u"-—–|").contains(character);
}

bool isMark(QChar character)
{
    return QStringView(u"*•●").contains(character);
}

// The length of what separates a name from what follows: spaces, a dash, a space. 0 when there is none.
qsizetype separatorLength(QStringView text)
{
    qsizetype dash = 0;
    while (dash < text.size() && text[dash] == ' ')
        ++dash;
    const bool isSeparator = dash > 0 && dash + 1 < text.size() && isDash(text[dash]) && text[dash + 1] == ' ';
    return isSeparator ? dash + 2 : 0;
}

// The title from where a file's name may begin.
QStringView body(QStringView title, const QString &applicationName)
{
    const auto skipMarks = [&] {
        while (!title.isEmpty() && (isMark(title.front()) || title.front().isSpace()))
            title = title.sliced(1);
    };
    skipMarks();
    if (!applicationName.isEmpty() && title.startsWith(applicationName)) {
        const QStringView rest = title.sliced(applicationName.size());
        if (const qsizetype length = separatorLength(rest))
            title = rest.sliced(length);
        else if (rest.startsWith(u": "))
            title = rest.sliced(2);
    }
    skipMarks();
    return title;
}

// Whether a name may end where this rest of the title begins.
bool endsName(QStringView rest, bool hasEnding)
{
    if (rest.isEmpty() || separatorLength(rest) > 0)
        return true;
    const QStringView mark = rest.startsWith(' ') ? rest.sliced(1) : rest;
    if (!mark.isEmpty() && isMark(mark.front()) && (mark.size() == 1 || mark[1] == ' '))
        return true;
    // A name without an ending may go on like this: "notes (2).txt".
    return hasEnding && (rest.startsWith(u" (") || rest.startsWith(u" [") || rest.startsWith(u": "));
}

// The beginnings of a text at which a path may end, the longest first.
QStringList beginnings(QStringView text)
{
    constexpr qsizetype most = 16;
    QStringList found = {text.toString()};
    for (qsizetype end = text.size() - 1; end > 0 && found.size() < most; --end) {
        const QStringView rest = text.sliced(end);
        const bool isEnd = endsName(rest, true) || rest.front() == ')' || rest.front() == ']';
        if (isEnd && text[end - 1] != ' ')
            found.append(text.first(end).toString());
    }
    return found;
}

bool isPath(QStringView text)
{
    return text.startsWith('/') || text.startsWith(u"~/");
}

QString expanded(const QString &path, const QString &home)
{
    return path == "~" || path.startsWith("~/") ? home + path.mid(1) : path;
}

// Of "NAME (FOLDER) …", "NAME [FOLDER]" and "NAME - FOLDER - …".
QStringList pathsOfNameAndFolder(QStringView text, const QString &home)
{
    static const QRegularExpression opening(R"( (?:[\(\[]|[-—–] )(?=[~/]))");
    const QRegularExpressionMatch match = opening.match(text.toString());
    if (!match.hasMatch() || match.capturedStart() == 0)
        return {};
    QString name = text.first(match.capturedStart()).toString();
    if (isMark(name.back()))
        name = name.chopped(1).trimmed();
    QStringList found;
    for (const QString &folder : beginnings(text.sliced(match.capturedEnd()))) {
        if (folder == "~" || isPath(folder))
            found.append(expanded(folder, home) + '/' + name);
    }
    return found;
}

} // namespace

bool WindowTitles::namesFile(const QString &title, const QString &baseName, const QString &applicationName)
{
    if (baseName.isEmpty())
        return false;
    const bool hasEnding = baseName.lastIndexOf('.') > 0;
    const auto begins = [&](QStringView text) {
        return text.startsWith(baseName) && endsName(text.sliced(baseName.size()), hasEnding);
    };
    return begins(title) || begins(body(title, applicationName));
}

QStringList WindowTitles::paths(const QString &title, const QString &applicationName, const QString &home)
{
    const QStringView text = body(title, applicationName);
    if (!isPath(text))
        return pathsOfNameAndFolder(text, home);
    QStringList found;
    for (const QString &path : beginnings(text))
        found.append(expanded(path, home));
    return found;
}

bool WindowTitles::looksLikeFile(const QString &title)
{
    static const QRegularExpression ending(R"(\w\.[A-Za-z][A-Za-z0-9]{0,7}(?![\w.]))");
    return ending.match(title).hasMatch();
}

QString WindowTitles::folderName(const QString &title, const QString &applicationID, const QString &applicationName)
{
    struct Ending {
        QStringView applicationID;
        QStringView text;
    };

    static constexpr std::array endings = {
        Ending{u"thunar", u" - Thunar"},     Ending{u"org.kde.dolphin", u" — Dolphin"},
        Ending{u"caja", u" - Caja"},         Ending{u"caja", u" - File Browser"},
        Ending{u"caja-browser", u" - Caja"}, Ending{u"caja-browser", u" - File Browser"},
    };
    for (const Ending &ending : endings) {
        if (applicationID == ending.applicationID && title.endsWith(ending.text))
            return title.chopped(ending.text.size());
    }
    for (const QStringView dash : {u" - ", u" — ", u" – "}) {
        const QString ending = dash.toString() + applicationName;
        if (!applicationName.isEmpty() && title.endsWith(ending))
            return title.chopped(ending.size());
    }
    return title;
}

} // namespace ardeno
