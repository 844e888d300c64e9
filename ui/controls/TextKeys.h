// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QEvent;
class QKeyEvent;
class QWidget;

// Keys that belong to the text that is being edited, whatever else they do in a window.
namespace ardeno::TextKeys {

// Whether the user can write in it.
bool isField(const QWidget *widget);

// Moving through a text, marking it, deleting and undoing: with and without the modifiers that make steps larger.
bool isEditing(const QKeyEvent &event);

// A press that inserts what it says, characters beyond 16 bits included.
bool isCharacter(const QKeyEvent &event);

// Whether the press changes this field's text or the place in it.
bool isWriting(const QKeyEvent &event, const QWidget *field);

// Asked whether a shortcut may have the key: whether the field has no use for it, as it has nothing of its own to take
// back, or what is to be pasted is a picture or a file.
bool isLeft(const QEvent &event, const QWidget *field);

// What a shortcut does that was left the key to paste and has no use for it either.
void pasteInto(QWidget *field);

// Shift, Control and their like.
bool isModifierAlone(const QKeyEvent &event);

} // namespace ardeno::TextKeys
