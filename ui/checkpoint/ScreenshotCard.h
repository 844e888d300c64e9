// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/Screens.h"
#include "ui/checkpoint/CheckpointParts.h"
#include "ui/controls/Surfaces.h"

#include <QTimer>

class QMenu;
class QVBoxLayout;

namespace ardeno {

class Button;
class UndoBanner;

// The screenshot of one checkpoint with what can be done with it.
class ScreenshotCard final : public Card {
public:
    ScreenshotCard(const ScreenshotParts &parts, const Screens &screens, const Checkpoint &checkpoint);

    // Of the picture, in logical pixels.
    void setMostHeight(int height);

    // What the picture takes of it now.
    int pictureHeight() const { return m_picture ? m_picture->height() : 0; }

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *makeHeader();
    QWidget *makePicture(const Checkpoint &checkpoint);
    QWidget *makePlaceholder();
    QWidget *makeAdding();
    void showAdding();
    void showCheckpoint();
    void showUndo();
    void chooseImage();
    void expand();
    // An image of another application, while the card is pointed to or has the focus.
    void takeOffers();
    void paste();
    void showOffered(bool isOffered);
    void fillMenu(QMenu *menu);

    ScreenshotParts m_parts;
    const Screens &m_screens;
    QUuid m_id;
    bool m_isSample;
    std::optional<std::optional<QString>> m_shownPath; // Absent before the first.
    QVBoxLayout *m_column;
    Button *m_choose;
    Button *m_expand;
    Button *m_remove;
    QWidget *m_adding = nullptr; // What is said of an import that takes long.
    QTimer m_patience;
    UndoBanner *m_undo;
    QWidget *m_picture = nullptr;
    bool m_isOffered = false; // An image is dragged over the card.
    int m_mostHeight = 250;
    Thumbnails::Request m_preview;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
