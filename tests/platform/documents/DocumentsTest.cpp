// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/documents/DocumentsFixture.h"

#include "tests/desktop/DesktopFile.h"
#include "tests/desktop/TestWindow.h"

#include <memory>
#include <vector>

using namespace ardeno;
using namespace ardeno::desktop_test;

namespace {

using Paths = QList<std::optional<QString>>;

// A command whose window has the file's name in its title, in the folder the command is started in.
QStringList inFolder(const QString &folder, const QStringList &command)
{
    return QStringList{"-c", "cd \"$0\" && exec \"$@\"", folder} + command;
}

} // namespace

TEST_CASE_FIXTURE(DocumentsFixture, "every viewer's and editor's window is kept with its document")
{
    const QString text = makeFile("Texts/notes.txt");
    const QString odd = makeFile("Texts/50% of #1 & more.txt");
    const QString page = makePdf("Papers/paper.pdf");
    const QString other = makePdf("Papers/other paper.pdf");
    makePdf("Older/paper.pdf");
    makeFile("notes.txt");
    Application mousepad("sh", inFolder(home("Texts"), {"mousepad", "notes.txt"}));
    Application featherpad("sh", inFolder(home("Texts"), {"featherpad", "50% of #1 & more.txt"}));
    Application evince("sh", inFolder(home("Papers"), {"evince", "paper.pdf"}));
    Application okular("sh", inFolder(home("Papers"), {"okular", "other paper.pdf"}));
    CHECK(comesToShow("org.xfce.mousepad", text));
    CHECK(comesToShow("featherpad", odd));
    CHECK(comesToShow("org.gnome.Evince", page));
    CHECK(comesToShow("org.kde.okular", other));
    for (const SavedWindow &window : layout()) {
        CAPTURE(window.title);
        CHECK_MESSAGE((window.documentURL.has_value() || window.title.isEmpty()), "every window's document is known");
    }

    REQUIRE(QFile(page).remove());
    REQUIRE(QFile(other).remove());
    REQUIRE(QFile(text).remove());
    for (const char *application : {"org.gnome.Evince", "org.kde.okular", "org.xfce.mousepad"}) {
        CAPTURE(application);
        CHECK(shown(application) == Paths{std::nullopt}); // What was deleted is shown by no window.
    }
}

TEST_CASE_FIXTURE(DocumentsFixture, "a viewer with two files of one name in its tabs has no document")
{
    const QString first = makePdf("Papers/paper.pdf");
    const QString second = makePdf("Older/paper.pdf");
    writeFile(QDir::homePath() + "/.config/okularpartrc", "[General]\nShellOpenFileInTabs=true\n");
    Application okular("okular", {first, second});
    REQUIRE(okular.waitForWindow("paper.pdf") != 0);
    REQUIRE(eventually([&] { return outputOf("sh", {"-c", "ls -l /proc/[0-9]*/fd 2>/dev/null"}).contains(second); }));
    CHECK(shown("org.kde.okular") == Paths{std::nullopt});
}

TEST_CASE_FIXTURE(DocumentsFixture, "what a terminal runs is not its document")
{
    const QString text = makeFile("notes.txt");
    Application terminal("xterm", {"-T", text, "-e", "tail", "-f", text});
    REQUIRE(terminal.waitForWindow("notes.txt") != 0);
    CHECK(shown("debian-xterm") == Paths{std::nullopt});
}

TEST_CASE_FIXTURE(DocumentsFixture, "a title that several windows of a process have belongs to no document")
{
    const qint64 own = QCoreApplication::applicationPid();
    const QString path = makeFile("notes.txt");
    QFile open(path);
    REQUIRE(open.open(QIODevice::ReadOnly));
    std::vector<std::unique_ptr<TestWindow>> windows;
    const auto addWindow = [&] {
        windows.push_back(std::make_unique<TestWindow>());
        windows.back()->setTitle("notes.txt");
        windows.back()->setCardinals("_NET_WM_PID", {quint32(own)});
        windows.back()->show();
    };
    addWindow();
    const QList<WindowLocation> one = blockOn(desktop.documents->locations({own}));
    REQUIRE(one.size() == 1);
    CHECK(one[0] == WindowLocation{"notes.txt", path, windows[0]->id(), own});

    constexpr int many = 40;
    while (windows.size() < many)
        addWindow();
    CHECK(blockOn(desktop.documents->locations({own})).isEmpty());
}

TEST_CASE_FIXTURE(DocumentsFixture, "a title alone names no document, and programs for mail and the web have none")
{
    for (const QByteArray category : {"Office", "Email", "WebBrowser"})
        desktop_test::writeDesktopFile(desktop_test::ownDesktopFiles(), category,
                                       "Exec=true\nName=" + category + "\nCategories=Network;" + category + ';');
    const qint64 own = QCoreApplication::applicationPid();
    const QString path = makeFile("Texts/notes.txt");
    const QString inOther = makeFile("notes.txt");
    const auto shownBy = [&](const QByteArray &application, const QString &title) {
        TestWindow window;
        window.setTitle(title.toUtf8());
        window.setText("_GTK_APPLICATION_ID", application);
        window.show();
        QStringList paths;
        for (const WindowLocation &location : blockOn(desktop.documents->locations({own})))
            paths += location.path;
        return paths;
    };
    const QStringList titles = {path, "notes.txt (" + home("Texts") + ") - Office", "*" + path + " - Office"};
    for (const QString &title : titles)
        CHECK_MESSAGE(shownBy("Office", title).isEmpty(), "somebody wrote so");
    QFile open(path);
    REQUIRE(open.open(QIODevice::ReadOnly));
    QFile other(inOther);
    REQUIRE(other.open(QIODevice::ReadOnly));
    for (const QString &title : titles) {
        CHECK(shownBy("Office", title) == QStringList{path});
        CHECK(shownBy("Email", title).isEmpty());
        CHECK(shownBy("WebBrowser", title).isEmpty());
    }
}

TEST_CASE_FIXTURE(DocumentsFixture,
                  "an editor's document is known to be open behind another one, until its tab is closed")
{
    const QString front = makeFile("Texts/front.txt");
    const QString behind = makeFile("Texts/behind.txt");
    const QStringList both = {behind, front, makeFile("Texts/other.txt")};
    Application editor("mousepad", {"--disable-server", behind, front});
    CHECK(comesToShow("org.xfce.mousepad", front));
    const auto held = [&] {
        QStringList paths = blockOn(desktop.documents->held("org.xfce.mousepad", both));
        paths.sort();
        return paths;
    };
    CHECK(eventually([&] { return held() == QStringList{behind, front}; }));
    press("front.txt", "ctrl+w");
    CHECK(eventually([&] { return held() == QStringList{behind}; }));
}
