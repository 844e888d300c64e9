// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/applications/DesktopFileSummary.h"

#include <glib.h>

#include <memory>

namespace ardeno {

namespace {

// The words of an "Exec" line without its field codes ("%U").
QStringList commandWords(const QByteArray &line)
{
    int count = 0;
    char **words = nullptr;
    if (!g_shell_parse_argv(line.constData(), &count, &words, nullptr))
        return {};
    const std::unique_ptr<char *, decltype(&g_strfreev)> owner(words, g_strfreev);
    QStringList result;
    for (int i = 0; i < count; ++i) {
        const QString word = QString::fromUtf8(words[i]);
        if (!word.startsWith('%') || word.startsWith("%%"))
            result.append(word);
    }
    return result;
}

void apply(const QByteArray &key, const QByteArray &value, DesktopFileSummary &summary)
{
    const bool yes = value == "true" || value == "1";
    if (key == "Name") {
        summary.name = QString::fromUtf8(value);
    } else if (key == "StartupWMClass") {
        summary.windowClass = QString::fromUtf8(value);
    } else if (key == "TryExec") {
        summary.neededProgram = QString::fromUtf8(value);
    } else if (key == "Hidden") {
        summary.isHidden = yes;
    } else if ((key == "NoDisplay" || key == "Terminal") && yes) {
        summary.hasWindows = false;
    } else if (key == "Exec") {
        // A backslash is written twice, once for the file and once for the shell.
        summary.arguments = commandWords(QByteArray(value).replace("\\\\", "\\"));
        summary.program = summary.arguments.isEmpty() ? QString() : summary.arguments.takeFirst();
    }
}

} // namespace

DesktopFileSummary DesktopFileSummary::parsed(const QByteArray &text)
{
    DesktopFileSummary summary;
    bool inEntry = false;
    qsizetype start = 0;
    while (start < text.size()) {
        qsizetype end = text.indexOf('\n', start);
        if (end < 0)
            end = text.size();
        const QByteArray line = QByteArray::fromRawData(text.constData() + start, end - start);
        start = end + 1;
        if (line.startsWith('[')) {
            if (inEntry)
                break;
            inEntry = line.startsWith("[Desktop Entry]");
            continue;
        }
        const qsizetype equals = line.indexOf('=');
        // Most lines are translations: "Name[de]=…".
        if (inEntry && equals > 0 && line[equals - 1] != ']')
            apply(line.left(equals).trimmed(), line.mid(equals + 1).trimmed(), summary);
    }
    return summary;
}

} // namespace ardeno
