// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QSize>
#include <QString>
#include <QTextLayout>
#include <QVarLengthArray>

namespace ardeno {

// A text in lines. A word that is longer than a line is broken. Finding the glyphs of a text takes long, and layouts
// ask for many widths again and again: what was found stays known for every width with the same lines.
class ParagraphLayout final {
public:
    // Most lines: 0 for as many as there are.
    explicit ParagraphLayout(int mostLines);

    // What is laid out from now on; cheap when nothing changed. Of a text of a megabyte only what a screen could show.
    void set(const QString &text, const QFont &font, Qt::Alignment alignment);

    // As wide as the text in one line, but no wider than asked. All in pixels.
    QSize sizeWithin(int widest);
    int heightForWidth(int width);

    // The lines in that width.
    const QTextLayout &lines(int width);

    // Whether the last of these lines stands for those that follow, too.
    bool isCut() const { return m_isCut; }

    // What is laid out of the text.
    const QString &shown() const { return m_shown; }

private:
    // The lines are the same from the least to the most width.
    struct Measured {
        int leastWidth = 0;
        int mostWidth = 0;
        int height = 0;
    };

    const Measured &measured(int width);
    void layOut(int width);
    qreal leading() const;

    int m_mostLines;
    QString m_text = {};
    QString m_shown = {};
    QTextLayout m_layout = {};
    int m_width = -1; // Of the lines; -1: there are none.
    bool m_isCut = false;
    QVarLengthArray<Measured, 4> m_measured = {};
};

} // namespace ardeno
