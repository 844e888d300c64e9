// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the tabs of a browser with 500 tabs, from the look at the processes to the finished records, against a general
// JSON parser that is handed the text of the Firefox session already unpacked.
#include "bench/Bench.h"
#include "capture/BrowserTabs.h"
#include "platform/linux/browsers/BrowserStateTabs.h"
#include "support/BlockOn.h"
#include "tests/platform/browserstate/HistoryBytes.h"
#include "tests/platform/browserstate/StateBytes.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

using namespace ardeno;
using namespace ardeno::bench;
using namespace ardeno::sessions;

namespace {

constexpr int tabCount = 500;
constexpr int entriesOfTab = 3;
constexpr int rounds = 31;

void require(bool condition, const char *what)
{
    if (condition)
        return;
    std::fprintf(stderr, "bench_tabs: %s\n", what);
    std::exit(2);
}

QString write(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "the samples cannot be written");
    return path;
}

QByteArray address(int tab, int entry)
{
    return "https://www.example.org/articles/" + QByteArray::number(tab) +
           "/a-page-with-a-name?step=" + QByteArray::number(entry);
}

QByteArray title(int tab)
{
    return "Article " + QByteArray::number(tab) + " – a title of an ordinary length";
}

QByteArray firefoxEntry(int tab, int entry)
{
    const QByteArray number = QByteArray::number(tab * entriesOfTab + entry);
    return R"({"url":")" + address(tab, entry) + R"(","title":")" + title(tab) + R"(","cacheKey":0,"ID":)" + number +
           R"(,"docshellUUID":"{3a739448-a10d-4b35-aaac-c0a26128c5fb}","resultPrincipalURI":null,)"
           R"("hasUserInteraction":false,"triggeringPrincipal_base64":"{\"3\":{}}","docIdentifier":)" +
           number +
           R"(,"transient":false,"navigationKey":"{1b122eba-2eca-4a40-bbe4-baf458810a85}",)"
           R"("navigationId":"{fa856ad2-110d-4f2a-a6d7-eafca784073e}"})";
}

QByteArray firefoxText()
{
    QByteArray tabs;
    for (int tab = 0; tab < tabCount; ++tab) {
        QByteArray entries;
        for (int entry = 0; entry < entriesOfTab; ++entry)
            entries += (entry ? "," : "") + firefoxEntry(tab, entry);
        tabs += (tab ? "," : "") + (R"({"entries":[)" + entries) +
                R"(],"lastAccessed":1795232769327,"hidden":false,"searchMode":null,"userContextId":0,"attributes":{},)"
                R"("index":3,"requestedIndex":0,"image":null})";
    }
    return R"({"version":["sessionrestore",1],"windows":[{"tabs":[)" + tabs +
           R"(],"selected":1,"_closedTabs":[],"width":1282,"height":997,"screenX":319,"screenY":41,)"
           R"("sizemode":"normal"}],"selectedWindow":1,"_closedWindows":[],"cookies":[]})";
}

// Half of the titles are in the history only.
QByteArray chromiumState()
{
    Snss file;
    file.window(1);
    for (int tab = 0; tab < tabCount; ++tab) {
        file.record(0, {1, 10 + tab}).record(2, {10 + tab, tab});
        for (int entry = 0; entry < entriesOfTab; ++entry)
            file.navigation(10 + tab, entry, address(tab, entry), tab % 2 ? QString(title(tab)) : QString());
        file.record(7, {10 + tab, entriesOfTab - 1});
    }
    return file.marker().bytes();
}

void writeHistory(const QString &path)
{
    History history(path);
    history.run("BEGIN");
    for (int tab = 0; tab < 20 * tabCount; ++tab)
        history.add(address(tab, entriesOfTab - 1), title(tab));
    history.run("COMMIT");
}

// A process as the kernel shows it.
void addProcess(const QTemporaryDir &folder, int id, const QString &program, const QString &openFile)
{
    const QString process = folder.filePath("proc/" + QString::number(id));
    write(process + "/cmdline", "browser");
    write(process + "/stat", "1 (browser) S" + QByteArray(" 0").repeated(22));
    QFile::link(program, process + "/exe");
    QDir().mkpath(process + "/fd");
    QFile::link(openFile, process + "/fd/9");
}

// Another parser in a process of its own, which measures itself.
class Peer final {
public:
    explicit Peer(const QString &file)
    {
        const QString program = "import json, sys, time\n"
                                "for path in sys.stdin:\n"
                                "    start = time.perf_counter()\n"
                                "    with open(path.strip()) as file: value = json.load(file)\n"
                                "    print(time.perf_counter() - start, flush=True)\n"
                                "    del value\n";
        m_file = file.toUtf8() + '\n';
        m_process.start("/usr/bin/python3", {"-c", program});
        require(m_process.waitForStarted(), "python3 is missing");
    }

    ~Peer()
    {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }

    double seconds()
    {
        m_process.write(m_file);
        while (!m_process.canReadLine())
            require(m_process.waitForReadyRead(), "python3 does not answer");
        return m_process.readLine().trimmed().toDouble();
    }

private:
    QProcess m_process;
    QByteArray m_file;
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const QByteArray text = firefoxText();
    write(folder.filePath("ff/sessionstore-backups/recovery.jsonlz4"), mozLz4(text));
    addProcess(folder, 1, "/usr/lib/firefox-esr/firefox-esr", write(folder.filePath("ff/.parentlock"), {}));
    addProcess(folder, 2, "/usr/lib/chromium/chromium",
               write(folder.filePath("chromium/Default/Sessions/Session_1"), chromiumState()));
    writeHistory(folder.filePath("chromium/Default/History"));

    BrowserStateTabs source([] { return std::nullopt; }, {.processFolder = folder.filePath("proc")});
    const auto seconds = [&](const Browser &browser) {
        return secondsOf([&] {
            const TabReport report = blockOn(source.openTabs(browser, {}));
            const auto tabs = WorkspaceCapture::parsedTabs(report.records.value_or(QString()), browser);
            require(tabs.size() == tabCount && tabs.last().title == QString(title(tabCount - 1)), "tabs are missing");
        });
    };
    Peer peer(write(folder.filePath("session.json"), text));
    std::vector<double> firefox;
    std::vector<double> chromium;
    std::vector<double> general;
    for (int round = 0; round < rounds; ++round) {
        firefox.push_back(seconds({"org.mozilla.firefox", "Firefox", BrowserFamily::Firefox}));
        general.push_back(peer.seconds());
        chromium.push_back(seconds({"org.chromium.Chromium", "Chromium", BrowserFamily::Chromium}));
    }
    constexpr double limit = 0.5;
    const double json = medianOf(general);
    const QString other = "Python's json.load " + milliseconds(json);
    Table table;
    table.add("500 tabs of Firefox", milliseconds(medianOf(firefox)), other, medianOf(firefox) / json, limit);
    table.add("500 tabs of Chromium", milliseconds(medianOf(chromium)), other, medianOf(chromium) / json, limit);
    return table.finish();
}
