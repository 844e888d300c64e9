// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/BrowserProcesses.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <filesystem>
#include <system_error>
#include <tuple>

namespace ardeno {

namespace {

// The link's text. QFile would resolve it against the folder and touch what it names.
QString linkText(const QString &path)
{
    std::array<char, 4096> text = {};
    const ssize_t length = ::readlink(QFile::encodeName(path).constData(), text.data(), text.size());
    return length < 0 ? QString() : QFile::decodeName(QByteArray(text.data(), length));
}

bool isOurs(const QString &folder)
{
    struct stat facts = {};
    return ::stat(QFile::encodeName(folder).constData(), &facts) == 0 && facts.st_uid == ::getuid();
}

// The path of the process's program; where the system does not show it, the command it was started with.
QString programOf(const QString &folder)
{
    constexpr qint64 longest = 4096;
    const QString program = linkText(folder + "/exe");
    if (!program.isEmpty())
        return program;
    QFile file(folder + "/cmdline");
    return file.open(QIODevice::ReadOnly) ? QFile::decodeName(file.read(longest).split('\0').first()) : QString();
}

// Browsers start many processes of the same program; only the first one has no such argument.
bool isHelper(const QString &folder)
{
    constexpr qint64 longest = 4096;
    QFile file(folder + "/cmdline");
    if (!file.open(QIODevice::ReadOnly))
        return true;
    const QByteArray words = ' ' + file.read(longest).replace('\0', ' ');
    return words.contains(" --type=") || words.contains(" -contentproc ") || words.contains(" --headless");
}

bool isSessionFile(const QString &path)
{
    static const QRegularExpression chromium(R"(/Sessions(_Encrypted)?/Session_\d+$)");
    return path.endsWith("/.parentlock") || chromium.match(path).hasMatch();
}

// The kernel counts from the start of the machine.
Date startOf(const QString &folder)
{
    constexpr qsizetype startField = 19; // Behind the name, which may contain anything.
    QFile file(folder + "/stat");
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray text = file.readAll();
    const double ticks = text.mid(text.lastIndexOf(')') + 2).split(' ').value(startField).toDouble();
    timespec sinceBoot = {};
    ::clock_gettime(CLOCK_BOOTTIME, &sinceBoot);
    const double age = static_cast<double>(sinceBoot.tv_sec) - ticks / static_cast<double>(::sysconf(_SC_CLK_TCK));
    return {Date::now().seconds - age};
}

} // namespace

std::optional<KnownBrowser> BrowserProcesses::browserOf(qint32 processID, const QString &processFolder)
{
    return BrowserIdentities::ofProgram(programOf(processFolder + '/' + QString::number(processID)));
}

QList<BrowserProcess> BrowserProcesses::running(const QString &processFolder)
{
    QList<BrowserProcess> processes;
    for (const QString &name : QDir(processFolder).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        bool isNumber = false;
        const qint32 id = name.toInt(&isNumber);
        const QString folder = processFolder + '/' + name;
        const auto browser = isNumber ? BrowserIdentities::ofProgram(programOf(folder)) : std::nullopt;
        if (!browser || !browser->family || !isOurs(folder) || isHelper(folder))
            continue;
        BrowserProcess process;
        process.browser = *browser;
        process.id = id;
        process.startedAt = startOf(folder);
        process.folder = folder;
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
    // Unlike QDir, this does not look at what the links lead to.
    std::error_code error;
    const std::filesystem::directory_iterator descriptors((process.folder + "/fd").toStdString(), error);
    process.isVisible = !error;
    process.openFiles.clear();
    for (const auto &descriptor : descriptors) {
        const QString path = linkText(QString::fromStdString(descriptor.path().string()));
        if (isSessionFile(path) && !process.openFiles.contains(path))
            process.openFiles.append(path);
    }
    process.openFiles.sort();
}

QString BrowserProcesses::reachablePath(const BrowserProcess &process, const QString &path)
{
    return QFile::exists(path) ? path : process.folder + "/root" + path;
}

} // namespace ardeno
