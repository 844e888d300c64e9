// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"

#include <QHash>
#include <QSet>

namespace ardeno {

// Finds projects by the titles of their checkpoints, fast enough to be asked with every key: all titles of a project
// are kept folded in one text, which is made anew when the list of checkpoints has changed.
class ProjectSearch final {
public:
    // The projects with a checkpoint whose title contains this, compared as names are. Not for an empty text.
    const QSet<QUuid> &withTitle(const QString &part, const QList<Checkpoint> &checkpoints);

private:
    void index(const QList<Checkpoint> &checkpoints);

    QList<Checkpoint> m_indexed; // The list itself tells whether it is still the same one.
    QHash<QUuid, QString> m_titles;
    QString m_part;
    QString m_folded; // The same, folded.
    QSet<QUuid> m_found;
};

} // namespace ardeno
