// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/ProjectSheets.h"

#include "store/ProjectOrder.h"
#include "ui/controls/Fields.h"
#include "ui/controls/Label.h"
#include "ui/controls/Sheet.h"

#include <QCoreApplication>

namespace ardeno {

namespace {

struct ProjectSheetTexts final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::ProjectSheetTexts)
};

TextField *addField(QVBoxLayout *column, const QString &label, const QString &placeholder)
{
    auto *field = new TextField(label, placeholder);
    column->addLayout(makeLabelled(label, field));
    return field;
}

void needName(const TextField *field, Button *button)
{
    const auto show = [button](const QString &text) { button->setEnabled(!text.trimmed().isEmpty()); };
    QObject::connect(field, &QLineEdit::textChanged, button, show);
    show(field->text());
}

// Says what becomes of a name that a project has already.
QLabel *makeKnownName(const Library &library, const TextField *field)
{
    QLabel *const text = makeParagraph({}, TextStyle::Small, Role::Dim);
    text->hide();
    QObject::connect(field, &QLineEdit::textChanged, text, [&library, text](const QString &name) {
        const auto known = ProjectOrder::named(library.projects(), name.trimmed());
        const Project *const project = known ? library.project(*known) : nullptr;
        text->setVisible(project);
        if (project)
            text->setText(ProjectSheetTexts::tr("There is a project “%1” already. It is opened.").arg(project->name));
    });
    return text;
}

} // namespace

Sheet *makeNewProjectSheet(const ProjectParts &parts)
{
    const QString title = ProjectSheetTexts::tr("A home for your work.");
    auto *sheet = new Sheet(title, 500);
    QVBoxLayout *const column = sheet->column();
    column->addWidget(new SymbolView("folder.badge.plus", Role::AccentText, 28));
    auto *head = new QVBoxLayout;
    head->setSpacing(4);
    column->addLayout(head);
    head->addWidget(makeParagraph(title, TextStyle::SheetTitle));
    head->addWidget(makeParagraph(
        ProjectSheetTexts::tr("Keep several checkpoints in one project. Each one remembers where you left off "
                              "at a different point in time."),
        TextStyle::Body, Role::Dim));
    TextField *const name = addField(column, ProjectSheetTexts::tr("Project name"), {});
    column->addWidget(makeKnownName(parts.library, name));
    column->addSpacing(4);
    sheet->addButton(ProjectSheetTexts::tr("Cancel"), Button::Kind::Bordered, [sheet] { sheet->close(); });
    Button *const create =
        sheet->addButton(ProjectSheetTexts::tr("Create project"), Button::Kind::Prominent, [parts, sheet, name] {
            // A name that could not be kept stays in its field.
            if (parts.projects.createProject(name->text()))
                sheet->close();
        });
    needName(name, create);
    sheet->setFirstFocus(name);
    sheet->setHoldsInput([name] { return !name->text().trimmed().isEmpty(); });
    sheet->setOnCancel([parts] { parts.sheets.close(&OpenSheets::showNewProject); });
    return sheet;
}

Sheet *makeRenameSheet(const ProjectParts &parts, const Project &project)
{
    const QString title = ProjectSheetTexts::tr("Rename project");
    auto *sheet = new Sheet(title, 460);
    QVBoxLayout *const column = sheet->column();
    column->addWidget(makeParagraph(title, TextStyle::SheetTitle));
    TextField *const name = addField(column, ProjectSheetTexts::tr("Project name"), {});
    name->setText(project.name);
    name->selectAll();
    column->addSpacing(4);
    sheet->addButton(ProjectSheetTexts::tr("Cancel"), Button::Kind::Bordered, [sheet] { sheet->close(); });
    Button *const rename = sheet->addButton(
        ProjectSheetTexts::tr("Rename"), Button::Kind::Prominent, [parts, sheet, name, id = project.id] {
            if (parts.projects.renameProject(id, name->text()) || !parts.library.project(id))
                sheet->close();
        });
    needName(name, rename);
    sheet->setFirstFocus(name);
    sheet->setHoldsInput([name, before = project.name] { return name->text() != before; });
    return sheet;
}

Sheet *makeProjectBlockerSheet(const ProjectParts &parts, const Project &project)
{
    const bool isBlocked = project.blockedReason.has_value();
    const QString title =
        isBlocked ? ProjectSheetTexts::tr("Edit blocker") : ProjectSheetTexts::tr("Mark project blocked");
    auto *sheet = new Sheet(title, 460);
    QVBoxLayout *const column = sheet->column();
    column->addWidget(makeParagraph(title, TextStyle::SheetTitle));
    TextField *const reason = addField(column, ProjectSheetTexts::tr("Waiting for…"),
                                       ProjectSheetTexts::tr("e.g. Maya to approve the revised design"));
    reason->setText(project.blockedReason.value_or(QString()));
    column->addWidget(makeParagraph(
        ProjectSheetTexts::tr("Optional. You can still save checkpoints and reopen this project’s workspace."),
        TextStyle::Small, Role::Dim));
    column->addSpacing(4);
    sheet->addButton(ProjectSheetTexts::tr("Cancel"), Button::Kind::Bordered, [sheet] { sheet->close(); });
    sheet->addButton(isBlocked ? ProjectSheetTexts::tr("Save reason") : ProjectSheetTexts::tr("Mark blocked"),
                     Button::Kind::Prominent, [parts, sheet, reason, id = project.id] {
                         if (parts.projects.setProjectBlocker(id, reason->text()))
                             sheet->close();
                     });
    sheet->setFirstFocus(reason);
    sheet->setHoldsInput([reason, before = reason->text()] { return reason->text() != before; });
    sheet->setOnCancel([parts] { parts.sheets.closeBlocker(); });
    return sheet;
}

} // namespace ardeno
