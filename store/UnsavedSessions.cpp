// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/UnsavedSessions.h"

#include "store/MediaFolders.h"
#include "store/ProjectOrder.h"
#include "store/SessionJournal.h"
#include "store/Subjects.h"
#include "support/Identifiers.h"

#include <utility>

namespace ardeno {

Remark UnsavedSessions::saved(const Checkpoint &session)
{
    return {.sentence = tr("Your work session “%1” has been saved now.").arg(session.title),
            .subject = subjects::about("session", session.id)};
}

Remark UnsavedSessions::keep(const OwnedCheckpoint &unsaved)
{
    m_sessions.append(unsaved);
    const Checkpoint &session = unsaved.checkpoint;
    return {.sentence = tr("Your work session “%1” is kept in %2 and will be saved as soon as the library can be "
                           "written.")
                            .arg(session.title, MediaFolders::own(m_root, session.id)),
            .subject = subjects::about("session", session.id),
            .hasUnsavedSession = true};
}

void UnsavedSessions::addTo(WorkspaceLibrary *library) const
{
    const QSet<QUuid> existing = idsOf(library->checkpoints);
    for (const OwnedCheckpoint &session : m_sessions) {
        if (existing.contains(session.checkpoint.id))
            continue;
        library->checkpoints.prepend(session.checkpoint);
        if (session.project)
            library->checkpoints.first().projectID = ProjectOrder::adopt(&library->projects, *session.project);
    }
}

void UnsavedSessions::settle(const WorkspaceLibrary &written, Outcome *outcome)
{
    const QSet<QUuid> ids = idsOf(written.checkpoints);
    for (const auto &[session, project] : std::exchange(m_sessions, {})) {
        if (!ids.contains(session.id))
            continue; // It was to be deleted.
        SessionJournal::remove(MediaFolders::own(m_root, session.id));
        outcome->remarks += saved(session);
    }
}

} // namespace ardeno
