// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/AppStore.h"
#include "store/PreferenceKeys.h"
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

Outcome AppStore::updateNote(QString Checkpoint::*field, const QString &text, QUuid checkpointID)
{
    const std::optional<Checkpoint> existing = editable(checkpointID);
    if (!existing || *existing.*field == text) {
        forgetNote(checkpointID, nameOf(field));
        return {.isDone = existing.has_value(), .id = checkpointID};
    }
    const auto write = [&](Checkpoint &checkpoint) {
        checkpoint.*field = text;
        return true;
    };
    const PublishTogether group;
    Outcome outcome = edit(checkpointID, "note", write);
    if (outcome)
        forgetNote(checkpointID, nameOf(field));
    else if (editable(checkpointID))
        keepNote({checkpointID, nameOf(field), text});
    return concluded(std::move(outcome));
}

QString AppStore::noteText(QString Checkpoint::*field, const Checkpoint &checkpoint) const
{
    const QString name = nameOf(field);
    for (const UnsavedNote &note : unsavedNotes()) {
        if (note.checkpointID == checkpoint.id && note.field == name)
            return note.text;
    }
    return checkpoint.*field;
}

void AppStore::keepNote(const UnsavedNote &note)
{
    QList<UnsavedNote> notes = unsavedNotes();
    notes.removeIf(
        [&](const UnsavedNote &other) { return other.checkpointID == note.checkpointID && other.field == note.field; });
    notes.append(note);
    unsavedNotes.set(std::move(notes));
}

void AppStore::forgetNote(const QUuid &checkpointID, const QString &field)
{
    QList<UnsavedNote> notes = unsavedNotes();
    notes.removeIf([&](const UnsavedNote &note) { return note.checkpointID == checkpointID && note.field == field; });
    unsavedNotes.set(std::move(notes));
}

void AppStore::saveUnsavedNotes()
{
    const QList<UnsavedNote> notes = unsavedNotes();
    for (const UnsavedNote &note : notes) {
        const std::optional<NoteField> field = noteField(note.field);
        if (!field || !editable(note.checkpointID)) {
            forgetNote(note.checkpointID, note.field); // Deleted with its checkpoint.
            continue;
        }
        const auto write = [&](Checkpoint &checkpoint) {
            checkpoint.**field = note.text;
            return true;
        };
        const PublishTogether group;
        Outcome outcome = edit(note.checkpointID, "note", write);
        if (!outcome)
            return; // The others would fail as well.
        forgetNote(note.checkpointID, note.field);
        concluded(std::move(outcome));
    }
}

// Of an earlier run, which could not write them either.
void AppStore::readUnsavedNotes()
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

void AppStore::mirrorUnsavedNotes()
{
    m_noteRetry.setInterval(pauseBetweenAttempts);
    QObject::connect(&m_noteRetry, &QTimer::timeout, &m_noteRetry, [this] { saveUnsavedNotes(); });
    readUnsavedNotes();
    m_mirrors.push_back(unsavedNotes.addNotifier([this] {
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
    }));
    if (unsavedNotes().isEmpty())
        return;
    m_noteRetry.start();
    saveUnsavedNotes();
}

} // namespace ardeno
