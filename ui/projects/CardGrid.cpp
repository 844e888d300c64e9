// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/CardGrid.h"

#include <QApplication>
#include <QEvent>
#include <QScrollBar>

#include <algorithm>

namespace ardeno {

namespace {

constexpr int margin = 28;
constexpr int topMargin = 22;
constexpr int gap = 16;
constexpr int leastWidth = 310;

} // namespace

CardGrid::CardGrid(const QString &name, Cards cards, QWidget *parent)
    : QAbstractScrollArea(parent), m_cards(std::move(cards))
{
    setAccessibleName(name);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    QObject::connect(qApp, &QApplication::focusChanged, this,
                     [this](const QWidget *, const QWidget *now) { reveal(now); });
}

// The focus still moves while the cards are destroyed.
CardGrid::~CardGrid()
{
    QObject::disconnect(qApp, nullptr, this, nullptr);
}

void CardGrid::setHeader(QWidget *header)
{
    m_header = header;
    header->setParent(viewport());
    header->installEventFilter(this);
    header->show();
    arrange();
}

void CardGrid::setCount(int count)
{
    const Focused before = focused();
    m_count = count;
    m_shown.fill(-1);
    arrange();
    refocus(before);
}

CardGrid::Focused CardGrid::focused() const
{
    for (QWidget *const card : m_widgets) {
        const qsizetype control = m_cards.controls(card).indexOf(window()->focusWidget());
        if (control >= 0)
            return {card, control};
    }
    return {};
}

void CardGrid::refocus(const Focused &before)
{
    const qsizetype last = m_shown.indexOf(m_count - 1);
    if (before.card && before.card->isHidden() && m_count > 0 && last >= 0)
        m_cards.controls(m_widgets.at(last)).at(before.control)->setFocus(Qt::OtherFocusReason);
}

int CardGrid::columns() const
{
    const int room = viewport()->width() - 2 * margin;
    return std::clamp((room + gap) / (leastWidth + gap), 1, 3);
}

int CardGrid::rows() const
{
    return (m_count + columns() - 1) / columns();
}

int CardGrid::headerHeight() const
{
    return m_header ? m_header->sizeHint().height() + gap : 0;
}

QRect CardGrid::cardRect(int index) const
{
    const int inRow = columns();
    const int width = (viewport()->width() - 2 * margin - (inRow - 1) * gap) / inRow;
    return {margin + (index % inRow) * (width + gap),
            topMargin + headerHeight() + (index / inRow) * (m_cards.height() + gap) - verticalScrollBar()->value(),
            width, m_cards.height()};
}

void CardGrid::arrange()
{
    const int length = topMargin + headerHeight() + rows() * (m_cards.height() + gap) + margin - gap;
    verticalScrollBar()->setRange(0, std::max(0, length - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(40);
    showCards();
}

void CardGrid::showCards()
{
    const int step = m_cards.height() + gap;
    const int inRow = columns();
    // A row more on either side, so that the tab key finds what comes next.
    const int seen = (viewport()->height() / step + 4) * inRow;
    const int firstRow = std::max(0, (verticalScrollBar()->value() - topMargin - headerHeight()) / step - 1);
    const int first = std::clamp(firstRow * inRow, 0, std::max(0, m_count - 1));
    while (m_widgets.size() < std::min(seen, m_count)) {
        QWidget *const card = m_cards.make();
        card->setParent(viewport());
        m_widgets.append(card);
        m_shown.append(-1);
    }
    const int pool = static_cast<int>(m_widgets.size());
    for (int place = 0; place < pool; ++place) {
        // Widget `place` shows the indexes that leave the same rest when divided by `pool`: one of them is in sight.
        const int index = first + ((place - first) % pool + pool) % pool;
        showCard(place, index < std::min(m_count, first + seen) ? index : -1);
    }
    orderTabs(first);
    if (m_header)
        m_header->setGeometry(margin, topMargin - verticalScrollBar()->value(), viewport()->width() - 2 * margin,
                              m_header->sizeHint().height());
}

void CardGrid::showCard(int place, int index)
{
    QWidget *const card = m_widgets.at(place);
    card->setVisible(index >= 0);
    if (index >= 0 && m_shown.at(place) != index)
        m_cards.show(card, index);
    m_shown[place] = index;
    if (index >= 0)
        card->setGeometry(cardRect(index));
}

void CardGrid::orderTabs(int first)
{
    const int pool = static_cast<int>(m_widgets.size());
    QList<QWidget *> controls;
    for (int index = first; index < std::min(m_count, first + pool); ++index)
        controls += m_cards.controls(m_widgets.at(index % pool));
    for (qsizetype i = 1; i < controls.size(); ++i)
        QWidget::setTabOrder(controls.at(i - 1), controls.at(i));
}

void CardGrid::resizeEvent(QResizeEvent *)
{
    arrange();
}

void CardGrid::scrollContentsBy(int, int)
{
    showCards();
}

bool CardGrid::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_header && event->type() == QEvent::LayoutRequest)
        arrange();
    return QAbstractScrollArea::eventFilter(watched, event);
}

void CardGrid::reveal(const QWidget *focused)
{
    if (!focused || !viewport()->isAncestorOf(focused))
        return;
    const QRect rect(focused->mapTo(viewport(), QPoint()), focused->size());
    QScrollBar *const bar = verticalScrollBar();
    if (rect.top() < gap)
        bar->setValue(bar->value() + rect.top() - margin - m_cards.height() / 2);
    else if (rect.bottom() > viewport()->height() - gap)
        bar->setValue(bar->value() + rect.bottom() - viewport()->height() + margin);
}

} // namespace ardeno
