// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/bus/SessionBus.h"
#include "platform/linux/documents/FileManagers.h"
#include "platform/linux/documents/RecentDocuments.h"
#include "platform/linux/documents/WindowTitles.h"
#include "platform/linux/files/PathText.h"
#include "platform/linux/running/OpenFiles.h"

#include "tests/Printing.h"
#include "tests/support/Files.h"

#include <doctest/doctest.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace ardeno;

TEST_CASE("a title names a file only as a whole")
{
    struct Case {
        QString title;
        QString name;
        bool isNamed;
    };

    const QList<Case> cases = {
        {"notes.txt", "notes.txt", true},
        {"notes.txt - Editor", "notes.txt", true},
        {u"okudoc.pdf  — Okular"_qs, "okudoc.pdf", true},
        {"*notes.txt - Editor", "notes.txt", true},
        {u"● notes.txt - Editor"_qs, "notes.txt", true},
        {"notes.txt* - Editor", "notes.txt", true},
        {"notes.txt (~/Texts) - Editor", "notes.txt", true},
        {"Editor: notes.txt", "notes.txt", true},
        {"Editor - notes.txt", "notes.txt", true},
        {"*odd - Editor", "*odd", true},
        {"a - b.txt - Editor", "a - b.txt", true},
        {"my notes.txt - Editor", "notes.txt", false},
        {"old-notes.txt - Editor", "notes.txt", false},
        {"a - notes.txt - Editor", "notes.txt", false},
        {"notes.txt.bak - Editor", "notes.txt", false},
        {"notes.txt backup - Editor", "notes.txt", false},
        {"notes (2).txt - Editor", "notes", false},
        {"Notes.txt - Editor", "notes.txt", false},
        {"Editor", "", false},
    };
    for (const Case &tried : cases) {
        CAPTURE(tried.title);
        CAPTURE(tried.name);
        CHECK(WindowTitles::namesFile(tried.title, tried.name, "Editor") == tried.isNamed);
    }
}

TEST_CASE("the path that a title tells is among those looked for")
{
    struct Case {
        QString title;
        QString path;
    };

    const QList<Case> cases = {
        {"/home/me/notes.txt - Mousepad", "/home/me/notes.txt"},
        {"*/home/me/a - b.txt - Mousepad", "/home/me/a - b.txt"},
        {"/home/me/notes.txt", "/home/me/notes.txt"},
        {"/home/me/notes.txt* - Pad", "/home/me/notes.txt"},
        {"~/notes.txt - Pad", "/home/me/notes.txt"},
        {"Pad: /home/me/notes.txt", "/home/me/notes.txt"},
        {"notes.txt (~/Texts) - Pad", "/home/me/Texts/notes.txt"},
        {"notes.txt (~) - Pad", "/home/me/notes.txt"},
        {"*notes.txt (/srv/a (b)) - Pad", "/srv/a (b)/notes.txt"},
        {"notes.txt - /srv/texts - Geany", "/srv/texts/notes.txt"},
        {"notes.txt [/srv/texts]", "/srv/texts/notes.txt"},
    };
    for (const Case &tried : cases) {
        CAPTURE(tried.title);
        CHECK(WindowTitles::paths(tried.title, "Pad", "/home/me").contains(tried.path));
    }
    for (const QString title : {"notes.txt - Pad", "me@host: ~/Texts", "Re: /etc/hosts - Mail", "", "*"}) {
        CAPTURE(title);
        CHECK(WindowTitles::paths(title, "Pad", "/home/me").isEmpty());
    }
}

TEST_CASE("a file manager's title is the folder's name and its own ending")
{
    CHECK(WindowTitles::folderName("a - b - Thunar", "thunar", "Thunar File Manager") == "a - b");
    CHECK(WindowTitles::folderName(u"Thesis — Dolphin"_qs, "org.kde.dolphin", "Dolphin") == "Thesis");
    CHECK(WindowTitles::folderName("a - b", "pcmanfm", "File Manager PCManFM") == "a - b");
    CHECK(WindowTitles::folderName("Thesis - Files", "caja", "Files") == "Thesis");
}

TEST_CASE("addresses of files become exactly their paths, or nothing")
{
    struct Case {
        QByteArray address;
        std::optional<QString> path;
    };

    const QList<Case> cases = {
        {"file:///home/me/a%20b%23%25%3F.txt", "/home/me/a b#%?.txt"},
        {"file:///home/me/line%0Abreak", "/home/me/line\nbreak"},
        {"file:///home/me/%C3%A4", u"/home/me/ä"_qs},
        {"file:///home/me/%2520", "/home/me/%20"},
        {"file:///home/me/", "/home/me"},
        {"FILE://localhost/etc/hosts", "/etc/hosts"},
        {"file:///a.pdf#page=2", "/a.pdf"},
        {"file:///home/me/%E4", std::nullopt},
        {"file:///home/me/%4", std::nullopt},
        {"file:///home/me/%zz", std::nullopt},
        {"file:///home/me/%00", std::nullopt},
        {"file://elsewhere.example/etc/hosts", std::nullopt},
        {"file:relative", std::nullopt},
        {"https://example.org/", std::nullopt},
        {"", std::nullopt},
    };
    for (const Case &tried : cases) {
        CAPTURE(QString::fromUtf8(tried.address));
        CHECK(PathText::fromAddress(tried.address) == tried.path);
    }
    CHECK_FALSE(PathText::fromBytes("relative").has_value());
    CHECK_FALSE_MESSAGE(PathText::fromBytes("/latin-\xE4").has_value(), "another file would be opened");
}

TEST_CASE("the list of recent documents is read with who used them and when")
{
    const QList<RecentDocument> documents = RecentDocuments::parsed(R"(<?xml version="1.0"?>
<xbel version="1.0">
  <bookmark href="file:///home/me/a%20&amp;%20b.pdf" added="2026-01-01T10:00:00.030567Z" modified="2026-01-03T10:00:00Z" visited="2026-01-02T10:00:00Z">
    <info><metadata><bookmark:applications>
      <bookmark:application name="Document Viewer" exec="&apos;/usr/bin/evince %u&apos;" count="1"/>
      <bookmark:application name="okular" exec="okular %u" count="1"/>
    </bookmark:applications></metadata></info>
  </bookmark>
  <bookmark href="https://example.org/"></bookmark>
  <bookmark href="file:///home/me/%E4" added="2026-01-01T10:00:00Z"/>
  <bookmark href="file:///home/me/cut off)");
    REQUIRE(documents.size() >= 1);
    CHECK(documents[0].path == "/home/me/a & b.pdf");
    CHECK(documents[0].lastUsed == QDateTime({2026, 1, 3}, {10, 0}, Qt::UTC));
    CHECK(documents[0].applications == QStringList{"Document Viewer", "evince", "okular", "okular"});
    CHECK(RecentDocuments::parsed("").isEmpty());
}

TEST_CASE("of several tabs the one that the title names is shown")
{
    CHECK(FileManagers::shownTab({"/a/Thesis"}, "anything") == "/a/Thesis");
    CHECK(FileManagers::shownTab({"/a/Thesis", "/a/Music"}, "Music") == "/a/Music");
    CHECK_FALSE(FileManagers::shownTab({"/a/Thesis", "/b/Thesis"}, "Thesis").has_value());
    CHECK_FALSE(FileManagers::shownTab({"/a/Thesis", "/b/Music"}, "Home").has_value());
    CHECK_FALSE(FileManagers::shownTab({}, "Thesis").has_value());
}

TEST_CASE("files that were deleted or replaced while open are not among the open ones")
{
    const QTemporaryDir folder;
    const auto path = [&](const char *name) { return folder.path() + '/' + name; };
    QFile kept(path("kept"));
    QFile deleted(path("deleted"));
    QFile replaced(path("replaced"));
    for (QFile *file : {&kept, &deleted, &replaced})
        REQUIRE(file->open(QIODevice::WriteOnly));
    REQUIRE(QFile(path("deleted")).remove());
    REQUIRE(QFile(path("replaced")).remove());
    writeFile(path("replaced"));

    const OpenFiles open = OpenFiles::of(QCoreApplication::applicationPid());

    CHECK(open.files.contains(path("kept")));
    CHECK_FALSE(open.files.contains(path("deleted")));
    CHECK_FALSE(open.files.contains(path("replaced")));
    CHECK_FALSE(open.files.contains(path("deleted") + " (deleted)"));
}

TEST_CASE("the folders whose changes a process follows are known by their numbers")
{
    const QTemporaryDir folder;
    const int watch = ::inotify_init1(IN_CLOEXEC);
    REQUIRE(::inotify_add_watch(watch, folder.path().toUtf8().constData(), IN_CREATE) >= 0);
    struct stat facts = {};
    REQUIRE(::stat(folder.path().toUtf8().constData(), &facts) == 0);

    const OpenFiles open = OpenFiles::of(QCoreApplication::applicationPid());
    ::close(watch);

    CHECK(open.watchesFiles);
    CHECK(open.watched.contains(facts.st_ino));
    CHECK_FALSE(OpenFiles::of(QCoreApplication::applicationPid()).watched.contains(facts.st_ino));
}

TEST_CASE("a message bus that takes a connection and then says nothing is given up")
{
    const QTemporaryDir folder;
    const QByteArray path = (folder.path() + "/bus").toUtf8();
    const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::copy(path.begin(), path.end(), address.sun_path);
    REQUIRE(::bind(listener, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) == 0);
    REQUIRE(::listen(listener, 1) == 0);

    const SessionBus bus = SessionBus::at("unix:path=" + QString::fromUtf8(path), std::chrono::milliseconds(20));
    ::close(listener);

    CHECK_FALSE(bus.isConnected());
    const SessionBus::Question question{"org.example.Any", "/", "org.example.Any", "Ask", {}};
    CHECK_FALSE(bus.ask(question, std::chrono::milliseconds(20)).isValid());
}
