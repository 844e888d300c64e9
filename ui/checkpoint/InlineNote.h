// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>

#include <functional>

class QLabel;

namespace ardeno {

class QuickListEditor;
class SymbolView;

// A note that is edited in place: label, text, and a hint while it is edited.
class InlineNote final : public QWidget {
public:
    enum class Size { Normal, Prominent };

    struct Text {
        QString title = {};
        QString symbol = {};
        QString placeholder = {};
        Size size = Size::Normal;
        bool isSample = false; // Edits of the sample are not kept.
    };

    explicit InlineNote(const Text &text, QWidget *parent = nullptr);
    ~InlineNote() override;
    InlineNote(const InlineNote &) = delete;
    InlineNote &operator=(const InlineNote &) = delete;

    // What the record holds now. A text that is being edited stays.
    void setText(const QString &text);

    // Called with the text as typed when the typing pauses, when the editing ends, and before the note goes; false: it
    // could not be kept and is offered again later.
    void setOnCommit(std::function<bool(const QString &)> commit) { m_commit = std::move(commit); }

    // Keeps what was typed until now.
    void commit();

    // Says whether what stands here is written.
    void setUnsaved(bool isUnsaved);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showFocus(bool isFocused);
    QWidget *makeHeader(const Text &text);

    QuickListEditor *m_editor;
    QLabel *m_hint;
    QLabel *m_unsaved;
    QString m_placeholder;
    QString m_kept; // The text as the record has it.
    QTimer m_pause;
    std::function<bool(const QString &)> m_commit;
    bool m_isFocused = false;
};

} // namespace ardeno
