// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main/Sidebar.h"

#include "ui/controls/Button.h"
#include "ui/controls/Label.h"
#include "ui/controls/Surfaces.h"
#include "ui/main/ProjectListView.h"
#include "ui/main/SearchField.h"
#include "ui/theme/Symbols.h"

#include <QPainter>

namespace ardeno {

namespace {

class BrandMark final : public QWidget {
public:
    BrandMark() { setFixedSize(22, 22); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        Symbols::drawBrandMark(painter, rect(), themeColor(Role::Brand), themeColor(Role::Sidebar));
    }
};

} // namespace

Sidebar::Sidebar(const ProjectParts &parts, const Screens &screens, QWidget *parent)
    : QWidget(parent),
      m_parts(parts),
      m_search(makeSearch()),
      m_all(Button::makeRow(tr("All projects"), "square.grid.2x2")),
      m_section(makeLabel({}, TextStyle::Eyebrow, Role::Dim)),
      m_count(makeLabel({}, TextStyle::Eyebrow, Role::Dim)),
      m_nothing(makeParagraph({}, TextStyle::Small, Role::Dim)),
      m_projects(new ProjectListView(parts))
{
    auto *column = makeColumn(12, this);
    column->setContentsMargins(12, 16, 13, 12);
    column->addWidget(makeBrand());
    column->addWidget(m_search);
    column->addWidget(m_all);
    connect(m_all, &QAbstractButton::clicked, this, [this] { m_parts.navigation.showProjects(); });
    column->addWidget(makeSectionHeader());
    auto *nothing = makeRow(0);
    nothing->setContentsMargins(8, 0, 8, 0);
    nothing->addWidget(m_nothing);
    column->addLayout(nothing);
    column->addWidget(m_projects, 1);
    auto *create = new Button(tr("New project"), Button::Kind::Bordered, "plus");
    create->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    create->setHint(tr("New project"), "Ctrl+N");
    connect(create, &QAbstractButton::clicked, this, [this] { m_parts.sheets.open(&OpenSheets::showNewProject); });
    column->addWidget(create);
    column->addWidget(makeExplanation());
    if (screens.preferences)
        column->addWidget(makeSettings());
    m_subscriptions.watch([this] { showSection(); }, parts.library.projects, parts.library.checkpoints,
                          parts.navigation.search, parts.navigation.showArchivedProjects,
                          parts.navigation.selectedProjectID);
}

QWidget *Sidebar::makeBrand()
{
    auto *brand = new QWidget;
    auto *row = makeRow(9, brand);
    row->setContentsMargins(6, 2, 6, 2);
    row->addWidget(new BrandMark);
    row->addWidget(makeLabel(tr("Ardeno"), TextStyle::BarTitle), 1);
    return brand;
}

SearchField *Sidebar::makeSearch()
{
    auto *field = new SearchField(tr("Find a project"));
    field->setToolTip(tr("Find a project (%1)").arg("Ctrl+F"));
    connect(field, &QLineEdit::textChanged, this, [this](const QString &text) { m_parts.navigation.setSearch(text); });
    field->setOnOpenFirst([this] { openFirst(); });
    field->setOnDown([this] { m_projects->goToFirst(); });
    return field;
}

void Sidebar::openFirst()
{
    const QList<Project> found = m_parts.navigation.filteredProjects();
    if (!found.isEmpty())
        m_parts.navigation.selectProject(found.first().id);
}

void Sidebar::focusSearch()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

QWidget *Sidebar::makeSectionHeader()
{
    auto *header = new QWidget;
    auto *row = makeRow(0, header);
    row->setContentsMargins(8, 4, 8, 0);
    row->addWidget(m_section, 1);
    row->addWidget(m_count);
    return header;
}

QWidget *Sidebar::makeExplanation()
{
    auto *block = new QWidget;
    auto *column = makeColumn(1, block);
    column->setContentsMargins(6, 2, 0, 0);
    column->addWidget(makeLabel(tr("What’s a checkpoint?"), TextStyle::SmallStrong));
    column->addWidget(makeParagraph(tr("One saved moment in a project: screenshot, apps, tabs and next step."),
                                    TextStyle::Small, Role::Dim));
    return block;
}

QWidget *Sidebar::makeSettings()
{
    auto *block = new Surface(Role::Sidebar, Qt::TopEdge);
    auto *column = makeColumn(0, block);
    column->setContentsMargins(0, 8, 0, 0);
    Button *const settings = Button::makeRow(tr("Settings"), "slider.horizontal.3");
    settings->setHint(tr("Settings"), "Ctrl+,");
    connect(settings, &QAbstractButton::clicked, this, [this] { m_parts.sheets.open(&OpenSheets::showSettings); });
    column->addWidget(settings);
    return block;
}

void Sidebar::showSection()
{
    m_section->setText(m_parts.navigation.showArchivedProjects() ? tr("ARCHIVED") : tr("PROJECTS"));
    const qsizetype found = m_parts.navigation.filteredProjects().size();
    m_count->setText(QString::number(found));
    const bool isSearch = !m_parts.navigation.search().isEmpty();
    m_nothing->setText(isSearch ? tr("No projects match your search.") : tr("No archived projects."));
    m_nothing->setVisible(found == 0 && (isSearch || m_parts.navigation.showArchivedProjects()));
    m_all->setCurrent(!m_parts.navigation.selectedProjectID());
    if (m_search->text() != m_parts.navigation.search())
        m_search->setText(m_parts.navigation.search());
}

} // namespace ardeno
