// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollArea>
#include <QVBoxLayout>

namespace ardeno {

// A column that scrolls when it gets less height than it needs; it asks for all of it.
class ScrollColumn final : public QScrollArea {
public:
    explicit ScrollColumn(int spacing, QWidget *parent = nullptr);

    // Where the contents go.
    QVBoxLayout *column() const { return m_column; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;

protected:
    // What it holds may become taller.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QVBoxLayout *m_column;
};

} // namespace ardeno
