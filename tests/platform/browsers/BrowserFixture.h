// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/BrowserTabs.h"
#include "platform/linux/browsers/BrowserStateTabs.h"
#include "platform/linux/x11/windows/X11LiveWindows.h"
#include "support/BlockOn.h"
#include "tests/Printing.h"
#include "tests/desktop/PageServer.h"
#include "tests/support/Files.h"

#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>
#include <vector>

namespace ardeno {

// A browser with a profile of its own on this desktop, and pages served from this machine.
struct BrowserFixture {
    QTemporaryDir folder;
    std::vector<std::unique_ptr<QProcess>> processes; // Those that do not end by themselves.
    desktop_test::PageServer server{folder.path()};
    std::shared_ptr<X11Connection> connection = std::make_shared<X11Connection>();
    LiveWindowList liveWindows = x11LiveWindows(connection, std::make_shared<DesktopEntries>());
    BrowserStateTabs source{liveWindows};

    // A browser that lives on would write into a folder that is being removed.
    ~BrowserFixture()
    {
        for (auto process = processes.rbegin(); process != processes.rend(); ++process) {
            (*process)->terminate();
            (*process)->waitForFinished(10'000);
        }
    }

    // Chromium takes up to ten seconds to write a title down, the machine may be slow as well.
    template <typename Condition>
    static bool waitFor(Condition condition)
    {
        return QTest::qWaitFor(condition, 60'000);
    }

    QProcess &run(const QString &program, const QStringList &arguments)
    {
        processes.push_back(std::make_unique<QProcess>());
        QProcess &process = *processes.back();
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(program, arguments);
        REQUIRE(process.waitForStarted());
        return process;
    }

    // Hands the arguments to a browser that is running.
    static void tell(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(program, arguments);
        CHECK(waitFor([&] { return process.state() == QProcess::NotRunning; }));
    }

    // The address of a new page of this title.
    QString page(const QString &name, const QString &title) const
    {
        writeFile(folder.filePath(name),
                  u"<!doctype html><meta charset=utf-8><title>%1</title>Page"_qs.arg(title.toHtmlEscaped()).toUtf8());
        return server.address() + '/' + name;
    }

    WorkspaceCapture::OpenTabs openTabs() { return blockOn(WorkspaceCapture::browserTabs(source, {})); }

    // "WINDOW ADDRESS TITLE", or the warning.
    QStringList listed()
    {
        const auto open = openTabs();
        QStringList lines;
        for (const SavedTab &tab : open.tabs)
            lines += QString::number(tab.window) + ' ' + tab.url + ' ' + tab.title;
        return open.warning ? QStringList{*open.warning} : lines;
    }

    // Waits until exactly these tabs are listed, and reports the difference when that does not come about.
    void checkListed(const QStringList &expected)
    {
        CHECK(waitFor([&] { return listed() == expected; }));
        CHECK(listed() == expected);
    }

    // The titles of the windows that certainly show no private page, in the order of the alphabet.
    QStringList ordinaryTitles()
    {
        QStringList titles;
        for (const auto &page : blockOn(source.browserWindows()))
            titles += page ? QStringList{page->title} : QStringList();
        titles.sort();
        return titles;
    }

    bool hasWindow(const QString &titleStart)
    {
        const auto windows = liveWindows().value_or(QList<LiveWindow>());
        return std::any_of(windows.begin(), windows.end(),
                           [&](const LiveWindow &window) { return window.title.startsWith(titleStart); });
    }

    // As its user does with the buttons of the title bar.
    void close(const QString &titleStart)
    {
        desktop_test::outputOf("wmctrl", {"-c", titleStart});
        CHECK(waitFor([&] { return !hasWindow(titleStart); }));
    }

    static void minimise(const QString &titleStart)
    {
        const quint32 window = desktop_test::visibleWindows(titleStart).value(0);
        desktop_test::outputOf("xdotool", {"windowminimize", "--sync", QString::number(window)});
        CHECK(desktop_test::visibleWindows(titleStart).isEmpty());
    }
};

} // namespace ardeno
