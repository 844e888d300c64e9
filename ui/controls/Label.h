// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/theme/AppTheme.h"

#include <QFrame>
#include <QLabel>

class QHBoxLayout;

namespace ardeno {

// A text in one of the theme's styles and colours, which follow the theme. Plain text, never interpreted.
QLabel *makeLabel(const QString &text, TextStyle style = TextStyle::Body, Role role = Role::Text);

// The same for times that run: every digit takes the same room, so that nothing beside it moves.
QLabel *makeClock(TextStyle style, Role role);

// A text of several lines. A word that is longer than a line is broken, so that no text widens what it stands in.
QLabel *makeParagraph(const QString &text, TextStyle style = TextStyle::Body, Role role = Role::Text);

// The same with at most so many lines: the last one ends in "…" then, and the whole text is the tooltip.
QLabel *makeParagraphOfLines(int mostLines, TextStyle style = TextStyle::Body, Role role = Role::Text);

// One line that ends in "…" where it does not fit; the whole text is the tooltip then, and always the accessible name.
class LineLabel final : public QFrame {
public:
    explicit LineLabel(const QString &text = {}, TextStyle style = TextStyle::Body, Role role = Role::Text,
                       QWidget *parent = nullptr);

    void setText(const QString &text);
    void setRole(Role role);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;

private:
    QString m_text;
    TextStyle m_style;
    Role m_role;
};

// A symbol that says nothing by itself: screen readers pass it over.
class SymbolView final : public QWidget {
public:
    explicit SymbolView(const QString &symbol, Role role = Role::Text, int extent = 16, QWidget *parent = nullptr);

    void setSymbol(const QString &symbol, Role role);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_symbol;
    Role m_role;
};

// The text as a tooltip shows it, whatever it looks like: in lines no longer than one can read.
QString hintText(const QString &text);

// A text, or more, with a symbol before its first line.
QHBoxLayout *makeMarked(const QString &symbol, Role role, QWidget *text, QWidget *owner = nullptr);

} // namespace ardeno
