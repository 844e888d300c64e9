// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/settings/SettingsCard.h"

#include "ui/controls/Label.h"
#include "ui/theme/Drawing.h"

#include <QPainter>

namespace ardeno {

namespace {

class CardLine final : public QWidget {
public:
    CardLine() { setFixedHeight(1); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        Drawing::edge(painter, rect(), Qt::TopEdge, themeColor(Role::Line));
    }
};

} // namespace

SettingsCard::SettingsCard() : m_column(makeColumn(0, this)) {}

QHBoxLayout *SettingsCard::addPlainRow()
{
    if (m_column->count() > 0)
        m_column->addWidget(new CardLine);
    auto *holder = new QWidget; // Hidden as a whole when a row is not wanted.
    auto *row = makeRow(12, holder);
    row->setContentsMargins(14, 10, 14, 10);
    m_column->addWidget(holder);
    return row;
}

QVBoxLayout *SettingsCard::addRow(const Text &text, const QList<QWidget *> &controls)
{
    QHBoxLayout *const row = addPlainRow();
    if (!text.symbol.isEmpty())
        row->addWidget(new SymbolView(text.symbol, Role::Dim), 0, Qt::AlignTop);
    auto *column = makeColumn(2);
    column->addWidget(makeParagraph(text.title, TextStyle::Medium));
    if (!text.explanation.isEmpty())
        column->addWidget(makeParagraph(text.explanation, TextStyle::Small, Role::Dim));
    row->addLayout(column, 1);
    auto *right = makeRow(8);
    for (QWidget *const control : controls)
        right->addWidget(control, 0, Qt::AlignTop);
    row->addLayout(right);
    row->setAlignment(right, Qt::AlignTop);
    return column;
}

} // namespace ardeno
