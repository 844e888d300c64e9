// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/settings/ExclusionsView.h"

#include "store/Applications.h"
#include "store/ExclusionRules.h"
#include "store/OpenSheets.h"
#include "store/SessionRecorder.h"
#include "support/VisibleText.h"
#include "ui/controls/EmptyState.h"
#include "ui/controls/Fields.h"
#include "ui/controls/Label.h"
#include "ui/controls/Menu.h"
#include "ui/controls/ScrollColumn.h"
#include "ui/controls/Surfaces.h"
#include "ui/controls/UndoBanner.h"
#include "ui/settings/ApplicationChooser.h"
#include "ui/settings/RuleList.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QShortcut>

#include <algorithm>
#include <utility>

namespace ardeno {

namespace {

// Return in this field presses its own button, not the sheet's.
class DomainField final : public TextField {
public:
    using TextField::TextField;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        TextField::keyPressEvent(event);
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            event->accept();
    }
};

QWidget *makeSectionTitle(const QString &symbol, const QString &text)
{
    auto *title = new QWidget;
    auto *row = makeRow(8, title);
    row->addWidget(new SymbolView(symbol, Role::Dim));
    row->addWidget(makeLabel(text, TextStyle::Strong), 1);
    return title;
}

QWidget *makeNote(QLabel *text)
{
    auto *note = new Card(nullptr, Role::AmberSoft, Role::AmberSoft, 8);
    makeMarked("exclamationmark.triangle", Role::AmberText, text, note)->setContentsMargins(12, 9, 12, 9);
    return note;
}

Card *cardAround(QWidget *list)
{
    auto *card = new Card;
    auto *column = makeColumn(0, card);
    column->setContentsMargins(1, 0, 1, 0);
    column->addWidget(list);
    return card;
}

} // namespace

ExclusionsView::ExclusionsView(ExclusionRules &rules, const Applications &applications, OpenSheets &sheets,
                               const SessionRecorder &recorder)
    : Sheet(tr("Capture exclusions"), 560),
      m_rules(rules),
      m_applications(applications),
      m_sheets(sheets),
      m_recorder(recorder),
      m_runningApps(applications.runningApps()),
      m_recordingNote(makeNote(
          makeParagraph(tr("Finish the recording before changing exclusions."), TextStyle::Medium, Role::AmberText))),
      m_issueText(makeParagraph({}, TextStyle::Medium, Role::AmberText)),
      m_issueNote(makeNote(m_issueText)),
      m_controls(new QWidget),
      m_undo(new UndoBanner([this] { undo(); })),
      m_apps(new RuleList(tr("Excluded apps"), "app")),
      m_appsCard(cardAround(m_apps)),
      m_noApps(new EmptyState("app.badge", tr("No apps excluded"), 10)),
      m_domain(new DomainField(tr("Website"), tr("Domain or URL, e.g. %1").arg("mail.example.com"))),
      m_validation(makeParagraph(tr("Enter a valid website domain or an http/https URL."), TextStyle::Small,
                                 Role::RecordingText)),
      m_domains(new RuleList(tr("Excluded websites"), "globe")),
      m_domainsCard(cardAround(m_domains))
{
    auto *scrolling = new ScrollColumn(14);
    column()->addWidget(scrolling, 1);
    auto *head = makeColumn(4);
    head->addWidget(makeLabel(tr("Capture exclusions"), TextStyle::SheetTitle));
    head->addWidget(makeParagraph(tr("Apply to future captures and newly added workspace items. Existing checkpoints "
                                     "and their media stay unchanged."),
                                  TextStyle::Small, Role::Dim));
    scrolling->column()->addLayout(head);
    scrolling->column()->addWidget(m_recordingNote);
    scrolling->column()->addWidget(m_issueNote);
    scrolling->column()->addWidget(m_controls);
    scrolling->column()->addStretch();
    auto *controls = makeColumn(10, m_controls);
    controls->addWidget(m_undo);
    m_undo->hide();
    addApps(controls);
    controls->addSpacing(8);
    addWebsites(controls);
    auto *const keys = new QShortcut(QKeySequence::Undo, this);
    keys->setAutoRepeat(false);
    connect(keys, &QShortcut::activated, this, [this] {
        if (!m_undo->isHidden())
            undo();
    });
    m_startOver = addButton(tr("Start over"), Button::Kind::Bordered, [this] { m_rules.startExclusionsOver(); });
    addButton(tr("Done"), Button::Kind::Prominent, [this] { cancel(); });
    setHoldsInput([this] { return !m_domain->text().trimmed().isEmpty(); }); // It is not excluded yet.
    setOnCancel([&sheets] { sheets.close(&OpenSheets::showExclusions); });
    m_subscriptions.watch([this] { showExclusions(); }, rules.exclusions, rules.exclusionsIssue);
    m_subscriptions.watch([this] { showObstacles(); }, recorder.recording, rules.exclusionsIssue);
}

void ExclusionsView::addApps(QVBoxLayout *column)
{
    column->addWidget(makeSectionTitle("app.badge", tr("Apps")));
    column->addWidget(makeParagraph(tr("Excluded apps are left out of app lists, window positions, screenshots and "
                                       "recordings. Excluding a browser also excludes its tabs."),
                                    TextStyle::Small, Role::Dim));
    column->addWidget(makeParagraph(tr("When app exclusions are enabled, recordings include only allowed apps already "
                                       "running when recording starts."),
                                    TextStyle::Small, Role::Dim));
    auto *choose = new Button(tr("Choose application…"));
    connect(choose, &QAbstractButton::clicked, this, [this] { chooseApplication(); });
    auto *row = makeRow(8);
    row->addWidget(makeExcludeMenu());
    row->addWidget(choose);
    row->addStretch();
    column->addLayout(row);
    column->addWidget(m_appsCard);
    column->addWidget(m_noApps);
    m_apps->setOnAllow([this](const QString &id) { allowApp(id); });
}

Button *ExclusionsView::makeExcludeMenu()
{
    auto *exclude = new Button(tr("Exclude "), Button::Kind::Bordered);
    exclude->setSymbol("chevron.down", Button::SymbolSide::Trailing);
    setMenu(exclude, [this](QMenu *menu) {
        for (const SavedApp &app : std::as_const(m_runningApps)) {
            QString name = VisibleText::oneLine(app.name).simplified();
            QAction *const item =
                addMenuItem(menu, name.replace('&', "&&"), {}, [this, app] { m_rules.excludeApp(app); });
            item->setEnabled(!m_rules.exclusions().appIDs().contains(app.id));
        }
        if (m_runningApps.isEmpty())
            menu->addAction(tr("No apps to exclude"))->setEnabled(false);
    });
    return exclude;
}

void ExclusionsView::addWebsites(QVBoxLayout *column)
{
    column->addWidget(makeSectionTitle("globe", tr("Websites")));
    column->addWidget(makeParagraph(tr("Skip saved tab URLs for a domain and its subdomains. For example, example.com "
                                       "also excludes mail.example.com."),
                                    TextStyle::Small, Role::Dim));
    auto *visible = makeRow(8);
    visible->addWidget(new SymbolView("eye", Role::Dim), 0, Qt::AlignTop);
    visible->addWidget(makeParagraph(tr("Website rules do not hide visible pages in screenshots or video. To hide "
                                        "browser content visually, exclude the browser app."),
                                     TextStyle::Small, Role::Dim),
                       1);
    column->addLayout(visible);
    auto *exclude = new Button(tr("Exclude"));
    exclude->setAccessibleName(tr("Exclude website"));
    connect(exclude, &QAbstractButton::clicked, this, [this] { excludeDomain(); });
    connect(m_domain, &QLineEdit::returnPressed, this, [this] { excludeDomain(); });
    auto *row = makeRow(8);
    row->addWidget(m_domain, 1);
    row->addWidget(exclude);
    column->addLayout(row);
    column->addWidget(m_validation);
    m_validation->hide();
    column->addWidget(m_domainsCard);
    m_domains->setOnAllow([this](const QString &domain) { allowDomain(domain); });
}

void ExclusionsView::allowApp(const QString &id)
{
    const QList<SavedApp> apps = m_rules.exclusions().apps;
    const auto found = std::find_if(apps.begin(), apps.end(), [&](const SavedApp &app) { return app.id == id; });
    if (found == apps.end() || !m_rules.allowApp(id))
        return;
    offerUndo(found->name.isEmpty() ? id : found->name, [this, app = *found] { return m_rules.excludeApp(app); });
}

void ExclusionsView::allowDomain(const QString &domain)
{
    if (m_rules.allowDomain(domain))
        offerUndo(domain, [this, domain] { return m_rules.excludeDomain(domain); });
}

void ExclusionsView::offerUndo(const QString &name, std::function<Outcome()> exclude)
{
    m_excludeAgain = std::move(exclude);
    m_undo->setText(tr("%1 is no longer excluded").arg(VisibleText::oneLine(name)));
    m_undo->show();
}

void ExclusionsView::undo()
{
    const std::function<Outcome()> exclude = m_excludeAgain;
    if (exclude && exclude())
        m_undo->hide();
}

void ExclusionsView::chooseApplication()
{
    SheetHost *const host = SheetHost::of(this);
    if (!host)
        return;
    host->present(
        new ApplicationChooser(m_applications.installedApps(), [this](const InstalledApplication &application) {
            if (!application.id.isEmpty())
                m_rules.excludeApp({.id = application.id, .name = application.name});
        }));
}

void ExclusionsView::excludeDomain()
{
    const Outcome outcome = m_rules.excludeDomain(m_domain->text());
    // The store tells by itself when a good domain could not be written.
    m_validation->setVisible(!outcome && !outcome.error);
    if (outcome)
        m_domain->clear();
    QAccessibleEvent said(m_validation, QAccessible::Alert);
    if (m_validation->isVisible())
        QAccessible::updateAccessibility(&said);
}

void ExclusionsView::showExclusions()
{
    const CaptureExclusions &exclusions = m_rules.exclusions();
    QList<ExclusionRule> apps;
    for (const SavedApp &app : exclusions.apps)
        apps.append({app.id, app.name.isEmpty() ? app.id : app.name});
    QList<ExclusionRule> domains;
    for (const QString &domain : exclusions.domains)
        domains.append({domain, domain});
    m_apps->setRules(apps);
    m_domains->setRules(domains);
    m_appsCard->setVisible(!apps.isEmpty());
    m_noApps->setVisible(apps.isEmpty() && !m_rules.exclusionsIssue());
    m_domainsCard->setVisible(!domains.isEmpty());
}

void ExclusionsView::showObstacles()
{
    const std::optional<QString> &issue = m_rules.exclusionsIssue();
    m_recordingNote->setVisible(m_recorder.recording());
    m_issueText->setText(issue.value_or(QString()));
    m_issueNote->setVisible(issue.has_value());
    m_startOver->setVisible(issue.has_value());
    m_controls->setEnabled(!m_recorder.recording() && !issue);
}

} // namespace ardeno
