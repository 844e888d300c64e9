// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/projects/CaptureParts.h"

#include <QWidget>

#include <functional>

namespace ardeno {

class QuickSaveContent;

// A small window over whatever is in front, which can be typed into while another application stays the active one.
class QuickSavePanel final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(ardeno::QuickSavePanel)

public:
    explicit QuickSavePanel(const CaptureParts &parts);

    // In the middle of the screen where the pointer is. Calls back from the event loop once it can be seen.
    void present(std::function<void()> shown);

protected:
    void paintEvent(QPaintEvent *event) override;
    // Stays while something is being saved or asked.
    void closeEvent(QCloseEvent *event) override;

private:
    CaptureParts m_parts;
    QuickSaveContent *m_content;
    std::function<void()> m_shown;
};

} // namespace ardeno
