// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/checkpoint/QuickListEditor.h"

#include "ui/checkpoint/BulletContinuation.h"
#include "ui/controls/TextKeys.h"
#include "ui/theme/AppTheme.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace ardeno {

namespace {

constexpr int topInset = 4;
constexpr int leastHeight = 48;
constexpr int mostHeight = 260;

BulletContinuation::Selection selectionOf(const QTextCursor &cursor)
{
    return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
}

} // namespace

QuickListEditor::QuickListEditor(const QString &title, double fontPixels, QWidget *parent) : QTextEdit(parent)
{
    setAccessibleName(title);
    setAcceptRichText(false);
    setAutoFormatting(QTextEdit::AutoNone);
    setTabChangesFocus(true);
    setFrameShape(QFrame::NoFrame);
    setFont(AppTheme::instance().font(fontPixels));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setViewportMargins(0, topInset, 0, topInset);
    document()->setDocumentMargin(0);
    document()->clearUndoRedoStacks(); // Nobody takes back how it looks.
    QPalette own;                      // Only its background is its own, the rest follows the window.
    own.setColor(QPalette::Base, Qt::transparent);
    setPalette(own);
    connect(document(), &QTextDocument::contentsChanged, this, [this] {
        fit();
        if (m_textChanged)
            m_textChanged();
    });
    fit();
}

QString QuickListEditor::text() const
{
    return document()->toRawText().replace(QChar::ParagraphSeparator, '\n').replace(QChar::LineSeparator, '\n');
}

void QuickListEditor::setText(const QString &text)
{
    if (this->text() == text)
        return;
    const int caret = textCursor().position();
    QTextEdit::setPlainText(text);
    QTextCursor cursor = textCursor();
    cursor.setPosition(std::min(caret, document()->characterCount() - 1));
    setTextCursor(cursor);
}

int QuickListEditor::fittingHeight() const
{
    const int used = static_cast<int>(std::ceil(document()->size().height()));
    return std::clamp(used + 12, leastHeight, mostHeight);
}

void QuickListEditor::fit()
{
    const int height = fittingHeight();
    const bool isLong = document()->size().height() + 12 > mostHeight;
    setVerticalScrollBarPolicy(isLong ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    if (minimumHeight() != height)
        setFixedHeight(height);
}

bool QuickListEditor::isComposing() const
{
    const QTextLayout *const layout = textCursor().block().layout();
    return layout && !layout->preeditAreaText().isEmpty();
}

void QuickListEditor::replace(qsizetype location, qsizetype length, const QString &text)
{
    // Through the cursor, so that one undo takes it back.
    QTextCursor cursor = textCursor();
    cursor.setPosition(static_cast<int>(location));
    cursor.setPosition(static_cast<int>(location + length), QTextCursor::KeepAnchor);
    cursor.insertText(text);
    setTextCursor(cursor);
    ensureCursorVisible();
}

void QuickListEditor::insertTyped(const QString &inserted)
{
    const BulletContinuation::Selection selection = selectionOf(textCursor());
    if (const auto edit = BulletContinuation::insertion(text(), selection, inserted))
        replace(edit->range.location, edit->range.length, edit->replacement);
    else
        replace(selection.location, selection.length, inserted);
}

bool QuickListEditor::continueList()
{
    const auto edit = BulletContinuation::edit(text(), selectionOf(textCursor()));
    if (edit)
        replace(edit->range.location, edit->range.length, edit->replacement);
    return edit.has_value();
}

bool QuickListEditor::event(QEvent *event)
{
    if (!TextKeys::isLeft(*event, this))
        return QTextEdit::event(event);
    event->ignore();
    return true;
}

void QuickListEditor::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape) {
        clearFocus();
    } else if (isComposing() || isReadOnly()) {
        QTextEdit::keyPressEvent(event);
    } else if (isReturn && !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
        if (!continueList())
            insertTyped("\n");
    } else if (TextKeys::isCharacter(*event)) {
        insertTyped(event->text());
    } else {
        QTextEdit::keyPressEvent(event);
    }
}

void QuickListEditor::inputMethodEvent(QInputMethodEvent *event)
{
    const bool isPlainCommit = !isComposing() && event->preeditString().isEmpty() && event->replacementLength() == 0;
    if (!isPlainCommit || event->commitString().isEmpty()) {
        QTextEdit::inputMethodEvent(event);
        return;
    }
    insertTyped(event->commitString());
    event->accept();
}

void QuickListEditor::insertFromMimeData(const QMimeData *source)
{
    if (source->hasText())
        insertTyped(source->text().replace("\r\n", "\n").replace('\r', '\n'));
}

void QuickListEditor::focusInEvent(QFocusEvent *event)
{
    QTextEdit::focusInEvent(event);
    qApp->installEventFilter(this);
    if (m_focusChanged)
        m_focusChanged(true);
}

void QuickListEditor::focusOutEvent(QFocusEvent *event)
{
    QTextEdit::focusOutEvent(event);
    if (event->reason() == Qt::PopupFocusReason)
        return; // Its own context menu; the editing goes on.
    qApp->removeEventFilter(this);
    if (m_focusChanged)
        m_focusChanged(false);
}

bool QuickListEditor::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::MouseButtonPress || !watched->isWidgetType() ||
        QApplication::activePopupWidget() != nullptr)
        return QTextEdit::eventFilter(watched, event);
    // A click anywhere but into the note ends the editing; the click itself goes its way.
    const auto *const click = static_cast<QMouseEvent *>(event);
    if (!QRect(mapToGlobal(QPoint()), size()).contains(click->globalPosition().toPoint()))
        clearFocus();
    return false;
}

void QuickListEditor::resizeEvent(QResizeEvent *event)
{
    QTextEdit::resizeEvent(event);
    fit();
}

} // namespace ardeno
