// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPixmap>

class QPainter;
class QWidget;

namespace ardeno {

// What a menu or a tooltip stands on: a rounded panel with its shadow, inside the window that it belongs to, whose own
// picture is painted below the shadow. So nothing depends on a compositor. Where there is no room in that window, the
// popup has the panel's outline and no shadow.
class PopupSurface final : public QObject {
    Q_OBJECT

public:
    // Of the popup around its panel, for the shadow.
    static constexpr int menuMargin = 12;
    static constexpr int tipMargin = 8;

    // The popup's own one, made when it is asked for first.
    static PopupSurface &of(QWidget *popup);

    void paint(QPainter &painter) const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit PopupSurface(QWidget *popup);

    int margin() const;
    // So that the panel, not its shadow, is where the popup was asked for.
    void place();
    void takeBackdrop();

    QWidget *m_popup;
    bool m_isTip;
    bool m_isPlacing = false;
    QPixmap m_backdrop; // Null: the popup has the panel's outline.
};

} // namespace ardeno
