// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/TextArea.h"

#include "ui/controls/Surfaces.h"
#include "ui/theme/Drawing.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextCursor>

#include <cmath>

namespace ardeno {

TextArea::TextArea(const QString &name, int lines, QWidget *parent) : QWidget(parent), m_editor(new QTextEdit)
{
    auto *column = makeColumn(0, this);
    column->setContentsMargins(9, 7, 3, 7);
    column->addWidget(m_editor);
    m_editor->setAccessibleName(name);
    m_editor->setAcceptRichText(false);
    m_editor->setAutoFormatting(QTextEdit::AutoNone);
    m_editor->setTabChangesFocus(true);
    m_editor->setFrameShape(QFrame::NoFrame);
    m_editor->setFont(AppTheme::instance().font(TextStyle::Body));
    m_editor->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_editor->document()->setDocumentMargin(0);
    m_editor->document()->clearUndoRedoStacks(); // Nobody takes back how it looks.
    m_editor->viewport()->setAutoFillBackground(false);
    QPalette own; // Only its background is its own, the rest follows the window.
    own.setColor(QPalette::Base, Qt::transparent);
    m_editor->setPalette(own);
    m_editor->installEventFilter(this);
    setFocusProxy(m_editor);
    const double line = QFontMetricsF(m_editor->font()).lineSpacing();
    setFixedHeight(static_cast<int>(std::ceil(lines * line)) + 16);
}

QString TextArea::text() const
{
    return m_editor->document()
        ->toRawText()
        .replace(QChar::ParagraphSeparator, '\n')
        .replace(QChar::LineSeparator, '\n');
}

void TextArea::setText(const QString &text)
{
    m_editor->setPlainText(text);
    m_editor->document()->setModified(false);
}

void TextArea::retype(const QString &text)
{
    QTextCursor cursor(m_editor->document());
    cursor.select(QTextCursor::Document);
    cursor.insertText(text);
    m_editor->document()->setModified(true); // Whatever was there.
}

void TextArea::setOnTextChange(std::function<void()> changed)
{
    connect(m_editor, &QTextEdit::textChanged, this, std::move(changed));
}

void TextArea::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    Drawing::field(painter, rect(), m_editor->hasFocus());
}

bool TextArea::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    return QWidget::eventFilter(watched, event);
}

} // namespace ardeno
