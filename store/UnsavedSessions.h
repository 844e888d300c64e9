// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Outcome.h"
#include "store/OwnedCheckpoint.h"

#include <QCoreApplication>

namespace ardeno {

// Work sessions whose checkpoints could not be written: they are kept beside their media and go into the library with
// its next change.
class UnsavedSessions final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::UnsavedSessions)

public:
    // The folder of the library.
    explicit UnsavedSessions(QString root) : m_root(std::move(root)) {}

    bool isEmpty() const { return m_sessions.isEmpty(); }

    Remark keep(const OwnedCheckpoint &unsaved);
    void addTo(WorkspaceLibrary *library) const;
    // Those that this library holds need no journal any more.
    void settle(const WorkspaceLibrary &written, Outcome *outcome);

    static Remark saved(const Checkpoint &session);

private:
    QString m_root;
    QList<OwnedCheckpoint> m_sessions = {};
};

} // namespace ardeno
