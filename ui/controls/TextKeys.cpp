// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/TextKeys.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTextEdit>

#include <algorithm>

namespace ardeno {

namespace {

constexpr QKeySequence::StandardKey editingKeys[] = {
    QKeySequence::Cut,
    QKeySequence::Copy,
    QKeySequence::Paste,
    QKeySequence::Undo,
    QKeySequence::Redo,
    QKeySequence::SelectAll,
    QKeySequence::Deselect,
    QKeySequence::DeleteStartOfWord,
    QKeySequence::DeleteEndOfWord,
    QKeySequence::DeleteEndOfLine,
    QKeySequence::DeleteCompleteLine,
    QKeySequence::Backspace,
    QKeySequence::MoveToStartOfLine,
    QKeySequence::MoveToEndOfLine,
};

constexpr Qt::Key placeKeys[] = {Qt::Key_Left, Qt::Key_Right,  Qt::Key_Up,        Qt::Key_Down,  Qt::Key_Home,
                                 Qt::Key_End,  Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Insert};

constexpr Qt::KeyboardModifiers larger = Qt::ControlModifier | Qt::ShiftModifier | Qt::KeypadModifier;

// File managers offer the names of files as texts, too.
bool isPictureOrFile(const QMimeData *data)
{
    return data && (!data->hasFormat("text/plain") || data->hasFormat("x-special/gnome-copied-files"));
}

bool hasOwnUndo(const QWidget *field)
{
    if (const auto *const line = qobject_cast<const QLineEdit *>(field))
        return line->isUndoAvailable();
    const auto *const text = qobject_cast<const QTextEdit *>(field);
    return text && text->document()->isUndoAvailable();
}

} // namespace

bool TextKeys::isField(const QWidget *widget)
{
    if (const auto *const line = qobject_cast<const QLineEdit *>(widget))
        return !line->isReadOnly();
    const auto *const text = qobject_cast<const QTextEdit *>(widget);
    return text && !text->isReadOnly();
}

bool TextKeys::isEditing(const QKeyEvent &event)
{
    const auto is = [&](QKeySequence::StandardKey key) { return event.matches(key); };
    if (std::any_of(std::begin(editingKeys), std::end(editingKeys), is))
        return true;
    const bool isPlace = std::find(std::begin(placeKeys), std::end(placeKeys), event.key()) != std::end(placeKeys);
    return isPlace && !(event.modifiers() & ~larger);
}

bool TextKeys::isCharacter(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers others = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    const bool isPlain = others == Qt::NoModifier || others == Qt::GroupSwitchModifier;
    return isPlain && !event.text().isEmpty() && QChar::isPrint(event.text().toUcs4().front());
}

bool TextKeys::isWriting(const QKeyEvent &event, const QWidget *field)
{
    if (!isField(field))
        return false;
    const bool isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    return isCharacter(event) || isEditing(event) || (isReturn && qobject_cast<const QTextEdit *>(field));
}

bool TextKeys::isLeft(const QEvent &event, const QWidget *field)
{
    if (event.type() != QEvent::ShortcutOverride)
        return false;
    const auto &key = static_cast<const QKeyEvent &>(event);
    if (key.matches(QKeySequence::Paste))
        return isPictureOrFile(QGuiApplication::clipboard()->mimeData());
    return key.matches(QKeySequence::Undo) && !hasOwnUndo(field);
}

void TextKeys::pasteInto(QWidget *field)
{
    if (auto *const line = qobject_cast<QLineEdit *>(field))
        line->paste();
    else if (auto *const text = qobject_cast<QTextEdit *>(field))
        text->paste();
}

bool TextKeys::isModifierAlone(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_CapsLock:
        return true;
    default:
        return false;
    }
}

} // namespace ardeno
