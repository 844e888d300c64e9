// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/TimelineDelegate.h"

#include "ui/controls/PlainList.h"
#include "ui/projects/CheckpointListModel.h"
#include "ui/projects/ProjectText.h"
#include "ui/projects/ThumbnailShelf.h"
#include "ui/theme/Drawing.h"
#include "ui/theme/Symbols.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QPainterPath>

namespace ardeno {

namespace {

const CheckpointListModel &modelOf(const QModelIndex &index)
{
    return *static_cast<const CheckpointListModel *>(index.model());
}

// Title with "LATEST" behind it, and the moment below.
void drawTexts(QPainter &painter, QRectF area, const QModelIndex &index, const RowState &state)
{
    const Checkpoint &checkpoint = modelOf(index).rows().at(index.row());
    const qreal line = QFontMetricsF(AppTheme::instance().font(TextStyle::Strong)).height();
    const QRectF lower(area.left(), area.center().y() + 1, area.width(), area.height() / 2);
    QRectF upper(area.left(), area.center().y() - line, area.width(), line);
    if (CheckpointListModel::isLatest(index)) {
        QFont font = AppTheme::instance().font(9, QFont::DemiBold);
        font.setLetterSpacing(QFont::PercentageSpacing, 109);
        const QString mark = QCoreApplication::translate("ardeno::TimelineDelegate", "LATEST");
        const qreal width = QFontMetricsF(font).horizontalAdvance(mark);
        painter.setFont(font);
        painter.setPen(themeColor(Role::AccentText));
        painter.drawText(upper, Qt::AlignRight | Qt::AlignVCenter, mark);
        upper.setWidth(upper.width() - width - 8);
    }
    Drawing::text(painter, upper, modelOf(index).title(index.row()), TextStyle::Strong, themeColor(Role::Text));
    Drawing::text(painter, lower, ProjectText::moment(checkpoint.createdAt), TextStyle::Small,
                  themeColor(state.isSelected ? Role::DimOnSoft : Role::Dim), Qt::AlignLeft | Qt::AlignTop);
}

} // namespace

void TimelineDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const RowState state = RowState::of(option);
    const QRectF card(option.rect.topLeft(), cardSize);
    const Role line = state.isSelected ? Role::AccentText : state.isHovered ? Role::Faint : Role::Line;
    Drawing::panel(*painter, card, 12, themeColor(state.isSelected ? Role::AccentSoft : Role::Card), themeColor(line));
    if (state.showsFocus)
        Drawing::focusRing(*painter, card, 12);
    drawTexts(*painter, card.adjusted(13, 9, -13, -9), index, state);
}

QSize TimelineDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return {cardSize.width() + gap, cardSize.height()};
}

void ManagerDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const RowState state = RowState::of(option);
    const QRectF row = QRectF(option.rect).adjusted(0, 1, 0, -1);
    if (state.isSelected)
        Drawing::panel(*painter, row, 8, themeColor(Role::AccentSoft), Qt::transparent);
    else if (state.isHovered)
        Drawing::panel(*painter, row, 8, themeColor(Role::Card), themeColor(Role::Line));
    if (state.showsFocus)
        Drawing::focusRing(*painter, row, 8);
    const QSizeF picture = ThumbnailShelf::shownSize;
    drawPicture(*painter, {QPointF(row.left() + 8, row.center().y() - picture.height() / 2), picture}, index);
    drawTexts(*painter, row.adjusted(8 + picture.width() + 12, 8, -52, -8), index, state);
    // Where the pointer or the keyboard is, a button stands in its place.
    const QRectF menu(row.right() - menuInset - 22, row.center().y() - 8, 16, 16);
    Symbols::draw(*painter, "ellipsis.circle", menu, themeColor(Role::Dim));
}

void ManagerDelegate::drawPicture(QPainter &painter, const QRectF &area, const QModelIndex &index) const
{
    const Checkpoint &checkpoint = modelOf(index).rows().at(index.row());
    const QImage *const image = m_pictures.find(checkpoint, painter.device()->devicePixelRatio());
    if (!image) {
        Drawing::panel(painter, area, 4, themeColor(Role::Card), themeColor(Role::Line));
        Symbols::draw(painter, "photo", {area.center().x() - 8, area.center().y() - 8, 16, 16},
                      themeColor(Role::Faint));
        return;
    }
    const QSizeF size = QSizeF(image->size()).scaled(area.size(), Qt::KeepAspectRatio);
    QRectF target(QPointF(), size);
    target.moveCenter(area.center());
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    QPainterPath rounded;
    rounded.addRoundedRect(target, 4, 4);
    painter.setClipPath(rounded);
    painter.drawImage(target, *image);
    painter.restore();
}

QSize ManagerDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return {200, rowHeight};
}

} // namespace ardeno
