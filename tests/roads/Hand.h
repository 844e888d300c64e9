// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/roads/FocusWatch.h"
#include "tests/ui/RunningWindow.h"

namespace ardeno {

// A row of a list, and the row in it.
struct RowOf {
    QString list;
    QString row;
};

// Works with the window by one means alone: what is asked for is the same, however it is done. Texts are typed by both.
class Hand {
public:
    explicit Hand(RunningWindow &window) : m_window(window) {}

    virtual ~Hand() = default;
    Hand(const Hand &) = delete;
    Hand &operator=(const Hand &) = delete;

    // A button, a switch, or a card.
    virtual void press(const QString &name) = 0;
    virtual void open(const RowOf &row) = 0;
    virtual void chooseOf(const RowOf &row, const QString &entry) = 0;
    // Of the menu of a button or a choice.
    virtual void chooseAt(const QString &button, const QString &entry) = 0;
    // In place of what the field holds.
    virtual void write(const QString &field, const QString &text) = 0;
    // Ends the writing of a note.
    virtual void leave() = 0;
    // While the search has the keyboard.
    virtual void clearSearch() = 0;
    virtual void remove(const RowOf &item, const QString &button) = 0;
    virtual void undo() = 0;
    // Of the checkpoint or project that is shown, up to the question.
    virtual void deleteCheckpoint() = 0;
    // Answers a question, once it can have been read.
    virtual void answer(const QString &button) = 0;
    virtual void moveDown(const RowOf &row, const QString &below) = 0;

protected:
    // Puts the text in place of the one in the field that has the keyboard.
    void replaceText(const QString &text) const;

    RunningWindow &m_window;
};

class PointerHand final : public Hand {
public:
    PointerHand(RunningWindow &window, const FocusWatch &focus) : Hand(window), m_focus(focus) {}

    void press(const QString &name) override { m_window.click(name); }

    void open(const RowOf &row) override;
    void chooseOf(const RowOf &row, const QString &entry) override;
    void chooseAt(const QString &button, const QString &entry) override;
    void write(const QString &field, const QString &text) override;
    void leave() override;

    void clearSearch() override { m_window.click("Clear the search"); }

    void remove(const RowOf &item, const QString &button) override;

    void undo() override { m_window.click("Undo"); }

    void deleteCheckpoint() override { chooseAt("More actions", "Delete checkpoint…"); }

    void answer(const QString &button) override { m_window.click(button); }

    void moveDown(const RowOf &row, const QString &below) override { m_window.drag(row.row, below); }

private:
    // Moves down through the menu until it is at the entry.
    void clickEntry(const QString &entry) const;

    const FocusWatch &m_focus;
};

class KeysHand final : public Hand {
public:
    KeysHand(RunningWindow &window, const FocusWatch &focus) : Hand(window), m_focus(focus) {}

    void press(const QString &name) override;
    void open(const RowOf &row) override;
    void chooseOf(const RowOf &row, const QString &entry) override;
    void chooseAt(const QString &button, const QString &entry) override;
    void write(const QString &field, const QString &text) override;

    void leave() override { m_window.key("Escape"); }

    void clearSearch() override { m_window.key("Escape"); }

    void remove(const RowOf &item, const QString &button) override;

    void undo() override { m_window.key("ctrl+z"); }

    void deleteCheckpoint() override { m_window.key("ctrl+Delete"); }

    void answer(const QString &button) override;
    void moveDown(const RowOf &row, const QString &below) override;

private:
    // Presses the tab key until the control has the keyboard.
    void goTo(const QString &control) const;
    void goTo(const RowOf &row) const;
    void returnAt(const QString &entry) const;
    // Presses it and waits until the keyboard is elsewhere.
    void step(const QString &key) const;

    const FocusWatch &m_focus;
};

} // namespace ardeno
