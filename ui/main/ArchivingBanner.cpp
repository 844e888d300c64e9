// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main/ArchivingBanner.h"

#include "ui/controls/Button.h"
#include "ui/controls/Label.h"
#include "ui/controls/Surfaces.h"
#include "ui/main/Banners.h"

#include <QAccessible>
#include <QCoreApplication>

namespace ardeno {

namespace {

struct ArchivingTexts final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::ArchivingBanner)
};

} // namespace

ArchivingBanner::ArchivingBanner(ProjectOperations &projects, const Library &library, QWidget *parent)
    : QWidget(parent), m_projects(projects), m_library(library), m_text(makeParagraphOfLines(2))
{
    QHBoxLayout *const row = makeStripRow(this);
    row->addWidget(new SymbolView("archivebox", Role::AccentText));
    row->addWidget(m_text, 1);
    auto *undo = new Button(ArchivingTexts::tr("Undo"));
    connect(undo, &QAbstractButton::clicked, this, [this] { m_projects.undoArchiving(); });
    row->addWidget(undo);
    Button *const close = Button::makeIcon("xmark", ArchivingTexts::tr("Dismiss the message"));
    connect(close, &QAbstractButton::clicked, this, [this] { m_projects.dismissArchiving(); });
    row->addWidget(close);
    m_subscriptions.watch([this] { showArchiving(); }, projects.lastArchiving, library.projects);
}

void ArchivingBanner::showArchiving()
{
    const std::optional<Archiving> &last = m_projects.lastArchiving();
    setVisible(last.has_value());
    if (!last) {
        setAccessibleName({});
        return;
    }
    const QString sentence = last->before ? ArchivingTexts::tr("“%1” is back among your projects.")
                                          : ArchivingTexts::tr("“%1” is in the archive now.");
    const Project *const project = m_library.project(last->projectID);
    const QString said = sentence.arg(project ? project->name : last->projectName);
    if (said == accessibleName())
        return;
    m_text->setText(said);
    setAccessibleName(said);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void ArchivingBanner::paintEvent(QPaintEvent *)
{
    drawBanner(this, Role::AccentSoft, Qt::TopEdge);
}

} // namespace ardeno
