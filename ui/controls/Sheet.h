// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/controls/Button.h"
#include "ui/controls/FocusPlace.h"

#include <QPointer>
#include <QVBoxLayout>
#include <QWidget>

#include <functional>

class QScrollBar;

namespace ardeno {

// A panel that stands inside the window over all else, with the role of a dialog. Escape cancels it; Return presses
// the default button unless another button or a text of several lines has the focus.
class Sheet : public QWidget {
public:
    enum class Kind { Dialog, Alert };

    // The name is what screen readers call it.
    Sheet(const QString &name, int width, Kind kind = Kind::Dialog);

    Kind kind() const { return m_kind; }

    // Where the contents go, inside the panel's padding.
    QVBoxLayout *column() const { return m_column; }

    // A row of buttons at the right end; the default one is the last.
    Button *addButton(const QString &text, Button::Kind kind, std::function<void()> pressed);

    // What it takes where the window has that room.
    void setWantedWidth(int width);

    void setDefaultButton(Button *button) { m_default = button; }

    // What has the focus at first; otherwise the first control.
    void setFirstFocus(QWidget *widget) { m_firstFocus = widget; }

    // Called once when the sheet goes by Escape, and by close().
    void setOnCancel(std::function<void()> cancelled) { m_cancelled = std::move(cancelled); }

    // Says whether closing would lose what was typed; Escape then asks first.
    void setHoldsInput(std::function<bool()> holdsInput) { m_holdsInput = std::move(holdsInput); }

    // Keeps what was typed for the next start, where the program is ended and nobody may be asked.
    void setOnKeep(std::function<void()> keep) { m_keep = std::move(keep); }

    bool holdsInput() const { return m_holdsInput && m_holdsInput(); }

    // Takes the sheet off the window and deletes it.
    void close();
    // As Escape does: where that would lose what was typed, after a question.
    void cancel();
    void takeFocus();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    friend class SheetHost;

    QHBoxLayout *buttonRow();

    Kind m_kind;
    int m_wantedWidth = 0;
    QVBoxLayout *m_column;
    QHBoxLayout *m_buttons = nullptr;
    bool m_isSettled = false; // The contents have had their first layout.
    QPointer<Button> m_default;
    QPointer<QWidget> m_firstFocus;
    std::function<void()> m_cancelled;
    std::function<bool()> m_holdsInput;
    std::function<void()> m_keep;
};

// What a window puts its sheets on. While there is one, all that lies beneath takes no focus, no click and no shortcut
// and is not there for screen readers.
class SheetHost final : public QWidget {
public:
    explicit SheetHost(QWidget *window);

    // Shows the sheet on top of those already there, and owns it.
    void present(Sheet *sheet);

    Sheet *topSheet() const;

    bool isCovering() const { return topSheet() != nullptr; }

    // Whether a sheet holds what was typed and is kept nowhere else.
    bool holdsInput() const;

    // Of all sheets, what can be kept.
    void keepInput() const;

    // Called whenever the first sheet comes and the last one goes.
    void setOnCover(std::function<void(bool)> covered) { m_covered = std::move(covered); }

    // The host of the window that holds this widget.
    static SheetHost *of(const QWidget *widget);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    bool event(QEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    friend class Sheet;
    friend class CoverableWindow;

    // Where the sheets stand: in the middle, or where their upper edges are, so that a message that comes or goes moves
    // nothing else.
    enum class Stand { Middle, Kept };

    class Veil;

    void remove(Sheet *sheet);
    void arrange(Stand stand = Stand::Middle);

    Veil *m_veil;
    QList<QPointer<Sheet>> m_sheets;
    QList<FocusPlace> m_focusBefore;
    std::function<void(bool)> m_covered;
};

// A top-level window with sheets. While there is one, screen readers find the sheet alone.
class CoverableWindow : public QWidget {
public:
    CoverableWindow();

    SheetHost &sheets() { return m_sheets; }

    // What sheets cover; composed by the window.
    QWidget *content() const { return m_content; }

    // The smallest size of the content: on a screen that is smaller still, bars move it.
    void setLeastContent(QSize least);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void arrangeContent();
    void moveContent();
    void showFocus(const QWidget *focused);

    QWidget *m_content;
    SheetHost m_sheets;
    QSize m_leastContent;
    QScrollBar *m_across;
    QScrollBar *m_down;
};

// Screen readers learn what sheets are. Once, before the first window.
void installSheetAccessibility();

} // namespace ardeno
