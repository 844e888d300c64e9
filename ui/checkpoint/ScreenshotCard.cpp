// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/checkpoint/ScreenshotCard.h"

#include "ui/checkpoint/MissingPicture.h"
#include "ui/checkpoint/OfferedPicture.h"
#include "ui/checkpoint/SampleWorkspace.h"
#include "ui/checkpoint/ScreenshotImage.h"
#include "ui/controls/Button.h"
#include "ui/controls/FileChooser.h"
#include "ui/controls/Label.h"
#include "ui/controls/Menu.h"
#include "ui/controls/PictureImage.h"
#include "ui/controls/Progress.h"
#include "ui/controls/Sheet.h"
#include "ui/controls/TextKeys.h"
#include "ui/controls/UndoBanner.h"
#include "ui/theme/Drawing.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QPainter>
#include <QPointer>
#include <QShortcut>

#include <variant>

namespace ardeno {

ScreenshotCard::ScreenshotCard(const ScreenshotParts &parts, const Screens &screens, const Checkpoint &checkpoint)
    : m_parts(parts),
      m_screens(screens),
      m_id(checkpoint.id),
      m_isSample(checkpoint.isSample),
      m_column(makeColumn(8, this)),
      m_choose(new Button({}, Button::Kind::Plain)),
      m_expand(new Button(tr("Expand"), Button::Kind::Plain, "arrow.up.left.and.arrow.down.right")),
      m_remove(new Button(tr("Remove"), Button::Kind::Plain, "trash")),
      m_undo(new UndoBanner([this] { m_parts.removals.undoWorkspaceRemoval(); }))
{
    m_column->setContentsMargins(15, 10, 15, 14);
    m_column->addWidget(makeHeader());
    m_column->addWidget(m_undo);
    m_subscriptions.watch([this] { showUndo(); }, parts.removals.lastRemoval, parts.library.checkpoints);
    if (m_isSample) {
        m_column->addWidget(new SampleWorkspace);
        return;
    }
    m_subscriptions.watch([this] { showCheckpoint(); }, parts.library.checkpoints);
    m_subscriptions.watch([this] { showAdding(); }, parts.screenshots.addingPictures);
    takeOffers();
}

void ScreenshotCard::showUndo()
{
    const std::optional<WorkspaceRemoval> &removal = m_parts.removals.lastRemoval();
    const bool isOurs =
        removal && removal->checkpointID == m_id && std::holds_alternative<RemovedPicture>(removal->item.item);
    const Checkpoint *const checkpoint = m_parts.library.checkpoint(m_id);
    m_undo->setVisible(isOurs);
    m_undo->setText(checkpoint && checkpoint->screenshot ? tr("Screenshot replaced") : tr("Screenshot removed"));
}

QWidget *ScreenshotCard::makeHeader()
{
    auto *header = new QWidget;
    auto *row = makeRow(8, header);
    row->addWidget(new SymbolView("photo", Role::Dim));
    row->addWidget(makeLabel(tr("Screenshot"), TextStyle::Strong));
    row->addStretch();
    m_adding = makeAdding();
    row->addWidget(m_adding);
    for (Button *const button : {m_choose, m_expand, m_remove}) {
        row->addWidget(button);
        button->setVisible(!m_isSample);
    }
    m_choose->setHint(tr("Choose an image from your Mac to save with this checkpoint"));
    m_remove->setHint(tr("Delete this screenshot while keeping the checkpoint’s notes and workspace"));
    connect(m_choose, &QAbstractButton::clicked, this, [this] { chooseImage(); });
    connect(m_expand, &QAbstractButton::clicked, this, [this] { expand(); });
    connect(m_remove, &QAbstractButton::clicked, this, [this] { m_parts.screenshots.removeScreenshot(m_id); });
    return header;
}

QWidget *ScreenshotCard::makePlaceholder()
{
    return new MissingPicture([this] { chooseImage(); }, [this] { paste(); });
}

QWidget *ScreenshotCard::makeAdding()
{
    auto *adding = new QWidget;
    auto *row = makeRow(8, adding);
    row->addWidget(new Progress(tr("Working")));
    row->addWidget(makeLabel(tr("Adding the image…"), TextStyle::Small, Role::Dim));
    auto *stop = new Button(tr("Stop"));
    stop->setAccessibleName(tr("Stop adding the image"));
    connect(stop, &QAbstractButton::clicked, this, [this] { m_parts.screenshots.stopAddingPicture(m_id); });
    row->addWidget(stop);
    adding->hide();
    m_patience.setSingleShot(true);
    m_patience.setInterval(std::chrono::milliseconds(400)); // What is done at once does not flicker.
    connect(&m_patience, &QTimer::timeout, adding, &QWidget::show);
    return adding;
}

void ScreenshotCard::showAdding()
{
    const bool isAdding = m_parts.screenshots.addingPictures().contains(m_id);
    if (!isAdding) {
        m_patience.stop();
        m_adding->hide();
    } else if (m_adding->isHidden() && !m_patience.isActive()) {
        m_patience.start();
    }
}

QWidget *ScreenshotCard::makePicture(const Checkpoint &checkpoint)
{
    m_preview = {};
    if (!checkpoint.screenshot)
        return makePlaceholder();
    const auto enlarging = m_screens.viewScreenshot ? ScreenshotImage::Enlarging::Yes : ScreenshotImage::Enlarging::No;
    const QString file = m_parts.media.screenshotFile(checkpoint).value_or(QString());
    auto *image = new ScreenshotImage(file, enlarging);
    image->setMostHeight(m_mostHeight);
    m_preview = m_parts.media.thumbnails().request(
        file, [shown = QPointer<ScreenshotImage>(image)](const Thumbnail &thumbnail) {
            if (shown && thumbnail.state == Thumbnail::State::Ready)
                shown->setPreview(toImage(thumbnail.picture));
        });
    connect(image, &QAbstractButton::clicked, this, [this] { expand(); });
    return image;
}

void ScreenshotCard::setMostHeight(int height)
{
    m_mostHeight = height;
    if (auto *const image = dynamic_cast<ScreenshotImage *>(m_picture))
        image->setMostHeight(height);
}

void ScreenshotCard::showCheckpoint()
{
    const Checkpoint *const checkpoint = m_parts.library.checkpoint(m_id);
    if (!checkpoint || (m_shownPath && *m_shownPath == checkpoint->screenshot))
        return;
    m_shownPath = checkpoint->screenshot;
    QWidget *const before = std::exchange(m_picture, makePicture(*checkpoint));
    m_column->addWidget(m_picture);
    delete before;
    const bool hasPicture = checkpoint->screenshot.has_value();
    m_choose->setText(hasPicture ? tr("Replace image…") : tr("Add image…"));
    m_choose->setSymbol("photo.badge.plus");
    m_expand->setVisible(hasPicture && m_screens.viewScreenshot);
    m_remove->setVisible(hasPicture);
}

void ScreenshotCard::chooseImage()
{
    // By name, so that formats are offered which only the importer reads.
    const FileChooser::Question question{
        .title = tr("Choose an image"),
        .kind = tr("Images"),
        .patterns = QString("*.png *.jpg *.jpeg *.heic *.heif *.avif *.webp *.tif *.tiff *.gif *.bmp *.PNG *.JPG "
                            "*.JPEG *.HEIC")
                        .split(' '),
        .all = tr("All files"),
    };
    // Whatever the window shows by then; the import reports by itself.
    FileChooser::ask(window(), m_parts.applications.fileDialogs(), question,
                     [&screenshots = m_parts.screenshots, id = m_id](const QString &path) {
                         screenshots.importScreenshot(path, id);
                     });
}

void ScreenshotCard::takeOffers()
{
    setAcceptDrops(true);
    auto *const keys = new QShortcut(QKeySequence::Paste, this);
    connect(keys, &QShortcut::activated, this, [this] {
        const SheetHost *const host = SheetHost::of(this);
        const bool isMeant = underMouse() || isAncestorOf(QApplication::focusWidget());
        if (isMeant && !(host && host->isCovering()))
            paste();
        else
            TextKeys::pasteInto(QApplication::focusWidget());
    });
}

void ScreenshotCard::paste()
{
    adoptPicture(m_parts.screenshots, m_parts.messages, m_id, QApplication::clipboard()->mimeData());
}

void ScreenshotCard::showOffered(bool isOffered)
{
    m_isOffered = isOffered;
    update();
}

void ScreenshotCard::dragEnterEvent(QDragEnterEvent *event)
{
    if (!OfferedPicture::isIn(event->mimeData()) || !(event->possibleActions() & Qt::CopyAction))
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    showOffered(true);
}

void ScreenshotCard::dragLeaveEvent(QDragLeaveEvent *)
{
    showOffered(false);
}

void ScreenshotCard::dropEvent(QDropEvent *event)
{
    showOffered(false);
    event->setDropAction(Qt::CopyAction);
    event->accept();
    adoptPicture(m_parts.screenshots, m_parts.messages, m_id, event->mimeData());
}

void ScreenshotCard::fillMenu(QMenu *menu)
{
    for (Button *const button : {m_expand, m_choose, m_remove}) {
        if (!button->isHidden())
            addMenuItem(menu, button->text(), {}, [button] { button->click(); });
    }
    QAction *const pasting = addMenuItem(menu, tr("Paste image"), {}, [this] { paste(); });
    pasting->setShortcut(QKeySequence::Paste);
    pasting->setShortcutContext(Qt::WidgetShortcut); // Only shown.
    pasting->setEnabled(OfferedPicture::isIn(QApplication::clipboard()->mimeData()));
}

void ScreenshotCard::contextMenuEvent(QContextMenuEvent *event)
{
    if (!m_isSample)
        showMenu(this, event->globalPos(), [this](QMenu *menu) { fillMenu(menu); });
}

void ScreenshotCard::paintEvent(QPaintEvent *event)
{
    Card::paintEvent(event);
    if (!m_isOffered)
        return;
    QPainter painter(this);
    Drawing::focusRing(painter, rect(), 12);
}

void ScreenshotCard::expand()
{
    const Checkpoint *const checkpoint = m_parts.library.checkpoint(m_id);
    if (checkpoint && checkpoint->screenshot && m_screens.viewScreenshot)
        m_screens.viewScreenshot(m_parts.media.screenshotFile(*checkpoint).value_or(QString()));
}

} // namespace ardeno
