// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/MediaRemoval.h"

#include "store/MediaFolders.h"

namespace ardeno {

std::optional<QString> MediaRemoval::allowed(const QString &root, const QUuid &checkpointID, const QString &recorded)
{
    const std::optional<QString> path = MediaFolders::fileOf(root, checkpointID, recorded);
    const QString folder = MediaFolders::own(root, checkpointID);
    if (!path || (MediaFolders::exists(folder) && !MediaFolders::isFolder(folder)) ||
        (MediaFolders::exists(*path) && !MediaFolders::isFile(*path)))
        return std::nullopt;
    return path;
}

MediaRemoval::MediaRemoval(const QString &path) : m_path(path), m_aside(MediaFolders::leaving(path)) {}

std::optional<Failure> MediaRemoval::begin()
{
    try {
        if (m_path.isEmpty() || !MediaFolders::exists(m_path))
            return std::nullopt;
    } catch (const Failure &failure) {
        return failure;
    }
    auto failure = MediaFolders::move(m_path, m_aside);
    m_isAside = !failure;
    return failure;
}

std::optional<Failure> MediaRemoval::putBack()
{
    return m_isAside ? MediaFolders::move(m_aside, m_path) : std::nullopt;
}

std::optional<Failure> MediaRemoval::bringBack(const QString &path)
{
    try {
        if (!MediaFolders::exists(MediaFolders::leaving(path)))
            return std::nullopt;
    } catch (const Failure &failure) {
        return failure;
    }
    return MediaFolders::move(MediaFolders::leaving(path), path);
}

std::optional<Failure> MediaRemoval::discard(const QString &path)
{
    const auto aside = MediaFolders::removeAll(MediaFolders::leaving(path));
    const auto placed = MediaFolders::removeAll(path);
    return aside ? aside : placed;
}

} // namespace ardeno
