// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/applications/ApplicationNames.h"

#include <QRegularExpression>

#include <algorithm>

namespace ardeno {

namespace {

// What stands behind the last of these characters, unless it is a version.
void insertLastPart(const QString &name, const QRegularExpression &separator, QSet<QString> &names)
{
    static const QRegularExpression version(R"(^[\d.]*$)");
    const QString last = name.mid(name.lastIndexOf(separator) + 1);
    if (!version.match(last).hasMatch())
        names.insert(last);
}

} // namespace

QString ApplicationNames::folded(const QString &name)
{
    const QString lower = name.trimmed().toLower();
    if (lower.contains('/'))
        return {};
    return lower.endsWith(".desktop") ? lower.chopped(8) : lower;
}

QSet<QString> ApplicationNames::ofApplication(const QString &id)
{
    static const QRegularExpression separator("[._]");
    const QString name = folded(id);
    QSet<QString> names;
    if (!name.isEmpty())
        names.insert(name);
    insertLastPart(name, separator, names);
    return names;
}

QSet<QString> ApplicationNames::ofWindow(const QString &name)
{
    constexpr qsizetype fewestDashes = 2;
    static const QRegularExpression dash("-");
    QSet<QString> names = ofApplication(name);
    const QString lower = folded(name);
    if (lower.count('-') >= fewestDashes && !lower.contains('.'))
        insertLastPart(lower, dash, names);
    return names;
}

QSet<QString> ApplicationNames::imaginable(const QString &name)
{
    static const QRegularExpression word("[-._ ]");
    static const QRegularExpression version(R"([-._ ]?\d[\d.]*$)");
    QSet<QString> names = ofApplication(name);
    const QString lower = folded(name);
    insertLastPart(lower, word, names);
    const QString unversioned = QString(lower).remove(version);
    if (!unversioned.isEmpty())
        names.insert(unversioned);
    return names;
}

bool ApplicationNames::runsOthers(const QString &program)
{
    static const QRegularExpression runners(
        R"(^(ba|da|z|k|)sh$|^(env|nice|sudo|pkexec|flatpak|bwrap|snap|java|gjs|node|electron|mono|wine)\d*$|)"
        R"(^wine(64)?-preloader$|^(python|perl|ruby|lua|php|tclsh|wish)[\d.]*$)");
    return runners.match(program.section('/', -1)).hasMatch();
}

QSet<QString> ApplicationNames::ofCommand(const QString &program, const QStringList &arguments)
{
    constexpr qsizetype most = 16;
    static const QRegularExpression ending(R"(\.(jar|py|pl|rb|js|sh|exe|asar)$)");
    if (!runsOthers(program))
        return imaginable(program.section('/', -1));
    QSet<QString> names;
    for (const QString &argument : arguments.first(std::min(most, arguments.size()))) {
        const QString word = argument.section('/', -1).section('\\', -1);
        if (!argument.startsWith('-'))
            names += imaginable(folded(word).remove(ending));
    }
    return names;
}

} // namespace ardeno
