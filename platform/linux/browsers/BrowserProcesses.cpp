// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/BrowserProcesses.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <tuple>
#include <utility>

namespace ardeno {

namespace {

// Browsers start many processes of the same program; only the first one has no such argument.
bool isHelper(const ProcessFacts &process)
{
    const QByteArray words = ' ' + process.commandLine().replace('\0', ' ');
    return words.size() == 1 || words.contains(" --type=") || words.contains(" -contentproc ") ||
           words.contains(" --headless");
}

bool isStateFile(const QString &path)
{
    static const QRegularExpression chromium(R"(/Sessions(_Encrypted)?/Session_\d+$)");
    return path.endsWith("/.parentlock") || chromium.match(path).hasMatch();
}

} // namespace

std::optional<KnownBrowser> BrowserProcesses::browserOf(qint32 processID)
{
    return BrowserIdentities::ofProgram(ProcessFacts(processID).program());
}

QList<BrowserProcess> BrowserProcesses::running(const QString &processFolder)
{
    QList<BrowserProcess> processes;
    for (const qint32 id : ProcessFacts::running(processFolder)) {
        const ProcessFacts facts(id, processFolder);
        const auto browser = BrowserIdentities::ofProgram(facts.program());
        if (!browser || !browser->family || !facts.isOwn() || isHelper(facts))
            continue;
        BrowserProcess process{
            .id = id, .browser = *browser, .startedAt = facts.startTime().value_or(Date()), .facts = facts};
        refresh(process);
        processes.append(std::move(process));
    }
    std::sort(processes.begin(), processes.end(), [](const BrowserProcess &a, const BrowserProcess &b) {
        return std::tie(a.startedAt, a.id) < std::tie(b.startedAt, b.id);
    });
    return processes;
}

void BrowserProcesses::refresh(BrowserProcess &process)
{
    const auto descriptors = process.facts.descriptors();
    process.isVisible = descriptors.has_value();
    process.openFiles.clear();
    for (const QByteArray &target : descriptors.value_or(QMap<int, QByteArray>())) {
        const QString path = QFile::decodeName(target);
        if (isStateFile(path) && !process.openFiles.contains(path))
            process.openFiles.append(path);
    }
    process.openFiles.sort();
}

QString BrowserProcesses::reachablePath(const BrowserProcess &process, const QString &path)
{
    return QFile::exists(path) ? path : process.facts.folder() + "/root" + path;
}

} // namespace ardeno
