// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/BrowserStateTabs.h"

#include "platform/linux/files/SlowWork.h"
#include "support/BlockOn.h"
#include "tests/Printing.h"
#include "tests/platform/browserstate/HistoryBytes.h"
#include "tests/platform/browserstate/StateBytes.h"
#include "tests/support/Files.h"

#include <QTemporaryDir>

#include <semaphore>

#include <pthread.h>

using namespace ardeno;
using namespace ardeno::sessions;

namespace {

const Browser chromium = {"org.chromium.Chromium", "Chromium", BrowserFamily::Chromium};
const Browser firefox = {"org.mozilla.firefox", "Firefox", BrowserFamily::Firefox};

QString lines(QString records)
{
    return records.replace(QChar(31), ' ').replace(QChar(30), '\n');
}

// A machine in a folder: processes as the kernel shows them, and profiles.
struct Machine {
    QTemporaryDir folder;
    std::optional<QList<LiveWindow>> live;
    BrowserStateTabs tabs{[this] { return live; }, {.processFolder = folder.filePath("proc"), .patience = {}}};

    QString write(const QString &path, const QByteArray &bytes) const
    {
        writeFile(folder.filePath(path), bytes);
        return folder.filePath(path);
    }

    // A process that was started with the machine, and so long ago.
    void start(int id, const QString &program, const QStringList &openFiles,
               const QByteArray &command = "browser") const
    {
        const QString process = "proc/" + QString::number(id);
        write(process + "/cmdline", command);
        write(process + "/stat", QByteArray::number(id) + " (a ) b) S" + QByteArray(" 0").repeated(18) + " 0 0 0");
        QFile::link(program, folder.filePath(process + "/exe"));
        QDir().mkpath(folder.filePath(process + "/fd"));
        for (const QString &file : openFiles)
            QFile::link(file, folder.filePath(process + "/fd/" + QString::number(3 + openFiles.indexOf(file))));
    }

    QString records(const Browser &browser)
    {
        return lines(blockOn(tabs.openTabs(browser, {})).records.value_or("none"));
    }
};

constexpr auto chromiumProgram = "/usr/lib/chromium/chromium";

QByteArray onePage(qint32 window, const QByteArray &url, const QString &title = {})
{
    return Snss().window(window).tab(window, window + 1, 0, url, title).marker().bytes();
}

} // namespace

TEST_CASE_FIXTURE(Machine, "the profiles of all processes of a browser are listed, however it was packaged")
{
    const QString first = write("home/.config/chromium/Default/Sessions/Session_2", onePage(30, "http://h/late", "L"));
    const QString second =
        write("home/.config/chromium/Profile 1/Sessions/Session_1", onePage(20, "http://h/early", "E"));
    const QString sandboxed =
        write("proc/70/root/var/app/Default/Sessions/Session_5", onePage(10, "http://h/flatpak", "F"));
    start(50, chromiumProgram, {first, "/dev/null", second, first, "socket:[1]"});
    start(60, chromiumProgram, {}, QByteArray("chromium --type=zygote\0", 23));
    start(70, "/app/chromium/chromium (deleted)", {"/var/app/Default/Sessions/Session_5"});
    start(80, "/opt/google/chrome/chrome", {first});

    CHECK(records(chromium) == "1 20 http://h/early E\n2 30 http://h/late L\n3 10 http://h/flatpak F\n");
    CHECK(tabs.isRunning("com.google.Chrome"));
    CHECK_FALSE(tabs.isRunning("com.brave.Browser"));
    CHECK_FALSE(tabs.isRunning("com.apple.Safari"));
}

TEST_CASE_FIXTURE(Machine, "programs are told apart by their place")
{
    start(1, "/snap/chromium/9/usr/lib/chromium-browser/chrome", {});
    start(2, "/opt/brave.com/brave/brave", {});
    start(3, "/usr/lib/firefox-esr/firefox-esr", {});
    start(4, "/usr/bin/python3", {});
    CHECK(tabs.isRunning("org.chromium.Chromium"));
    CHECK(tabs.isRunning("com.brave.Browser"));
    CHECK(tabs.isRunning("org.mozilla.firefox"));
    CHECK_FALSE(tabs.isRunning("com.google.Chrome"));
}

TEST_CASE_FIXTURE(Machine, "titles that the session lacks come from the history, which is left as it was")
{
    const QString session = write("p/Default/Sessions/Session_1", Snss()
                                                                      .window(1)
                                                                      .tab(1, 2, 0, "http://h/a")
                                                                      .tab(1, 3, 1, "http://h/b", "Own")
                                                                      .tab(1, 4, 2, "https://h/unknown?x")
                                                                      .marker()
                                                                      .bytes());
    start(50, chromiumProgram, {session});
    {
        History history(folder.filePath("p/Default/History"));
        history.add("http://h/a", "From\x1fhistory");
        history.add("http://h/b", "Other");
        history.lock();
        CHECK(records(chromium) ==
              "1 1 http://h/a From history\n1 1 http://h/b Own\n1 1 https://h/unknown?x h/unknown?x\n");
    }
    CHECK(QDir(folder.filePath("p/Default")).entryList(QDir::Files) == QStringList{"History"});

    SUBCASE("and a damaged history costs nothing but titles")
    {
        write("p/Default/History", "SQLite format 3" + QByteArray(2000, 7));
        CHECK(records(chromium).startsWith("1 1 http://h/a h/a\n"));
    }
}

TEST_CASE_FIXTURE(Machine, "a session that cannot be read is not taken for an empty one")
{
    const QString good = write("p/Default/Sessions/Session_1", onePage(1, "http://h/a", "A"));
    const QString encrypted = write("p/Profile 1/Sessions_Encrypted/Session_1", Snss(4).bytes());
    const QString unmarked = write("p/Profile 2/Sessions/Session_1", Snss().window(1).bytes());

    SUBCASE("because it is encrypted")
    {
        start(50, chromiumProgram, {encrypted});
    }
    SUBCASE("because it is damaged")
    {
        start(50, chromiumProgram, {unmarked});
    }
    SUBCASE("because it is a pipe or a folder")
    {
        start(50, chromiumProgram, {folder.filePath("p/Default/Sessions/Session_9")});
    }
    CHECK_THROWS_AS(records(chromium), Failure);

    start(51, chromiumProgram, {good});
    const TabReport report = blockOn(tabs.openTabs(chromium, {}));
    CHECK(lines(*report.records) == "1 1 http://h/a A\n");
    CHECK_FALSE(report.isComplete);
}

TEST_CASE_FIXTURE(Machine, "a browser in the middle of writing is waited for")
{
    start(50, chromiumProgram, {write("p/Default/Sessions_Encrypted/Session_1", Snss(4).bytes())});
    BrowserStateTabs patient([] { return std::nullopt; },
                             {.processFolder = folder.filePath("proc"), .patience = std::chrono::seconds(4)});
    auto report = patient.openTabs(chromium, {});
    const QString plain = write("p/Default/Sessions/Session_1", onePage(1, "http://h/a", "A"));
    QFile::link(plain, folder.filePath("proc/50/fd/9"));
    CHECK(lines(blockOn(std::move(report)).records.value_or("none")) == "1 1 http://h/a A\n");
}

TEST_CASE_FIXTURE(Machine, "an encrypted copy beside the plain file and private windows alone are no failure")
{
    const QString plain = write("p/Default/Sessions/Session_1", onePage(1, "http://h/a", "A"));
    const QString copy = write("p/Default/Sessions_Encrypted/Session_1", Snss(4).bytes());
    start(50, chromiumProgram, {plain, copy});
    start(51, chromiumProgram, {});
    const TabReport report = blockOn(tabs.openTabs(chromium, {}));
    CHECK(lines(*report.records) == "1 1 http://h/a A\n");
    CHECK(report.isComplete);
    CHECK(report.writtenAt.has_value());
}

TEST_CASE_FIXTURE(Machine, "while the browser begins a new file the one before it counts, but none of an earlier run")
{
    // The machine was started after 2001, the number of the oldest file says 1601.
    write("p/Default/Sessions/Session_1", onePage(1, "http://h/stale", "S"));
    const QString begun = write("p/Default/Sessions/Session_99000000000000002", Snss().window(1).bytes());
    start(50, chromiumProgram, {begun});
    CHECK_THROWS_AS(records(chromium), Failure);
    write("p/Default/Sessions/Session_99000000000000001", onePage(1, "http://h/before", "B"));
    CHECK(records(chromium) == "1 1 http://h/before B\n");
}

TEST_CASE_FIXTURE(Machine, "a window that a new file passes over is kept while a live one may be it")
{
    const QByteArray three = Snss()
                                 .window(1)
                                 .window(2, 300)
                                 .window(3, 600)
                                 .tab(1, 5, 0, "http://h/a", "A")
                                 .tab(2, 6, 0, "http://h/b", "B")
                                 .tab(3, 7, 0, "http://h/c", "C")
                                 .marker()
                                 .bytes();
    write("p/Default/Sessions/Session_99000000000000001", three);
    const QString path = "p/Default/Sessions/Session_99000000000000002";
    Snss file;
    file.window(1).window(2, 300).tab(1, 5, 0, "http://h/a", "A").tab(2, 6, 0, "http://h/b", "B").marker();
    start(50, chromiumProgram, {write(path, file.bytes())});
    const LiveWindow a{.processID = 50, .title = "A - Chromium", .windowID = 1};
    const LiveWindow b{.processID = 50, .title = "B - Chromium", .windowID = 2};
    const LiveWindow other{.processID = 50, .title = "Other - Chromium", .windowID = 3};
    const LiveWindow c{.processID = 50, .title = "C - Chromium", .windowID = 4};
    const auto uncertain = [&] { return blockOn(tabs.openTabs(chromium, {})).uncertainWindows; };

    CHECK(records(chromium) == "1 1 http://h/a A\n2 2 http://h/b B\n"); // Windows cannot be seen.
    live = QList<LiveWindow>{a, b};
    CHECK(records(chromium) == "1 1 http://h/a A\n2 2 http://h/b B\n");
    live = QList<LiveWindow>{a, b, other};
    CHECK(records(chromium) == "1 1 http://h/a A\n2 2 http://h/b B\n3 3 http://h/c C\n");
    CHECK(uncertain() == QSet<qint64>{3});
    live = QList<LiveWindow>{a, b, c};
    CHECK(records(chromium) == "1 1 http://h/a A\n2 2 http://h/b B\n3 3 http://h/c C\n");
    CHECK(uncertain().isEmpty());
    live = QList<LiveWindow>{other, c}; // What is written now goes first.
    CHECK(uncertain() == QSet<qint64>{1, 2});
    write(path, file.close(17, 3).bytes());
    live = QList<LiveWindow>{a, b, other};
    CHECK(records(chromium) == "1 1 http://h/a A\n2 2 http://h/b B\n");
}

TEST_CASE_FIXTURE(Machine, "Firefox's older copy serves while the newer one is being written")
{
    const QByteArray text = R"({"windows":[{"tabs":[{"entries":[{"url":"http://h/a","title":"A"}],"index":1}]}]})";
    const QString lock = write("ff/.parentlock", {});
    start(50, "/usr/lib/firefox-esr/firefox-esr", {lock});
    start(51, "/usr/lib/firefox-esr/firefox-esr", {lock}, QByteArray("firefox\0-contentproc\0", 22));
    CHECK_THROWS_AS(records(firefox), Failure);
    write("ff/sessionstore-backups/recovery.baklz4", mozLz4(text));
    CHECK(records(firefox) == "1 http://h/a A\n");
    write("ff/sessionstore-backups/recovery.jsonlz4", mozLz4(text).chopped(3));
    CHECK(records(firefox) == "1 http://h/a A\n");
    write("ff/sessionstore-backups/recovery.jsonlz4", mozLz4(R"({"windows":[]})"));
    CHECK(records(firefox).isEmpty());
}

TEST_CASE_FIXTURE(Machine, "only windows that exist on this desktop count")
{
    const QString session = write("p/Default/Sessions/Session_1", Snss()
                                                                      .window(1)
                                                                      .window(2, 300)
                                                                      .tab(1, 5, 0, "http://h/a", "A")
                                                                      .tab(2, 6, 0, "http://h/b", "B")
                                                                      .marker()
                                                                      .bytes());
    start(50, chromiumProgram, {session});
    live = QList<LiveWindow>{{.processID = 50, .title = "B - Chromium"}, {.processID = 9, .title = "A - Chromium"}};
    CHECK(records(chromium) == "1 2 http://h/b B\n");
    live = QList<LiveWindow>{{.applicationID = chromium.id, .title = "A - Chromium"}};
    CHECK(records(chromium) == "1 1 http://h/a A\n");
    live = QList<LiveWindow>();
    CHECK_FALSE(tabs.isRunning(chromium.id));
    live.reset();
    CHECK(tabs.isRunning(chromium.id));
}

TEST_CASE_FIXTURE(Machine, "a window that stands elsewhere and shows another page is kept and named as uncertain")
{
    start(50, chromiumProgram, {write("p/Default/Sessions/Session_1", onePage(1, "http://h/a", "A"))});
    live = QList<LiveWindow>{{.processID = 50, .title = "Z - Chromium", .frame = {500, 500, 900, 700}, .windowID = 1}};
    const TabReport report = blockOn(tabs.openTabs(chromium, {}));
    CHECK(lines(*report.records) == "1 1 http://h/a A\n");
    CHECK(report.uncertainWindows == QSet<qint64>{1});
    CHECK(report.isComplete);
}

TEST_CASE_FIXTURE(Machine, "a browser under another name has one identifier for its windows, its tabs and its titles")
{
    start(50, "/opt/google/chrome-beta/chrome", {write("p/Default/Sessions/Session_1", onePage(1, "http://h/a", "A"))});
    start(51, chromiumProgram, {write("q/Default/Sessions/Session_1", onePage(1, "http://h/b", "B"))});
    const auto window = [](quint32 id, std::optional<qint32> process, const char *application, const char *title) {
        return LiveWindow{.processID = process,
                          .applicationID = application,
                          .title = title,
                          .windowID = id,
                          .applicationName = "Own",
                          .isBrowser = true};
    };
    live = QList<LiveWindow>{window(1, 50, "google-chrome-beta", "A - Google Chrome"),
                             window(2, 51, "window-class/Work", "B - Chromium"),
                             window(3, 51, "crx_mail", "TOPSECRETPRIVATE - Chromium"),
                             window(4, 70, "org.gnome.Epiphany", "TOPSECRETPRIVATE"),
                             window(5, 71, "window-class/LibreWolf", "TOPSECRETPRIVATE"),
                             window(7, 73, "google-chrome-beta", "TOPSECRETPRIVATE - Google Chrome")};
    live->append(LiveWindow{.processID = 72, .applicationID = "editor", .title = "notes", .windowID = 6});

    QStringList names;
    for (const Browser &browser : tabs.furtherBrowsers())
        names += browser.id + ' ' + browser.name + ' ' + browser.baseID;
    CHECK(names == QStringList{"org.chromium.Chromium Chromium ", "google-chrome-beta Own com.google.Chrome",
                               "org.gnome.Epiphany GNOME Web org.gnome.Epiphany",
                               "window-class/LibreWolf Own librewolf"});
    CHECK(records(chromium) == "1 1 http://h/b B\n");
    CHECK_FALSE(tabs.isRunning("com.google.Chrome"));
    CHECK(records({"google-chrome-beta", "Own"}) == "1 1 http://h/a A\n");
    CHECK_FALSE(blockOn(tabs.openTabs({"google-chrome-beta", "Own"}, {})).isComplete); // A copy runs beside it.
    CHECK(blockOn(tabs.openTabs(chromium, {})).isComplete);
    CHECK_THROWS_AS(records({"org.gnome.Epiphany", "GNOME Web"}), Failure);

    const BrowserWindows windows = blockOn(tabs.browserWindows());
    CHECK(windows.size() == 6);
    CHECK(windows.value(1) == ShownPage{"A - Google Chrome", {"http://h/a"}});
    CHECK(windows.value(2) == ShownPage{"B - Chromium", {"http://h/b"}});
    for (const quint32 hidden : {3u, 4u, 5u, 7u})
        CHECK_MESSAGE(windows.value(hidden) == std::nullopt, hidden);
}

TEST_CASE("work that does not end is given up and takes nobody else's thread, what it throws is thrown on")
{
    using Kind = SlowWork::Kind;
    constexpr std::chrono::minutes longTime(1);
    const auto gate = std::make_shared<std::counting_semaphore<>>(0);
    const auto stuck = [gate] {
        gate->acquire();
        return 1;
    };
    for (int i = 0; i < 20; ++i)
        CHECK_THROWS_AS(blockOn(SlowWork::withinDeadline(stuck, std::chrono::milliseconds(1), Kind::Documents)),
                        Failure);
    CHECK(blockOn(SlowWork::withinDeadline([] { return 7; }, longTime, Kind::Tabs)) == 7);
    gate->release(20);
    const auto failing = []() -> int { throw Failure("Test", 3, "No."); };
    CHECK_THROWS_AS(blockOn(SlowWork::withinDeadline(failing, longTime, Kind::Tabs)), Failure);
}

TEST_CASE("without a thread there is a failure, not a wait")
{
    pthread_attr_t usual;
    REQUIRE(::pthread_getattr_default_np(&usual) == 0);
    pthread_attr_t tooLarge = usual;
    ::pthread_attr_setstacksize(&tooLarge, std::size_t(1) << 46);
    REQUIRE(::pthread_setattr_default_np(&tooLarge) == 0);
    CHECK_THROWS_AS(blockOn(SlowWork::withinDeadline([] { return 7; }, std::chrono::minutes(1), SlowWork::Kind::Tabs)),
                    Failure);
    ::pthread_setattr_default_np(&usual);
}
