// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/projects/ProjectParts.h"
#include "ui/projects/ThumbnailShelf.h"

#include <QAbstractButton>

class QLabel;

namespace ardeno {

class Button;
class LineLabel;
class SymbolView;

// One project in the overview: a button that opens it, with a menu of its own in the corner. A card is used for one
// project after another while its grid scrolls.
class ProjectCard final : public QAbstractButton {
public:
    ProjectCard(const ProjectParts &parts, ThumbnailShelf &pictures);

    // The latest checkpoint, null when there is none.
    void show(const Project &project, const Checkpoint *latest);

    // In the order of the tab key.
    QList<QWidget *> controls();

    static int cardHeight();
    static constexpr QSize pictureSize = QSize(136, 78);

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    QWidget *makeHeader();
    QWidget *makeTexts();
    void showNote(const Project &project, const Checkpoint *latest);
    QRect pictureArea() const;

    ProjectParts m_parts;
    ThumbnailShelf &m_pictures;
    QUuid m_projectID;
    Checkpoint m_latest; // Of no project when there is none.
    SymbolView *m_symbol;
    LineLabel *m_name;
    Button *m_actions;
    LineLabel *m_saved;
    QLabel *m_noteLabel;
    LineLabel *m_note;
    bool m_showsFocus = false;
};

} // namespace ardeno
