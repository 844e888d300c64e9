// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/Sheet.h"

#include "ui/controls/Alert.h"
#include "ui/controls/FadeIn.h"
#include "ui/controls/InputWatch.h"
#include "ui/theme/Drawing.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextEdit>
#include <QTimer>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace ardeno {

// Lies between the top sheet and all else, other sheets included, and lets no click through.
class SheetHost::Veil final : public QWidget {
public:
    explicit Veil(SheetHost *host) : QWidget(host) {}

    // Whose shadow falls on it; empty: no sheet's. Everything below is painted anew with it: only when it changes.
    void setRaised(const QRect &sheet)
    {
        if (std::exchange(m_raised, sheet) != sheet)
            update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), themeColor(Role::Scrim));
        if (!m_raised.isEmpty())
            Drawing::shadow(painter, m_raised);
    }

private:
    QRect m_raised = {};
};

Sheet::Sheet(const QString &name, int width, Kind kind) : m_kind(kind), m_column(new QVBoxLayout(this))
{
    setAccessibleName(name);
    setFocusPolicy(Qt::ClickFocus);
    setWantedWidth(width);
    m_column->setContentsMargins(28, 26, 28, 26);
    m_column->setSpacing(14);
}

void Sheet::setWantedWidth(int width)
{
    m_wantedWidth = width;
    setFixedWidth(parentWidget() ? std::min(width, parentWidget()->width()) : width);
}

QHBoxLayout *Sheet::buttonRow()
{
    if (!m_buttons) {
        m_buttons = new QHBoxLayout;
        m_buttons->setSpacing(10);
        m_buttons->addStretch();
        m_column->addLayout(m_buttons);
    }
    return m_buttons;
}

Button *Sheet::addButton(const QString &text, Button::Kind kind, std::function<void()> pressed)
{
    auto *button = new Button(text, kind);
    QObject::connect(button, &QAbstractButton::clicked, this, std::move(pressed));
    buttonRow()->addWidget(button);
    m_default = button;
    return button;
}

void Sheet::close()
{
    if (const auto cancelled = std::exchange(m_cancelled, nullptr))
        cancelled();
    if (auto *const host = dynamic_cast<SheetHost *>(parentWidget()))
        host->remove(this);
}

void Sheet::cancel()
{
    auto *const host = dynamic_cast<SheetHost *>(parentWidget());
    if (!host || !holdsInput()) {
        close();
        return;
    }
    const auto tr = [](const char *text) { return QCoreApplication::translate("ardeno::Sheet", text); };
    const AlertText question{.title = tr("Discard what you typed?"),
                             .message = tr("It has not been saved."),
                             .confirm = tr("Discard"),
                             .cancel = tr("Keep editing"),
                             .kind = Button::Kind::Destructive};
    presentAlert(*host, question, [self = QPointer<Sheet>(this)](bool isConfirmed) {
        if (isConfirmed && self)
            self->close();
    });
}

void Sheet::takeFocus()
{
    const QList<QWidget *> controls = FocusPlace::controls(this);
    QWidget *const first = m_firstFocus ? m_firstFocus.data() : controls.isEmpty() ? this : controls.first();
    first->setFocus(InputWatch::instance().isByKeys() ? Qt::TabFocusReason : Qt::MouseFocusReason);
}

void Sheet::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    Drawing::panel(painter, rect(), 14, themeColor(Role::Paper), themeColor(Role::Line));
}

void Sheet::keyPressEvent(QKeyEvent *event)
{
    // Nothing that a sheet leaves unused reaches what it covers.
    event->accept();
    if (event->key() == Qt::Key_Escape)
        cancel();
    else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && m_default && m_default->isEnabled() &&
             !qobject_cast<QTextEdit *>(focusWidget()))
        m_default->click();
}

bool Sheet::focusNextPrevChild(bool next)
{
    const QList<QWidget *> controls = FocusPlace::controls(this);
    if (controls.isEmpty())
        return true;
    const qsizetype at = controls.indexOf(focusWidget());
    const qsizetype count = controls.size();
    const qsizetype to = at < 0 ? (next ? 0 : count - 1) : (at + (next ? 1 : count - 1)) % count;
    controls.at(to)->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

SheetHost::SheetHost(QWidget *window) : QWidget(window), m_veil(new Veil(this))
{
    hide();
}

SheetHost *SheetHost::of(const QWidget *widget)
{
    for (QObject *const child : widget->window()->children()) {
        if (auto *const host = dynamic_cast<SheetHost *>(child))
            return host;
    }
    return nullptr;
}

Sheet *SheetHost::topSheet() const
{
    return m_sheets.isEmpty() ? nullptr : m_sheets.last().data();
}

bool SheetHost::holdsInput() const
{
    return std::any_of(m_sheets.begin(), m_sheets.end(),
                       [](const QPointer<Sheet> &sheet) { return sheet && sheet->holdsInput(); });
}

void SheetHost::keepInput() const
{
    for (const QPointer<Sheet> &sheet : m_sheets) {
        if (sheet && sheet->m_keep && sheet->holdsInput())
            sheet->m_keep();
    }
}

void SheetHost::present(Sheet *sheet)
{
    const bool isFirst = !isCovering();
    m_focusBefore.append(FocusPlace(window()->focusWidget()));
    m_sheets.append(sheet);
    sheet->setParent(this);
    m_veil->stackUnder(sheet);
    if (isFirst && m_covered)
        m_covered(true);
    arrange(Stand::Kept);
    raise();
    show();
    sheet->show();
    FadeIn::begin(sheet, Role::Paper, 14);
    sheet->takeFocus();
    QTimer::singleShot(0, sheet, [sheet] { sheet->m_isSettled = true; });
    QAccessibleEvent shown(sheet, QAccessible::DialogStart);
    QAccessible::updateAccessibility(&shown);
}

void SheetHost::remove(Sheet *sheet)
{
    const qsizetype at = m_sheets.indexOf(sheet);
    if (at < 0)
        return;
    QAccessibleEvent gone(sheet, QAccessible::DialogEnd);
    QAccessible::updateAccessibility(&gone);
    m_sheets.removeAt(at);
    const FocusPlace before = m_focusBefore.takeAt(at);
    sheet->hide();
    sheet->deleteLater();
    if (Sheet *const below = topSheet())
        m_veil->stackUnder(below);
    arrange(Stand::Kept);
    if (!isCovering()) {
        hide();
        FadeIn::begin(window(), Role::Scrim); // The scrim thins out.
        if (m_covered)
            m_covered(false);
    }
    if (!before.restore() && isCovering())
        topSheet()->takeFocus();
}

void SheetHost::arrange(Stand stand)
{
    setGeometry(window()->rect());
    for (const QPointer<Sheet> &sheet : std::as_const(m_sheets)) {
        sheet->setFixedWidth(std::min(sheet->m_wantedWidth, width()));
        const int room = height() - 48;
        const int wanted = sheet->hasHeightForWidth() ? sheet->heightForWidth(sheet->width()) : 0;
        const int tall = std::min(room, std::max({wanted, sheet->sizeHint().height(), sheet->minimumHeight()}));
        sheet->resize(sheet->width(), tall);
        const bool isKept = stand == Stand::Kept && sheet->m_isSettled;
        const int top = isKept ? std::clamp(sheet->y(), 0, std::max(0, height() - 24 - tall)) : (height() - tall) / 2;
        sheet->move((width() - sheet->width()) / 2, top);
    }
    m_veil->setGeometry(rect());
    const Sheet *const top = topSheet();
    m_veil->setRaised(top ? top->geometry() : QRect());
}

void SheetHost::mousePressEvent(QMouseEvent *event)
{
    event->accept(); // A click beside the sheet reaches nothing.
}

void SheetHost::wheelEvent(QWheelEvent *event)
{
    event->accept();
}

bool SheetHost::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest)
        arrange(Stand::Kept); // What a sheet holds has changed.
    return QWidget::event(event);
}

bool SheetHost::focusNextPrevChild(bool next)
{
    Q_UNUSED(next)
    return true; // The sheets keep the focus.
}

CoverableWindow::CoverableWindow()
    : m_content(new QWidget(this)),
      m_sheets(this),
      m_across(new QScrollBar(Qt::Horizontal, this)),
      m_down(new QScrollBar(Qt::Vertical, this))
{
    for (QScrollBar *const bar : {m_across, m_down}) {
        bar->hide();
        QObject::connect(bar, &QScrollBar::valueChanged, this, [this] { moveContent(); });
    }
    QObject::connect(qApp, &QApplication::focusChanged, m_content, [this](QWidget *, QWidget *now) { showFocus(now); });
}

void CoverableWindow::setLeastContent(QSize least)
{
    m_leastContent = least;
    arrangeContent();
}

void CoverableWindow::arrangeContent()
{
    const bool isNarrow = width() < m_leastContent.width();
    const bool isLow = height() < m_leastContent.height();
    const int thick = m_down->sizeHint().width();
    const QSize room = size() - QSize(isLow ? thick : 0, isNarrow ? thick : 0);
    const QSize whole = room.expandedTo(m_leastContent);
    m_content->resize(whole);
    m_across->setGeometry(0, room.height(), room.width(), thick);
    m_across->setRange(0, whole.width() - room.width());
    m_across->setPageStep(room.width());
    m_across->setVisible(isNarrow);
    m_down->setGeometry(room.width(), 0, thick, room.height());
    m_down->setRange(0, whole.height() - room.height());
    m_down->setPageStep(room.height());
    m_down->setVisible(isLow);
    moveContent();
}

void CoverableWindow::moveContent()
{
    m_content->move(-m_across->value(), -m_down->value());
    update();
}

void CoverableWindow::showFocus(const QWidget *focused)
{
    if (!focused || !m_content->isAncestorOf(focused) || QGuiApplication::mouseButtons() != Qt::NoButton)
        return;
    const QRect place(focused->mapTo(m_content, QPoint()), focused->size());
    const auto follow = [](QScrollBar *bar, int first, int last) {
        const int least = last - bar->pageStep();
        bar->setValue(std::clamp(bar->value(), std::min(least, first), first));
    };
    follow(m_across, place.left(), place.right());
    follow(m_down, place.top(), place.bottom());
}

void CoverableWindow::wheelEvent(QWheelEvent *event)
{
    const QPoint turn = event->angleDelta();
    QScrollBar *const bar = std::abs(turn.x()) > std::abs(turn.y()) ? m_across : m_down;
    if (bar->isVisible())
        QCoreApplication::sendEvent(bar, event);
}

void CoverableWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrangeContent();
    m_sheets.arrange();
}

} // namespace ardeno
