// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/Bench.h"
#include "bench/librarySamples.h"
#include "bench/windowStart.h"
#include "platform/null/NullDesktop.h"
#include "store/AppStore.h"
#include "ui/main/MainWindow.h"
#include "ui/theme/AppStyle.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>

// Usage: window ARDENO TRIVIAL, on a desktop of its own:
//   tests/desktop/headless-desktop -- build/release/bench/bench_window build/release/ardeno
//   build/release/bench/bench_trivial

namespace {

using namespace ardeno;
using namespace ardeno::bench;

void writeLibrary(const QString &home, int checkpoints)
{
    const CheckpointRepository repository(home + "/Ardeno");
    repository.saveLibrary(sampleLibrary(checkpoints));
}

void measureStart(Table &table, const QString &program, const QString &trivial)
{
    constexpr int rounds = 15;
    const QTemporaryDir empty;
    const QTemporaryDir full;
    inChild([&] { writeLibrary(full.path(), 10'000); });
    const auto ours = [&](const QTemporaryDir &home) {
        qputenv("XDG_DATA_HOME", QFile::encodeName(home.path()));
        return secondsToFirstPaint(program);
    };
    std::vector<double> peers;
    std::vector<double> small;
    std::vector<double> large;
    for (int round = 0; round <= rounds; ++round) {
        const double peer = secondsToFirstPaint(trivial);
        const double few = ours(empty);
        const double many = ours(full);
        if (round == 0)
            continue; // It only warms up.
        peers.push_back(peer);
        small.push_back(few);
        large.push_back(many);
    }
    const double peer = medianOf(peers);
    const auto add = [&](const QString &figure, double seconds) {
        table.add(figure, milliseconds(seconds), milliseconds(peer), seconds / peer, 1.8);
    };
    add("exec to first paint, empty library / a trivial Qt window", medianOf(small));
    add("the same with 10,000 checkpoints", medianOf(large));
}

void measureRest(Table &table, const QString &program, const QString &trivial)
{
    const QTemporaryDir home;
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.path()));
    const AtRest peer = measureAtRest(trivial);
    const AtRest ours = measureAtRest(program);
    table.add("memory at rest / a trivial Qt window", megabytes(ours.bytes), megabytes(peer.bytes),
              ours.bytes / peer.bytes, 2.4);
    constexpr double mostWakeUps = 0.2; // A second: what others send to every window.
    table.add("wake-ups a second at rest / its limit", QString::number(ours.wakeUps), QString::number(mostWakeUps),
              ours.wakeUps / mostWakeUps, 1);
}

// A window on a library that is never written.
struct Opened {
    QTemporaryDir home;
    Desktop desktop = makeNullDesktop("none", "Nothing is captured here.", {});
    std::unique_ptr<AppStore> store;
    std::unique_ptr<MainWindow> window;

    explicit Opened(const WorkspaceLibrary &library)
    {
        StoreParts parts{.preferences = Preferences(home.filePath("settings")),
                         .repository = CheckpointRepository(home.filePath("library"))};
        parts.loadLibrary = [&library] { return library; };
        parts.thumbnailFolder = home.filePath("thumbnails");
        store = std::make_unique<AppStore>(desktop, std::move(parts));
        window = std::make_unique<MainWindow>();
        window->show();
        window->open(*store);
        settle();
    }

    // Until everything is shown and painted.
    static void settle()
    {
        for (int round = 0; round < 3; ++round) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
        }
    }
};

// From the file to a list that answers, against reading the file.
void measureUsable(Table &table)
{
    const QTemporaryDir home;
    inChild([&] { writeLibrary(home.path(), 10'000); });
    const CheckpointRepository repository(home.path() + "/Ardeno");
    std::unique_ptr<WorkspaceLibrary> read;
    std::unique_ptr<Opened> opened;
    const auto between = [&] {
        opened.reset();
        read.reset();
    };
    const auto load = [&] { read = std::make_unique<WorkspaceLibrary>(repository.loadLibrary()); };
    const auto use = [&] {
        load();
        opened = std::make_unique<Opened>(*read);
    };
    const auto medians = interleavedMedians(7, {use, load}, between);
    table.add("10,000 checkpoints read and shown / read", milliseconds(medians.at(0)), milliseconds(medians.at(1)),
              medians.at(0) / medians.at(1), 1.3);
}

WorkspaceLibrary manyTitles()
{
    WorkspaceLibrary library = sampleLibrary(1000);
    const QList<Checkpoint> some = library.checkpoints;
    library.checkpoints.clear();
    for (int i = 0; i < 100'000; ++i) {
        const Checkpoint &like = some.at(i % some.size());
        library.checkpoints.append({.id = QUuid::createUuid(),
                                    .title = like.title + ' ' + QString::number(i),
                                    .projectID = like.projectID,
                                    .createdAt = like.createdAt});
    }
    return library;
}

void measureSearch(Table &table)
{
    const WorkspaceLibrary library = manyTitles();
    const Opened opened(library);
    opened.store->navigation.showProjects();
    Opened::settle();
    QStringList titles;
    for (const Checkpoint &checkpoint : library.checkpoints)
        titles << checkpoint.title;
    const QStringList words{"re", "res", "qzx", "99", "9999", "notes of"};
    qsizetype hits = 0;
    int at = 0;
    int theirs = 0;
    const auto medians =
        interleavedMedians(30, {[&] {
                                    opened.store->navigation.setSearch(words.at(at++ % words.size()));
                                    Opened::settle();
                                },
                                [&] {
                                    const QString &word = words.at(theirs++ % words.size());
                                    hits += std::count_if(titles.begin(), titles.end(), [&](const QString &title) {
                                        return title.contains(word, Qt::CaseInsensitive);
                                    });
                                }});
    table.add("a key of a search in 100,000 titles, shown / QString::contains", milliseconds(medians.at(0)),
              milliseconds(medians.at(1)), medians.at(0) / medians.at(1), hits >= 0 ? 0.5 : 0);
}

void measureOpening(Table &table)
{
    WorkspaceLibrary library = sampleLibrary(10'000);
    const QUuid large = library.projects.at(0).id;
    const QUuid small = library.projects.at(1).id;
    const QUuid other = library.projects.at(2).id;
    for (qsizetype i = 0; i < library.checkpoints.size(); ++i)
        library.checkpoints[i].projectID = i < 20 ? small : i < 40 ? other : large;
    const Opened opened(library);
    const auto open = [&](const QUuid &project) {
        opened.store->navigation.selectProject(project);
        Opened::settle();
    };
    const auto medians = interleavedMedians(30, {[&] { open(large); }, [&] { open(small); }}, [&] { open(other); });
    table.add("opening a project of 10,000 checkpoints / of 20", milliseconds(medians.at(0)),
              milliseconds(medians.at(1)), medians.at(0) / medians.at(1), 1.5);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 3) {
        std::fputs("Usage: window ARDENO TRIVIAL\n", stderr);
        return 2;
    }
    Table table;
    // Before this program has a window of its own.
    measureStart(table, QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]));
    measureRest(table, QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]));
    QApplication::setStyle(new AppStyle);
    const QApplication application(argc, argv);
    measureUsable(table);
    measureSearch(table);
    measureOpening(table);
    return table.finish();
}
