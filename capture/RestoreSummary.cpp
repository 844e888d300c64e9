// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/RestoreSummary.h"

#include <QCoreApplication>
#include <QStringList>

namespace ardeno {

namespace {

QString summaryText(const char *text, qint64 number = -1)
{
    return QCoreApplication::translate("ardeno::RestoreSummary", text, "", static_cast<int>(number));
}

void addLayout(QStringList &parts, const RestoreResult &layout)
{
    parts += summaryText("%n window positions restored", layout.restoredCount);
    if (layout.accessibilityRequired)
        parts += summaryText("window positioning needs permission");
}

void addShortfall(QStringList &parts, qint64 failures, const std::optional<RestoreResult> &layout)
{
    if (failures >= 1)
        parts += summaryText("%n failed", failures);
    if (layout && layout->skippedCount >= 1)
        parts += summaryText("%n windows not placed", layout->skippedCount);
}

} // namespace

QString RestoreSummary::text(const RestoreResult &layout)
{
    QStringList parts;
    addLayout(parts, layout);
    addShortfall(parts, 0, layout);
    return parts.join(u" · "_qs);
}

QString RestoreSummary::text(const RestoreReport &report)
{
    const RestoreOutcome &outcome = report.outcome;
    QStringList parts;
    parts += summaryText("%n opened", outcome.openedApps + outcome.openedTabs);
    parts += summaryText("%n already active", outcome.alreadyActive);
    if (!outcome.unavailable.isEmpty())
        parts += summaryText("%n unavailable", outcome.unavailable.size());
    if (report.layout)
        addLayout(parts, *report.layout);
    if (report.folders >= 1)
        parts += summaryText("%n Finder locations restored", report.folders);
    if (report.viewerDocuments >= 1)
        parts += summaryText("%n Preview documents restored", report.viewerDocuments);
    if (report.documents >= 1)
        parts += summaryText("%n documents restored", report.documents);
    addShortfall(parts, outcome.failures.size(), report.layout);
    return summaryText("Workspace restored · ") + parts.join(u" · "_qs);
}

} // namespace ardeno
