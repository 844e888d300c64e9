// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/WindowPlace.h"

#include "store/PreferenceKeys.h"

#include <QDataStream>
#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <chrono>
#include <utility>

namespace ardeno {

namespace {

constexpr std::chrono::milliseconds pauseAfterMoving(400);
// What the window manager puts around a window is known only when it stands there.
constexpr QSize roomForFrame(16, 48);

QRect areaAround(const QWidget &window)
{
    const QScreen *const screen = QGuiApplication::screenAt(window.frameGeometry().center());
    return (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
}

// Qt refuses a place that was saved on a screen of another size: size and state stay all the same.
void restoreSize(QWidget &window, const QByteArray &saved)
{
    struct {
        quint32 magic = 0;
        quint16 major = 0;
        quint16 minor = 0;
        QRect frame = {};
        QRect normal = {};
        qint32 screen = 0;
        quint8 isMaximized = 0;
    } kept;

    QDataStream stream(saved);
    stream.setVersion(QDataStream::Qt_4_0);
    stream >> kept.magic >> kept.major >> kept.minor >> kept.frame >> kept.normal >> kept.screen >> kept.isMaximized;
    const bool isKnown = stream.status() == QDataStream::Ok && kept.normal.isValid();
    const QSize size = isKnown ? kept.normal.size() : window.size();
    window.resize(size.boundedTo(areaAround(window).size() - roomForFrame));
    if (isKnown && kept.isMaximized)
        window.setWindowState(Qt::WindowMaximized);
}

} // namespace

QRect WindowPlace::within(QRect frame, const QRect &area)
{
    frame.setSize(frame.size().boundedTo(area.size()));
    frame.moveLeft(std::clamp(frame.left(), area.left(), area.right() + 1 - frame.width()));
    frame.moveTop(std::clamp(frame.top(), area.top(), area.bottom() + 1 - frame.height()));
    return frame;
}

WindowPlace::WindowPlace(QWidget &window) : m_window(window)
{
    limit();
    const Preferences preferences(Preferences::defaultFolder());
    const QByteArray saved =
        QByteArray::fromBase64(preferences.value(keys::windowPlace).value_or(QString()).toLatin1());
    if (saved.isEmpty() || !window.restoreGeometry(saved))
        restoreSize(window, saved);
    m_rest.setSingleShot(true);
    m_rest.setInterval(pauseAfterMoving);
    connect(&m_rest, &QTimer::timeout, this, [this] {
        if (std::exchange(m_isToFit, false))
            keepWithin();
        remember();
    });
    for (const auto changed : {&QGuiApplication::screenAdded, &QGuiApplication::screenRemoved})
        connect(qGuiApp, changed, this, [this] { fitAgain(); });
    for (const QScreen *const screen : QGuiApplication::screens())
        connect(screen, &QScreen::availableGeometryChanged, this, [this] { fitAgain(); });
    window.installEventFilter(this);
}

WindowPlace::~WindowPlace()
{
    remember();
}

// A screen may be smaller than the window wants to be.
void WindowPlace::limit()
{
    m_window.setMinimumSize(m_window.minimumSize().boundedTo(areaAround(m_window).size() - roomForFrame));
}

void WindowPlace::fitAgain()
{
    m_isToFit = true;
    m_rest.start();
}

void WindowPlace::keepWithin()
{
    const bool isPlaced = m_window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen | Qt::WindowMinimized);
    if (!m_window.isVisible() || isPlaced)
        return;
    limit();
    const QRect frame = m_window.frameGeometry();
    const QRect wanted = within(frame, areaAround(m_window));
    if (wanted.size() != frame.size())
        m_window.resize(m_window.size() - (frame.size() - wanted.size()));
    if (wanted.topLeft() != frame.topLeft())
        m_window.move(wanted.topLeft());
}

void WindowPlace::remember()
{
    if (!m_wasShown || m_window.isMinimized())
        return;
    Preferences preferences(Preferences::defaultFolder());
    const QString place = QString::fromLatin1(m_window.saveGeometry().toBase64());
    if (preferences.value(keys::windowPlace) != place)
        preferences.setValue(keys::windowPlace, place);
}

bool WindowPlace::eventFilter(QObject *watched, QEvent *event)
{
    const bool hasMoved = event->type() == QEvent::Move || event->type() == QEvent::Resize ||
                          event->type() == QEvent::Show || event->type() == QEvent::WindowStateChange;
    m_wasShown = m_wasShown || event->type() == QEvent::Show;
    m_isToFit = m_isToFit || event->type() == QEvent::Show; // Where its user puts it later is their own affair.
    if (hasMoved && m_window.isVisible())
        m_rest.start();
    return QObject::eventFilter(watched, event);
}

} // namespace ardeno
