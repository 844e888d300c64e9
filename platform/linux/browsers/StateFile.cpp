// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/StateFile.h"

#include "support/FileDescriptor.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

namespace ardeno {

std::optional<StateFile> StateFile::read(const QString &path)
{
    constexpr qint64 largest = 64 << 20;
    // A pipe that somebody put there must not be waited for.
    const FileDescriptor file(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat facts = {};
    if (!file || ::fstat(file.number(), &facts) != 0 || !S_ISREG(facts.st_mode) || facts.st_size > largest)
        return std::nullopt;
    QFile opened;
    if (!opened.open(file.number(), QIODevice::ReadOnly))
        return std::nullopt;
    // It may have grown meanwhile; what is beyond the first size is left for the next time.
    return StateFile{opened.read(facts.st_size),
                     Date::fromDateTime(QDateTime::fromMSecsSinceEpoch(
                         facts.st_mtim.tv_sec * 1000LL + facts.st_mtim.tv_nsec / 1000000, Qt::UTC))};
}

} // namespace ardeno
