// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/theme/AppTheme.h"

#include <QAbstractButton>
#include <QString>

namespace ardeno {

// A push button with a text, a symbol or both. One that shows a symbol alone is named by its tooltip.
class Button final : public QAbstractButton {
public:
    enum class Kind { Bordered, Prominent, Recording, Destructive, Plain, Link, Disclosure };
    enum class SymbolSide { Leading, Trailing };

    explicit Button(const QString &text, Kind kind = Kind::Bordered, const QString &symbol = {},
                    QWidget *parent = nullptr);

    // A square button that shows a symbol alone.
    static Button *makeIcon(const QString &symbol, const QString &name, int extent = 28);

    // A row of a list of places: text at the left, over the whole width, marked while it is the place shown.
    static Button *makeRow(const QString &text, const QString &symbol);
    void setCurrent(bool isCurrent);

    void setSymbol(const QString &symbol, SymbolSide side = SymbolSide::Leading);
    void setLarge();
    // The tooltip with the shortcut behind it.
    void setHint(const QString &hint, const QString &shortcut = {});

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool event(QEvent *event) override;

private:
    struct Look {
        QColor fill = Qt::transparent;
        QColor line = Qt::transparent;
        QColor ink = {};
    };

    Look look() const;
    Look filledLook(Role role) const;
    Look borderedLook(bool isHovered) const;
    Look rowLook(bool isHovered) const;
    Look plainLook(bool isHovered) const;
    void drawLabel(QPainter &painter, const QColor &ink) const;
    QFont labelFont() const;

    qreal radius() const { return m_isLarge ? 9 : m_isRow ? 8 : 7; }

    int padding() const;

    bool isFilled() const;

    bool isSymbolAlone() const { return text().isEmpty(); }

    bool isWithinText() const { return m_kind == Kind::Link || m_kind == Kind::Disclosure; }

    Kind m_kind;
    QString m_symbol;
    SymbolSide m_side = SymbolSide::Leading;
    int m_extent = 0;
    bool m_isLarge = false;
    bool m_isRow = false;
    bool m_isCurrent = false;
    bool m_showsFocus = false;
    bool m_showedFocus = false; // Before the focus went elsewhere.
};

} // namespace ardeno
