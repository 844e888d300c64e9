// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractScrollArea>

#include <functional>

namespace ardeno {

// A grid of cards of one height that scrolls. Only as many widgets exist as are seen, whatever the number of cards; a
// widget keeps its card as long as that is near, so that the keyboard's focus stays where it is.
class CardGrid final : public QAbstractScrollArea {
public:
    struct Cards {
        std::function<QWidget *()> make = {};
        std::function<void(QWidget *, int)> show = {};            // Gives a widget the card of that place.
        std::function<QList<QWidget *>(QWidget *)> controls = {}; // In the order of the tab key.
        std::function<int()> height = {};                         // Of every card, as large as its texts are.
    };

    CardGrid(const QString &name, Cards cards, QWidget *parent = nullptr);
    ~CardGrid() override;

    // Shows every card anew.
    void setCount(int count);

    // A widget above the first card, which scrolls with them.
    void setHeader(QWidget *header);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    int columns() const;
    int rows() const;
    int headerHeight() const;
    QRect cardRect(int index) const;
    void arrange();
    void showCards();
    // The widget of that place shows this card; -1: none.
    void showCard(int place, int index);
    void orderTabs(int first);
    void reveal(const QWidget *focused);

    // Which control of which card has the focus; none: no widget.
    struct Focused {
        QWidget *card = nullptr;
        qsizetype control = 0;
    };

    Focused focused() const;
    // The card has gone with the last of its row: the focus goes to the one before.
    void refocus(const Focused &before);

    Cards m_cards;
    QWidget *m_header = nullptr;
    QList<QWidget *> m_widgets;
    QList<int> m_shown; // Which card each widget shows; -1: none.
    int m_count = 0;
};

} // namespace ardeno
