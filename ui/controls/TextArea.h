// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTextEdit>
#include <QWidget>

#include <functional>

namespace ardeno {

// A field for a plain text of several lines, with a scroll bar when it is long. The name is what screen readers say.
class TextArea final : public QWidget {
public:
    TextArea(const QString &name, int lines, QWidget *parent = nullptr);

    // Line breaks are line feeds; everything else is as it was typed or set.
    QString text() const;
    void setText(const QString &text);

    // As the user would, who can take it back.
    void retype(const QString &text);

    // Whether the user has changed the text that was set.
    bool isModified() const { return m_editor->document()->isModified(); }

    void setOnTextChange(std::function<void()> changed);

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QTextEdit *m_editor;
};

} // namespace ardeno
