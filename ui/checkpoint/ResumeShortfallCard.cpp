// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/checkpoint/ResumeShortfallCard.h"

#include "ui/controls/Button.h"
#include "ui/controls/Label.h"
#include "ui/items/ItemText.h"

#include <algorithm>

namespace ardeno {

namespace {

constexpr qsizetype mostLines = 8; // All of them stand in the sheet.

QString unplacedText(const UnplacedWindow &unplaced)
{
    const QString title = ItemText::line(unplaced.window.title);
    const QString name = title.isEmpty() ? ItemText::line(unplaced.window.appName) : title;
    const QString reason = QCoreApplication::translate("ardeno::WindowRestore", unplaced.reason.toUtf8().constData());
    return ResumeShortfallCard::tr("Not placed: %1 (%2)").arg(name, reason);
}

} // namespace

QStringList ResumeShortfallCard::missing(const ResumeFlow &resumes, const Library &library, const QUuid &checkpointID)
{
    QStringList lines;
    if (resumes.resumeShortfall() && resumes.resumeShortfall()->checkpointID == checkpointID) {
        for (const QString &failure : resumes.resumeShortfall()->failures)
            lines += tr("Could not open: %1").arg(failure);
        for (const QString &name : resumes.resumeShortfall()->unavailable)
            lines += tr("Not available: %1").arg(ItemText::line(name));
    }
    const Checkpoint *const checkpoint = library.checkpoint(checkpointID);
    const QList<SavedWindow> own = checkpoint && checkpoint->windows ? *checkpoint->windows : QList<SavedWindow>();
    for (const UnplacedWindow &unplaced : resumes.unplacedWindows()) {
        if (own.contains(unplaced.window))
            lines += unplacedText(unplaced);
    }
    return lines;
}

ResumeShortfallCard::ResumeShortfallCard(ResumeFlow &resumes, const Library &library, OpenSheets &sheets,
                                         const QUuid &checkpointID)
    : m_resumes(resumes), m_library(library), m_sheets(sheets), m_id(checkpointID), m_lines(makeColumn(3))
{
    setFocusPolicy(Qt::ClickFocus);
    setAccessibleName(tr("Not everything is back"));
    auto *card = new Card(nullptr, Role::AmberSoft, Role::AmberSoft, 8);
    auto *around = makeColumn(0, this);
    around->setContentsMargins(0, 0, 0, 14); // Nothing where it is hidden.
    around->addWidget(card);
    auto *column = makeColumn(6, card);
    column->setContentsMargins(14, 8, 8, 12);
    column->addWidget(makeHead());
    column->addLayout(m_lines);
    m_subscriptions.watch([this] { showShortfall(); }, resumes.resumeShortfall, resumes.unplacedWindows,
                          library.checkpoints);
}

QWidget *ResumeShortfallCard::makeHead()
{
    auto *head = new QWidget;
    auto *row = makeRow(8, head);
    row->addWidget(new SymbolView("exclamationmark.triangle", Role::AmberText));
    row->addWidget(makeLabel(tr("Not everything is back"), TextStyle::Strong), 1);
    auto *review = new Button(tr("Review workspace"), Button::Kind::Plain);
    connect(review, &QAbstractButton::clicked, this, [this] { m_sheets.open(&OpenSheets::showRestore); });
    row->addWidget(review);
    Button *const close = Button::makeIcon("xmark", tr("Dismiss what is not back"));
    connect(close, &QAbstractButton::clicked, this, [this] { m_resumes.dismissShortfall(); });
    row->addWidget(close);
    return head;
}

void ResumeShortfallCard::showShortfall()
{
    const QStringList lines = missing(m_resumes, m_library, m_id);
    setVisible(!lines.isEmpty());
    while (QLayoutItem *const item = m_lines->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (const QString &line : lines.first(std::min(lines.size(), mostLines)))
        m_lines->addWidget(makeParagraph(line, TextStyle::Small));
    if (lines.size() > mostLines)
        m_lines->addWidget(makeParagraph(tr("and %n more", "", static_cast<int>(lines.size() - mostLines)),
                                         TextStyle::Small, Role::Dim));
    setAccessibleDescription(lines.join('\n'));
}

} // namespace ardeno
