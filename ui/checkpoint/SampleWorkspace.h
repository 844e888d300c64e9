// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace ardeno {

// The illustration that stands for a screenshot in the sample: a page of a portfolio beside a note.
class SampleWorkspace final : public QWidget {
public:
    explicit SampleWorkspace(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace ardeno
