// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/application/ApplicationFixture.h"

#include <QMap>
#include <QRect>

#include <utility>

using namespace ardeno;
using desktop_test::eventually;
using desktop_test::outputOf;

namespace {

struct PlaceFixture : ApplicationFixture {
    // Of the contents; null while there is no window.
    QRect place() const
    {
        const QString id = window("Ardeno");
        if (id.isEmpty())
            return {};
        QMap<QString, int> numbers;
        for (const QString &line : outputOf("xwininfo", {"-id", id}).split('\n'))
            numbers.insert(line.section(':', 0, 0).trimmed(), line.section(':', 1).trimmed().toInt());
        return {numbers.value("Absolute upper-left X"), numbers.value("Absolute upper-left Y"), numbers.value("Width"),
                numbers.value("Height")};
    }

    QRect screen() const
    {
        const QStringList size = outputOf("xdotool", {"getdisplaygeometry"}).simplified().split(' ');
        return {0, 0, size.value(0).toInt(), size.value(1).toInt()};
    }

    // Once the window has come to rest there.
    bool comesWithin(const QRect &area) const
    {
        QRect last;
        return eventually([&] {
            const QRect before = std::exchange(last, place());
            return last == before && area.contains(last);
        });
    }

    void moveTo(const QRect &wanted) const
    {
        const QStringList numbers{"0", QString::number(wanted.x()), QString::number(wanted.y()),
                                  QString::number(wanted.width()), QString::number(wanted.height())};
        outputOf("wmctrl", {"-i", "-r", window("Ardeno"), "-e", numbers.join(',')});
    }
};

} // namespace

TEST_CASE_FIXTURE(PlaceFixture, "the window comes back where it was, also after a crash")
{
    startApplication({});
    REQUIRE(waitForWindow("Ardeno"));
    REQUIRE(comesWithin(screen()));
    moveTo({40, 60, 1000, 700});
    QRect left;
    REQUIRE(eventually([&] { return (left = place()).width() == 1000 && left.height() == 700; }));
    CHECK(terminate().status == 0);
    startApplication({});
    REQUIRE(waitForWindow("Ardeno"));
    CHECK(eventually([&] { return place() == left; }));

    const auto keptPlace = [this] {
        const QByteArray settings = fileBytes(home.filePath("config/Ardeno/settings.json"));
        return QJsonDocument::fromJson(settings).object().value("windowPlace");
    };
    const QJsonValue before = keptPlace();
    moveTo({90, 30, 970, 695});
    REQUIRE(eventually([&] { return (left = place()).width() == 970; }));
    REQUIRE(comesWithin(screen()));
    REQUIRE(eventually([&] { return keptPlace() != before; }));
    application->kill();
    REQUIRE(waitForEnd());
    startApplication({});
    REQUIRE(waitForWindow("Ardeno"));
    CHECK(eventually([&] { return place() == left; }));
}

TEST_CASE_FIXTURE(PlaceFixture, "the window is within the screen, wherever it was left" * doctest::test_suite("small"))
{
    startApplication({});
    REQUIRE(waitForWindow("Ardeno"));
    CHECK(comesWithin(screen()));
    picture("window-first");
    moveTo({screen().width() - 300, screen().height() - 200, 960, 690});
    CHECK(eventually([this] { return !screen().contains(place()); }));
    CHECK(terminate().status == 0);
    startApplication({});
    REQUIRE(waitForWindow("Ardeno"));
    CHECK(comesWithin(screen()));
}
