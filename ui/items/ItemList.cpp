// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/items/ItemList.h"

#include "ui/controls/Button.h"
#include "ui/theme/Drawing.h"
#include "ui/theme/Symbols.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollArea>

#include <algorithm>
#include <cmath>

namespace ardeno {

namespace {

constexpr int itemPadding = 14;
constexpr int iconExtent = 18;
constexpr int buttonExtent = 28;

qreal heightOfLine(TextStyle style)
{
    return std::ceil(QFontMetricsF(AppTheme::instance().font(style)).height());
}

QScrollArea *pageAround(QWidget *widget)
{
    for (QWidget *parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
        if (auto *const page = qobject_cast<QScrollArea *>(parent))
            return page;
    }
    return nullptr;
}

} // namespace

int ItemDelegate::rowHeight() const
{
    const qreal text = heightOfLine(TextStyle::Medium) + (m_lines == Lines::Two ? heightOfLine(TextStyle::Small) : 0);
    return static_cast<int>(text) + (m_lines == Lines::Two ? 17 : 21);
}

QSize ItemDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return {100, rowHeight()};
}

QRect ItemDelegate::buttonPlace(const QRect &row)
{
    return {row.right() - 6 - buttonExtent, row.center().y() - buttonExtent / 2, buttonExtent, buttonExtent};
}

void ItemDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const ItemRow &row = static_cast<const ItemModel *>(index.model())->rows().at(index.row());
    const RowState state = RowState::of(option);
    QRectF area(option.rect);
    if (index.row() + 1 < index.model()->rowCount())
        Drawing::edge(*painter, area, Qt::BottomEdge, themeColor(Role::Line));
    if (state.showsFocus)
        Drawing::focusRing(*painter, area.adjusted(2, 2, -2, -2), 9);
    const QRectF icon(area.left() + itemPadding, area.center().y() - iconExtent / 2.0, iconExtent, iconExtent);
    if (row.appID.isEmpty())
        Symbols::draw(*painter, row.symbol, icon, themeColor(Role::Dim));
    else
        m_icons.draw(*painter, icon, row.appID, row.symbol);
    area.adjust(itemPadding + iconExtent + 10, 0, -itemPadding, 0);
    if (m_removal == Removal::Button) {
        const QPointF middle = QRectF(buttonPlace(option.rect)).center();
        Symbols::draw(*painter, "minus.circle", {middle.x() - 8, middle.y() - 8, 16, 16}, themeColor(Role::Dim));
        area.setRight(option.rect.right() - 6 - buttonExtent - 4);
    }
    paintTexts(painter, area, row);
}

void ItemDelegate::paintTexts(QPainter *painter, QRectF area, const ItemRow &row) const
{
    if (!row.trailing.isEmpty()) {
        const QFontMetricsF metrics(AppTheme::instance().font(TextStyle::Small));
        const qreal width = std::min(area.width() / 3, std::ceil(metrics.horizontalAdvance(row.trailing)) + 1);
        const QRectF place(area.right() - width, area.top(), width, area.height());
        Drawing::text(*painter, place, row.trailing, TextStyle::Small, themeColor(Role::Dim));
        area.setRight(place.left() - 10);
    }
    if (m_lines == Lines::One) {
        Drawing::text(*painter, area, row.title, TextStyle::Medium, themeColor(Role::Text));
        return;
    }
    const qreal upper = heightOfLine(TextStyle::Medium);
    const qreal lower = heightOfLine(TextStyle::Small);
    const qreal top = area.center().y() - (upper + lower) / 2;
    Drawing::text(*painter, {area.left(), top, area.width(), upper}, row.title, TextStyle::Medium,
                  themeColor(Role::Text));
    Drawing::text(*painter, {area.left(), top + upper, area.width(), lower}, row.detail, TextStyle::Small,
                  themeColor(Role::Dim));
}

ItemList::ItemList(const QString &name, ItemModel &model, ItemDelegate *delegate, QWidget *card)
    : PlainList(name, card), m_model(model), m_delegate(delegate)
{
    setModel(&model);
    setItemDelegate(delegate);
    delegate->setParent(this);
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::NoSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(&model, signal, this, [this] { afterChange(); });
}

void ItemList::setOnRemove(Say name, Say hint, Act remove)
{
    m_removeName = std::move(name);
    m_removeHint = std::move(hint);
    m_remove = std::move(remove);
    m_button = Button::makeIcon("minus.circle", {}, buttonExtent);
    m_button->setParent(parentWidget());
    m_button->setFocusPolicy(Qt::TabFocus);
    m_button->hide();
    QWidget::setTabOrder(this, m_button);
    connect(m_button, &QAbstractButton::clicked, this, [this] {
        // Never another row than the one it stands in.
        if (m_buttonRow.isValid() && m_button->geometry() == placeOfButton(m_buttonRow))
            removeRow(m_buttonRow);
        else
            placeButton(m_buttonRow);
    });
}

QSize ItemList::sizeHint() const
{
    return {260, m_model.rowCount() * m_delegate->rowHeight()};
}

void ItemList::removeRow(const QModelIndex &index)
{
    if (index.isValid() && m_remove)
        m_remove(index);
}

QRect ItemList::placeOfButton(const QModelIndex &index) const
{
    const QRect place = ItemDelegate::buttonPlace(visualRect(index));
    return {viewport()->mapTo(m_button->parentWidget(), place.topLeft()), place.size()};
}

void ItemList::placeButton(const QModelIndex &index)
{
    if (!m_button)
        return;
    m_buttonRow = index;
    m_button->setVisible(index.isValid());
    if (!index.isValid())
        return;
    m_button->setGeometry(placeOfButton(index));
    m_button->setAccessibleName(m_removeName(index));
    m_button->setToolTip(m_removeHint(index));
    m_button->raise();
}

// The rows may have moved below the pointer, and the button's own may have gone.
void ItemList::afterChange()
{
    updateGeometry();
    const QModelIndex wanted = m_buttonRow.isValid() ? QModelIndex(m_buttonRow) : currentIndex();
    const bool isUsed = m_button && (m_button->hasFocus() || m_button->underMouse() || hasFocus());
    placeButton(isUsed ? wanted : QModelIndex());
}

void ItemList::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace)
        removeRow(currentIndex());
    else
        PlainList::keyPressEvent(event);
}

void ItemList::mouseMoveEvent(QMouseEvent *event)
{
    PlainList::mouseMoveEvent(event);
    placeButton(indexAt(event->position().toPoint()));
}

void ItemList::leaveEvent(QEvent *event)
{
    PlainList::leaveEvent(event);
    if (m_button && !m_button->geometry().contains(m_button->parentWidget()->mapFromGlobal(QCursor::pos())))
        placeButton(hasFocus() || m_button->hasFocus() ? currentIndex() : QModelIndex());
}

void ItemList::focusInEvent(QFocusEvent *event)
{
    PlainList::focusInEvent(event);
    placeButton(currentIndex());
    if (currentIndex().isValid() && event->reason() != Qt::MouseFocusReason)
        scrollTo(currentIndex(), EnsureVisible);
}

void ItemList::resizeEvent(QResizeEvent *event)
{
    PlainList::resizeEvent(event);
    placeButton(m_buttonRow);
}

void ItemList::moveEvent(QMoveEvent *event)
{
    PlainList::moveEvent(event);
    placeButton(m_buttonRow);
}

void ItemList::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    PlainList::currentChanged(current, previous);
    if (hasFocus() || (m_button && m_button->hasFocus()))
        placeButton(current);
}

void ItemList::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

void ItemList::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    PlainList::scrollTo(index, hint);
    QScrollArea *const page = pageAround(this);
    if (!page || !index.isValid() || !hasFocus())
        return;
    const QPoint middle = viewport()->mapTo(page->widget(), visualRect(index).center());
    page->ensureVisible(middle.x(), middle.y(), 0, m_delegate->rowHeight());
}

} // namespace ardeno
