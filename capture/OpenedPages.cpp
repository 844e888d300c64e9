// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/OpenedPages.h"

#include "support/AtomicFile.h"
#include "support/Failure.h"
#include "support/OwnFile.h"
#include "json/Json.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QHash>
#include <QStandardPaths>

#include <algorithm>

namespace ardeno {

namespace {

// In seconds: how long a page is remembered, and how long after its opening the browser may write a list in which it
// is not yet.
constexpr double memory = 60;
constexpr double delayOfBrowsers = 10;

struct OpenedPage {
    QString page = {};
    Date openedAt = {};
    QString browser = {}; // Empty: whichever was the default one.

    static constexpr auto fields()
    {
        return std::tuple{Field{"page", &OpenedPage::page}, Field{"openedAt", &OpenedPage::openedAt},
                          Field{"browser", &OpenedPage::browser}};
    }
};

struct OpenedPageList {
    QList<OpenedPage> pages = {};

    static constexpr auto fields() { return std::tuple{Field{"pages", &OpenedPageList::pages}}; }
};

QString hashed(const QString &key)
{
    return QString::fromLatin1(QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha256).toHex());
}

// A clock that was set back must not keep a page for ever.
bool isRemembered(const OpenedPage &page, Date now)
{
    return page.openedAt.seconds <= now.seconds && now.seconds - page.openedAt.seconds < memory;
}

bool isRunning(const QString &browserID, const WorkspaceCapture::OpenTabs &open)
{
    return browserID.isEmpty() ? !open.runningBrowserIDs.isEmpty() : open.runningBrowserIDs.contains(browserID);
}

QList<OpenedPage> read(const QString &path, Date now)
{
    constexpr qint64 longestFile = 4 << 20;
    try {
        const std::optional<QByteArray> bytes = path.isEmpty() ? std::nullopt : OwnFile::read(path, longestFile);
        if (!bytes)
            return {};
        QList<OpenedPage> pages = json::decode<OpenedPageList>(*bytes).pages;
        pages.removeIf([&](const OpenedPage &page) { return !isRemembered(page, now); });
        return pages;
    } catch (const Failure &) {
        return {}; // A damaged file tells nothing.
    }
}

} // namespace

QString OpenedPages::defaultPath()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return folder.isEmpty() ? folder : folder + "/ardeno/opened-pages";
}

void OpenedPages::remember(const QString &browserID, const QList<SavedTab> &tabs, Date now)
{
    if (m_path.isEmpty() || tabs.isEmpty())
        return;
    OpenedPageList list{read(m_path, now)};
    for (const SavedTab &tab : tabs) {
        if (const auto key = WorkspaceCapture::tabURLKey(tab))
            list.pages.append({hashed(*key), now, browserID});
    }
    try {
        AtomicFile::createFolder(QFileInfo(m_path).path());
        AtomicFile::write(m_path, json::encode(list));
    } catch (const Failure &) {
        // The browser's own list catches up all the same.
    }
}

QSet<QString> OpenedPages::pendingKeys(const QList<SavedTab> &tabs, const WorkspaceCapture::OpenTabs &open,
                                       Date now) const
{
    QHash<QString, Date> openedAt;
    for (const OpenedPage &page : read(m_path, now)) {
        if (isRunning(page.browser, open))
            openedAt[page.page] = std::max(openedAt.value(page.page), page.openedAt);
    }
    QSet<QString> keys;
    for (const SavedTab &tab : tabs) {
        const auto key = WorkspaceCapture::tabURLKey(tab);
        const auto opened = key ? openedAt.constFind(hashed(*key)) : openedAt.constEnd();
        if (opened == openedAt.constEnd())
            continue;
        const bool isListKnowing = open.writtenAt && open.writtenAt->seconds > opened->seconds + delayOfBrowsers;
        if (!isListKnowing)
            keys.insert(*key);
    }
    return keys;
}

} // namespace ardeno
