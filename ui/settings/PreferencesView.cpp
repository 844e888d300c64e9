// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/settings/PreferencesView.h"

#include "services/BugReportComposer.h"
#include "ui/controls/Alert.h"
#include "ui/controls/DropDown.h"
#include "ui/controls/Fields.h"
#include "ui/controls/Label.h"
#include "ui/controls/Progress.h"
#include "ui/controls/ScrollColumn.h"
#include "ui/settings/BugReportView.h"
#include "ui/settings/Links.h"
#include "ui/settings/SettingsCard.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>

namespace ardeno {

namespace {

// The choices of the shortcut, as the setting stores them. Every other value means the default.
constexpr int defaultShortcut = 0;
constexpr int shortShortcut = 1;
constexpr int noShortcut = 2;

} // namespace

PreferencesView::PreferencesView(const PreferenceParts &parts)
    : Sheet(tr("Settings"), 600),
      m_parts(parts),
      m_shortcutIssue(makeParagraph({}, TextStyle::Small, Role::RecordingText))
{
    column()->addWidget(makeLabel(tr("Settings"), TextStyle::SheetTitle));
    auto *cards = new ScrollColumn(16);
    column()->addWidget(cards, 1);
    cards->column()->addWidget(makeBehaviour());
    cards->column()->addWidget(makePrivacy());
    cards->column()->addWidget(makeContact());
    cards->column()->addStretch();
    addButton(tr("Done"), Button::Kind::Prominent, [this] { close(); });
    setOnCancel([parts] { parts.sheets.close(&OpenSheets::showSettings); });
    m_subscriptions.watch([this] { showShortcutIssue(); }, parts.shortcut.shortcutIssue);
    if (m_check)
        m_subscriptions.watch([this] { showUpdate(); }, parts.updates.availableUpdate, parts.updates.checkingForUpdates,
                              parts.updates.updateAnswer);
}

QWidget *PreferencesView::makeBehaviour()
{
    auto *card = new SettingsCard;
    DropDown *const launch = makeLaunch();
    DropDown *const shortcut = makeShortcut();
    // Below each other; neither cuts what can be chosen.
    const int choiceWidth = std::max(launch->sizeHint().width(), shortcut->sizeHint().width());
    for (DropDown *const choice : {launch, shortcut})
        choice->setMinimumWidth(choiceWidth);
    card->addRow({.title = tr("On launch")}, {launch});
    card->addRow({.title = tr("Quick save shortcut"), .explanation = tr("Save from any app while Ardeno is running.")},
                 {shortcut})
        ->addWidget(m_shortcutIssue);
    card->addRow({.title = tr("Include browser tabs"),
                  .explanation = tr("Incognito tab URLs are skipped. A screen capture can still contain visible "
                                    "private windows. Website exclusions skip URLs, but visible pages may still "
                                    "appear in captures. Exclude the browser app to hide its windows.")},
                 {makeBrowserTabs()});
    card->addPlainRow()->addWidget(
        makeParagraph(tr("This preview captures your connected displays and open apps when you choose Save "
                         "checkpoint."),
                      TextStyle::Small, Role::Dim));
    return card;
}

DropDown *PreferencesView::makeLaunch()
{
    auto *launch = new DropDown(tr("On launch"));
    launch->setOptions({{tr("Last opened project"), false}, {tr("Projects overview"), true}});
    launch->setOnChoose([this](const QVariant &value) { m_parts.navigation.setLaunchOverview(value.toBool()); });
    m_subscriptions.watch([this, launch] { launch->setCurrent(m_parts.navigation.launchOverview()); },
                          m_parts.navigation.launchOverview);
    return launch;
}

DropDown *PreferencesView::makeShortcut()
{
    auto *shortcut = new DropDown(tr("Quick save shortcut"));
    shortcut->setOptions(
        {{tr("⌃⌥⌘S (default)"), defaultShortcut}, {tr("⇧⌘S"), shortShortcut}, {tr("Off"), noShortcut}});
    shortcut->setOnChoose([this](const QVariant &value) { m_parts.shortcut.setShortcutChoice(value.toInt()); });
    const auto show = [this, shortcut] {
        const int choice = m_parts.shortcut.shortcutChoice();
        shortcut->setCurrent(choice == shortShortcut || choice == noShortcut ? choice : defaultShortcut);
    };
    m_subscriptions.watch(show, m_parts.shortcut.shortcutChoice);
    return shortcut;
}

Switch *PreferencesView::makeBrowserTabs()
{
    auto *tabs = new Switch({});
    tabs->setAccessibleName(tr("Include browser tabs"));
    bind(
        tabs, m_parts.drafts.includeBrowser, [this](bool isOn) { m_parts.drafts.setIncludeBrowser(isOn); },
        m_subscriptions);
    return tabs;
}

Button *PreferencesView::makeButton(const QString &text, const QString &symbol, std::function<void()> pressed)
{
    auto *button = new Button(text, Button::Kind::Bordered, symbol);
    connect(button, &QAbstractButton::clicked, this, std::move(pressed));
    return button;
}

QWidget *PreferencesView::makePrivacy()
{
    auto *card = new SettingsCard;
    QHBoxLayout *const row = card->addPlainRow();
    row->setContentsMargins(14, 14, 14, 14);
    row->addWidget(new SymbolView("lock.shield", Role::SageText), 0, Qt::AlignTop);
    auto *texts = makeColumn(5);
    texts->addWidget(makeParagraph(tr("Private by design. Stored locally."), TextStyle::Strong));
    texts->addWidget(makeParagraph(tr("Your screenshots, recordings, browser URLs and notes stay on this Mac and are "
                                      "never uploaded. Delete a checkpoint from its menu to remove its saved media. "
                                      "Files are not additionally encrypted by this app."),
                                   TextStyle::Small, Role::Dim));
    texts->addSpacing(4);
    auto *buttons = makeRow(8);
    buttons->addWidget(makeButton(tr("Show saved files"), {}, [this] { showSavedFiles(); }));
    buttons->addWidget(makeButton(tr("Capture exclusions…"), "eye.slash",
                                  [this] { m_parts.sheets.open(&OpenSheets::showExclusions); }));
    buttons->addStretch();
    texts->addLayout(buttons);
    row->addLayout(texts, 1);
    return card;
}

QWidget *PreferencesView::makeContact()
{
    auto *card = new SettingsCard;
    if (m_parts.updates.canCheckForUpdates())
        addUpdates(card);
    card->addRow({.title = tr("Newsletter"),
                  .explanation = tr("Get occasional workspace tips and product news by email. This is separate from "
                                    "software updates.")},
                 {makeButton(tr("Join the newsletter"), {}, [] { Links::openNewsletter(); })});
    const auto reportBug = [this] {
        if (SheetHost *const host = SheetHost::of(this))
            host->present(new BugReportView(m_parts.applications, m_parts.keptForms));
    };
    card->addRow({.title = tr("Contact & support"),
                  .explanation = tr("Questions, feedback or a problem? We’ll open your default email app so you can "
                                    "review your message before sending.") +
                                 ' ' + tr("The address is %1.").arg(Endpoints::supportAddress()),
                  .symbol = "questionmark.circle"},
                 {makeButton(tr("Email support"), {}, [this] { emailSupport(); }),
                  makeButton(tr("Report a bug"), {}, reportBug)});
    return card;
}

void PreferencesView::addUpdates(SettingsCard *card)
{
    QHBoxLayout *const row = card->addPlainRow();
    m_updateSymbol = new SymbolView("arrow.down.circle", Role::AccentText);
    m_updateText = makeParagraph({}, TextStyle::Medium);
    m_checking = new Progress(tr("Working"));
    m_check = makeButton(tr("Check for updates"), {}, [this] { m_parts.updates.checkForUpdates(Force::Yes); });
    m_download = new Button(tr("Download update"), Button::Kind::Prominent);
    connect(m_download, &QAbstractButton::clicked, this, [this] {
        if (m_parts.updates.availableUpdate())
            Links::openUpdateURL(m_parts.updates.availableUpdate()->downloadURL);
    });
    row->setSpacing(8);
    row->addWidget(m_updateSymbol);
    row->addWidget(m_updateText, 1);
    row->addWidget(m_checking);
    row->addWidget(m_check);
    row->addWidget(m_download);
}

void PreferencesView::showUpdate()
{
    constexpr qsizetype longestVersion = 60;
    const std::optional<AppUpdateManifest> &update = m_parts.updates.availableUpdate();
    m_updateSymbol->setVisible(update.has_value());
    const bool canDownload = update && isOpenable(update->downloadURL);
    const bool isAnswered = m_parts.updates.updateAnswer() && !m_parts.updates.checkingForUpdates();
    QStringList lines;
    if (update)
        lines += tr("Update available: %1").arg(update->latestVersion.left(longestVersion));
    else if (!isAnswered)
        lines += tr("Version %1").arg(QCoreApplication::applicationVersion());
    if (update && !canDownload)
        lines += tr("It names no download over a secure connection (https), so Ardeno does not open one.");
    if (isAnswered)
        lines += *m_parts.updates.updateAnswer();
    m_updateText->setText(lines.join('\n'));
    m_updateText->setAccessibleName(m_updateText->text());
    m_download->setVisible(canDownload);
    m_checking->setVisible(m_parts.updates.checkingForUpdates());
}

void PreferencesView::showShortcutIssue()
{
    m_shortcutIssue->setText(m_parts.shortcut.shortcutIssue().value_or(QString()));
    m_shortcutIssue->setVisible(m_parts.shortcut.shortcutIssue().has_value());
}

void PreferencesView::showSavedFiles()
{
    const QString folder = m_parts.library.storageFolder();
    if (!QDir(folder).exists())
        tell(tr("Nothing has been saved yet."));
    else if (!Links::openFolder(folder))
        tell(tr("The folder could not be opened: %1").arg(folder));
}

void PreferencesView::emailSupport()
{
    if (!m_parts.applications.openMail(BugReportComposer::contactURL()))
        tell(tr("Your email app could not be opened. You can write to %1.").arg(Endpoints::supportAddress()));
}

void PreferencesView::tell(const QString &sentence)
{
    const AlertText text{.title = tr("Something needs attention"), .message = sentence, .confirm = tr("OK")};
    if (SheetHost *const host = SheetHost::of(this))
        presentAlert(*host, text, [](bool) {});
}

} // namespace ardeno
