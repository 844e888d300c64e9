// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/desktop/PageServer.h"
#include "tests/resume/ResumeFixture.h"

using namespace ardeno;
using namespace ardeno::desktop_test;

namespace {

// One empty page.
constexpr auto minimalPdf = "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n"
                            "2 0 obj<</Type/Pages/Kids[3 0 R]/Count 1>>endobj\n"
                            "3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 300 200]>>endobj\n"
                            "trailer<</Root 1 0 R>>\n%%EOF\n";

// A workspace of real applications and a browser with pages from this machine.
struct WorkspaceFixture : ResumeFixture {
    std::optional<PageServer> server;
    QString site;

    WorkspaceFixture()
    {
        QDir().mkpath(home.filePath("pages"));
        install("chromium", "Name=Chromium\nExec=chromium " + chromiumFlags().join(' ') +
                                " %U\nStartupWMClass=Chromium\nMimeType=x-scheme-handler/https;");
    }

    QStringList chromiumFlags() const
    {
        QStringList flags = chromiumArguments("");
        flags.removeLast();
        return flags;
    }

    // Pages that close themselves once there is a file "close".
    void serve()
    {
        server.emplace(home.filePath("pages"));
        site = server->address();
    }

    QString page(const QString &name, bool closes) const
    {
        const QByteArray script =
            "<script>setInterval(()=>fetch('close').then(r=>{if(r.ok)window.close()}),200)</script>";
        write("pages/" + name + ".html", "<title>" + name.toUtf8() + "</title>" + (closes ? script : QByteArray()));
        return site + '/' + name + ".html";
    }

    QJsonObject save() const
    {
        const ProgramResult saved = run({"save", "--project", "P", "--tabs", "--json"});
        CAPTURE(saved.error);
        REQUIRE(saved.status == 0);
        return run({"show", saved.json().value("id").toString(), "--json"}).json();
    }

    static QStringList addresses(const QJsonObject &checkpoint)
    {
        QStringList list;
        for (const QJsonValue &tab : checkpoint.value("tabs").toArray())
            list += tab.toObject().value("url").toString();
        list.sort();
        return list;
    }

    // Writes into the newest checkpoint what its windows show.
    void setDocument(const QString &title, const char *field, const QString &path) const
    {
        QJsonObject changed = library();
        QJsonArray checkpoints = changed.value("checkpoints").toArray();
        QJsonObject checkpoint = checkpoints[0].toObject();
        QJsonArray windows = checkpoint.value("windows").toArray();
        for (QJsonValueRef window : windows) {
            QJsonObject object = window.toObject();
            if (object.value("title").toString().contains(title))
                object[QLatin1String(field)] = path;
            window = object;
        }
        checkpoint["windows"] = windows;
        checkpoints[0] = checkpoint;
        changed["checkpoints"] = checkpoints;
        writeFile(libraryPath(), QJsonDocument(changed).toJson(QJsonDocument::Compact));
    }
};

QString activeTitle()
{
    const QString active =
        outputOf("xprop", {"-root", "_NET_ACTIVE_WINDOW"}).section("# ", 1).section(',', 0, 0).trimmed();
    return outputOf("xprop", {"-id", active, "WM_NAME"});
}

} // namespace

TEST_CASE_FIXTURE(WorkspaceFixture,
                  "what was closed is back, each page once, every window in its place, and the focus stays")
{
    serve();
    const QString notes = write("notes.txt", "Seeds 11 to 20 are still missing.\n");
    const QString paper = write("paper.pdf", minimalPdf);
    const QString folder = home.filePath("pages");
    Application editor("mousepad", {notes});
    Application viewer("evince", {paper});
    Application files("thunar", {folder});
    Application terminal("xterm", {"-T", "long run", "-e", "sleep 1000"});
    const QStringList pages = {page("First", true), page("Second", false), page("Third", false)};
    Application browser("chromium", chromiumFlags() + pages);
    place("notes.txt", "120,90,700,500");
    place("paper.pdf", "820,560,560,480");
    place("pages", "900,80,640,420");
    place("long run", "60,640,600,300");
    REQUIRE(browser.waitForWindow("Chromium") != 0);
    QJsonObject saved;
    REQUIRE(eventually([&] {
        saved = save();
        return addresses(saved).size() == 3;
    }));
    setDocument("notes.txt", "documentURL", notes);
    setDocument("paper.pdf", "documentURL", paper);
    setDocument("pages - Thunar", "locationURL", folder);

    editor.end();
    viewer.end();
    outputOf("thunar", {"-q"});
    place("long run", "400,200,300,200");
    write("pages/close", "");
    REQUIRE(eventually([&] { return addresses(save()).size() == 2; }));
    QFile::remove(home.filePath("pages/close"));
    outputOf("wmctrl", {"-a", "long run"});
    REQUIRE(eventually([&] { return activeTitle().contains("long run"); }));

    const QString id = saved.value("id").toString();
    const ProgramResult result = run({"resume", id, "--json"});
    CAPTURE(result.out);
    CAPTURE(result.error);
    REQUIRE(result.status == 0);
    CHECK(outcome(result).value("openedApps") == 3);
    CHECK(outcome(result).value("openedTabs") == 1);
    CHECK(outcome(result).value("documents") == 2);
    CHECK(outcome(result).value("folders") == 1);
    CHECK(outcome(result).value("failures").toArray().isEmpty());
    CHECK(activeTitle().contains("long run"));

    // Right after, while the browser has not written the page down: nothing is opened, everything is active.
    const ProgramResult again = run({"resume", id, "--json"});
    CAPTURE(again.out);
    CHECK(outcome(again).value("openedApps") == 0);
    CHECK(outcome(again).value("openedTabs") == 0);
    CHECK(outcome(again).value("documents") == 0);
    CHECK(outcome(again).value("folders") == 0);
    CHECK(outcome(again).value("alreadyActive") == 8);

    QJsonObject now;
    CHECK(eventually([&] {
        now = save();
        return addresses(now) == addresses(saved);
    }));
    CHECK(addresses(now) == addresses(saved));
    for (const char *title : {"notes.txt", "paper.pdf", "pages - Thunar", "long run"}) {
        CAPTURE(title);
        CHECK(distance(window(saved, title), window(now, title)) <= 1);
    }
}
