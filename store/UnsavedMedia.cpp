// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/UnsavedMedia.h"

#include "store/MediaFolders.h"
#include "store/MediaStaging.h"
#include "support/AtomicFile.h"

#include <utility>

namespace ardeno {

UnsavedMedia::UnsavedMedia(QString root, QUuid checkpointID)
    : m_root(std::move(root)), m_id(checkpointID), m_folder(MediaFolders::unsaved(m_root, m_id))
{
}

UnsavedMedia::~UnsavedMedia()
{
    if (m_isKept)
        return;
    // At once out of sight, whatever is in it. What is left then, the next start removes.
    MediaStaging staging(m_root);
    try {
        staging.add(m_folder, m_id);
    } catch (const Failure &) {
        return;
    }
    staging.remove();
}

void UnsavedMedia::create() const
{
    AtomicFile::createFolder(m_folder);
}

void UnsavedMedia::adopt()
{
    const QString own = MediaFolders::own(m_root, m_id);
    if (const auto failure = MediaFolders::move(m_folder, own))
        throw Failure(*failure);
    m_folder = own;
}

} // namespace ardeno
