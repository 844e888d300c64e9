// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/BugReportComposer.h"

#include <QCoreApplication>
#include <QSysInfo>

namespace ardeno {

namespace {

QString orDevelopment(const QString &text)
{
    return text.isEmpty() ? QString("Development") : text;
}

QString reportSubject(const BugReportDraft &draft)
{
    return "Ardeno bug: " + draft.title.trimmed();
}

QString currentBody(const BugReportDraft &draft)
{
    return BugReportComposer::body(draft, ApplicationBundle::current(), BugReportComposer::operatingSystemVersion());
}

// Encoded by hand, as QUrlQuery leaves "+" as it is, which some mail programs read as a space.
QUrl mailTo(const QString &subject, const QString &text)
{
    QByteArray address = "mailto:" + QUrl::toPercentEncoding(Endpoints::supportAddress(), "@") +
                         "?subject=" + QUrl::toPercentEncoding(subject);
    if (!text.isEmpty())
        address += "&body=" + QUrl::toPercentEncoding(text);
    return QUrl::fromEncoded(address, QUrl::StrictMode);
}

} // namespace

bool BugReportDraft::canSubmit() const
{
    return !title.trimmed().isEmpty() && !details.trimmed().isEmpty();
}

QUrl BugReportComposer::contactURL()
{
    return mailTo("Ardeno support", {});
}

// The maker reads it, so it is not translated; only the operating system has the name that is true of it.
QString BugReportComposer::body(const BugReportDraft &draft, const ApplicationBundle &bundle,
                                const QString &operatingSystem)
{
    const QString steps = draft.steps.trimmed();
    return "What happened:\n" + draft.details.trimmed() + "\n\nSteps to reproduce:\n" +
           (steps.isEmpty() ? QString("Not provided") : steps) +
           "\n\nDiagnostics:\nApp version: " + orDevelopment(bundle.version) + " (" + orDevelopment(bundle.build) +
           ")\n" + QCoreApplication::translate("ardeno::BugReportComposer", "macOS: ") + operatingSystem;
}

QString BugReportComposer::operatingSystemVersion()
{
    return QString("%1 (%2)").arg(QSysInfo::prettyProductName(), QSysInfo::kernelVersion());
}

bool BugReportComposer::openMail(const BugReportDraft &draft, const std::function<bool(const QUrl &)> &open)
{
    if (!draft.canSubmit())
        return false;
    const QUrl address = mailTo(reportSubject(draft), currentBody(draft));
    return address.isValid() && open(address);
}

bool BugReportComposer::copy(const BugReportDraft &draft, const std::function<bool(const QString &)> &toClipboard)
{
    return draft.canSubmit() && toClipboard("Subject: " + reportSubject(draft) + "\n\n" + currentBody(draft));
}

} // namespace ardeno
