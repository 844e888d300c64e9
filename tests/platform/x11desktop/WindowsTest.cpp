// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/x11desktop/SessionFixture.h"

#include <atomic>
#include <thread>

using namespace ardeno;
using desktop_test::Application;
using desktop_test::eventually;
using desktop_test::outputOf;
using desktop_test::TestWindow;

namespace {

QString hex(quint32 window)
{
    return "0x" + QString::number(window, 16);
}

} // namespace

TEST_CASE_FIXTURE(SessionFixture, "windows are listed front to back")
{
    TestWindow first;
    TestWindow second;
    TestWindow third;
    for (TestWindow *window : {&first, &second, &third})
        window->show();
    const auto order = [&] {
        QList<quint32> ids;
        for (const WindowInfo &window : server.windows())
            ids.append(window.windowID);
        return ids;
    };
    for (const TestWindow *front : {&first, &third, &second}) {
        outputOf("wmctrl", {"-i", "-a", hex(front->id())});
        CHECK(eventually([&] { return order().value(0) == front->id(); }));
    }
    CHECK(order() == QList<quint32>{second.id(), third.id(), first.id()});
}

TEST_CASE_FIXTURE(SessionFixture, "minimised windows and those of other desktops are not on screen, but their "
                                  "applications run")
{
    install("org.test.Minimised", "Name=Minimised");
    TestWindow window;
    window.setText("_GTK_APPLICATION_ID", "org.test.Minimised");
    window.show();
    REQUIRE(onScreen(window.id()).has_value());

    outputOf("xdotool", {"windowminimize", QString::number(window.id())});
    CHECK(eventually([&] { return !onScreen(window.id()); }));
    CHECK(running("org.test.Minimised")->isRegular);
    outputOf("wmctrl", {"-i", "-a", hex(window.id())});
    REQUIRE(eventually([&] { return onScreen(window.id()).has_value(); }));

    outputOf("wmctrl", {"-i", "-r", hex(window.id()), "-t", "1"});
    CHECK(eventually([&] { return !onScreen(window.id()); }));
    CHECK(running("org.test.Minimised")->isRegular);

    TestWindow everywhere;
    everywhere.show();
    outputOf("xdotool", {"set_desktop_for_window", QString::number(everywhere.id()), "4294967295"});
    outputOf("wmctrl", {"-s", "1"});
    CHECK(eventually([&] { return onScreen(window.id()).has_value(); }));
    CHECK(eventually([&] { return onScreen(everywhere.id()).has_value(); }));
    outputOf("wmctrl", {"-k", "on"});
    CHECK_MESSAGE(eventually([&] { return !onScreen(window.id()); }), "while the desktop is shown");
    outputOf("wmctrl", {"-k", "off"});
    CHECK(eventually([&] { return onScreen(window.id()).has_value(); }));
    outputOf("wmctrl", {"-s", "0"});
}

TEST_CASE_FIXTURE(SessionFixture, "only ordinary windows are of the normal layer and make an application regular")
{
    install("org.test.Layer", "Name=Layer");

    struct Case {
        const char *what;
        QList<const char *> types;
        QList<const char *> states;
        bool isNormal;
        bool isRegular;
    };

    const QList<Case> cases = {
        {"no type", {}, {}, true, true},
        {"a dialog", {"_NET_WM_WINDOW_TYPE_DIALOG"}, {}, true, true},
        {"an unknown type first", {"_TEST_TYPE", "_NET_WM_WINDOW_TYPE_NORMAL"}, {}, true, true},
        {"kept above", {}, {"_NET_WM_STATE_ABOVE"}, true, true},
        {"a tool", {"_NET_WM_WINDOW_TYPE_UTILITY"}, {}, false, false},
        {"a dock that could be a window", {"_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_NORMAL"}, {}, false, false},
        {"a splash", {"_NET_WM_WINDOW_TYPE_SPLASH"}, {}, false, false},
    };
    for (const Case &tried : cases) {
        CAPTURE(QString(tried.what));
        TestWindow window;
        window.setText("_GTK_APPLICATION_ID", "org.test.Layer");
        if (!tried.types.isEmpty())
            window.setAtoms("_NET_WM_WINDOW_TYPE", tried.types);
        if (!tried.states.isEmpty())
            window.setAtoms("_NET_WM_STATE", tried.states);
        window.show();
        const auto info = onScreen(window.id());
        REQUIRE(info.has_value());
        CHECK(info->isNormalLayer == tried.isNormal);
        CHECK(running("org.test.Layer")->isRegular == tried.isRegular);
    }
}

TEST_CASE_FIXTURE(SessionFixture, "a dialog is no window of its own, unless its application has no other")
{
    TestWindow main;
    main.show();
    TestWindow dialog;
    dialog.setCardinals("WM_TRANSIENT_FOR", {main.id()});
    dialog.show();
    CHECK(onScreen(main.id())->isNormalLayer);
    CHECK_FALSE(onScreen(dialog.id())->isNormalLayer);

    // It says of none of its windows what it belongs to.
    const Application editor("mousepad", {"--disable-server"});
    REQUIRE(eventually([] { return !desktop_test::visibleWindows("Mousepad").isEmpty(); }));
    desktop_test::press("Mousepad", "ctrl+o");
    const auto isListed = [this](const QString &title) {
        const QList<WindowInfo> all = server.windows();
        return std::any_of(all.begin(), all.end(), [&](const WindowInfo &window) {
            return window.title.contains(title) && window.isNormalLayer;
        });
    };
    REQUIRE(eventually([] { return !desktop_test::visibleWindows("Open").isEmpty(); }));
    const quint32 chooser = desktop_test::visibleWindows("Open").first();
    outputOf("xprop", {"-id", QString::number(chooser), "-remove", "WM_TRANSIENT_FOR"});
    CHECK(isListed("Mousepad"));
    CHECK_FALSE(isListed("Open"));
}

TEST_CASE_FIXTURE(SessionFixture, "a frame holds the decoration and leaves out shadows that the client draws")
{
    TestWindow decorated({200, 150, 400, 300});
    decorated.askForPosition();
    decorated.show();
    CHECK(eventually([&] { return onScreen(decorated.id())->frame == rectangle(topLevel(decorated.id())); }));
    CHECK(onScreen(decorated.id())->frame->height > 300);

    TestWindow shadowed({200, 150, 400, 300});
    shadowed.askForPosition();
    const QList<quint32> noDecoration = {2, 0, 0, 0, 0};
    shadowed.setCardinals("_MOTIF_WM_HINTS", noDecoration);
    shadowed.setCardinals("_GTK_FRAME_EXTENTS", {26, 26, 23, 29});
    shadowed.show();
    CHECK(eventually([&] {
        const WindowRect outer = rectangle(topLevel(shadowed.id()));
        return onScreen(shadowed.id())->frame ==
               WindowRect{outer.x + 26, outer.y + 23, outer.width - 52, outer.height - 52};
    }));
}

TEST_CASE_FIXTURE(SessionFixture, "titles of every kind are read as text")
{
    struct Case {
        const char *what;
        QByteArray bytes;
        const char *type;
        const char *property;
        QString title;
    };

    const QString longTitle = QString(10000, QChar(0x4e2d));
    const QList<Case> cases = {
        {"emoji", "\xf0\x9f\x8e\x89 Party", "UTF8_STRING", "_NET_WM_NAME", u"🎉 Party"_qs},
        {"right to left", "שלום.txt", "UTF8_STRING", "_NET_WM_NAME", u"שלום.txt"_qs},
        {"10,000 characters", longTitle.toUtf8(), "UTF8_STRING", "_NET_WM_NAME", longTitle},
        {"control characters", "a\tb\nc\x01\x1f", "UTF8_STRING", "_NET_WM_NAME", "a\tb\nc\x01\x1f"},
        {"the separators of records", "a\x1e\x1f", "UTF8_STRING", "_NET_WM_NAME", "a\x1e\x1f"},
        {"a zero at the end", QByteArray("zero\0", 5), "UTF8_STRING", "_NET_WM_NAME", "zero"},
        {"invalid UTF-8", "a\xff\xc3z", "UTF8_STRING", "_NET_WM_NAME", u"a\uFFFD\uFFFDz"_qs},
        {"empty", "", "UTF8_STRING", "_NET_WM_NAME", ""},
        {"Latin-1", "Caf\xe9", "STRING", "WM_NAME", u"Café"_qs},
        {"UTF-8 that calls itself Latin-1", "Café", "STRING", "WM_NAME", u"Café"_qs},
        {"compound text", "abc \x1b-F\xe1", "COMPOUND_TEXT", "WM_NAME", u"abc α"_qs},
        {"compound text with UTF-8 in it", "a\x1b%G\xe4\xb8\xad\x1b%@z\x1b%G\xce\xb1", "COMPOUND_TEXT", "WM_NAME",
         u"a中zα"_qs},
        {"a type that is no text", "xxxx", "CARDINAL", "WM_NAME", ""},
    };
    for (const Case &tried : cases) {
        CAPTURE(QString(tried.what));
        TestWindow window;
        window.setTitle(tried.bytes, tried.type, tried.property);
        window.show();
        CHECK(onScreen(window.id())->title == tried.title);
    }
    TestWindow both;
    both.setTitle("old", "STRING", "WM_NAME");
    both.setTitle("new");
    both.show();
    CHECK(onScreen(both.id())->title == "new");
}

TEST_CASE_FIXTURE(SessionFixture, "windows that vanish while they are read disturb nothing")
{
    TestWindow steady;
    steady.setTitle("steady");
    steady.show();
    std::atomic<bool> isDone = false;
    std::thread coming([&] {
        xcb_connection_t *other = xcb_connect(nullptr, nullptr);
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(other)).data->root;
        while (!isDone) {
            const xcb_window_t window = xcb_generate_id(other);
            xcb_create_window(other, 0, window, root, 0, 0, 120, 80, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, 0, 0, nullptr);
            xcb_map_window(other, window);
            std::free(xcb_get_input_focus_reply(other, xcb_get_input_focus(other), nullptr));
            xcb_destroy_window(other, window);
        }
        xcb_disconnect(other);
    });
    constexpr int rounds = 300;
    int seen = 0;
    for (int round = 0; round < rounds; ++round) {
        seen += onScreen(steady.id()).has_value() ? 1 : 0;
        workspace.runningApplications();
    }
    isDone = true;
    coming.join();
    CHECK(seen == rounds);
    CHECK(connection->isAlive());
    CHECK_MESSAGE(xcb_poll_for_event(connection->xcb()) == nullptr, "errors must not gather in the event queue");
}
