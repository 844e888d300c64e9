// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/UndoBanner.h"

#include "ui/controls/Button.h"
#include "ui/controls/Label.h"

#include <QCoreApplication>

namespace ardeno {

UndoBanner::UndoBanner(std::function<void()> undo)
    : Card(nullptr, Role::AccentSoft, Role::AccentSoft, 8), m_text(new LineLabel)
{
    auto *row = makeRow(10, this);
    row->setContentsMargins(12, 4, 12, 4);
    row->addWidget(m_text, 1);
    auto *button = new Button(QCoreApplication::translate("ardeno::UndoBanner", "Undo"), Button::Kind::Link);
    connect(button, &QAbstractButton::clicked, this, std::move(undo));
    row->addWidget(button);
}

void UndoBanner::showEvent(QShowEvent *event)
{
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    Card::showEvent(event);
}

void UndoBanner::setText(const QString &text)
{
    m_text->setText(text);
}

} // namespace ardeno
