// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/ExclusionsFile.h"

#include "support/Failure.h"
#include "support/OwnFile.h"
#include "json/Json.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>

namespace ardeno {

namespace {

constexpr qint64 largestExclusions = 16 << 20; // Bytes.

StoredExclusions decoded(const QByteArray &bytes)
{
    try {
        return json::decode<StoredExclusions>(bytes);
    } catch (const Failure &failure) {
        throw Failure("Exclusions", 1, u"“exclusions.json” is damaged: "_qs + failure.description());
    }
}

} // namespace

std::optional<StoredExclusions> ExclusionsFile::read()
{
    const std::optional<FileStamp> now = FileStamp::ofFile(path());
    if (!now || now != m_stamp) {
        m_stamp.reset(); // Also when the file cannot be read.
        const auto bytes = OwnFile::read(path(), largestExclusions, OwnFile::Links::Followed);
        if (!bytes && QFileInfo(path()).isSymLink())
            throw Failure("Exclusions", 4, u"“exclusions.json” is a link to a file that is not there."_qs);
        if (!bytes)
            return std::nullopt;
        m_known = decoded(*bytes);
        m_stamp = now;
    }
    return m_known;
}

void ExclusionsFile::write(const StoredExclusions &exclusions)
{
    AtomicFile::createFolder(m_folder);
    const QByteArray bytes = json::encode(exclusions);
    const QByteArrayView pieces[] = {bytes};
    const auto written = AtomicFile::write(path(), pieces, [this] {
        if (FileStamp::ofFile(path()) != m_stamp)
            throw Failure("Exclusions", 2, u"“exclusions.json” has been changed by another program."_qs);
    });
    m_stamp = written.stamp;
    m_known = exclusions;
}

void ExclusionsFile::create(QByteArrayView bytes)
{
    AtomicFile::createFolder(m_folder);
    AtomicFile::writeNew(path(), [&](const auto &put) { put(bytes); });
}

std::optional<QString> ExclusionsFile::moveAside()
{
    const QString time = QDateTime::currentDateTimeUtc().toString("yyyyMMdd'T'HHmmss'Z'");
    QString kept = m_folder + u"/exclusions-unreadable-%1.json"_qs.arg(time);
    for (int i = 2; QFileInfo::exists(kept); ++i)
        kept = m_folder + u"/exclusions-unreadable-%1-%2.json"_qs.arg(time).arg(i);
    m_stamp.reset();
    if (std::rename(QFile::encodeName(path()).constData(), QFile::encodeName(kept).constData()) == 0)
        return kept;
    if (errno == ENOENT)
        return std::nullopt;
    throw Failure::system(errno, "exclusions.json");
}

} // namespace ardeno
