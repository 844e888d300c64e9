// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/RunningWindow.h"

#include <QImage>
#include <QMap>

namespace ardeno {

namespace {

QStringList moveTo(const QPoint &place)
{
    return {"mousemove", QString::number(place.x()), QString::number(place.y())};
}

} // namespace

RunningWindow::~RunningWindow()
{
    if (program && program->state() != QProcess::NotRunning) {
        program->kill();
        program->waitForFinished();
    }
}

void RunningWindow::open()
{
    program = start({});
    const bool isThere = eventually([this] {
        window = outputOf("xdotool", {"search", "--onlyvisible", "--pid", QString::number(program->processId())})
                     .section('\n', 0, 0);
        return !window.isEmpty() && outputOf("wmctrl", {"-l"}).contains("Ardeno");
    });
    const QByteArray said = program->readAllStandardError();
    CAPTURE(said);
    REQUIRE(isThere);
    outputOf("xdotool", {"windowactivate", "--sync", window});
    reader = std::make_unique<ScreenReader>(program->processId());
}

void RunningWindow::close()
{
    program->terminate();
    const ProgramResult ended = end(*program);
    CHECK(ended.status == 0);
    CHECK(ended.error == QByteArray());
}

void RunningWindow::key(const QString &keys) const
{
    outputOf("xdotool", {"key", "--window", "0", keys});
}

void RunningWindow::type(const QString &text) const
{
    outputOf("xdotool", {"type", "--delay", "20", text});
}

void RunningWindow::createProject(const QString &name) const
{
    REQUIRE(eventually([this] { return hasViews(); }));
    key("ctrl+n");
    type(name);
    key("Return");
    REQUIRE(eventually([&] { return storedNames().contains(name); }));
}

bool RunningWindow::hasViews() const
{
    // Before the library has been read there is nothing beside the sidebar. Without a session bus no reader tells.
    const QString path = home.filePath("shown.png");
    outputOf("maim", {"-i", window, path});
    const QImage shown = QImage(path).convertToFormat(QImage::Format_RGB32);
    const QImage content = shown.copy(shown.width() / 2, 0, shown.width() / 2, shown.height());
    QImage paper = content;
    paper.fill(content.pixel(0, content.height() - 1));
    return !shown.isNull() && content != paper;
}

bool RunningWindow::sees(const QString &name) const
{
    return eventually([&] { return seesNow(name); });
}

QRect RunningWindow::place(const QString &name, Kind kind) const
{
    QRect last;
    QStringList seen;
    const bool isStill = eventually([&] {
        seen.clear();
        ScreenReader::Control found;
        for (const ScreenReader::Control &control : reader->read()) {
            seen << control.name;
            const bool isIt = control.name == name || control.name.startsWith(name + ',');
            const bool isKind = kind == Kind::Any || control.isFocusable;
            if (isIt && isKind && control.isEnabled && found.extents.isNull())
                found = control;
        }
        const QPoint center = found.extents.center();
        const bool wasThere = !found.extents.isNull() && found.extents == last;
        last = found.extents;
        if (!wasThere || found.around.isNull() || found.around.contains(center))
            return wasThere;
        const bool isBehind = center.y() > found.around.bottom() || center.x() > found.around.right();
        outputOf("xdotool", moveTo(found.around.center()) + QStringList{"click", isBehind ? "5" : "4"});
        return false;
    });
    CAPTURE(name);
    CAPTURE(seen);
    REQUIRE(isStill);
    return last;
}

void RunningWindow::click(const QString &name, int button, Kind kind) const
{
    outputOf("xdotool", moveTo(place(name, kind).center()) + QStringList{"click", QString::number(button)});
}

QRect RunningWindow::menuPlace() const
{
    const QStringList windows =
        outputOf("xdotool", {"search", "--onlyvisible", "--pid", QString::number(program->processId())})
            .split('\n', Qt::SkipEmptyParts);
    for (const QString &number : windows) {
        if (number == window)
            continue;
        return geometry(number);
    }
    return {};
}

QRect RunningWindow::geometry(const QString &number)
{
    QMap<QString, int> numbers;
    for (const QString &line : outputOf("xdotool", {"getwindowgeometry", "--shell", number}).split('\n'))
        numbers.insert(line.section('=', 0, 0), line.section('=', 1).toInt());
    return {numbers.value("X"), numbers.value("Y"), numbers.value("WIDTH"), numbers.value("HEIGHT")};
}

void RunningWindow::drag(const QString &name, const QString &target) const
{
    const QPoint from = place(name).center();
    const QPoint to = place(target).center();
    QStringList way = moveTo(from) + QStringList{"mousedown", "1"};
    constexpr int steps = 24;
    for (int step = 1; step <= steps; ++step)
        way += moveTo(from + (to - from) * step / steps) + QStringList{"sleep", "0.04"};
    outputOf("xdotool", way + QStringList{"mouseup", "1"});
}

QStringList RunningWindow::storedNames() const
{
    QStringList names;
    for (const QJsonValue &project : stored("projects"))
        names << project.toObject().value("name").toString();
    return names;
}

void RunningWindow::picture(const QString &name) const
{
    QDir().mkpath(ARDENO_PICTURES);
    outputOf("maim", {"-i", window, QString(ARDENO_PICTURES "/%1.png").arg(name)});
}

} // namespace ardeno
