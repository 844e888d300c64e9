// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/CheckpointEditing.h"

#include "store/PreferenceKeys.h"
#include "store/Subjects.h"
#include "support/Failure.h"
#include "json/Json.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace ardeno {

namespace {

// A write is one of the whole library; nobody waits for it.
constexpr std::chrono::seconds pauseBetweenAttempts(5);

using NoteField = QString Checkpoint::*;

constexpr std::pair<const char *, NoteField> noteFields[] = {
    {"title", &Checkpoint::title},
    {"objective", &Checkpoint::objective},
    {"decision", &Checkpoint::decision},
    {"nextStep", &Checkpoint::nextStep},
};

QString nameOf(NoteField field)
{
    const auto *const found = std::find_if(std::begin(noteFields), std::end(noteFields),
                                           [&](const auto &one) { return one.second == field; });
    return found == std::end(noteFields) ? QString() : QString::fromLatin1(found->first);
}

std::optional<NoteField> noteField(const QString &name)
{
    const auto *const found = std::find_if(std::begin(noteFields), std::end(noteFields),
                                           [&](const auto &one) { return QLatin1String(one.first) == name; });
    return found == std::end(noteFields) ? std::nullopt : std::optional(found->second);
}

} // namespace

CheckpointEditing::CheckpointEditing(Operations &operations, Library &library, Navigation &navigation,
                                     Preferences &preferences)
    : m_operations(operations), m_library(library), m_navigation(navigation), m_preferences(preferences)
{
    m_noteRetry.setInterval(pauseBetweenAttempts);
    QObject::connect(&m_noteRetry, &QTimer::timeout, &m_noteRetry, [this] { saveUnsavedNotes(); });
}

void CheckpointEditing::start()
{
    readUnsavedNotes();
    m_mirror.emplace(unsavedNotes.addNotifier([this] { keepInMind(); }));
    if (unsavedNotes().isEmpty())
        return;
    m_noteRetry.start();
    saveUnsavedNotes();
}

Outcome CheckpointEditing::save(Checkpoint checkpoint)
{
    Outcome outcome{.id = checkpoint.id, .subject = subjects::about("save", checkpoint.id)};
    const PublishTogether group;
    outcome.isDone = !checkpoint.isSample && m_library.write(m_library.owned(checkpoint), &outcome);
    if (outcome)
        m_navigation.show(checkpoint);
    return m_operations.concluded(std::move(outcome));
}

Outcome CheckpointEditing::updateNote(QString Checkpoint::*field, const QString &text, QUuid checkpointID)
{
    const std::optional<Checkpoint> existing = m_library.editable(checkpointID);
    if (!existing || *existing.*field == text) {
        forgetNote(checkpointID, nameOf(field));
        return {.isDone = existing.has_value(), .id = checkpointID};
    }
    const auto write = [&](Checkpoint &checkpoint) {
        checkpoint.*field = text;
        return true;
    };
    const PublishTogether group;
    Outcome outcome = m_library.edit(checkpointID, "note", write);
    if (outcome)
        forgetNote(checkpointID, nameOf(field));
    else if (m_library.editable(checkpointID))
        keepNote({checkpointID, nameOf(field), text});
    return m_operations.concluded(std::move(outcome));
}

QString CheckpointEditing::noteText(QString Checkpoint::*field, const Checkpoint &checkpoint) const
{
    const QString name = nameOf(field);
    for (const UnsavedNote &note : unsavedNotes()) {
        if (note.checkpointID == checkpoint.id && note.field == name)
            return note.text;
    }
    return checkpoint.*field;
}

void CheckpointEditing::keepNote(const UnsavedNote &note)
{
    QList<UnsavedNote> notes = unsavedNotes();
    notes.removeIf(
        [&](const UnsavedNote &other) { return other.checkpointID == note.checkpointID && other.field == note.field; });
    notes.append(note);
    unsavedNotes.set(std::move(notes));
}

void CheckpointEditing::forgetNote(const QUuid &checkpointID, const QString &field)
{
    QList<UnsavedNote> notes = unsavedNotes();
    notes.removeIf([&](const UnsavedNote &note) { return note.checkpointID == checkpointID && note.field == field; });
    unsavedNotes.set(std::move(notes));
}

void CheckpointEditing::saveUnsavedNotes()
{
    const QList<UnsavedNote> notes = unsavedNotes();
    for (const UnsavedNote &note : notes) {
        const std::optional<NoteField> field = noteField(note.field);
        if (!field || !m_library.editable(note.checkpointID)) {
            forgetNote(note.checkpointID, note.field); // Deleted with its checkpoint.
            continue;
        }
        const auto write = [&](Checkpoint &checkpoint) {
            checkpoint.**field = note.text;
            return true;
        };
        const PublishTogether group;
        Outcome outcome = m_library.edit(note.checkpointID, "note", write);
        if (!outcome)
            return; // The others would fail as well.
        forgetNote(note.checkpointID, note.field);
        m_operations.concluded(std::move(outcome));
    }
}

// Of an earlier run, which could not write them either.
void CheckpointEditing::readUnsavedNotes()
{
    QList<UnsavedNote> notes;
    for (const QString &text : m_preferences.value(keys::unsavedNotes).value_or(QStringList())) {
        try {
            notes.append(json::decode<UnsavedNote>(text.toUtf8()));
        } catch (const Failure &) {
            // Nobody can say whose it was.
        }
    }
    unsavedNotes.set(std::move(notes));
}

void CheckpointEditing::keepInMind()
{
    QStringList texts;
    for (const UnsavedNote &note : unsavedNotes())
        texts += QString::fromUtf8(json::encode(note));
    if (texts.isEmpty())
        m_preferences.remove(keys::unsavedNotes);
    else
        m_preferences.setValue(keys::unsavedNotes, texts);
    if (texts.isEmpty())
        m_noteRetry.stop();
    else if (!m_noteRetry.isActive())
        m_noteRetry.start();
}

} // namespace ardeno
