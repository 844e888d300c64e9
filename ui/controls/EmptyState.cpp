// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/EmptyState.h"

#include "ui/controls/Label.h"
#include "ui/controls/Surfaces.h"

namespace ardeno {

EmptyState::EmptyState(const QString &symbol, const QString &sentence, int space, QWidget *parent)
    : QWidget(parent),
      m_symbol(new SymbolView(symbol, Role::Faint, 32)),
      m_sentence(makeParagraph(sentence, TextStyle::Body, Role::Dim))
{
    auto *column = makeColumn(10, this);
    column->setContentsMargins(0, space, 0, space);
    column->addWidget(m_symbol, 0, Qt::AlignHCenter);
    m_sentence->setAlignment(Qt::AlignHCenter);
    column->addWidget(m_sentence);
}

void EmptyState::show(const QString &symbol, const QString &sentence)
{
    m_symbol->setSymbol(symbol, Role::Faint);
    m_sentence->setText(sentence);
}

} // namespace ardeno
