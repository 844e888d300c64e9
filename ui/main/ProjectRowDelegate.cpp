// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main/ProjectRowDelegate.h"

#include "ui/controls/PlainList.h"
#include "ui/projects/ProjectListModel.h"
#include "ui/projects/ProjectText.h"
#include "ui/theme/Drawing.h"
#include "ui/theme/Symbols.h"

#include <QCoreApplication>
#include <QFontMetricsF>

#include <cmath>

namespace ardeno {

namespace {

constexpr int verticalPadding = 8;
constexpr int rowGap = 2;

const ProjectRow &rowAt(const QModelIndex &index)
{
    return static_cast<const ProjectListModel *>(index.model())->rows().at(index.row());
}

qreal lineHeight(TextStyle style)
{
    return std::ceil(QFontMetricsF(AppTheme::instance().font(style)).height()) + 2;
}

QString symbolOf(const ProjectRow &row)
{
    if (row.blocker)
        return "pause.circle.fill";
    return row.isSample ? "sparkle" : "folder";
}

void drawGround(QPainter &painter, const QRectF &area, const RowState &state)
{
    if (state.isSelected)
        Drawing::panel(painter, area, 8, themeColor(Role::AccentSoft), Qt::transparent);
    else if (state.isHovered)
        Drawing::panel(painter, area, 8, themeColor(Role::Hover), Qt::transparent);
    if (state.showsFocus)
        Drawing::focusRing(painter, area, 8);
}

} // namespace

void ProjectRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const ProjectRow &row = rowAt(index);
    const RowState state = RowState::of(option);
    const QRectF area = QRectF(option.rect).adjusted(0, rowGap / 2.0, 0, -rowGap / 2.0);
    drawGround(*painter, area, state);

    const Role nameRole = state.isSelected ? Role::AccentText : Role::Text;
    const Role symbolRole = row.blocker ? Role::AmberText : state.isSelected ? Role::AccentText : Role::Dim;
    const qreal nameHeight = lineHeight(TextStyle::Medium);
    const qreal smallHeight = lineHeight(TextStyle::Small);
    const bool isOnSoft = state.isSelected || state.isHovered;
    QRectF line(area.left() + 34, area.top() + verticalPadding, area.width() - 44, nameHeight);
    Symbols::draw(*painter, symbolOf(row), {area.left() + 9, line.center().y() - 8, 16, 16}, themeColor(symbolRole));
    Drawing::text(*painter, line, row.name, state.isSelected ? TextStyle::Strong : TextStyle::Medium,
                  themeColor(nameRole));
    line.moveTop(line.bottom());
    line.setHeight(smallHeight);
    if (row.blocker) {
        const QString text =
            u"%1 · %2"_qs.arg(QCoreApplication::translate("ardeno::ProjectRowDelegate", "Blocked"), *row.blocker);
        Drawing::text(*painter, line, text.simplified(), TextStyle::Small, themeColor(Role::AmberText));
        line.moveTop(line.bottom());
    }
    Drawing::text(*painter, line, ProjectText::checkpointCount(row.checkpoints), TextStyle::Small,
                  themeColor(isOnSoft ? Role::DimOnSoft : Role::Dim));
}

QSize ProjectRowDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const
{
    const qreal lines = lineHeight(TextStyle::Medium) + lineHeight(TextStyle::Small) * (rowAt(index).blocker ? 2 : 1);
    return {100, static_cast<int>(lines) + 2 * verticalPadding + rowGap};
}

} // namespace ardeno
