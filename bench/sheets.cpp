// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/Bench.h"
#include "bench/PaintWatch.h"
#include "platform/null/NullDesktop.h"
#include "store/AppStore.h"
#include "ui/controls/FadeIn.h"
#include "ui/main/MainWindow.h"
#include "ui/settings/SettingsScreens.h"
#include "ui/sheets/SheetScreens.h"
#include "ui/theme/AppStyle.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QVBoxLayout>

#include <optional>

#include <unistd.h>

// Usage: sheets, on a desktop of its own: tests/desktop/headless-desktop -- build/release/bench/bench_sheets

namespace {

using namespace ardeno;
using namespace ardeno::bench;

Checkpoint withTabs(const QUuid &project, int tabs, int apps)
{
    Checkpoint checkpoint{.title = QString("%1 tabs").arg(tabs), .projectID = project};
    for (int i = 0; i < apps; ++i)
        checkpoint.apps.append({QString("app%1").arg(i), QString("Application %1").arg(i)});
    for (int i = 0; i < tabs; ++i)
        checkpoint.tabs.append(
            {.title = QString("Page %1 of many").arg(i), .url = QString("https://example.org/%1").arg(i)});
    return checkpoint;
}

// Access to the screen that the user gives or not.
class GivenAccess final : public ScreenAccess {
public:
    explicit GivenAccess(const Capability &access) : m_access(access) {}

    Capability availability() const override { return m_access; }

    bool ask() override { return false; }

    bool openSettings() override { return false; }

private:
    const Capability &m_access;
};

// A window on a library that is never written, and one checkpoint with few and one with many tabs.
struct Sheets {
    QTemporaryDir home;
    Desktop desktop = makeNullDesktop("none", "Nothing is captured here.", {});
    Capability access = Capability::available();
    WorkspaceLibrary library;
    std::unique_ptr<AppStore> store;
    std::unique_ptr<MainWindow> window;

    Sheets()
    {
        library.projects = {{.name = "Thesis"}};
        const QUuid project = library.projects.first().id;
        library.checkpoints = {withTabs(project, 5, 5), withTabs(project, 500, 100)};
        desktop.screenAccess = std::make_unique<GivenAccess>(access);
        StoreParts parts{.preferences = Preferences(home.filePath("settings")),
                         .repository = CheckpointRepository(home.filePath("library")),
                         .loadLibrary = [this] { return library; },
                         .thumbnailFolder = home.filePath("thumbnails")};
        store = std::make_unique<AppStore>(desktop, std::move(parts));
        Screens screens;
        addSheetScreens(screens, *store);
        addSettingsScreens(&screens, *store);
        window = std::make_unique<MainWindow>();
        window->show();
        window->open(*store, screens);
        settle();
    }

    ~Sheets() { window.reset(); }

    // Until the plan is there and everything is painted.
    static void settle()
    {
        for (int round = 0; round < 6; ++round) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCoreApplication::processEvents();
        }
    }

    void select(int checkpoint) const
    {
        store->navigation.selectCheckpoint(library.checkpoints.at(checkpoint).id);
        settle();
    }

    void show(OpenSheets::Flag flag) const
    {
        store->sheets.open(flag);
        settle();
    }

    void hide() const
    {
        while (Sheet *const sheet = window->sheets().topSheet())
            sheet->close();
        settle();
    }
};

double residentBytes()
{
    QFile statm("/proc/self/statm");
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    return statm.readAll().split(' ').at(1).toDouble() * static_cast<double>(::sysconf(_SC_PAGESIZE));
}

void measurePainting(Table &table, Sheets &sheets)
{
    const auto measure = [&](int checkpoint) {
        std::vector<double> seconds;
        sheets.select(checkpoint);
        for (int round = 0; round < 21; ++round) {
            seconds.push_back(secondsOf([&] { sheets.show(&OpenSheets::showRestore); }));
            sheets.hide();
        }
        return seconds;
    };
    std::vector<double> few;
    std::vector<double> many;
    for (int turn = 0; turn < 3; ++turn) { // They take turns, so that a slow moment meets both.
        for (const double seconds : measure(0))
            few.push_back(seconds);
        for (const double seconds : measure(1))
            many.push_back(seconds);
    }
    const double peer = medianOf(few);
    const double ours = medianOf(many);
    table.add("restore sheet of 500 tabs, opened and painted / of 5", milliseconds(ours), milliseconds(peer),
              ours / peer, 1.4);
}

// Until each is painted for the first time; the window behind the settings is dimmed and painted anew with them.
void measureSettings(Table &table, Sheets &sheets)
{
    MainWindow *const window = sheets.window.get();
    const auto ours = [&] {
        const PaintWatch watch(&window->sheets());
        sheets.store->sheets.open(&OpenSheets::showSettings);
        spinUntil([&] { return watch.isPainted(); });
    };
    std::optional<QDialog> dialog;
    const auto trivial = [&] {
        auto *const column = new QVBoxLayout(&dialog.emplace(window));
        column->addWidget(new QLabel("A dialog with nothing in it"));
        column->addWidget(new QPushButton("OK"));
        const PaintWatch watch(&*dialog);
        dialog->show();
        spinUntil([&] { return watch.isPainted(); });
    };
    const auto between = [&] {
        dialog.reset();
        sheets.hide();
    };
    const auto medians = interleavedMedians(41, {ours, trivial}, between);
    between();
    table.add("settings until they are painted / a trivial dialog", milliseconds(medians.at(0)),
              milliseconds(medians.at(1)), medians.at(0) / medians.at(1), 1.5);
}

void measureGrowth(Table &table, Sheets &sheets, OpenSheets::Flag flag, const QString &name)
{
    const auto open = [&](int times) {
        for (int i = 0; i < times; ++i) {
            sheets.show(flag);
            sheets.hide();
        }
    };
    open(40);
    const double before = residentBytes();
    open(200);
    const double after = residentBytes();
    table.add("memory after 200 openings of the " + name + " / before", megabytes(after), megabytes(before),
              after / before, 1.01);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication::setStyle(new AppStyle);
    const QApplication application(argc, argv);
    FadeIn::setDuration(std::chrono::milliseconds(0)); // What appears softly is painted more than once.
    Table table;
    Sheets sheets;
    measurePainting(table, sheets);
    measureSettings(table, sheets);
    measureGrowth(table, sheets, &OpenSheets::showRestore, "restore sheet");
    measureGrowth(table, sheets, &OpenSheets::showCapture, "capture sheet");
    sheets.access = {Capability::State::NeedsConsent, {}};
    measureGrowth(table, sheets, &OpenSheets::showCapture, "screen access sheet");
    measureGrowth(table, sheets, &OpenSheets::showNewProject, "project sheet");
    measureGrowth(table, sheets, &OpenSheets::showSettings, "settings");
    measureGrowth(table, sheets, &OpenSheets::showExclusions, "exclusions");
    return table.finish();
}
