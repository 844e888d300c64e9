// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollArea>

namespace ardeno {

// The middle of a sheet: as tall as what it holds, and scrolled where the window is too small for that.
class SheetScroll final : public QScrollArea {
public:
    explicit SheetScroll(QWidget *content);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace ardeno
