// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/bus/PortalAppearance.h"

#include "platform/linux/bus/Portal.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusReply>

#include <algorithm>

namespace ardeno {

namespace {

using SettingGroups = QMap<QString, QVariantMap>;

constexpr const char *settingsInterface = "org.freedesktop.portal.Settings";
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

// Three shares of a whole; anything else means that none was chosen.
std::optional<AppearanceWishes::Shares> accentFrom(const QVariant &value)
{
    if (!value.canConvert<QDBusArgument>())
        return {};
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != "(ddd)")
        return {};
    AppearanceWishes::Shares shares{};
    argument.beginStructure();
    argument >> shares[0] >> shares[1] >> shares[2];
    argument.endStructure();
    const bool isColor = std::all_of(shares.begin(), shares.end(), [](double part) { return part >= 0 && part <= 1; });
    return isColor ? std::optional(shares) : std::nullopt;
}

void readInterface(AppearanceWishes &wishes, const QVariantMap &settings)
{
    if (settings.contains("enable-animations"))
        wishes.hasReducedMotion = !plain(settings.value("enable-animations")).toBool();
    if (settings.contains("icon-theme"))
        wishes.iconTheme = plain(settings.value("icon-theme")).toString();
    if (settings.contains("text-scaling-factor"))
        wishes.textScale = plain(settings.value("text-scaling-factor")).toDouble();
}

AppearanceWishes::Brightness brightnessFrom(uint number)
{
    using Brightness = AppearanceWishes::Brightness;
    if (number == 0)
        return Brightness::Any;
    return number == 1 ? Brightness::Dark : Brightness::Light;
}

void readAppearance(AppearanceWishes &wishes, const QVariantMap &settings)
{
    const auto number = [&](const char *key) { return plain(settings.value(key)).toUInt(); };
    if (settings.contains("color-scheme"))
        wishes.brightness = brightnessFrom(number("color-scheme"));
    if (settings.contains("contrast"))
        wishes.hasHighContrast = number("contrast") == 1;
    if (settings.contains("accent-color"))
        wishes.accent = accentFrom(plain(settings.value("accent-color")));
    if (number("reduced-motion") == 1)
        wishes.hasReducedMotion = true;
}

AppearanceWishes readAll(AppearanceWishes wishes, const SettingGroups &groups)
{
    for (auto group = groups.begin(); group != groups.end(); ++group)
        wishes = PortalAppearance::read(wishes, group.key(), group.value());
    return wishes;
}

QDBusMessage settingsQuestion()
{
    QDBusMessage call = QDBusMessage::createMethodCall(Portal::service, Portal::path, settingsInterface, "ReadAll");
    call << QStringList{appearanceGroup, interfaceGroup};
    return call;
}

} // namespace

PortalAppearance::PortalAppearance()
{
    qDBusRegisterMetaType<SettingGroups>();
    // The bus refuses a slot with a type that it has not heard of, and it learns its own ones late.
    qRegisterMetaType<QDBusVariant>();
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    bus.connect(Portal::service, Portal::path, settingsInterface, "SettingChanged", this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask();
}

void PortalAppearance::ask()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    constexpr int patience = 200; // Milliseconds; the answer still counts when it comes later.
    auto *answer = new QDBusPendingCallWatcher(bus.asyncCall(settingsQuestion()), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *done) {
        const QDBusPendingReply<SettingGroups> reply = *done;
        done->deleteLater();
        if (!reply.isError())
            take(readAll(m_wishes, reply.value()));
    });
    const QDBusMessage known = QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                              "org.freedesktop.DBus", "NameHasOwner")
                               << QString(Portal::service);
    if (bus.call(known, QDBus::Block, patience).arguments().value(0).toBool()) {
        const QDBusReply<SettingGroups> now = bus.call(settingsQuestion(), QDBus::Block, patience);
        m_wishes = readAll(m_wishes, now.isValid() ? now.value() : SettingGroups());
    }
}

AppearanceWishes PortalAppearance::read(AppearanceWishes before, const QString &group, const QVariantMap &settings)
{
    if (group == interfaceGroup)
        readInterface(before, settings);
    else if (group == appearanceGroup)
        readAppearance(before, settings);
    return before;
}

void PortalAppearance::settingChanged(const QString &group, const QString &key, const QDBusVariant &value)
{
    take(read(m_wishes, group, {{key, value.variant()}}));
}

void PortalAppearance::take(const AppearanceWishes &wishes)
{
    m_wishes = wishes;
    if (m_changed)
        m_changed(m_wishes);
}

} // namespace ardeno
