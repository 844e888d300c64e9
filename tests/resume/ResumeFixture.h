// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/app/Program.h"
#include "tests/desktop/Desktop.h"
#include "tests/desktop/DesktopFile.h"

#include <QJsonArray>

#include <algorithm>
#include <cmath>

namespace ardeno {

// The finished program, applications that only it sees installed, and what it says about its work.
struct ResumeFixture : ProgramFixture {
    ResumeFixture() { QDir().mkpath(root()); }

    QString write(const QString &name, const QByteArray &content) const
    {
        writeFile(home.filePath(name), content);
        return home.filePath(name);
    }

    void install(const QString &id, const QString &lines) const
    {
        desktop_test::writeDesktopFile(home.filePath("data/applications"), id, lines.toUtf8());
    }

    static void place(const QString &title, const QString &frame)
    {
        REQUIRE(desktop_test::eventually([&] { return desktop_test::outputOf("wmctrl", {"-l"}).contains(title); }));
        desktop_test::outputOf("wmctrl", {"-r", title, "-e", "0," + frame});
    }

    static QJsonObject outcome(const ProgramResult &result) { return result.json().value("outcome").toObject(); }

    static QStringList strings(const QJsonValue &list)
    {
        QStringList texts;
        for (const QJsonValue &value : list.toArray())
            texts += value.toString();
        return texts;
    }

    // Of the window whose title contains this; empty when there is none.
    static QJsonObject window(const QJsonObject &checkpoint, const QString &title)
    {
        for (const QJsonValue &window : checkpoint.value("windows").toArray()) {
            if (window.toObject().value("title").toString().contains(title))
                return window.toObject();
        }
        return {};
    }

    // In pixels; a window that is missing is infinitely far away.
    static double distance(const QJsonObject &a, const QJsonObject &b)
    {
        double largest = a.isEmpty() || b.isEmpty() ? INFINITY : 0;
        for (const char *side : {"x", "y", "width", "height"}) {
            const double difference =
                a.value("frame").toObject().value(side).toDouble() - b.value("frame").toObject().value(side).toDouble();
            largest = std::max(largest, std::abs(difference));
        }
        return largest;
    }
};

} // namespace ardeno
