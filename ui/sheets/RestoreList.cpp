// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/RestoreList.h"

#include "ui/theme/Drawing.h"
#include "ui/theme/Symbols.h"

#include <QKeyEvent>

#include <algorithm>
#include <cmath>

namespace ardeno {

namespace {

constexpr qreal cardRadius = 12;
constexpr qreal cardPadding = 13;
constexpr qreal markExtent = 16;
constexpr qreal statusRoom = 200; // At most, of a row.
constexpr int warningInset = 26;

const RestoreRow &rowAt(const QModelIndex &index)
{
    return static_cast<const RestoreListModel *>(index.model())->row(index);
}

qreal lineHeight(TextStyle style)
{
    return std::ceil(QFontMetricsF(AppTheme::instance().font(style)).height());
}

// A part of the section's card.
void paintCard(QPainter *painter, const QRectF &row, const RestoreRow &shown)
{
    painter->save();
    painter->setClipRect(row);
    const QRectF card = row.adjusted(0, shown.isFirst ? 0 : -cardRadius * 2, 0, shown.isLast ? 0 : cardRadius * 2);
    Drawing::panel(*painter, card, cardRadius, themeColor(Role::Card), themeColor(Role::Line));
    if (!shown.isLast)
        Drawing::edge(*painter, row, Qt::BottomEdge, themeColor(Role::Line));
    painter->restore();
}

void paintCheckBox(QPainter *painter, const QRectF &box, bool isOn)
{
    Drawing::panel(*painter, box, 4.5, themeColor(isOn ? Role::Accent : Role::Field),
                   themeColor(isOn ? Role::Accent : Role::Dim));
    if (isOn)
        Symbols::draw(*painter, "checkmark", box.adjusted(2, 2, -2, -2), themeColor(Role::OnAccent));
}

// At the right; returns what is left of the row.
QRectF paintStatus(QPainter *painter, QRectF area, const ItemStatus &status)
{
    const QFontMetricsF metrics(AppTheme::instance().font(TextStyle::Small));
    const qreal width = std::min(statusRoom, std::ceil(metrics.horizontalAdvance(status.text)) + 1);
    const QRectF text(area.right() - width, area.top(), width, area.height());
    Drawing::text(*painter, text, status.text, TextStyle::Small, themeColor(status.role));
    qreal left = text.left();
    if (!status.symbol.isEmpty()) {
        left -= markExtent + 6;
        Symbols::draw(*painter, status.symbol, {left, area.center().y() - markExtent / 2, markExtent, markExtent},
                      themeColor(status.role));
    }
    area.setRight(left - 12);
    return area;
}

void paintTitles(QPainter *painter, const QRectF &area, const RestoreRow &row)
{
    if (row.detail.isEmpty()) {
        Drawing::text(*painter, area, row.title, TextStyle::Medium, themeColor(Role::Text));
        return;
    }
    const qreal upper = lineHeight(TextStyle::Medium);
    const qreal lower = lineHeight(TextStyle::Small);
    const qreal top = area.center().y() - (upper + lower) / 2;
    Drawing::text(*painter, {area.left(), top, area.width(), upper}, row.title, TextStyle::Medium,
                  themeColor(Role::Text));
    Drawing::text(*painter, {area.left(), top + upper, area.width(), lower}, row.detail, TextStyle::Small,
                  themeColor(Role::Dim));
}

void paintWarning(QPainter *painter, const QRectF &area, const QString &text)
{
    Symbols::draw(*painter, "exclamationmark.circle", {area.left(), area.top() + 8, markExtent, markExtent},
                  themeColor(Role::AmberText));
    painter->setFont(AppTheme::instance().font(TextStyle::Small));
    painter->setPen(themeColor(Role::AmberText));
    painter->drawText(area.adjusted(warningInset, 8, 0, 0), Qt::TextWordWrap, text);
}

} // namespace

int RestoreDelegate::heightOf(const RestoreRow &row)
{
    switch (row.kind) {
    case RestoreRow::Kind::Header:
        return static_cast<int>(lineHeight(TextStyle::Eyebrow)) + 20;
    case RestoreRow::Kind::App:
        return static_cast<int>(lineHeight(TextStyle::Medium)) + 19;
    case RestoreRow::Kind::Tab:
    case RestoreRow::Kind::Window:
        return static_cast<int>(lineHeight(TextStyle::Medium) + lineHeight(TextStyle::Small)) + 16;
    case RestoreRow::Kind::Warning:
        break;
    }
    const QFontMetricsF metrics(AppTheme::instance().font(TextStyle::Small));
    const QRectF room(0, 0, RestoreList::contentWidth - warningInset - 14, 10'000);
    return static_cast<int>(std::ceil(metrics.boundingRect(room, Qt::TextWordWrap, row.title).height())) + 14;
}

QSize RestoreDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const
{
    return {200, heightOf(rowAt(index))};
}

void RestoreDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const RestoreRow &row = rowAt(index);
    const QRectF area(option.rect);
    if (row.kind == RestoreRow::Kind::Header)
        Drawing::text(*painter, area.adjusted(0, 6, 0, -6), row.title, TextStyle::Eyebrow, themeColor(Role::Dim));
    else if (row.kind == RestoreRow::Kind::Warning)
        paintWarning(painter, area, row.title);
    else
        paintItem(painter, option, index);
}

void RestoreDelegate::paintItem(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const RestoreRow &row = rowAt(index);
    const QRectF area(option.rect);
    const RowState state = RowState::of(option);
    paintCard(painter, area, row);
    if (state.isHovered && row.status.isChoice)
        Drawing::panel(*painter, area.adjusted(4, 3, -4, -3), 8, themeColor(Role::Hover), Qt::transparent);
    if (state.showsFocus)
        Drawing::focusRing(*painter, area.adjusted(2, 2, -2, -2), 9);
    const QRectF inner = area.adjusted(cardPadding, 0, -cardPadding, 0);
    paintMarks(painter, inner, index);
    const QRectF rest = paintStatus(painter, inner, row.status);
    paintTitles(painter, rest.adjusted(2 * (markExtent + 12), 0, 0, 0), row);
}

void RestoreDelegate::paintMarks(QPainter *painter, const QRectF &area, const QModelIndex &index) const
{
    const RestoreRow &row = rowAt(index);
    const QRectF box(area.left(), area.center().y() - markExtent / 2, markExtent, markExtent);
    const QRectF mark = box.translated(markExtent + 11, 0);
    if (row.status.isChoice)
        paintCheckBox(painter, box, index.data(Qt::CheckStateRole).toInt() == Qt::Checked);
    if (row.kind == RestoreRow::Kind::Tab)
        Symbols::draw(*painter, "globe", mark, themeColor(Role::Dim));
    else
        m_icons.draw(*painter, mark, row.appID, "app.dashed");
}

RestoreList::RestoreList(Applications &applications, RestoreListModel &model)
    : PlainList(tr("Apps and tabs of the checkpoint")), m_model(model), m_icons(applications)
{
    setModel(&model);
    setItemDelegate(new RestoreDelegate(m_icons, this));
    setSelectionMode(QAbstractItemView::NoSelection);
    setResizeMode(QListView::Adjust);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setOnActivate([this](const QModelIndex &index) { m_model.toggle(index); });
    const auto begin = [this] {
        // The first row is a heading.
        selectionModel()->setCurrentIndex(m_model.index(1), QItemSelectionModel::NoUpdate);
        updateGeometry();
    };
    connect(&model, &QAbstractItemModel::modelReset, this, begin);
    begin();
}

QSize RestoreList::sizeHint() const
{
    int height = 0;
    for (const RestoreRow &row : m_model.rows())
        height += RestoreDelegate::heightOf(row);
    return {contentWidth, std::max(height, 1)};
}

QSize RestoreList::minimumSizeHint() const
{
    return {200, std::min(sizeHint().height(), 120)};
}

void RestoreList::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->ignore();
    else
        PlainList::keyPressEvent(event);
}

} // namespace ardeno
