// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/DropDown.h"

#include "support/Text.h"
#include "ui/controls/Menu.h"
#include "ui/theme/Drawing.h"
#include "ui/theme/PopupSurface.h"
#include "ui/theme/Symbols.h"

#include <QActionGroup>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace ardeno {

namespace {

constexpr int choicePadding = 11;
constexpr int chevronExtent = 16;
constexpr int mostMenuWidth = 420;

} // namespace

DropDown::DropDown(const QString &name, QWidget *parent) : QAbstractButton(parent), m_name(name)
{
    setFont(AppTheme::instance().font(TextStyle::Body));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAccessibleName(name);
    connect(this, &QAbstractButton::clicked, this, [this] { openMenu(); });
}

void DropDown::setOptions(const QList<Option> &options)
{
    m_options = options;
    m_current = std::min(m_current, options.size() - 1);
    updateGeometry();
    showCurrent();
}

void DropDown::setCurrent(const QVariant &value)
{
    const auto found =
        std::find_if(m_options.begin(), m_options.end(), [&](const Option &option) { return option.value == value; });
    m_current = found == m_options.end() ? -1 : found - m_options.begin();
    showCurrent();
}

QVariant DropDown::current() const
{
    return m_current < 0 ? QVariant() : m_options.at(m_current).value;
}

void DropDown::showCurrent()
{
    setText(m_current < 0 ? QString() : m_options.at(m_current).text.simplified());
    setAccessibleName(text().isEmpty() ? m_name : m_name + ": " + text());
    update();
}

void DropDown::choose(qsizetype index)
{
    if (index < 0 || index >= m_options.size() || index == m_current)
        return;
    m_current = index;
    showCurrent();
    if (m_chosen)
        m_chosen(current());
}

QSize DropDown::sizeHint() const
{
    const QFontMetricsF metrics(font());
    qreal widest = 60;
    for (const Option &option : m_options)
        widest = std::max(widest, metrics.horizontalAdvance(option.text));
    const qreal width = std::min<qreal>(widest + 2 * choicePadding + chevronExtent + 10, mostMenuWidth);
    return {static_cast<int>(std::ceil(width)), std::max(32, static_cast<int>(std::ceil(metrics.height())) + 12)};
}

QSize DropDown::minimumSizeHint() const
{
    return {120, sizeHint().height()};
}

void DropDown::openMenu()
{
    QMenu *const menu = makeMenu(this);
    auto *group = new QActionGroup(menu);
    const QFontMetricsF metrics(menu->font());
    for (qsizetype i = 0; i < m_options.size(); ++i) {
        if (m_options.at(i).apart == Apart::Yes)
            menu->addSeparator();
        // An ampersand would mark a shortcut.
        QString shown = Drawing::fitted(m_options.at(i).text.simplified(), metrics, mostMenuWidth);
        QAction *const action = addMenuItem(menu, shown.replace('&', "&&"), {}, [this, i] { choose(i); });
        action->setCheckable(true);
        action->setChecked(i == m_current);
        group->addAction(action);
    }
    menu->setMinimumWidth(width() + 2 * PopupSurface::menuMargin);
    menu->popup(mapToGlobal(QPoint(0, height() + 4)));
    menu->setActiveAction(group->checkedAction());
}

void DropDown::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
        return choose(m_current - 1);
    case Qt::Key_Down:
        return choose(m_current + 1);
    case Qt::Key_Home:
        return choose(0);
    case Qt::Key_End:
        return choose(m_options.size() - 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return click();
    default:
        if (!chooseNext(event->text()))
            QAbstractButton::keyPressEvent(event);
    }
}

bool DropDown::chooseNext(const QString &letter)
{
    if (letter.size() != 1 || !letter.front().isLetterOrNumber())
        return false;
    const qsizetype count = m_options.size();
    for (qsizetype step = 1; step < count; ++step) {
        const qsizetype index = (m_current + step + count) % count;
        if (Text::folded(m_options.at(index).text).startsWith(Text::folded(letter))) {
            choose(index);
            break;
        }
    }
    return true;
}

void DropDown::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    Drawing::field(painter, rect(), hasFocus());
    const Role ink = isEnabled() ? Role::Text : Role::Faint;
    const QRectF chevron(width() - choicePadding - chevronExtent + 2, (height() - chevronExtent) / 2.0, chevronExtent,
                         chevronExtent);
    Symbols::draw(painter, "chevron.down", chevron, themeColor(ink));
    const QRectF area(choicePadding, 0, chevron.left() - choicePadding - 6, height());
    Drawing::text(painter, area, text(), TextStyle::Body, themeColor(ink));
}

} // namespace ardeno
