// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/theme/AppearanceSettings.h"

#include "tests/Printing.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QTest>

using namespace ardeno;

namespace {

constexpr const char *path = "/org/freedesktop/portal/desktop";
constexpr const char *interface = "org.freedesktop.portal.Settings";

// The settings portal of a desktop, on a connection of its own.
class Portal final : public QDBusVirtualObject {
public:
    Portal() : m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, "portal"))
    {
        qDBusRegisterMetaType<QMap<QString, QVariantMap>>();
        REQUIRE(m_bus.registerVirtualObject(path, this));
        // In the place of one that a program of another test may have started.
        const auto reply = m_bus.interface()->registerService("org.freedesktop.portal.Desktop",
                                                              QDBusConnectionInterface::ReplaceExistingService);
        REQUIRE(reply.value() == QDBusConnectionInterface::ServiceRegistered);
    }

    ~Portal() override { QDBusConnection::disconnectFromBus("portal"); }

    void change(const QString &key, uint value)
    {
        QDBusMessage signal = QDBusMessage::createSignal(path, interface, "SettingChanged");
        signal << QString("org.freedesktop.appearance") << key << QVariant::fromValue(QDBusVariant(value));
        REQUIRE(m_bus.send(signal));
    }

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        if (message.member() != "ReadAll")
            return false;
        const QMap<QString, QVariantMap> groups{{"org.freedesktop.appearance", {{"color-scheme", 1U}}}};
        return connection.send(message.createReply(QVariant::fromValue(groups)));
    }

private:
    QDBusConnection m_bus;
};

} // namespace

TEST_CASE("the theme follows the settings portal while the program runs")
{
    Portal portal;
    const AppearanceSettings settings;
    const auto becomes = [](const Appearance &wanted) {
        return QTest::qWaitFor([&] { return AppTheme::instance().appearance() == wanted; }, 20'000);
    };
    CHECK(becomes({Scheme::Dark, Contrast::Normal, Motion::Normal}));
    portal.change("contrast", 1);
    CHECK(becomes({Scheme::Dark, Contrast::High, Motion::Normal}));
    portal.change("color-scheme", 2);
    CHECK(becomes({Scheme::Light, Contrast::High, Motion::Normal}));
    portal.change("contrast", 0);
    CHECK(becomes({}));
    AppTheme::instance().setAppearance({});
}
