// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/librarySamples.h"

#include <QStringList>

#include <random>

namespace ardeno::bench {

namespace {

const char *const words[] = {"draft",   "quarterly", "review",  "invoice", "network", "deadline", "library", "panel",
                             "garden",  "thesis",    "chapter", "budget",  "sketch",  "release",  "meeting", "notes",
                             "rückruf", "größe",     "проект",  "設計",    "naïve",   "résumé",   "budget",  "plan",
                             "theory",  "window",    "capture", "restore", "archive", "train",    "ticket",  "music"};

const char *const applications[] = {"Editor", "Terminal", "Browser", "Mail",     "Calendar", "Notes",   "Files",
                                    "Music",  "Maps",     "Chat",    "Sketch",   "Numbers",  "Slides",  "Reader",
                                    "Player", "Recorder", "Writer",  "Compiler", "Database", "Monitor", "Scanner"};

// Makes the same sample for the same seed.
class SampleMaker final {
public:
    Checkpoint checkpoint(const QUuid &project)
    {
        Checkpoint made{.id = uuid(), .title = text(5), .projectID = project};
        made.createdAt = date();
        made.objective = text(60);
        made.nextStep = "1. " + text(8) + "\n2. " + text(9) + "\n3. \"" + text(6) + '"';
        made.screenshot = "/home/sample/.local/share/Ardeno/" + uuidText(made.id) + "/snapshot.png";
        made.captureNote = "Screenshot and 20 tabs saved.";
        for (int i = 0; i < 10; ++i)
            made.apps.append(app());
        for (int i = 0; i < 20; ++i)
            made.tabs.append(tab());
        made.windows.emplace();
        for (int i = 0; i < 12; ++i)
            made.windows->append(window());
        return made;
    }

    QString text(int count)
    {
        QStringList parts;
        for (int i = 0; i < count; ++i)
            parts << QString::fromUtf8(words[number(std::size(words))]);
        return parts.join(' ') + ' ' + QString::number(number(1'000'000));
    }

    QUuid uuid()
    {
        const auto half = [&] { return QByteArray::number(m_random() | quint64{1} << 63, 16); };
        return QUuid::fromRfc4122(QByteArray::fromHex(half() + half()));
    }

private:
    size_t number(size_t below) { return m_random() % below; }

    Date date() { return {7.0e8 + static_cast<double>(number(100'000'000'000)) / 1e3 + 0.000123}; }

    SavedApp app()
    {
        const QString name = applications[number(std::size(applications))];
        return {.id = "org.sample." + name, .name = name};
    }

    SavedTab tab()
    {
        SavedTab made{.id = uuid(), .title = text(5)};
        made.url = "https://www." + QString(words[number(16)]) + ".example/" + words[number(16)] + '/' +
                   QString::number(m_random(), 36) + "?page=" + QString::number(number(1000));
        made.window = 1 + static_cast<qint64>(number(4));
        made.browserID = "org.sample.Browser";
        made.browserName = "Browser";
        made.browserWindowID = QString::number(1 + number(4));
        made.capturedAt = date();
        return made;
    }

    WindowRect rectangle()
    {
        return {static_cast<double>(number(3840)), static_cast<double>(number(2160)) + 0.5,
                static_cast<double>(number(1920)), static_cast<double>(number(1080))};
    }

    SavedWindow window()
    {
        const SavedApp owner = app();
        SavedWindow made{.id = uuid(), .appID = owner.id, .appName = owner.name, .title = text(4)};
        made.frame = rectangle();
        made.displayID = 69733378;
        made.displayFrame = {0, 25, 3840, 2135};
        made.windowID = static_cast<quint32>(number(100'000));
        made.processID = static_cast<qint32>(number(100'000));
        made.displayName = "Built-in display";
        if (number(2) == 0)
            made.documentURL = "/home/sample/Documents/" + text(2) + ".odt";
        return made;
    }

    std::mt19937_64 m_random{42};
};

} // namespace

WorkspaceLibrary sampleLibrary(int checkpoints)
{
    SampleMaker maker;
    WorkspaceLibrary library;
    for (int i = 0; i < 20; ++i)
        library.projects.append(Project{.id = maker.uuid(), .name = maker.text(2), .createdAt = Date{7e8}});
    library.checkpoints.reserve(checkpoints);
    for (int i = 0; i < checkpoints; ++i)
        library.checkpoints.append(maker.checkpoint(library.projects[i % 20].id));
    return library;
}

} // namespace ardeno::bench
