// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Preferences.h"

#include "support/Failure.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace ardeno {

namespace {

// What stands in the way of reading the file; empty when it can be read or does not exist.
QString obstacle(const QString &path)
{
    QFile file(path);
    if (file.exists() && !file.open(QIODevice::ReadOnly))
        return file.errorString();
    return QSettings(path, QSettings::IniFormat).status() == QSettings::FormatError ? u"it is damaged"_qs : QString();
}

} // namespace

Preferences::Preferences(const QString &folder) : m_folder(folder)
{
    const QString path = folder + u"/settings.ini"_qs;
    if (const QString problem = obstacle(path); !problem.isEmpty()) {
        const QString time = QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd'T'HHmmss'Z'"_qs);
        const QString kept = folder + u"/settings-unreadable-%1.ini"_qs.arg(time);
        QFile::rename(path, kept);
        m_unreadableNote = u"Your settings could not be read (%1). They have been kept as %2."_qs.arg(problem, kept);
    }
    m_settings = std::make_unique<QSettings>(path, QSettings::IniFormat);
}

QString Preferences::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/Ardeno"_qs;
}

bool Preferences::synchronise()
{
    m_settings->sync();
    return m_settings->status() == QSettings::NoError;
}

void Preferences::write(const char *name, const QVariant &value)
{
    // QSettings writes its file readable for everyone, so the folder keeps others out.
    if (!QFile::exists(m_folder) && QDir().mkpath(m_folder))
        QFile::setPermissions(m_folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    if (value.isValid())
        m_settings->setValue(QString::fromLatin1(name), value);
    else
        m_settings->remove(QString::fromLatin1(name));
}

} // namespace ardeno
