// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/OpenedPages.h"

#include "tests/Printing.h"

#include <QFile>
#include <QTemporaryDir>

using namespace ardeno;

namespace {

SavedTab page(const QString &url)
{
    SavedTab tab;
    tab.url = url;
    return tab;
}

WorkspaceCapture::OpenTabs writtenAt(double seconds)
{
    WorkspaceCapture::OpenTabs open;
    open.writtenAt = Date{seconds};
    open.runningBrowserIDs = {"browser"};
    return open;
}

} // namespace

TEST_CASE("a page counts as open until its browser has written down what came after it, for a minute at most")
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("runtime/opened-pages");
    const QList<SavedTab> saved = {page("https://a.example/"), page("https://b.example/"), page("file:///x")};
    OpenedPages(path).remember("browser", {page("HTTPS://A.example:443/"), page("about:blank")}, Date{1000});

    const OpenedPages pages(path); // As the next command finds it.
    WorkspaceCapture::OpenTabs unwritten;
    unwritten.runningBrowserIDs = {"browser", "other"};
    const QSet<QString> pending = {"https://a.example/"};
    CHECK(pages.pendingKeys(saved, writtenAt(900), Date{1001}) == pending);
    CHECK(pages.pendingKeys(saved, writtenAt(1003), Date{1004}) == pending);
    CHECK(pages.pendingKeys(saved, unwritten, Date{1050}) == pending);
    CHECK(pages.pendingKeys(saved, writtenAt(1011), Date{1012}).isEmpty());
    CHECK(pages.pendingKeys(saved, writtenAt(900), Date{1061}).isEmpty());
    CHECK(pages.pendingKeys(saved, writtenAt(900), Date{500}).isEmpty()); // The clock was set back.

    OpenedPages(path).remember("browser", {page("https://b.example/")}, Date{1030});
    CHECK(pages.pendingKeys(saved, writtenAt(900), Date{1059}).size() == 2);
    CHECK(pages.pendingKeys(saved, writtenAt(900), Date{1070}) == QSet<QString>{"https://b.example/"});
}

TEST_CASE("pages are open no more when their browser has ended")
{
    const QTemporaryDir folder;
    OpenedPages pages(folder.filePath("opened-pages"));
    const QList<SavedTab> saved = {page("https://a.example/"), page("https://b.example/")};
    pages.remember("browser", {saved[0]}, Date{1000});
    pages.remember({}, {saved[1]}, Date{1000}); // With the default one, whichever that is.
    WorkspaceCapture::OpenTabs open;
    open.runningBrowserIDs = {"browser", "other"};
    CHECK(pages.pendingKeys(saved, open, Date{1001}).size() == 2);
    open.runningBrowserIDs = {"other"};
    CHECK(pages.pendingKeys(saved, open, Date{1001}) == QSet<QString>{"https://b.example/"});
    CHECK(pages.pendingKeys(saved, {}, Date{1001}).isEmpty());
}

TEST_CASE("the file of opened pages is private, holds no address, and may be damaged or missing")
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("runtime/opened-pages");
    const QList<SavedTab> saved = {page("https://secret.example/")};
    const WorkspaceCapture::OpenTabs running = writtenAt(0);
    OpenedPages pages(path);
    CHECK(pages.pendingKeys(saved, running, Date{1}).isEmpty());
    pages.remember("browser", saved, Date{1});
    QFile file(path);
    CHECK(file.permissions() == (QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser));
    REQUIRE(file.open(QIODevice::ReadWrite));
    CHECK_FALSE(file.readAll().contains("secret"));

    file.resize(file.size() / 2);
    file.close();
    CHECK(pages.pendingKeys(saved, running, Date{2}).isEmpty());
    pages.remember("browser", saved, Date{2});
    CHECK(pages.pendingKeys(saved, running, Date{3}).size() == 1);

    OpenedPages nowhere{QString()};
    nowhere.remember("browser", saved, Date{1});
    CHECK(nowhere.pendingKeys(saved, running, Date{2}).isEmpty());
    OpenedPages unwritable("/proc/ardeno/opened-pages");
    unwritable.remember("browser", saved, Date{1});
    CHECK(unwritable.pendingKeys(saved, running, Date{2}).isEmpty());
}
