// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/WindowLocation.h"
#include "platform/linux/bus/SessionBus.h"
#include "platform/linux/documents/AccessibleDocuments.h"
#include "platform/linux/documents/RecentDocuments.h"
#include "platform/linux/running/LiveWindow.h"

#include <QList>
#include <QStringList>

#include <mutex>

namespace ardeno {

// Finds the documents that windows show: among equally sure ways the quickest first, and nothing where two documents
// may be meant. For several worker threads, which share what is read once.
class DocumentLocator final {
public:
    DocumentLocator();

    // All windows of one process, which belong to one application. Those without a certain document are missing.
    QList<WindowLocation> locations(const QList<LiveWindow> &windows) const;

private:
    class Process;

    const QList<RecentDocument> &recentDocuments() const;

    LazySessionBus m_session;
    AccessibleDocuments m_accessible;
    mutable std::once_flag m_readRecent;
    mutable QList<RecentDocument> m_recent;
};

} // namespace ardeno
