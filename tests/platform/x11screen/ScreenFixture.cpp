// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/x11screen/ScreenFixture.h"

#include "support/BlockOn.h"
#include "tests/desktop/Desktop.h"
#include "tests/desktop/DesktopFile.h"

#include <doctest/doctest.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>

#include <cstdlib>
#include <utility>

#include <xcb/xcb.h>

namespace ardeno::screen_test {

namespace {

void install(const QString &id, const QString &windowClass)
{
    desktop_test::writeDesktopFile(desktop_test::ownDesktopFiles(), id,
                                   u"Name=%1\nExec=/bin/true\nStartupWMClass=%2"_qs.arg(id, windowClass).toUtf8());
}

xcb_atom_t atom(xcb_connection_t *xcb, const QByteArray &name)
{
    auto *reply = xcb_intern_atom_reply(xcb, xcb_intern_atom(xcb, 0, quint16(name.size()), name.constData()), nullptr);
    const xcb_atom_t found = reply->atom;
    std::free(reply);
    return found;
}

} // namespace

Painter::Painter(const QStringList &description)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QCoreApplication::applicationDirPath() + "/test_painter", description);
    waitFor("ready");
}

Painter::~Painter()
{
    m_process.closeWriteChannel();
    m_process.waitForFinished();
}

void Painter::drawNow()
{
    m_process.write("\n");
    waitFor("drawn");
}

void Painter::waitFor(const QByteArray &word)
{
    while (!m_process.canReadLine() && m_process.waitForReadyRead())
        continue;
    REQUIRE(m_process.readLine().trimmed() == word);
}

ScreenFixture::ScreenFixture()
{
    install(secretID, "secret");
    install("org.example.Open", "open");
    setWallpaper(0x305070);
    const QImage whole = peerPicture();
    movePointer(whole.width() - 1, whole.height() - 1);
}

ScreenFixture::~ScreenFixture()
{
    removeMonitors();
}

void ScreenFixture::removeMonitors()
{
    for (const QString &name : std::exchange(m_monitors, {}))
        desktop_test::outputOf("xrandr", {"--delmonitor", name});
}

QImage ScreenFixture::picture(X11ScreenCapture &of, const QSet<QString> &excluded)
{
    settle();
    CaptureService service(of);
    const QString path = folder.filePath("picture.png");
    blockOn(service.screenshot(path, excluded));
    return QImage(path).convertToFormat(QImage::Format_RGB32);
}

QImage ScreenFixture::peerPicture() const
{
    const QString path = folder.filePath("peer.png");
    REQUIRE(QProcess::execute("maim", {"--hidecursor", path}) == 0);
    return QImage(path).convertToFormat(QImage::Format_RGB32);
}

// A compositing manager draws what windows show some time after their owners have.
void ScreenFixture::settle() const
{
    if (qEnvironmentVariableIsEmpty("ARDENO_COMPOSITED"))
        return;
    const QDeadlineTimer deadline(3'000);
    QImage before = peerPicture();
    for (int equal = 0; equal < 3 && !deadline.hasExpired();) {
        QImage now = peerPicture();
        equal = now == before ? equal + 1 : 0;
        before = std::move(now);
    }
}

bool ScreenFixture::shows(QRgb colour) const
{
    const QDeadlineTimer deadline(10'000);
    while (countOf(peerPicture(), colour) == 0) {
        if (deadline.hasExpired())
            return false;
    }
    return true;
}

void ScreenFixture::movePointer(int x, int y) const
{
    desktop_test::outputOf("xdotool", {"mousemove", QString::number(x), QString::number(y)});
}

void ScreenFixture::setWallpaper(quint32 colour) const
{
    xcb_connection_t *xcb = xcb_connect(nullptr, nullptr);
    const xcb_screen_t *first = xcb_setup_roots_iterator(xcb_get_setup(xcb)).data;
    xcb_set_close_down_mode(xcb, XCB_CLOSE_DOWN_RETAIN_PERMANENT);
    const xcb_pixmap_t pixmap = xcb_generate_id(xcb);
    xcb_create_pixmap(xcb, first->root_depth, pixmap, first->root, 8, 8);
    const xcb_gcontext_t context = xcb_generate_id(xcb);
    xcb_create_gc(xcb, context, pixmap, XCB_GC_FOREGROUND, &colour);
    const xcb_rectangle_t all = {0, 0, 8, 8};
    xcb_poly_fill_rectangle(xcb, pixmap, context, 1, &all);
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, first->root, atom(xcb, "_XROOTPMAP_ID"), XCB_ATOM_PIXMAP, 32, 1,
                        &pixmap);
    xcb_change_window_attributes(xcb, first->root, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(xcb, 0, first->root, 0, 0, 0, 0);
    std::free(xcb_get_input_focus_reply(xcb, xcb_get_input_focus(xcb), nullptr));
    xcb_disconnect(xcb);
}

void ScreenFixture::removeWallpaper() const
{
    desktop_test::outputOf("xprop", {"-root", "-remove", "_XROOTPMAP_ID"});
}

void ScreenFixture::setMonitors(const QList<QStringList> &monitors)
{
    removeMonitors();
    QString output = "screen";
    for (const QStringList &monitor : monitors) {
        desktop_test::outputOf("xrandr", {"--setmonitor", monitor[0], monitor[1], output});
        output = "none";
        m_monitors.append(monitor[0]);
    }
}

int countOf(const QImage &image, QRgb colour)
{
    constexpr int tolerance = 40;
    const auto isNear = [](int a, int b) { return std::abs(a - b) <= tolerance; };
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (isNear(qRed(row[x]), qRed(colour)) && isNear(qGreen(row[x]), qGreen(colour)) &&
                isNear(qBlue(row[x]), qBlue(colour)))
                ++count;
        }
    }
    return count;
}

} // namespace ardeno::screen_test
