// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/theme/AppearanceSettings.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>
#include <QScreen>

#include <cmath>

namespace ardeno {

namespace {

using SettingGroups = QMap<QString, QVariantMap>;

constexpr const char *service = "org.freedesktop.portal.Desktop";
constexpr const char *path = "/org/freedesktop/portal/desktop";
constexpr const char *interface = "org.freedesktop.portal.Settings";
constexpr const char *appearanceGroup = "org.freedesktop.appearance";
constexpr const char *interfaceGroup = "org.gnome.desktop.interface"; // Where most desktops keep their animations.

// Values come wrapped as variants, from some portals twice.
QVariant plain(const QVariant &value)
{
    QVariant inner = value;
    while (inner.metaType() == QMetaType::fromType<QDBusVariant>())
        inner = inner.value<QDBusVariant>().variant();
    return inner;
}

Scheme desktopScheme()
{
    return QGuiApplication::palette().color(QPalette::Base).lightness() < 128 ? Scheme::Dark : Scheme::Light;
}

// Under X11 a desktop may tell larger texts as more dots an inch, by which Qt has enlarged everything already.
bool isInScreenScale(double factor)
{
    const QScreen *const screen = QGuiApplication::primaryScreen();
    if (!screen || QGuiApplication::platformName() != "xcb")
        return false;
    const double rest = screen->devicePixelRatio() / factor;
    constexpr double rounding = 0.02;
    return std::abs(rest - std::round(rest)) < rounding;
}

double textScaleFrom(const QVariant &value)
{
    const double factor = value.toDouble();
    const bool isSane = factor >= 0.5 && factor <= 3;
    return !isSane || factor == 1 || isInScreenScale(factor) ? 1 : factor;
}

// Three shares of a whole; anything else means that none was chosen.
std::optional<QRgb> accentFrom(const QVariant &value)
{
    if (!value.canConvert<QDBusArgument>())
        return {};
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != "(ddd)")
        return {};
    double red = -1;
    double green = -1;
    double blue = -1;
    argument.beginStructure();
    argument >> red >> green >> blue;
    argument.endStructure();
    const auto isShare = [](double part) { return part >= 0 && part <= 1; };
    if (!isShare(red) || !isShare(green) || !isShare(blue))
        return {};
    return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green), static_cast<float>(blue)).rgb();
}

void readInterface(Appearance &appearance, const QVariantMap &settings)
{
    if (settings.contains("enable-animations"))
        appearance.motion = plain(settings.value("enable-animations")).toBool() ? Motion::Normal : Motion::Reduced;
    if (settings.contains("icon-theme"))
        appearance.iconTheme = plain(settings.value("icon-theme")).toString();
    if (settings.contains("text-scaling-factor"))
        appearance.textScale = textScaleFrom(plain(settings.value("text-scaling-factor")));
}

void readAppearance(Appearance &appearance, const QVariantMap &settings)
{
    const auto number = [&](const char *key) { return plain(settings.value(key)).toUInt(); };
    if (settings.contains("color-scheme")) {
        const uint wanted = number("color-scheme"); // 0: no preference, 1: dark, 2: light.
        appearance.scheme = wanted == 0 ? desktopScheme() : wanted == 1 ? Scheme::Dark : Scheme::Light;
    }
    if (settings.contains("contrast"))
        appearance.contrast = number("contrast") == 1 ? Contrast::High : Contrast::Normal;
    if (settings.contains("accent-color"))
        appearance.accent = accentFrom(plain(settings.value("accent-color")));
    if (number("reduced-motion") == 1)
        appearance.motion = Motion::Reduced;
}

Appearance readAll(Appearance appearance, const SettingGroups &groups)
{
    for (auto group = groups.begin(); group != groups.end(); ++group)
        appearance = AppearanceSettings::read(appearance, group.key(), group.value());
    return appearance;
}

QDBusMessage question()
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, "ReadAll");
    call << QStringList{appearanceGroup, interfaceGroup};
    return call;
}

} // namespace

AppearanceSettings::AppearanceSettings()
{
    qDBusRegisterMetaType<SettingGroups>();
    // The bus refuses a slot with a type that it has not heard of, and it learns its own ones late.
    qRegisterMetaType<QDBusVariant>();
    m_appearance.scheme = desktopScheme();
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected()) {
        bus.connect(service, path, interface, "SettingChanged", this,
                    SLOT(settingChanged(QString, QString, QDBusVariant)));
        ask();
    }
    apply(m_appearance);
}

void AppearanceSettings::ask()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    constexpr int patience = 200; // Milliseconds; the answer still counts when it comes later.
    auto *answer = new QDBusPendingCallWatcher(bus.asyncCall(question()), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *done) {
        const QDBusPendingReply<SettingGroups> reply = *done;
        done->deleteLater();
        if (reply.isError())
            return;
        apply(readAll(m_appearance, reply.value()));
    });
    const QDBusMessage known = QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                              "org.freedesktop.DBus", "NameHasOwner")
                               << QString(service);
    if (bus.call(known, QDBus::Block, patience).arguments().value(0).toBool()) {
        const QDBusReply<SettingGroups> now = bus.call(question(), QDBus::Block, patience);
        m_appearance = readAll(m_appearance, now.isValid() ? now.value() : SettingGroups());
    }
}

Appearance AppearanceSettings::read(Appearance before, const QString &group, const QVariantMap &settings)
{
    if (group == interfaceGroup)
        readInterface(before, settings);
    else if (group == appearanceGroup)
        readAppearance(before, settings);
    return before;
}

void AppearanceSettings::settingChanged(const QString &group, const QString &key, const QDBusVariant &value)
{
    apply(read(m_appearance, group, {{key, value.variant()}}));
}

void AppearanceSettings::apply(const Appearance &appearance)
{
    m_appearance = appearance;
    if (!(AppTheme::instance().appearance() == appearance))
        AppTheme::instance().setAppearance(appearance);
}

} // namespace ardeno
