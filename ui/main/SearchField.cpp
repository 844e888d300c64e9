// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main/SearchField.h"

#include "ui/controls/Button.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace ardeno {

namespace {

constexpr int clearExtent = 24;
constexpr int clearInset = 4;

} // namespace

SearchField::SearchField(const QString &name, QWidget *parent)
    : TextField(name, name, "magnifyingglass", parent),
      m_clear(Button::makeIcon("xmark", QCoreApplication::translate("ardeno::SearchField", "Clear the search"),
                               clearExtent))
{
    QMargins margins = textMargins();
    margins.setRight(clearExtent + clearInset);
    setTextMargins(margins);
    m_clear->setParent(this);
    m_clear->setFocusPolicy(Qt::NoFocus); // The keyboard has Escape.
    m_clear->setCursor(Qt::ArrowCursor);
    m_clear->hide();
    connect(m_clear, &QAbstractButton::clicked, this, [this] {
        clear();
        setFocus(Qt::OtherFocusReason);
    });
    connect(this, &QLineEdit::textChanged, m_clear,
            [this](const QString &text) { m_clear->setHidden(text.isEmpty()); });
}

void SearchField::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && !text().isEmpty() && m_openFirst)
        m_openFirst();
    else if (event->key() == Qt::Key_Down && event->modifiers().testFlag(Qt::NoModifier) && m_down)
        m_down();
    else
        TextField::keyPressEvent(event);
}

void SearchField::resizeEvent(QResizeEvent *event)
{
    TextField::resizeEvent(event);
    m_clear->setGeometry(width() - clearExtent - clearInset, (height() - clearExtent) / 2, clearExtent, clearExtent);
}

} // namespace ardeno
