// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main/Banners.h"

#include "store/Subjects.h"
#include "ui/checkpoint/ResumeShortfallCard.h"
#include "ui/controls/Button.h"
#include "ui/controls/FadeIn.h"
#include "ui/controls/Label.h"
#include "ui/controls/ScrollColumn.h"
#include "ui/controls/Sheet.h"
#include "ui/controls/Surfaces.h"
#include "ui/theme/Drawing.h"

#include <QAccessible>
#include <QPainter>

namespace ardeno {

void drawBanner(QWidget *strip, Role background, Qt::Edge edge)
{
    QPainter painter(strip);
    painter.fillRect(strip->rect(), themeColor(Role::Paper));
    painter.fillRect(strip->rect(), themeColor(background));
    Drawing::edge(painter, strip->rect(), edge, themeColor(Role::Line));
}

QHBoxLayout *makeStripRow(QWidget *strip)
{
    auto *row = makeRow(10, strip);
    row->setContentsMargins(24, 5, 22, 5);
    FadeIn::follow(strip, Role::Paper);
    return row;
}

namespace {

Button *makeClose(const QString &name)
{
    return Button::makeIcon("xmark", name);
}

} // namespace

UpdateBanner::UpdateBanner(Updates &updates, const Screens &screens, QWidget *parent)
    : QWidget(parent), m_updates(updates), m_text(new LineLabel)
{
    auto *row = makeStripRow(this);
    row->addWidget(new SymbolView("arrow.down.circle.fill", Role::AccentText));
    row->addWidget(m_text);
    auto *details = new Button(tr("See what’s new"), Button::Kind::Link);
    connect(details, &QAbstractButton::clicked, this, [this, &screens] {
        SheetHost *const host = SheetHost::of(this);
        if (host && m_updates.availableUpdate())
            host->present(makeUpdateDetailsSheet(screens, *m_updates.availableUpdate()));
    });
    row->addWidget(details);
    row->addStretch();
    Button *const close = makeClose(tr("Dismiss the update"));
    connect(close, &QAbstractButton::clicked, this, [this] { m_updates.dismissUpdate(); });
    row->addWidget(close);
    m_subscriptions.watch([this] { showUpdate(); }, updates.availableUpdate);
}

void UpdateBanner::showUpdate()
{
    setVisible(m_updates.availableUpdate().has_value());
    if (m_updates.availableUpdate())
        m_text->setText(tr("Ardeno %1 is available.").arg(m_updates.availableUpdate()->latestVersion));
}

void UpdateBanner::paintEvent(QPaintEvent *)
{
    drawBanner(this, Role::AccentSoft, Qt::BottomEdge);
}

Sheet *makeUpdateDetailsSheet(const Screens &screens, const AppUpdateManifest &update)
{
    const auto tr = [](const char *text) { return QCoreApplication::translate("ardeno::UpdateDetailsView", text); };
    auto *sheet = new Sheet(tr("What’s new in Ardeno?"), 440);
    sheet->column()->addWidget(makeParagraph(tr("What’s new in Ardeno?"), TextStyle::SheetTitle));
    sheet->column()->addWidget(new LineLabel(tr("Version %1").arg(update.latestVersion), TextStyle::Body, Role::Dim));
    auto *notes = new ScrollColumn(14);
    sheet->column()->addWidget(notes, 1);
    for (const QString &note : update.releaseNotes)
        notes->column()->addLayout(makeMarked("checkmark", Role::SageText, makeParagraph(note)));
    if (update.releaseNotes.isEmpty())
        notes->column()->addWidget(makeParagraph(tr("Improvements and fixes.")));
    sheet->column()->addSpacing(4);
    sheet->addButton(tr("Not now"), Button::Kind::Bordered, [sheet] { sheet->close(); });
    if (!isOpenable(update.downloadURL))
        sheet->column()->addWidget(makeParagraph(tr("This version names no download over a secure connection (https), "
                                                    "so Ardeno does not open one."),
                                                 TextStyle::Small, Role::AmberText));
    if (screens.openUpdate && isOpenable(update.downloadURL)) {
        sheet->addButton(tr("Download update"), Button::Kind::Prominent, [sheet, open = screens.openUpdate] {
            open();
            sheet->close();
        });
    }
    return sheet;
}

NoticeBanner::NoticeBanner(Messages &messages, const Navigation &navigation, const Library &library,
                           const ResumeFlow &resumes, std::function<void()> showShortfall, QWidget *parent)
    : QWidget(parent),
      m_messages(messages),
      m_navigation(navigation),
      m_library(library),
      m_resumes(resumes),
      m_text(makeParagraph({})),
      m_show(new Button(tr("Show")))
{
    auto *row = makeStripRow(this);
    row->addWidget(new SymbolView("checkmark.circle", Role::SageText));
    row->addWidget(m_text, 1);
    m_show->setAccessibleName(tr("Show what is not back"));
    connect(m_show, &QAbstractButton::clicked, this, std::move(showShortfall));
    row->addWidget(m_show);
    Button *const close = makeClose(tr("Dismiss the message"));
    connect(close, &QAbstractButton::clicked, this, [this] { m_messages.dismissNotice(); });
    row->addWidget(close);
    m_expiry.setInterval(std::chrono::seconds(10));
    connect(&m_expiry, &QTimer::timeout, this, [this] { expire(); });
    m_subscriptions.watch([this] { showNotice(); }, messages.notice);
}

void NoticeBanner::setPatience(std::chrono::milliseconds patience)
{
    m_expiry.setInterval(patience);
}

void NoticeBanner::showNotice()
{
    const bool isResume = m_messages.noticeSubject() == subjects::resume;
    const std::optional<QUuid> &shown = m_navigation.selection();
    setVisible(m_messages.notice().has_value());
    m_text->setText(m_messages.notice().value_or(QString()));
    m_show->setVisible(isResume && shown && !ResumeShortfallCard::missing(m_resumes, m_library, *shown).isEmpty());
    setAccessibleName(m_text->text());
    if (!m_messages.notice()) {
        m_expiry.stop();
        return;
    }
    m_expiry.start();
    QAccessibleEvent said(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&said);
}

bool NoticeBanner::isHeld() const
{
    const SheetHost *const host = SheetHost::of(this);
    const bool isSeen = isVisible() && !window()->isMinimized() && !(host && host->isCovering());
    return !isSeen || underMouse() || isAncestorOf(window()->focusWidget());
}

void NoticeBanner::expire()
{
    if (!isHeld())
        m_messages.dismissNotice();
}

void NoticeBanner::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    if (m_messages.notice())
        m_expiry.start();
}

void NoticeBanner::paintEvent(QPaintEvent *)
{
    drawBanner(this, Role::SageSoft, Qt::TopEdge);
}

NewsletterPrompt::NewsletterPrompt(Newsletter &newsletter, const Screens &screens, QWidget *parent)
    : QWidget(parent), m_newsletter(newsletter)
{
    auto *row = makeStripRow(this);
    row->addWidget(new SymbolView("envelope", Role::AccentText));
    auto *texts = makeColumn(0);
    texts->addWidget(makeLabel(tr("Enjoying Ardeno?"), TextStyle::Strong));
    texts->addWidget(new LineLabel(tr("Join the newsletter for workspace tips and product news."), TextStyle::Small,
                                   Role::DimOnSoft));
    row->addLayout(texts, 1);
    auto *later = new Button(tr("Not now"), Button::Kind::Plain);
    auto *join = new Button(tr("Join newsletter"));
    connect(later, &QAbstractButton::clicked, this, [this] { m_newsletter.dismissNewsletterPrompt(); });
    connect(join, &QAbstractButton::clicked, this, [this, open = screens.openNewsletter] {
        open();
        m_newsletter.dismissNewsletterPrompt();
    });
    row->addWidget(later);
    row->addWidget(join);
    // Without a page to open there is nothing to ask.
    const bool canJoin = static_cast<bool>(screens.openNewsletter);
    m_subscriptions.watch([this, canJoin] { setVisible(canJoin && m_newsletter.showNewsletterPrompt()); },
                          newsletter.showNewsletterPrompt);
}

void NewsletterPrompt::paintEvent(QPaintEvent *)
{
    drawBanner(this, Role::AccentSoft, Qt::TopEdge);
}

} // namespace ardeno
