// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/checkpoint/SampleWorkspace.h"

#include "ui/controls/Surfaces.h"
#include "ui/theme/Drawing.h"
#include "ui/theme/Symbols.h"

#include <QPainter>

namespace ardeno {

namespace {

// The picture is drawn on a background of this size and scaled; it has its own paper, the same in light and dark.
constexpr QSizeF background(840, 330);
constexpr QRgb paper = 0xfffdfcf9;
constexpr QRgb ink = 0xff26272c;
constexpr QRgb pale = 0xffe8e4da;

void write(QPainter &painter, const QRectF &place, const QString &text, double pixels, QFont::Weight weight,
           const QColor &color)
{
    painter.setFont(AppTheme::instance().font(pixels, weight));
    painter.setPen(color);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignTop, text);
}

void drawFrame(QPainter &painter)
{
    Drawing::panel(painter, {34, 30, 520, 270}, 10, QColor(paper), QColor(0xffd9d4c8));
    painter.fillRect(QRectF(35, 58, 518, 1), QColor(pale));
    const QRgb dots[] = {0xffd98c7f, 0xffdcb96b, 0xff93b48b};
    for (int i = 0; i < 3; ++i)
        Drawing::panel(painter, {48.0 + 14 * i, 41, 8, 8}, 4, QColor(dots[i]), Qt::transparent);
    write(painter, {210, 37, 220, 20},
          QCoreApplication::translate("ardeno::SampleWorkspace", "portfolio / selected work"), 10, QFont::Normal,
          QColor(0xff8a8578));
}

void drawPage(QPainter &painter)
{
    const auto tr = [](const char *text) { return QCoreApplication::translate("ardeno::SampleWorkspace", text); };
    write(painter, {62, 76, 40, 20}, "Aa", 14, QFont::DemiBold, QColor(0xff52639e));
    write(painter, {330, 78, 220, 20}, tr("Work     About     Contact"), 10, QFont::Normal, QColor(ink));
    write(painter, {62, 118, 290, 90}, tr("Make room\nfor the work."), 28, QFont::DemiBold, QColor(ink));
    Drawing::panel(painter, {62, 212, 140, 66}, 6, QColor(0xffcfd8c8), Qt::transparent);
    Drawing::panel(painter, {212, 212, 140, 66}, 6, QColor(0xffd7d3e6), Qt::transparent);
    Symbols::draw(painter, "leaf", {120, 233, 24, 24}, QColor(0xff578569));
    Drawing::panel(painter, {374, 118, 160, 160}, 8, QColor(0xfff3efe5), Qt::transparent);
    Symbols::draw(painter, "note.text", {388, 132, 16, 16}, QColor(0xffab7833));
    write(painter, {410, 132, 120, 20}, tr("A thought to keep"), 10.5, QFont::DemiBold, QColor(0xff7a6233));
    write(painter, {388, 164, 140, 60}, tr("Less, but\na little better."), 14, QFont::Normal, QColor(ink));
}

void drawNote(QPainter &painter)
{
    const auto tr = [](const char *text) { return QCoreApplication::translate("ardeno::SampleWorkspace", text); };
    Drawing::panel(painter, {586, 76, 222, 150}, 10, QColor(0xfffff6d9), QColor(0xffead9a3));
    write(painter, {606, 98, 190, 110}, tr("✓  Bottom navigation\n\n↳  Check labels on mobile"), 12.5, QFont::Medium,
          QColor(0xff4b4330));
}

} // namespace

SampleWorkspace::SampleWorkspace(QWidget *parent) : QWidget(parent)
{
    setAccessibleName(tr("Illustrative portfolio design beside a note to check mobile navigation"));
    setMinimumHeight(250);
}

void SampleWorkspace::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    Drawing::panel(painter, rect(), 8, QColor(0xffdfe3ee), Qt::transparent);
    const qreal scale = qMin(width() / background.width(), height() / background.height());
    painter.translate((width() - background.width() * scale) / 2, (height() - background.height() * scale) / 2);
    painter.scale(scale, scale);
    drawFrame(painter);
    drawPage(painter);
    drawNote(painter);
}

} // namespace ardeno
