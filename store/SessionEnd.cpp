// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/SessionEnd.h"

#include "store/MediaFolders.h"

#include <QFile>

#include <utility>

namespace ardeno {

const QString SessionEnd::note = "Workspace captured at the end of your session.";

SessionEnd::SessionEnd(Desktop &desktop, const Library &library, ExclusionRules &rules, WorkspaceCollector &collector)
    : m_desktop(desktop), m_library(library), m_rules(rules), m_collector(collector)
{
}

QCoro::Task<void> SessionEnd::capture(Checkpoint *checkpoint, bool withTabs)
{
    if (m_rules.exclusionsObstacle())
        checkpoint->captureNote = "Workspace captured at the start of your session; at its end your capture exclusions "
                                  "could not be read.";
    else
        co_await captureWorkspace(checkpoint, withTabs);
    const QString folder = MediaFolders::own(m_library.storageFolder(), checkpoint->id);
    if (!checkpoint->recording && QFile::exists(folder + '/' + MediaFile::recording))
        checkpoint->captureNote +=
            u" The recording broke off; what there is of it is kept with the media as %1."_qs.arg(
                QString(MediaFile::recording));
}

QCoro::Task<void> SessionEnd::captureWorkspace(Checkpoint *checkpoint, bool withTabs)
{
    Checkpoint end = *checkpoint;
    QString limits;
    bool hasPicture = true;
    try {
        co_await m_collector.fill(&end, m_library.mediaFolder(end.id), withTabs, &limits);
    } catch (...) {
        hasPicture = false; // The note says so.
    }
    if (!hasPicture && !m_desktop.workspace->availability().isAvailable()) {
        // Nothing can be seen any more, which does not mean that nothing was there.
        checkpoint->captureNote = "Workspace captured at the start of your session; at its end the desktop had gone.";
        co_return;
    }
    const bool hadTabs = !checkpoint->tabs.isEmpty();
    *checkpoint = std::move(end);
    checkpoint->captureNote = note + limits;
    if (hadTabs && !withTabs)
        checkpoint->captureNote += " Browser capture was off by then.";
    if (!hasPicture)
        checkpoint->captureNote += " The screenshot is from the start of the session.";
}

} // namespace ardeno
