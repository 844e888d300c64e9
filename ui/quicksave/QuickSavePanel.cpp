// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/quicksave/QuickSavePanel.h"

#include "ui/controls/Surfaces.h"
#include "ui/quicksave/QuickSaveContent.h"
#include "ui/theme/AppTheme.h"
#include "ui/theme/Symbols.h"

#include <QCloseEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include <utility>

namespace ardeno {

QuickSavePanel::QuickSavePanel(const CaptureParts &parts)
    : QWidget(nullptr, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                           Qt::WindowStaysOnTopHint),
      m_parts(parts),
      m_content(new QuickSaveContent(parts))
{
    setWindowTitle(tr("Quick save checkpoint"));
    setWindowIcon(Symbols::brandIcon());
    auto *column = makeColumn(0, this);
    column->setSizeConstraint(QLayout::SetFixedSize); // As high as what it shows.
    column->addWidget(m_content);
    AppTheme::instance().follow(this);
}

void QuickSavePanel::present(std::function<void()> shown)
{
    m_shown = std::move(shown);
    const QScreen *const pointed = QGuiApplication::screenAt(QCursor::pos());
    const QRect area = (pointed ? pointed : QGuiApplication::primaryScreen())->availableGeometry();
    adjustSize();
    const QRect frame(QPoint(), size());
    move(area.center() - frame.center());
    m_content->begin();
    show();
    raise();
    activateWindow();
}

void QuickSavePanel::paintEvent(QPaintEvent *)
{
    if (const auto shown = std::exchange(m_shown, nullptr))
        QMetaObject::invokeMethod(this, shown, Qt::QueuedConnection);
}

void QuickSavePanel::closeEvent(QCloseEvent *event)
{
    const bool isBusy = m_parts.form.savingForm() || m_parts.screenAccess.requestingAccess();
    event->setAccepted(!isBusy);
    if (!isBusy)
        m_parts.setup.cancelCapture();
}

} // namespace ardeno
