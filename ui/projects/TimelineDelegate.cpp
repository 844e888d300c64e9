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

namespace ardeno {

namespace {

const CheckpointListModel &modelOf(const QModelIndex &index)
{
    return *static_cast<const CheckpointListModel *>(index.model());
}

QFont latestFont()
{
    QFont font = AppTheme::instance().font(9, QFont::DemiBold);
    font.setLetterSpacing(QFont::PercentageSpacing, 109);
    return font;
}

QString latestMark()
{
    return QCoreApplication::translate("ardeno::TimelineDelegate", "LATEST");
}

// At the right end of the line, which is shortened by it.
void drawLatest(QPainter &painter, QRectF &line)
{
    painter.setFont(latestFont());
    painter.setPen(themeColor(Role::AccentText));
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, latestMark());
    line.setWidth(line.width() - QFontMetricsF(latestFont()).horizontalAdvance(latestMark()) - 8);
}

bool hasRoomForLatest(const QString &text, qreal width)
{
    const qreal mark = QFontMetricsF(latestFont()).horizontalAdvance(latestMark()) + 8;
    return QFontMetricsF(AppTheme::instance().font(TextStyle::Small)).horizontalAdvance(text) + mark <= width;
}

// The line below the title that the mark stands in: the last one with room, one of its own, or the first.
qsizetype lineOfLatest(QStringList &lines, qreal width, bool hasRoomForAnother)
{
    for (qsizetype at = lines.size() - 1; at >= 0; --at) {
        if (hasRoomForLatest(lines.at(at), width))
            return at;
    }
    if (hasRoomForAnother)
        lines.prepend({});
    return 0;
}

// The checkpoint's label, its title where that says something else, the moment, and "LATEST" beside one of these.
void drawTexts(QPainter &painter, const QRectF &area, const QModelIndex &index, const RowState &state)
{
    const Checkpoint &checkpoint = modelOf(index).rows().at(index.row());
    const AppTheme &theme = AppTheme::instance();
    const qreal strong = QFontMetricsF(theme.font(TextStyle::Strong)).height();
    const qreal small = QFontMetricsF(theme.font(TextStyle::Small)).height() + 1;
    const QString label = modelOf(index).title(index.row());
    const QString heading = modelOf(index).heading(index.row());
    const bool hasThreeLines = area.height() >= strong + 2 * small;
    QStringList lines{ProjectText::moment(checkpoint.createdAt)};
    if (heading != label && hasThreeLines)
        lines.prepend(heading);
    const bool isLatest = CheckpointListModel::isLatest(index);
    const qsizetype marked = isLatest ? lineOfLatest(lines, area.width(), hasThreeLines && lines.size() == 1) : -1;
    QRectF line(area.left(), area.center().y() - (strong + small * static_cast<qreal>(lines.size())) / 2, area.width(),
                strong);
    Drawing::text(painter, line, label, TextStyle::Strong, themeColor(Role::Text));
    for (qsizetype at = 0; at < lines.size(); ++at) {
        line = QRectF(area.left(), line.bottom(), area.width(), small);
        if (at == marked)
            drawLatest(painter, line);
        Drawing::text(painter, line, lines.at(at), TextStyle::Small,
                      themeColor(state.isSelected ? Role::DimOnSoft : Role::Dim));
    }
}

} // namespace

void TimelineDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const RowState state = RowState::of(option);
    const QRectF card(option.rect.topLeft(), cardSize);
    const Role line = state.isSelected ? Role::AccentText : state.isHovered ? Role::Faint : Role::Line;
    Drawing::panel(*painter, card, 12, themeColor(state.isSelected ? Role::AccentSoft : Role::Card), themeColor(line));
    if (state.showsFocus)
        Drawing::focusRing(*painter, card, 12,
                           state.isSelected ? Drawing::RingOn::Selection : Drawing::RingOn::Surface);
    const QSizeF picture = ThumbnailShelf::shownSize;
    m_pictures.draw(*painter, {QPointF(card.left() + 9, card.center().y() - picture.height() / 2), picture},
                    modelOf(index).rows().at(index.row()));
    drawTexts(*painter, card.adjusted(9 + picture.width() + 10, 6, -11, -6), index, state);
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
    m_pictures.draw(*painter, {QPointF(row.left() + 8, row.center().y() - picture.height() / 2), picture},
                    modelOf(index).rows().at(index.row()));
    drawTexts(*painter, row.adjusted(8 + picture.width() + 12, 8, -52, -8), index, state);
    // Where the pointer or the keyboard is, a button stands in its place.
    const QRectF menu(row.right() - menuInset - 22, row.center().y() - 8, 16, 16);
    Symbols::draw(*painter, "ellipsis.circle", menu, themeColor(Role::Dim));
}

QSize ManagerDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return {200, rowHeight};
}

} // namespace ardeno
