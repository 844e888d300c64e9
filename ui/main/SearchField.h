// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/controls/Fields.h"

#include <functional>

namespace ardeno {

class Button;

// Where a list is searched: Return opens the first of what is found, the arrow key down goes to the list.
class SearchField final : public TextField {
public:
    SearchField(const QString &name, QWidget *parent = nullptr);

    void setOnOpenFirst(std::function<void()> open) { m_openFirst = std::move(open); }

    void setOnDown(std::function<void()> goDown) { m_down = std::move(goDown); }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    Button *m_clear;
    std::function<void()> m_openFirst;
    std::function<void()> m_down;
};

} // namespace ardeno
