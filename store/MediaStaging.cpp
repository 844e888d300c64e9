// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/MediaStaging.h"

#include "model/WorkspaceRecords.h"
#include "store/MediaFolders.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <sys/stat.h>

namespace ardeno {

namespace {

const QString prefix = ".deleting-";

} // namespace

MediaStaging::MediaStaging(const QString &root)
    : m_root(root), m_folder(root + '/' + prefix + uuidText(QUuid::createUuid()))
{
}

bool MediaStaging::isName(const QString &name)
{
    return name.startsWith(prefix) && !MediaFolders::idOfOwn(name.sliced(prefix.size())).isNull();
}

void MediaStaging::add(const QString &mediaFolder, const QUuid &checkpointID)
{
    if (!MediaFolders::exists(mediaFolder))
        return;
    if (!MediaFolders::isFolder(mediaFolder)) {
        m_link = Remains{mediaFolder, Failure::system(ENOTDIR)};
        return;
    }
    if (::mkdir(QFile::encodeName(m_folder).constData(), 0700) != 0 && errno != EEXIST)
        throw Failure::system(errno);
    if (const auto failure = MediaFolders::move(mediaFolder, MediaFolders::own(m_folder, checkpointID)))
        throw Failure(*failure);
}

std::optional<MediaStaging::Remains> MediaStaging::putBack()
{
    std::optional<Remains> first;
    try {
        for (const QString &name : MediaFolders::entries(m_folder)) {
            const auto failure = MediaFolders::move(m_folder + '/' + name, m_root + '/' + name);
            if (failure && !first)
                first = Remains{m_folder, *failure};
        }
    } catch (const Failure &failure) {
        first = Remains{m_folder, failure};
    }
    QDir().rmdir(m_folder); // Nothing happens when it holds anything.
    return first;
}

std::optional<MediaStaging::Remains> MediaStaging::remove()
{
    if (const auto failure = MediaFolders::removeAll(m_folder))
        return Remains{m_folder, *failure};
    return m_link;
}

} // namespace ardeno
