// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Preferences.h"

#include "support/Failure.h"
#include "support/OwnFile.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

namespace ardeno {

namespace {

// QSettings takes any bytes for settings, and would write over them.
bool areSettings(const QByteArray &bytes)
{
    const QList<QByteArray> lines = bytes.split('\n');
    return !bytes.contains('\0') && std::all_of(lines.begin(), lines.end(), [](const QByteArray &line) {
        const QByteArray text = line.trimmed();
        return text.isEmpty() || text.startsWith(';') || text.startsWith('#') || text.startsWith('[') ||
               text.indexOf('=') > 0;
    });
}

// A link to settings of the same name is somebody's way to keep them; any other leads to what is not ours.
bool isForeignLink(const QString &path)
{
    const QFileInfo file(path);
    return file.isSymLink() && QFileInfo(file.canonicalFilePath()).fileName() != file.fileName();
}

// What stands in the way of reading the file; empty when it can be read or does not exist.
QString obstacle(const QString &path)
{
    constexpr qint64 largest = 16 << 20;
    try {
        if (isForeignLink(path))
            return u"it is a link to something else"_qs;
        const auto bytes = OwnFile::read(path, largest, OwnFile::Links::Followed);
        if (bytes && !areSettings(*bytes))
            return u"it is damaged"_qs;
    } catch (const Failure &failure) {
        return failure.description();
    }
    return QSettings(path, QSettings::IniFormat).status() == QSettings::FormatError ? u"it is damaged"_qs : QString();
}

bool isRenamed(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

QString translated(const char *text)
{
    return QCoreApplication::translate("ardeno::Preferences", text);
}

} // namespace

Preferences::Preferences(const QString &folder) : m_folder(folder)
{
    QString path = folder + u"/settings.ini"_qs;
    if (const QString problem = obstacle(path); !problem.isEmpty()) {
        const QString time = QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd'T'HHmmss'Z'"_qs);
        const QString kept = folder + u"/settings-unreadable-%1.ini"_qs.arg(time);
        if (isRenamed(path, kept)) {
            m_unreadableNote =
                translated("Your settings could not be read (%1). They have been kept as %2.").arg(problem, kept);
        } else {
            m_unreadableNote = translated("Your settings could not be read (%1) nor moved away, so that changes to "
                                          "them are not kept.")
                                   .arg(problem);
            path = u"/dev/null/settings.ini"_qs; // Where nothing is ever read or written.
        }
    }
    m_settings = std::make_unique<QSettings>(path, QSettings::IniFormat);
}

QString Preferences::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/Ardeno"_qs;
}

bool Preferences::synchronise()
{
    if (!isUnlocked())
        return false;
    m_settings->sync();
    return m_settings->status() == QSettings::NoError;
}

// QSettings waits for half a minute, or for ever, for a lock that a killed process or another host has left. The
// settings need none: each change is written at once as a whole.
bool Preferences::isUnlocked() const
{
    const QByteArray lock = QFile::encodeName(m_settings->fileName() + u".lock"_qs);
    return std::remove(lock.constData()) == 0 || errno == ENOENT || errno == ENOTDIR;
}

void Preferences::write(const char *name, const QVariant &value)
{
    if (!isUnlocked())
        return;
    // QSettings writes its file readable for everyone, so the folder keeps others out.
    if (!QFile::exists(m_folder) && QDir().mkpath(m_folder))
        QFile::setPermissions(m_folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    if (value.isValid())
        m_settings->setValue(QString::fromLatin1(name), value);
    else
        m_settings->remove(QString::fromLatin1(name));
}

} // namespace ardeno
