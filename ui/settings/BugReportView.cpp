// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/settings/BugReportView.h"

#include "store/Applications.h"
#include "store/KeptForms.h"
#include "ui/controls/Alert.h"
#include "ui/controls/Fields.h"
#include "ui/controls/Label.h"
#include "ui/controls/ScrollColumn.h"
#include "ui/controls/Surfaces.h"
#include "ui/controls/TextArea.h"
#include "ui/settings/Links.h"
#include "json/Json.h"

namespace ardeno {

namespace {

struct KeptReport final : BugReportDraft {
    static constexpr auto fields()
    {
        return std::tuple{
            Field{"title", &KeptReport::title},
            Field{"details", &KeptReport::details},
            Field{"steps", &KeptReport::steps},
        };
    }
};

} // namespace

BugReportView::BugReportView(Applications &applications, KeptForms &kept)
    : Sheet(tr("Report a bug"), 540),
      m_applications(applications),
      m_kept(kept),
      m_title(new TextField(tr("Short summary"), tr("e.g. Saving stays stuck at 90%")))
{
    auto *head = makeColumn(4);
    head->addWidget(makeLabel(tr("Report a bug"), TextStyle::SheetTitle));
    head->addWidget(
        makeParagraph(tr("This opens your default email app with a draft you can review and edit before sending."),
                      TextStyle::Body, Role::Dim));
    column()->addLayout(head);
    auto *form = new ScrollColumn(14);
    column()->addWidget(form, 1);
    form->column()->addLayout(makeLabelled(tr("Short summary"), m_title));
    m_details = addArea(form->column(), tr("What went wrong?"), 6);
    m_steps = addArea(form->column(), tr("Steps to reproduce (optional)"), 4);
    form->column()->addWidget(makePrivacyNote());
    addButton(tr("Cancel"), Button::Kind::Bordered, [this] { close(); });
    m_copy = addButton(tr("Copy report"), Button::Kind::Bordered, [this] { copy(); });
    m_open = addButton(tr("Open email draft"), Button::Kind::Prominent, [this] { openMail(); });
    connect(m_title, &QLineEdit::textChanged, this, [this] { showDraft(); });
    setFirstFocus(m_title);
    setHoldsInput([this] { return !(m_title->text() + m_details->text() + m_steps->text()).trimmed().isEmpty(); });
    setOnKeep([this] { m_kept.keepReport(QString::fromUtf8(json::encode(KeptReport{draft()}))); });
    if (!kept.report().isEmpty())
        fillKept();
    showDraft();
}

void BugReportView::fillKept()
{
    try {
        const auto draft = json::decode<KeptReport>(m_kept.report().toUtf8());
        m_title->setText(draft.title);
        m_details->setText(draft.details);
        m_steps->setText(draft.steps);
    } catch (const Failure &) {
        // Nobody can say what it was.
    }
    setOnCancel([this] { m_kept.keepReport({}); }); // It has been sent or discarded.
}

void BugReportView::reopenKept(Applications &applications, KeptForms &kept, SheetHost &host)
{
    if (!kept.report().isEmpty())
        host.present(new BugReportView(applications, kept));
}

TextArea *BugReportView::addArea(QVBoxLayout *column, const QString &label, int lines)
{
    auto *area = new TextArea(label, lines);
    column->addLayout(makeLabelled(label, area));
    area->setOnTextChange([this] { showDraft(); });
    return area;
}

QWidget *BugReportView::makePrivacyNote()
{
    auto *note = new QWidget;
    auto *row = makeRow(10, note);
    row->addWidget(new SymbolView("lock.shield", Role::SageText), 0, Qt::AlignTop);
    row->addWidget(makeParagraph(tr("The draft includes only your text, app version, build number and macOS version. "
                                    "Screenshots, recordings, notes, browser URLs and saved files are not attached."),
                                 TextStyle::Small, Role::Dim),
                   1);
    return note;
}

BugReportDraft BugReportView::draft() const
{
    return {.title = m_title->text(), .details = m_details->text(), .steps = m_steps->text()};
}

void BugReportView::showDraft()
{
    const bool canSubmit = draft().canSubmit();
    m_copy->setEnabled(canSubmit);
    m_open->setEnabled(canSubmit);
    m_copy->setText(tr("Copy report")); // What was copied is older than this text.
}

void BugReportView::copy()
{
    if (!BugReportComposer::copy(draft(), Links::copyToClipboard))
        return;
    m_copy->setText(tr("Copied"));
    m_copy->updateGeometry();
}

void BugReportView::openMail()
{
    if (BugReportComposer::openMail(draft(),
                                    [this](const QUrl &address) { return m_applications.openMail(address); })) {
        close();
        return;
    }
    const AlertText text{.title = tr("Something needs attention"),
                         .message = tr("Your email app could not be opened. Use Copy report and send it manually.") +
                                    ' ' + tr("The address is %1.").arg(Endpoints::supportAddress()),
                         .confirm = tr("OK")};
    if (SheetHost *const host = SheetHost::of(this))
        presentAlert(*host, text, [](bool) {});
}

} // namespace ardeno
