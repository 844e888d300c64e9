// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTextEdit>

#include <functional>

namespace ardeno {

// A plain text of several lines that behaves like a list while it is typed, and grows with its text.
class QuickListEditor final : public QTextEdit {
public:
    // The title is what screen readers call it.
    QuickListEditor(const QString &title, double fontPixels, QWidget *parent = nullptr);

    // Line breaks are line feeds; nothing else is changed, unlike in toPlainText.
    QString text() const;
    // Keeps the caret where it was as far as the text reaches. The same text is left alone.
    void setText(const QString &text);

    void setOnTextChange(std::function<void()> changed) { m_textChanged = std::move(changed); }

    void setOnFocusChange(std::function<void(bool)> changed) { m_focusChanged = std::move(changed); }

    // At least 48 and at most 260 pixels; longer notes scroll inside.
    int fittingHeight() const;

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void insertFromMimeData(const QMimeData *source) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isComposing() const;
    void insertTyped(const QString &inserted);
    bool continueList();
    void replace(qsizetype location, qsizetype length, const QString &text);
    void fit();

    std::function<void()> m_textChanged;
    std::function<void(bool)> m_focusChanged;
};

} // namespace ardeno
