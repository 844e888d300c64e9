// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/RestoreSummary.h"

#include "support/Text.h"

#include <QCoreApplication>
#include <QStringList>

namespace ardeno {

namespace {

QString summaryText(const char *text)
{
    return QCoreApplication::translate("ardeno::RestoreSummary", text);
}

void addReopened(QStringList &parts, qint64 number, const QString &one, const QString &many)
{
    if (number >= 1)
        parts += Text::counted(number, one, many);
}

void addLayout(QStringList &parts, const RestoreResult &layout)
{
    parts += summaryText("%1 window positions restored").arg(layout.restoredCount);
    if (layout.accessibilityRequired)
        parts += summaryText("window positioning needs permission");
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
    parts += summaryText("%1 opened").arg(outcome.openedApps + outcome.openedTabs);
    parts += summaryText("%1 already active").arg(outcome.alreadyActive);
    if (outcome.unavailable >= 1)
        parts += summaryText("%1 unavailable").arg(outcome.unavailable);
    if (report.layout)
        addLayout(parts, *report.layout);
    addReopened(parts, report.folders, summaryText("Finder location restored"),
                summaryText("Finder locations restored"));
    addReopened(parts, report.viewerDocuments, summaryText("Preview document restored"),
                summaryText("Preview documents restored"));
    addReopened(parts, report.documents, summaryText("document restored"), summaryText("documents restored"));
    return summaryText("Workspace restored · ") + parts.join(u" · "_qs);
}

} // namespace ardeno
