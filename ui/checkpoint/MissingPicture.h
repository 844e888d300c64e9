// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <functional>

namespace ardeno {

class Button;

// The place of a picture that a checkpoint does not have, with the ways to give it one.
class MissingPicture final : public QWidget {
public:
    MissingPicture(std::function<void()> choose, std::function<void()> paste, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showPasting();

    Button *m_paste;
};

} // namespace ardeno
