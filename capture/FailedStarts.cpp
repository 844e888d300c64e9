// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/FailedStarts.h"

#include <QCoreApplication>

#include <algorithm>

namespace ardeno {

namespace {

using WorkspaceCapture::OpenedItems;

struct FailedStartTexts final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::FailedStarts)
};

// The start that something was lost with; null when it is there.
const FailedStart *startOf(const QString &content, const QList<FailedStart> &failed)
{
    const auto found = std::find_if(failed.begin(), failed.end(),
                                    [&](const FailedStart &start) { return start.contents.contains(content); });
    return found == failed.end() ? nullptr : &*found;
}

QString lostWith(const FailedStart &start, const QString &name)
{
    return u"%1 (%2)"_qs.arg(name, FailedStartTexts::tr("%1 ended with an error").arg(start.appName));
}

void withdrawApps(const QList<FailedStart> &failed, const OpenedItems &opened, RestoreReport *report)
{
    QSet<QString> seen;
    for (const FailedStart &start : failed) {
        if (seen.contains(start.appID))
            continue;
        seen.insert(start.appID);
        report->outcome.openedApps -= opened.appIDs.contains(start.appID) ? 1 : 0;
        report->outcome.failures += FailedStartTexts::tr("%1 (it ended with an error)").arg(start.appName);
    }
}

qint64 &countOf(const SavedWindow &window, const DesktopRoles &roles, RestoreReport *report)
{
    if (window.locationURL)
        return report->folders;
    return roles.documentViewerIDs.contains(window.appID) ? report->viewerDocuments : report->documents;
}

} // namespace

QString WorkspaceCapture::pageName(const SavedTab &tab)
{
    return tab.title.isEmpty() ? tab.url : tab.title;
}

void WorkspaceCapture::withdraw(const QList<FailedStart> &failed, const OpenedItems &opened, const DesktopRoles &roles,
                                RestoreReport *report)
{
    withdrawApps(failed, opened, report);
    for (const SavedTab &tab : opened.tabs) {
        const FailedStart *const start = startOf(tab.safeURL()->toOpen(), failed);
        if (!start)
            continue;
        --report->outcome.openedTabs;
        report->outcome.failures += lostWith(*start, pageName(tab));
    }
    for (const SavedWindow &window : opened.places) {
        const QString path = window.locationURL.value_or(window.documentURL.value_or(QString()));
        const FailedStart *const start = startOf(path, failed);
        if (!start)
            continue;
        --countOf(window, roles, report);
        report->outcome.failures += lostWith(*start, path.section('/', -1));
    }
}

} // namespace ardeno
