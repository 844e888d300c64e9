// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/checkpoint/MissingPicture.h"

#include "ui/checkpoint/OfferedPicture.h"
#include "ui/controls/Button.h"
#include "ui/controls/Label.h"
#include "ui/controls/Surfaces.h"

#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QPainter>

namespace ardeno {

namespace {

struct MissingPictureTexts final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::MissingPicture)
};

} // namespace

MissingPicture::MissingPicture(std::function<void()> choose, std::function<void()> paste, QWidget *parent)
    : QWidget(parent), m_paste(new Button(MissingPictureTexts::tr("Paste image")))
{
    auto *column = makeColumn(4, this);
    column->setContentsMargins(16, 20, 16, 20);
    column->addWidget(new SymbolView("photo", Role::Dim, 32), 0, Qt::AlignHCenter);
    column->addSpacing(4);
    column->addWidget(makeLabel(MissingPictureTexts::tr("No screenshot saved"), TextStyle::Strong), 0,
                      Qt::AlignHCenter);
    QLabel *const text = makeParagraph(MissingPictureTexts::tr("Drop an image here, paste one, or choose a file."),
                                       TextStyle::Small, Role::Dim);
    text->setAlignment(Qt::AlignHCenter);
    column->addWidget(text);
    column->addSpacing(8);
    auto *choosing = new Button(MissingPictureTexts::tr("Choose a file…"));
    connect(choosing, &QAbstractButton::clicked, this, std::move(choose));
    connect(m_paste, &QAbstractButton::clicked, this, std::move(paste));
    m_paste->setHint(m_paste->text(), "Ctrl+V");
    auto *row = makeRow(8);
    row->addStretch();
    row->addWidget(choosing);
    row->addWidget(m_paste);
    row->addStretch();
    column->addLayout(row);
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, [this] { showPasting(); });
    showPasting();
}

void MissingPicture::showPasting()
{
    m_paste->setEnabled(OfferedPicture::isIn(QApplication::clipboard()->mimeData()));
}

void MissingPicture::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPen pen(themeColor(Role::Outline), 1);
    pen.setDashPattern({5, 4});
    painter.setPen(pen);
    painter.setBrush(themeColor(Role::Paper));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
}

} // namespace ardeno
