// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Operations.h"

#include <QTimer>

namespace ardeno {

// A text that was typed into a note and could not be written yet.
struct UnsavedNote {
    QUuid checkpointID = {};
    QString field = {}; // As the record calls it.
    QString text = {};

    bool operator==(const UnsavedNote &) const = default;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"checkpointID", &UnsavedNote::checkpointID},
            Field{"field", &UnsavedNote::field},
            Field{"text", &UnsavedNote::text},
        };
    }
};

// Changes the texts of a saved checkpoint. A write that fails leaves it as it was, and what was typed is kept.
class CheckpointEditing final {
public:
    template <typename T>
    using Published = PublishedBy<T, CheckpointEditing>;

    Published<QList<UnsavedNote>> unsavedNotes; // They are written as soon as that is possible.

    CheckpointEditing(Operations &operations, Library &library, Navigation &navigation, Preferences &preferences);

    // Takes up what an earlier run could not write, and keeps unsaved notes across starts from now on.
    void start();

    // Writes a checkpoint as it is and shows its page.
    Outcome save(Checkpoint checkpoint);
    // The field is title, objective, decision or nextStep; the text is kept as it is.
    // What cannot be written is kept in unsavedNotes, also across starts, and tried again.
    Outcome updateNote(QString Checkpoint::*field, const QString &text, QUuid checkpointID);
    // The text as it was typed last, whether it is written or not.
    QString noteText(QString Checkpoint::*field, const Checkpoint &checkpoint) const;
    // Tries now, without a word about another failure.
    void saveUnsavedNotes();

private:
    void keepNote(const UnsavedNote &note);
    void forgetNote(const QUuid &checkpointID, const QString &field);
    void readUnsavedNotes();
    void keepInMind();

    Operations &m_operations;
    Library &m_library;
    Navigation &m_navigation;
    Preferences &m_preferences;
    QTimer m_noteRetry;
    std::optional<QPropertyNotifier> m_mirror = {};
};

} // namespace ardeno
