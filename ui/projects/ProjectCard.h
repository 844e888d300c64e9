// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/AppStore.h"
#include "ui/controls/Ground.h"

class QLabel;

namespace ardeno {

class Button;
class LineLabel;
class SymbolView;

// One project in the overview. A card is used for one project after another while its grid scrolls.
class ProjectCard final : public Card {
public:
    explicit ProjectCard(AppStore &store);

    // The latest checkpoint, null when there is none.
    void show(const Project &project, const Checkpoint *latest);

    // In the order of the tab key.
    QList<QWidget *> controls() const;

    static constexpr int cardHeight = 178;

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QWidget *makeHeader();

    AppStore &m_store;
    QUuid m_projectID;
    SymbolView *m_symbol;
    LineLabel *m_name;
    Button *m_actions;
    LineLabel *m_saved;
    QLabel *m_noteLabel;
    LineLabel *m_note;
    Button *m_open;
};

} // namespace ardeno
