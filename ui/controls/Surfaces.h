// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/theme/AppTheme.h"

#include <QBoxLayout>
#include <QWidget>

namespace ardeno {

// A part of the window with a background of its own, perhaps with thin lines at its edges.
class Surface final : public QWidget {
public:
    explicit Surface(Role role, Qt::Edges lines = {}, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Role m_role;
    Qt::Edges m_lines;
};

// A panel with rounded corners and a thin line.
class Card : public QWidget {
public:
    explicit Card(QWidget *parent = nullptr, Role fill = Role::Card, Role line = Role::Line, qreal radius = 12);

    void setColors(Role fill, Role line);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Role m_fill;
    Role m_line;
    qreal m_radius;
};

// A small rounded mark of a state: symbol and word.
class Chip final : public QWidget {
public:
    explicit Chip(QWidget *parent = nullptr);

    void show(const QString &text, const QString &symbol, Role ink, Role background);

    void setSmall();

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int padding() const { return m_isSmall ? 7 : 11; }

    bool m_isSmall = false;
    QString m_text;
    QString m_symbol;
    Role m_ink = Role::Text;
    Role m_background = Role::Card;
};

// Layouts without margins, as most are here.
QHBoxLayout *makeRow(int spacing, QWidget *owner = nullptr);
QVBoxLayout *makeColumn(int spacing, QWidget *owner = nullptr);

} // namespace ardeno
