// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/RestoreSummary.h"

#include "support/Text.h"

#include <QStringList>

namespace ardeno {

namespace {

void addReopened(QStringList &parts, qint64 number, const QString &one, const QString &many)
{
    if (number >= 1)
        parts += Text::counted(number, one, many);
}

void addLayout(QStringList &parts, const RestoreResult &layout)
{
    parts += u"%1 window positions restored"_qs.arg(layout.restoredCount);
    if (layout.accessibilityRequired)
        parts += u"window positioning needs permission"_qs;
}

} // namespace

QString RestoreSummary::text(const RestoreResult &layout)
{
    QStringList parts;
    addLayout(parts, layout);
    return parts.join(u" · "_qs);
}

QString RestoreSummary::text(const RestoreReport &report)
{
    const RestoreOutcome &outcome = report.outcome;
    QStringList parts;
    parts += u"%1 opened"_qs.arg(outcome.openedApps + outcome.openedTabs);
    parts += u"%1 already active"_qs.arg(outcome.alreadyActive);
    if (outcome.unavailable >= 1)
        parts += u"%1 unavailable"_qs.arg(outcome.unavailable);
    if (report.layout)
        addLayout(parts, *report.layout);
    addReopened(parts, report.folders, u"Finder location restored"_qs, u"Finder locations restored"_qs);
    addReopened(parts, report.viewerDocuments, u"Preview document restored"_qs, u"Preview documents restored"_qs);
    addReopened(parts, report.documents, u"document restored"_qs, u"documents restored"_qs);
    return u"Workspace restored · "_qs + parts.join(u" · "_qs);
}

} // namespace ardeno
