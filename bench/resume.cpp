// SPDX-License-Identifier: GPL-3.0-or-later
// What a resume costs and how exactly it places windows: resume PROGRAM WINDOW-MANAGER, on a desktop of its own; see
// resume.sh.
#include "bench/Bench.h"
#include "capture/RestorePlan.h"
#include "capture/WindowLayout.h"
#include "capture/WindowRestore.h"
#include "platform/MakeDesktop.h"
#include "support/BlockOn.h"

#include <QCoreApplication>
#include <QCoroTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <memory>

using namespace ardeno;
using namespace std::chrono_literals;

namespace {

// The waits that every resume makes, in seconds: before the tabs and before the windows.
constexpr double fixedWaits = 0.3 + 0.65;

void pause(std::chrono::milliseconds time)
{
    const auto sleep = [](std::chrono::milliseconds duration) -> QCoro::Task<void> {
        co_await QCoro::sleepFor(duration);
    };
    blockOn(sleep(time));
}

// An application that ends with the bench.
struct Running {
    QString name;
    QString titlePart;
    QString program;
    QStringList arguments;
    std::unique_ptr<QProcess> process = {};
};

WorkspaceCapture::PresentWorkspace largeWorkspace(QList<SavedApp> &apps, QList<SavedTab> &tabs)
{
    constexpr int appCount = 100;
    constexpr int tabCount = 500;
    WorkspaceCapture::PresentWorkspace present;
    for (int i = 0; i < appCount; ++i) {
        apps.append({QString("org.example.App%1").arg(i), QString("App %1").arg(i)});
        (i % 2 ? present.runningAppIDs : present.installedAppIDs).insert(apps.last().id);
    }
    for (int i = 0; i < tabCount; ++i) {
        SavedTab tab{.title = "Page", .url = QString("https://www.example.com/a/long/path/%1?q=x").arg(i % 400)};
        tab.browserID = "org.mozilla.firefox";
        tabs.append(tab);
        if (i % 3 == 0)
            present.openPageKeys.insert(tab.url);
    }
    return present;
}

void addPlan(bench::Table &table)
{
    QList<SavedApp> apps;
    QList<SavedTab> tabs;
    const auto present = largeWorkspace(apps, tabs);
    const auto plan = [&] { WorkspaceCapture::restorePlan(apps, tabs, present); };
    const double seconds = bench::interleavedMedians(21, {plan}).front();
    table.add("plan of 500 tabs, 100 apps", bench::milliseconds(seconds),
              "the fixed waits " + bench::milliseconds(fixedWaits), seconds / fixedWaits, 0.02);
}

double error(const WindowRect &a, const WindowRect &b)
{
    return std::max(
        {std::abs(a.x - b.x), std::abs(a.y - b.y), std::abs(a.width - b.width), std::abs(a.height - b.height)});
}

std::optional<MovableWindow> withTitle(Desktop &desktop, const QString &part)
{
    for (const MovableWindow &window : desktop.windowMover->windows()) {
        if (window.title.contains(part))
            return window;
    }
    return std::nullopt;
}

QList<SavedWindow> savedWindows(Desktop &desktop)
{
    QList<SavedApp> apps;
    for (const RunningApplication &application : desktop.workspace->runningApplications())
        apps.append({application.id, application.name});
    return WindowLayout::windows(apps, *desktop.windowServer, QCoreApplication::applicationPid());
}

struct Accuracy {
    int placed = 0;
    int skipped = 0;
    int wrong = 0;
    double largest = 0; // Pixels.
};

std::optional<MovableWindow> withID(const QList<MovableWindow> &windows, quint32 id)
{
    const auto found = std::find_if(windows.begin(), windows.end(),
                                    [&](const MovableWindow &window) { return window.windowID == id; });
    return found == windows.end() ? std::nullopt : std::optional(*found);
}

void place(Desktop &desktop, quint32 window, const WindowRect &frame)
{
    const QList<WindowMove> moves = {{window, frame}};
    blockOn(desktop.windowMover->move(moves));
}

int othersMoved(const QList<MovableWindow> &before, const QList<MovableWindow> &after, quint32 exceptID)
{
    return int(std::count_if(after.begin(), after.end(), [&](const MovableWindow &window) {
        const auto old = withID(before, window.windowID);
        return window.windowID != exceptID && old && old->frame != window.frame;
    }));
}

// Saves the window at one place, moves it to another one and restores it.
void measure(Desktop &desktop, const MovableWindow &window, const WindowRect &from, const WindowRect &to,
             Accuracy &accuracy)
{
    place(desktop, window.windowID, from);
    QList<SavedWindow> saved = savedWindows(desktop);
    saved.removeIf([&](const SavedWindow &candidate) { return candidate.windowID != window.windowID; });
    const auto there = withID(desktop.windowMover->windows(), window.windowID);
    place(desktop, window.windowID, to);
    const QList<MovableWindow> before = desktop.windowMover->windows();
    WindowLayout::RestoreRequest request{.windows = saved, .allowedAppIDs = {window.applicationID}};
    request.firstWait = 10ms;
    const RestoreResult result = blockOn(WindowLayout::restore(request, desktop));
    const QList<MovableWindow> after = desktop.windowMover->windows();
    const auto back = withID(after, window.windowID);
    accuracy.placed += int(result.restoredCount);
    accuracy.skipped += int(result.skippedCount);
    accuracy.wrong += othersMoved(before, after, window.windowID);
    if (result.restoredCount == 1 && there && back)
        accuracy.largest = std::max(accuracy.largest, error(back->frame, there->frame));
}

// Moves the window away and back several times.
Accuracy measured(Desktop &desktop, const QString &titlePart)
{
    Accuracy accuracy;
    const QList<WindowRect> places = {
        {100, 100, 640, 480}, {700, 300, 900, 600}, {0, 0, 800, 700}, {333, 77, 555, 444}};
    for (qsizetype i = 0; i < places.size(); ++i) {
        if (const auto window = withTitle(desktop, titlePart))
            measure(desktop, *window, places[i], places[(i + 1) % places.size()], accuracy);
    }
    return accuracy;
}

void addAccuracy(Desktop &desktop, const QString &manager, const std::vector<Running> &applications,
                 bench::Table &table)
{
    for (const Running &application : applications) {
        const Accuracy accuracy = measured(desktop, application.titlePart);
        const QString what = manager + ", " + application.name;
        table.add(
            what + ": largest error",
            QString("%1 px, %2 placed, %3 skipped").arg(accuracy.largest).arg(accuracy.placed).arg(accuracy.skipped),
            "1 px", accuracy.placed == 0 ? INFINITY : accuracy.largest, 1);
        table.add(what + ": others moved", QString::number(accuracy.wrong), "none", accuracy.wrong, 0);
    }
}

// Saves a checkpoint of what is open and resumes it.
void addEverythingOpen(const QString &program, bench::Table &table)
{
    const auto run = [&](const QStringList &arguments) {
        QProcess process;
        process.start(program, arguments);
        if (!process.waitForFinished(60'000) || process.exitCode() != 0)
            std::fprintf(stderr, "%s failed: %s\n", qPrintable(arguments.join(' ')),
                         process.readAllStandardError().constData());
    };
    run({"save", "--project", "Bench", "--tabs"});
    const double seconds = bench::interleavedMedians(7, {[&] { run({"resume", "--latest", "--json"}); }}).front();
    table.add("resume, everything open", bench::milliseconds(seconds),
              "the fixed waits " + bench::milliseconds(fixedWaits), seconds / fixedWaits, 1.2);
}

std::vector<Running> makeApplications()
{
    const QString folder = QDir::homePath() + "/bench";
    QDir().mkpath(folder + "/folder");
    QFile notes(folder + "/notes.txt");
    if (notes.open(QIODevice::WriteOnly))
        notes.write("Notes\n");
    notes.close();
    std::vector<Running> applications;
    applications.push_back({"xterm", "a terminal", "xterm", {"-T", "a terminal", "-e", "sleep 1000"}});
    applications.push_back({"mousepad", "notes.txt", "mousepad", {notes.fileName()}});
    applications.push_back({"thunar", "folder", "thunar", {folder + "/folder"}});
    applications.push_back({"evince", "Recent", "evince", {}});
    applications.push_back({"chromium",
                            "Chromium",
                            "chromium",
                            {"--no-sandbox", "--disable-gpu", "--no-first-run", "--disable-background-networking",
                             "--disable-sync", "--password-store=basic", "about:blank"}});
    return applications;
}

void start(Desktop &desktop, std::vector<Running> &applications)
{
    constexpr qint64 patience = 60'000; // Milliseconds.
    for (Running &application : applications) {
        application.process = std::make_unique<QProcess>();
        application.process->setStandardErrorFile(QProcess::nullDevice());
        application.process->start(application.program, application.arguments);
        QElapsedTimer clock;
        clock.start();
        while (!withTitle(desktop, application.titlePart) && clock.elapsed() < patience)
            pause(100ms);
    }
    pause(2s); // Until they have stopped arranging themselves.
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3)
        return 2;
    Desktop desktop = makeDesktop();
    std::vector<Running> applications = makeApplications();
    bench::Table table;
    addPlan(table);
    start(desktop, applications);
    addAccuracy(desktop, arguments[2], applications, table);
    addEverythingOpen(arguments[1], table);
    for (Running &running : applications) {
        running.process->terminate();
        running.process->waitForFinished();
    }
    return table.finish();
}
