// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/running/ProcessFacts.h"

#include "platform/linux/files/PathText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <array>
#include <climits>
#include <ctime>
#include <filesystem>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

namespace ardeno {

namespace {

// A value of an environment as the kernel shows it; empty when it is not set.
QByteArray environmentValue(const QByteArray &environment, const QByteArray &name)
{
    for (const QByteArray &variable : environment.split('\0')) {
        if (variable.startsWith(name + '='))
            return variable.mid(name.size() + 1);
    }
    return {};
}

// The session's manager writes "\x2d" for a "-" within a name.
QString unescaped(QString name)
{
    static const QRegularExpression escape(R"(\\x([0-9a-f]{2}))");
    for (auto match = escape.match(name); match.hasMatch(); match = escape.match(name, match.capturedStart() + 1))
        name.replace(match.capturedStart(), match.capturedLength(), QChar(match.captured(1).toInt(nullptr, 16)));
    return name;
}

// What an argument may name. The folders end in slashes.
QStringList meanings(const QByteArray &word, const QSet<QByteArray> &folders)
{
    if (word.isEmpty() || word.startsWith('-'))
        return {};
    QList<std::optional<QString>> paths = {PathText::fromAddress(word), PathText::fromBytes(word)};
    for (const QByteArray &folder : word.startsWith('/') ? QSet<QByteArray>() : folders)
        paths.append(PathText::fromBytes(folder + word));
    QStringList found;
    for (const auto &path : paths) {
        if (path)
            found.append(*path);
    }
    return found;
}

} // namespace

QByteArray ProcessFacts::read(const char *file) const
{
    constexpr qint64 longest = 1 << 20;
    QFile opened(m_folder + '/' + file);
    return opened.open(QIODevice::ReadOnly) ? opened.read(longest) : QByteArray();
}

// Qt would look at what the link leads to, which may lie on a disk that does not answer.
QByteArray ProcessFacts::link(const QByteArray &name) const
{
    std::array<char, PATH_MAX> text;
    const QByteArray path = QFile::encodeName(m_folder) + '/' + name;
    const ssize_t length = ::readlink(path.constData(), text.data(), text.size());
    return length > 0 ? QByteArray(text.data(), length) : QByteArray();
}

QList<qint32> ProcessFacts::running(const QString &processes)
{
    QList<qint32> numbers;
    for (const QString &name : QDir(processes).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (const qint32 number = name.toInt(); number > 0)
            numbers.append(number);
    }
    return numbers;
}

QString ProcessFacts::program() const
{
    constexpr QLatin1String replaced(" (deleted)"); // By a newer version.
    const QString path = QFile::decodeName(link("exe"));
    if (path.isEmpty())
        return QFile::decodeName(commandLine().split('\0').first());
    return path.endsWith(replaced) ? path.chopped(replaced.size()) : path;
}

QString ProcessFacts::name() const
{
    return QString::fromLocal8Bit(read("comm").trimmed());
}

QByteArray ProcessFacts::commandLine() const
{
    return read("cmdline");
}

QStringList ProcessFacts::arguments() const
{
    QStringList words;
    for (const QByteArray &word : commandLine().split('\0'))
        words.append(QString::fromLocal8Bit(word));
    if (!words.isEmpty())
        words.removeFirst();
    return words;
}

// Where the process is and where it was started; each ends in a slash.
QSet<QByteArray> ProcessFacts::workingFolders() const
{
    const QByteArray current = link("cwd");
    QSet<QByteArray> folders;
    for (const QByteArray &folder : {current, variable("PWD")}) {
        if (folder.startsWith('/'))
            folders.insert(folder + '/');
    }
    return folders;
}

QStringList ProcessFacts::pathArguments() const
{
    constexpr qsizetype most = 512;
    const QSet<QByteArray> folders = workingFolders();
    QStringList paths;
    for (const QByteArray &word : commandLine().split('\0').mid(1, most)) {
        for (const QString &path : meanings(word, folders)) {
            if ((PathText::isFile(path) || PathText::isFolder(path)) && !paths.contains(path))
                paths.append(path);
        }
    }
    return paths;
}

quint64 ProcessFacts::startTicks() const
{
    constexpr qsizetype startField = 19; // Counted from the state, behind the name, which may hold anything.
    const QByteArray facts = read("stat");
    return facts.mid(facts.lastIndexOf(')') + 2).split(' ').value(startField).toULongLong();
}

std::optional<Date> ProcessFacts::startTime() const
{
    const QByteArray facts = read("stat");
    timespec sinceBoot = {};
    if (facts.isEmpty() || ::clock_gettime(CLOCK_BOOTTIME, &sinceBoot) != 0)
        return std::nullopt;
    const double start = static_cast<double>(startTicks()) / static_cast<double>(::sysconf(_SC_CLK_TCK));
    return Date{Date::now().seconds - static_cast<double>(sinceBoot.tv_sec) + start};
}

bool ProcessFacts::isStopped() const
{
    const QByteArray facts = read("stat");
    return facts.mid(facts.lastIndexOf(')')).startsWith(") T"); // The name in front may hold anything.
}

bool ProcessFacts::isOwn() const
{
    struct stat facts = {};
    return ::stat(QFile::encodeName(m_folder).constData(), &facts) == 0 && facts.st_uid == ::getuid();
}

QByteArray ProcessFacts::variable(const QByteArray &name) const
{
    return environmentValue(read("environ"), name);
}

// Unlike QDir, this does not look at what the links lead to.
std::optional<QMap<int, QByteArray>> ProcessFacts::descriptors() const
{
    constexpr int most = 4096;
    std::error_code error;
    const std::filesystem::directory_iterator numbers((m_folder + "/fd").toStdString(), error);
    if (error)
        return std::nullopt;
    QMap<int, QByteArray> targets;
    for (const auto &entry : numbers) {
        const auto number = QByteArray::fromStdString(entry.path().filename().string());
        targets.insert(number.toInt(), link("fd/" + number));
        if (targets.size() == most)
            break;
    }
    return targets;
}

QString ProcessFacts::launchedDesktopFileID() const
{
    const QByteArray environment = read("environ");
    if (environmentValue(environment, "GIO_LAUNCHED_DESKTOP_FILE_PID") != QByteArray::number(m_processID))
        return {};
    const QString path = QString::fromLocal8Bit(environmentValue(environment, "GIO_LAUNCHED_DESKTOP_FILE"));
    const QString name = QFileInfo(path).fileName();
    return name.endsWith(".desktop") ? name.chopped(8) : QString();
}

QString ProcessFacts::scopeApplicationID() const
{
    for (const QByteArray &line : read("cgroup").split('\n')) {
        const QString id = applicationInControlGroup(QString::fromUtf8(line.mid(line.lastIndexOf(':') + 1)));
        if (!id.isEmpty())
            return id;
    }
    return {};
}

bool ProcessFacts::isAnyRunning(const QSet<QString> &programs)
{
    const QList<qint32> processes = running();
    return std::any_of(processes.begin(), processes.end(), [&](qint32 number) {
        const ProcessFacts facts(number);
        struct stat status = {};
        if (::stat(QFile::encodeName(facts.m_folder).constData(), &status) != 0)
            return false;
        // A process that hides its memory belongs to root there, and is looked at all the same.
        const bool mayBeOwn = status.st_uid == ::getuid() || status.st_uid == 0;
        const QString script = facts.arguments().value(0).section('/', -1);
        return mayBeOwn && (programs.contains(facts.program().section('/', -1)) || programs.contains(facts.name()) ||
                            programs.contains(script));
    });
}

QString ProcessFacts::applicationInControlGroup(const QString &path)
{
    // app[-LAUNCHER]-ID-RANDOM.scope, app[-LAUNCHER]-ID[@RANDOM].service, snap.PACKAGE.APP-RANDOM.scope
    static const QRegularExpression scope(R"(^app-(?:[^-]+-)?([^-]+)-[^-]+\.scope$)");
    static const QRegularExpression service(R"(^app-(?:[^-]+-)?([^-@]+)(?:@[^@]*)?\.service$)");
    static const QRegularExpression snap(R"(^snap\.([^.]+)\.([^.-]+)-[0-9a-f-]+\.scope$)");
    const QString unit = path.mid(path.lastIndexOf('/') + 1);
    for (const QRegularExpression &form : {scope, service}) {
        if (const auto match = form.match(unit); match.hasMatch())
            return unescaped(match.captured(1));
    }
    const auto match = snap.match(unit);
    return match.hasMatch() ? match.captured(1) + '_' + match.captured(2) : QString();
}

} // namespace ardeno
