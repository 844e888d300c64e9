// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/BrowserTabs.h"

#include "support/BlockOn.h"
#include "tests/Printing.h"
#include "tests/support/Tabs.h"

#include <QHash>

using namespace ardeno;

namespace {

// Answers what the test put in; a browser without an answer fails.
struct Answers final : TabSource {
    QHash<QString, TabReport> reports;
    QSet<QString> running;
    QStringList asked;
    QString lastScript;

    void add(const QString &id, const TabReport &report)
    {
        running.insert(id);
        reports.insert(id, report);
    }

    QList<Browser> furtherBrowsers() override
    {
        return {{"org.example.Browser", "Example"},
                {"work-brave", "Work", BrowserFamily::Chromium, "com.brave.Browser"}};
    }

    Capability availability(const QString &) const override { return Capability::available(); }

    bool isRunning(const QString &id) override { return running.contains(id); }

    QCoro::Task<BrowserWindows> browserWindows() override { co_return {}; }

    QCoro::Task<TabReport> openTabs(Browser browser, QString script) override
    {
        asked += browser.id;
        lastScript = script;
        if (!reports.contains(browser.id))
            throw Failure("Script", -1743, "Not authorised.");
        co_return reports.value(browser.id);
    }
};

QString record(const QStringList &fields)
{
    return fields.join(QChar(31)) + QChar(30);
}

QString key(const QString &url)
{
    SavedTab tab;
    tab.url = url;
    return WorkspaceCapture::tabURLKey(tab).value_or("absent");
}

const QString noBrowser = "No supported browser was open. Open Brave, Chrome, Safari, or Firefox, then choose Add "
                          "current tabs.";

QString failed(const QString &name)
{
    return name + u" tabs weren’t available. Allow its Automation access in System Settings, then try Add current "
                  u"tabs again."_qs;
}

} // namespace

TEST_CASE("tabs carry what their browser told, browser after browser")
{
    Answers source;
    source.add("org.mozilla.firefox", {record({"1", "https://f.example/", "F"})});
    source.add("com.google.Chrome", {record({"2", "77", "HTTPS://c.example/%7e", "C"}), Date{20}});
    source.add("org.example.Browser", {record({"1", "5", "http://e.example", "E"}), Date{10}});

    const auto open = blockOn(WorkspaceCapture::browserTabs(source, {}));

    CHECK(addresses(open.tabs) == QStringList{"HTTPS://c.example/%7e", "https://f.example/", "http://e.example"});
    const SavedTab chrome = open.tabs.first();
    CHECK(chrome.title == "C");
    CHECK(chrome.window == 2);
    CHECK(chrome.browserID == "com.google.Chrome");
    CHECK(chrome.browserName == "Chrome");
    CHECK(chrome.browserWindowID == "77");
    CHECK(chrome.capturedAt.has_value());
    CHECK(chrome.id.version() == QUuid::Random);
    CHECK(chrome.id.variant() == QUuid::DCE);
    CHECK(chrome.id != open.tabs[1].id);
    CHECK_FALSE(open.tabs[1].browserWindowID.has_value());
    CHECK_FALSE(open.warning.has_value());
    CHECK(open.unreadBrowserIDs.isEmpty());
    CHECK(open.writtenAt == Date{10});
}

TEST_CASE("records are kept only when they are whole and their page can be opened")
{
    const Browser chrome = {"com.google.Chrome", "Chrome", BrowserFamily::Chromium};
    const Browser firefox = {"org.mozilla.firefox", "Firefox", BrowserFamily::Firefox};
    const auto chromium = [&](const QStringList &fields) {
        return WorkspaceCapture::parsedTabs(record(fields), chrome).size();
    };
    for (const char *window : {"1", "+1", "-1", "007"})
        CHECK_MESSAGE(chromium({window, "9", "https://a.example", "A"}) == 1, window);
    for (const char *window : {"", "x", "+", "1 ", " 1", "1.0", "0x1", "9223372036854775808", "٣"})
        CHECK_MESSAGE(chromium({window, "9", "https://a.example", "A"}) == 0, window);
    for (const char *url : {"about:blank", "chrome://newtab/", "file:///etc/passwd", "https://", "", "a.example"})
        CHECK_MESSAGE(chromium({"1", "9", url, "A"}) == 0, url);
    CHECK(chromium({"1", "https://a.example", "A"}) == 0);
    CHECK(chromium({"1", "9", "https://a.example", QString("A") + QChar(31) + "B"}) == 0);
    CHECK(chromium({"1", "9", "https://a.example", QString("A") + QChar(30) + "B"}) == 1);
    CHECK(WorkspaceCapture::parsedTabs(record({"1", "https://a.example", "A"}), firefox).size() == 1);
    CHECK(WorkspaceCapture::parsedTabs(record({"1", "9", "https://a.example", "A"}), firefox).isEmpty());
    CHECK(WorkspaceCapture::parsedTabs({}, firefox).isEmpty());
}

TEST_CASE("an excluded browser is not asked and its tabs count as unknown")
{
    Answers source;
    source.add("com.brave.Browser", {record({"1", "1", "https://secret.example", "S"})});
    source.add("work-brave", {record({"1", "1", "https://work.example", "W"})}); // Brave under another name.
    source.add("com.google.Chrome", {record({"1", "1", "https://c.example", "C"})});

    const auto open = blockOn(WorkspaceCapture::browserTabs(source, {"com.brave.Browser"}));

    CHECK(source.asked == QStringList{"com.google.Chrome"});
    CHECK(addresses(open.tabs) == QStringList{"https://c.example"});
    CHECK(open.unreadBrowserIDs == QSet<QString>{"com.brave.Browser", "work-brave"});
    CHECK(open.runningBrowserIDs == QSet<QString>{"com.google.Chrome"});

    const auto own = blockOn(WorkspaceCapture::browserTabs(source, {"work-brave"}));
    CHECK(addresses(own.tabs) == QStringList{"https://secret.example", "https://c.example"});

    const auto none = blockOn(WorkspaceCapture::browserTabs(source, {"com.brave.Browser", "com.google.Chrome"}));
    CHECK(none.tabs.isEmpty());
    CHECK(none.warning == noBrowser);
}

TEST_CASE("every browser that cannot be read is named and the others are still asked")
{
    Answers source;
    source.running = {"org.mozilla.firefox", "com.brave.Browser"};
    source.add("com.google.Chrome", {record({"1", "1", "https://c.example", "C"})});

    const auto open = blockOn(WorkspaceCapture::browserTabs(source, {}));

    CHECK(open.warning == failed("Brave") + ' ' + failed("Firefox"));
    CHECK(addresses(open.tabs) == QStringList{"https://c.example"});
    CHECK(open.unreadBrowserIDs == QSet<QString>{"com.brave.Browser", "org.mozilla.firefox"});
}

TEST_CASE("what could be read of a browser is kept although a part is missing")
{
    Answers source;
    TabReport report = {record({"1", "1", "https://c.example", "C"})};
    report.isComplete = false;
    source.add("com.google.Chrome", report);

    const auto open = blockOn(WorkspaceCapture::browserTabs(source, {}));

    CHECK(open.tabs.size() == 1);
    CHECK(open.warning == failed("Chrome"));
    CHECK(open.unreadBrowserIDs == QSet<QString>{"com.google.Chrome"});
}

TEST_CASE("pages whose window may be closed are kept, known as uncertain, and their browser is named")
{
    Answers source;
    source.add("com.google.Chrome", {.records = record({"1", "1", "https://sure.example", "S"}) +
                                                record({"2", "2", "https://c.example", "C"}),
                                     .uncertainWindows = {2}});

    const auto open = blockOn(WorkspaceCapture::browserTabs(source, {}));

    REQUIRE(open.tabs.size() == 2);
    CHECK(open.uncertainTabIDs == QSet<QUuid>{open.tabs[1].id});
    CHECK(open.uncertainBrowserNames == QStringList{"Chrome"});
    CHECK(open.warning == "Whether every saved page of Chrome was still open could not be checked.");
    CHECK(open.unreadBrowserIDs.isEmpty());
}

TEST_CASE("a browser with nothing to tell is no reason to warn")
{
    Answers source;
    source.add("com.google.Chrome", {});

    const auto open = blockOn(WorkspaceCapture::browserTabs(source, {}));

    CHECK(open.tabs.isEmpty());
    CHECK_FALSE(open.warning.has_value());
    CHECK(open.unreadBrowserIDs.isEmpty());
}

TEST_CASE("the key of a page ignores only what makes no difference")
{
    CHECK(key("HTTPS://Example.COM:443/A%7e/?Q=Ä#Frag:80") == "https://example.com/A%7e/?Q=Ä#Frag:80");
    CHECK(key("http://example.com:80") == "http://example.com");
    CHECK(key("http://example.com:443/") == "http://example.com:443/");
    CHECK(key("https://example.com:80/") == "https://example.com:80/");
    CHECK(key("https://User:PW@EXAMPLE.com:443/x") == "https://User:PW@example.com/x");
    CHECK(key("https://[2001:DB8::1]:443/") == "https://[2001:db8::1]/");
    CHECK(key("https://[2001:DB8::443]/") == "https://[2001:db8::443]/");
    CHECK(key("https://example.com?To=HTTPS://X:443") == "https://example.com?To=HTTPS://X:443");
    CHECK(key("https://example.com/") != key("https://example.com"));
    CHECK(key("https://example.com/#a") != key("https://example.com/#b"));
    CHECK(key("ftp://example.com/") == "absent");
    CHECK(key("about:blank") == "absent");
}
