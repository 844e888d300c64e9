// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/ParagraphLayout.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QTextOption>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace ardeno {

namespace {

// From one line to the next, in sizes of the letters.
constexpr qreal linePitch = 1.4;
constexpr qreal titlePitch = 1.15;
constexpr int leastTitle = 20; // Pixels.

// The end of the part of the text that a screen could show at all; not within a character.
qsizetype endWithin(const QString &text, qsizetype most)
{
    if (text.size() <= most)
        return text.size();
    return text.at(most).isLowSurrogate() ? most - 1 : most;
}

} // namespace

ParagraphLayout::ParagraphLayout(int mostLines) : m_mostLines(mostLines)
{
    m_layout.setCacheEnabled(true); // Else its glyphs are looked for again whenever it is drawn.
}

void ParagraphLayout::set(const QString &text, const QFont &font, Qt::Alignment alignment)
{
    constexpr qsizetype mostOfLine = 1000;
    constexpr qsizetype mostOfAll = 20'000;
    QTextOption option(alignment & Qt::AlignHorizontal_Mask);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    if (text == m_text && font == m_layout.font() && option.alignment() == m_layout.textOption().alignment())
        return;
    m_text = text;
    m_shown = text.left(endWithin(text, m_mostLines > 0 ? m_mostLines * mostOfLine : mostOfAll));
    m_layout.setText(QString(m_shown).replace('\n', QChar::LineSeparator));
    m_layout.setFont(font);
    m_layout.setTextOption(option);
    m_width = -1;
    m_measured.clear();
}

QSize ParagraphLayout::sizeWithin(int widest)
{
    const Measured &found = measured(widest);
    return {found.leastWidth, found.height};
}

int ParagraphLayout::heightForWidth(int width)
{
    return measured(width).height;
}

const ParagraphLayout::Measured &ParagraphLayout::measured(int width)
{
    const auto known = std::find_if(m_measured.begin(), m_measured.end(), [width](const Measured &candidate) {
        return width >= candidate.leastWidth && width <= candidate.mostWidth;
    });
    if (known != m_measured.end())
        return *known;
    layOut(width);
    qreal widest = 0;
    for (int at = 0; at < m_layout.lineCount(); ++at)
        widest = std::max(widest, m_layout.lineAt(at).naturalTextWidth());
    const int height =
        std::max(QFontMetrics(m_layout.font()).height(), static_cast<int>(std::ceil(m_layout.boundingRect().bottom())));
    const bool isWhole = m_layout.lineCount() <= 1 && !m_isCut;
    const int least = std::min(width, static_cast<int>(std::ceil(widest)) + 1);
    m_measured.append({least, isWhole ? QWIDGETSIZE_MAX : width, height});
    return m_measured.last();
}

const QTextLayout &ParagraphLayout::lines(int width)
{
    if (m_width != width)
        layOut(width);
    return m_layout;
}

void ParagraphLayout::layOut(int width)
{
    const qreal between = leading();
    m_layout.beginLayout();
    qsizetype end = 0;
    qreal bottom = 0;
    for (int count = 0; m_mostLines == 0 || count < m_mostLines; ++count) {
        QTextLine line = m_layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(std::max(1, width));
        line.setPosition({0, bottom});
        bottom += line.height() + between;
        end = line.textStart() + line.textLength();
    }
    m_layout.endLayout();
    m_width = width;
    m_isCut = end < m_layout.text().size() || m_shown.size() < m_text.size();
}

qreal ParagraphLayout::leading() const
{
    const qreal height = QFontMetricsF(m_layout.font()).height();
    const int size = QFontInfo(m_layout.font()).pixelSize();
    return size >= leastTitle ? titlePitch * size - height : std::max<qreal>(0, linePitch * size - height);
}

} // namespace ardeno
