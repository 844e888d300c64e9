// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/Label.h"

#include "ui/controls/ParagraphLayout.h"
#include "ui/controls/Surfaces.h"
#include "ui/theme/Drawing.h"
#include "ui/theme/Symbols.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace ardeno {

namespace {

// A label whose lines also break within words. Screen readers find the whole text, as in every label.
class Paragraph final : public QLabel {
public:
    explicit Paragraph(int mostLines) : m_isLimited(mostLines > 0), m_layout(mostLines)
    {
        setTextFormat(Qt::PlainText);
        setWordWrap(true);
        setMinimumWidth(1);
    }

    QSize minimumSizeHint() const override { return {1, fontMetrics().height()}; }

    QSize sizeHint() const override
    {
        // As wide as the text in one line, as far as a window is wide at all.
        constexpr int widest = 520;
        return layout().sizeWithin(widest);
    }

    int heightForWidth(int width) const override { return layout().heightForWidth(width); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        const QTextLayout &lines = layout().lines(width());
        QPainter painter(this);
        painter.setPen(palette().color(foregroundRole()));
        painter.setFont(font());
        const qreal top = std::max<qreal>(0, (height() - lines.boundingRect().bottom()) / 2);
        for (int i = 0; i < lines.lineCount(); ++i) {
            const QTextLine line = lines.lineAt(i);
            if (m_layout.isCut() && i + 1 == lines.lineCount())
                drawCut(painter, line, top);
            else
                line.draw(&painter, {0, top});
        }
    }

    bool event(QEvent *event) override
    {
        if (event->type() != QEvent::ToolTip || !m_isLimited)
            return QLabel::event(event);
        layout().lines(width());
        if (m_layout.isCut())
            QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), hintText(m_layout.shown()), this);
        return true;
    }

private:
    // Of the text as it is now.
    ParagraphLayout &layout() const
    {
        m_layout.set(text(), font(), alignment());
        return m_layout;
    }

    void drawCut(QPainter &painter, const QTextLine &line, qreal top) const
    {
        const QString rest = m_layout.shown().mid(line.textStart()).simplified();
        const QString elided = Drawing::fitted(rest, QFontMetricsF(font(), painter.device()), width());
        painter.drawText(QRectF(0, top + line.y(), width(), line.height()),
                         static_cast<int>(alignment() & Qt::AlignHorizontal_Mask) | Qt::AlignTop | Qt::TextSingleLine,
                         elided);
    }

    bool m_isLimited;
    mutable ParagraphLayout m_layout;
};

// A label whose digits stand in cells of one width.
class Clock final : public QLabel {
public:
    QSize sizeHint() const override
    {
        qreal width = 0;
        for (const QChar sign : text())
            width += widthOf(sign);
        return {static_cast<int>(std::ceil(width)) + 1, QLabel::sizeHint().height()};
    }

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setPen(palette().color(foregroundRole()));
        qreal left = 0;
        for (const QChar sign : text()) {
            painter.drawText(QRectF(left, 0, widthOf(sign), height()), Qt::AlignCenter | Qt::TextDontClip, sign);
            left += widthOf(sign);
        }
    }

private:
    qreal widthOf(QChar sign) const
    {
        const QFontMetricsF metrics(font());
        if (!sign.isDigit())
            return metrics.horizontalAdvance(sign);
        qreal widest = 0;
        for (char digit = '0'; digit <= '9'; ++digit)
            widest = std::max(widest, metrics.horizontalAdvance(QChar(digit)));
        return widest;
    }
};

} // namespace

QLabel *makeLabel(const QString &text, TextStyle style, Role role)
{
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setFont(AppTheme::instance().font(style));
    label->setForegroundRole(AppTheme::paletteRole(role));
    return label;
}

QLabel *makeClock(TextStyle style, Role role)
{
    auto *clock = new Clock;
    clock->setTextFormat(Qt::PlainText);
    clock->setFont(AppTheme::instance().font(style));
    clock->setForegroundRole(AppTheme::paletteRole(role));
    return clock;
}

QLabel *makeParagraph(const QString &text, TextStyle style, Role role)
{
    QLabel *const label = makeParagraphOfLines(0, style, role);
    label->setText(text);
    return label;
}

QLabel *makeParagraphOfLines(int mostLines, TextStyle style, Role role)
{
    auto *label = new Paragraph(mostLines);
    label->setFont(AppTheme::instance().font(style));
    label->setForegroundRole(AppTheme::paletteRole(role));
    return label;
}

LineLabel::LineLabel(const QString &text, TextStyle style, Role role, QWidget *parent)
    : QFrame(parent), m_style(style), m_role(role)
{
    setFont(AppTheme::instance().font(style));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setText(text);
}

void LineLabel::setText(const QString &text)
{
    m_text = text.simplified(); // A line break would be drawn as a box.
    setAccessibleName(m_text);
    updateGeometry();
    update();
}

void LineLabel::setRole(Role role)
{
    m_role = role;
    update();
}

QSize LineLabel::sizeHint() const
{
    constexpr qsizetype widest = 2000; // Characters; no window is wider.
    const QFontMetricsF metrics(font());
    return {static_cast<int>(std::ceil(metrics.horizontalAdvance(m_text.left(widest)))) + 1,
            static_cast<int>(std::ceil(metrics.height()))};
}

QSize LineLabel::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

void LineLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    Drawing::text(painter, rect(), m_text, m_style, themeColor(m_role));
}

bool LineLabel::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        if (sizeHint().width() > width() + 1)
            QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), hintText(m_text), this);
        return true;
    }
    return QFrame::event(event);
}

SymbolView::SymbolView(const QString &symbol, Role role, int extent, QWidget *parent)
    : QWidget(parent), m_symbol(symbol), m_role(role)
{
    setFixedSize(extent, extent);
}

void SymbolView::setSymbol(const QString &symbol, Role role)
{
    m_symbol = symbol;
    m_role = role;
    update();
}

void SymbolView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    Symbols::draw(painter, m_symbol, rect(), themeColor(m_role));
}

QString hintText(const QString &text)
{
    constexpr qreal widest = 380;
    constexpr int mostLines = 16;
    QTextLayout layout(text.left(mostLines * 100).replace('\n', QChar::LineSeparator), QToolTip::font());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid() && lines.size() < mostLines; line = layout.createLine()) {
        line.setLineWidth(widest);
        lines << layout.text().mid(line.textStart(), line.textLength()).remove(QChar::LineSeparator).toHtmlEscaped();
    }
    layout.endLayout();
    return "<p style='white-space:pre; margin:0'>" + lines.join("<br>") + "</p>";
}

QHBoxLayout *makeMarked(const QString &symbol, Role role, QWidget *text, QWidget *owner)
{
    auto *row = makeRow(9, owner);
    row->addWidget(new SymbolView(symbol, role), 0, Qt::AlignTop);
    row->addWidget(text, 1);
    return row;
}

} // namespace ardeno
