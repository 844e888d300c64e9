// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/bus/PortalAppearance.h"
#include "platform/linux/bus/PortalFileDialogs.h"
#include "tests/ui/RunningWindow.h"
#include "tests/ui/WindowFixture.h"
#include "ui/controls/Button.h"
#include "ui/controls/FileChooser.h"
#include "ui/theme/AppearanceSettings.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QDir>
#include <QFileDialog>
#include <QImage>
#include <QPointer>
#include <QTest>
#include <QUrl>

using namespace ardeno;

namespace {

// As the portal writes it down.
QVariant portalAccent(double red, double green, double blue)
{
    QDBusArgument argument;
    argument.beginStructure();
    argument << red << green << blue;
    argument.endStructure();
    return QVariant::fromValue(argument);
}

constexpr const char *appearanceGroup = "org.freedesktop.appearance";

constexpr const char *path = "/org/freedesktop/portal/desktop";
constexpr const char *interface = "org.freedesktop.portal.Settings";

// The settings portal of a desktop, on a connection of its own.
class Portal final : public QDBusVirtualObject {
public:
    Portal() : m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, "portal"))
    {
        qDBusRegisterMetaType<QMap<QString, QVariantMap>>();
        REQUIRE(m_bus.registerVirtualObject(path, this));
        join();
    }

    ~Portal() override { QDBusConnection::disconnectFromBus("portal"); }

    void change(const QString &key, const QVariant &value, const QString &group = appearanceGroup)
    {
        QDBusMessage signal = QDBusMessage::createSignal(path, interface, "SettingChanged");
        signal << group << key << QVariant::fromValue(QDBusVariant(value));
        REQUIRE(m_bus.send(signal));
    }

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        if (message.member() == "OpenFile" && hasChooser)
            return choose(message, connection);
        if (message.member() != "ReadAll")
            return false;
        const QMap<QString, QVariantMap> groups{{appearanceGroup, {{"color-scheme", 1U}}}};
        return connection.send(message.createReply(QVariant::fromValue(groups)));
    }

    // In the place of one that a program of another test may have started.
    void join()
    {
        const auto reply = m_bus.interface()->registerService("org.freedesktop.portal.Desktop",
                                                              QDBusConnectionInterface::ReplaceExistingService);
        REQUIRE(reply.value() == QDBusConnectionInterface::ServiceRegistered);
    }

    // Ends without an answer, as a service that crashes.
    void leave() { m_bus.interface()->unregisterService("org.freedesktop.portal.Desktop"); }

    // An empty one: the dialog is cancelled.
    void answer(const QString &file)
    {
        QDBusMessage signal = QDBusMessage::createSignal(m_request, "org.freedesktop.portal.Request", "Response");
        signal << (file.isEmpty() ? 1U : 0U)
               << QVariantMap{{"uris", QStringList{QUrl::fromLocalFile(file).toString()}}};
        REQUIRE(m_bus.send(signal));
    }

    bool hasChooser = false;
    bool isOpen = false; // The dialog stays until it is answered.
    QString chosen = {};
    QString asked = {}; // The title of the newest question.

private:
    bool choose(const QDBusMessage &question, const QDBusConnection &connection)
    {
        asked = question.arguments().value(1).toString();
        const QVariantMap options = qdbus_cast<QVariantMap>(question.arguments().value(2));
        const QString sender = question.service().mid(1).replace('.', '_');
        m_request = QString("%1/request/%2/%3").arg(path, sender, options.value("handle_token").toString());
        connection.send(question.createReply(QVariant::fromValue(QDBusObjectPath(m_request))));
        if (!isOpen)
            answer(chosen);
        return true;
    }

    QDBusConnection m_bus;
    QString m_request = {};
};

struct PortalWindow : WindowFixture {
    Portal portal;

    PortalWindow() { desktop.fileDialogs = std::make_unique<PortalFileDialogs>(); }

    // Leaves an image where it can be chosen.
    QString photo() const
    {
        QImage image(320, 200, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        REQUIRE(image.save(home.filePath("photo.png")));
        return home.filePath("photo.png");
    }
};

} // namespace

TEST_CASE("what the settings portal says is understood, and what it leaves out stays")
{
    using Wishes = AppearanceWishes;
    const auto read = [](const Wishes &before, const QString &group, const QString &key, const QVariant &value) {
        // Values come wrapped as variants, from some portals twice.
        return PortalAppearance::read(before, group, {{key, QVariant::fromValue(QDBusVariant(value))}});
    };
    const Wishes dark{.brightness = Wishes::Brightness::Dark, .hasHighContrast = true, .hasReducedMotion = true};
    Wishes light = dark;
    light.brightness = Wishes::Brightness::Light;
    CHECK(read({}, appearanceGroup, "color-scheme", 1U).brightness == Wishes::Brightness::Dark);
    CHECK(read(dark, appearanceGroup, "color-scheme", 2U) == light);
    CHECK_FALSE(read(dark, appearanceGroup, "contrast", 0U).hasHighContrast);
    CHECK(read({}, "org.gnome.desktop.interface", "enable-animations", false).hasReducedMotion);
    CHECK(read(dark, appearanceGroup, "accent-color", 1U) == dark);
    CHECK(read(dark, "org.example", "color-scheme", 2U) == dark);
}

TEST_CASE("the theme follows the settings portal while the program runs")
{
    Portal portal;
    const AppearanceSettings settings(std::make_unique<PortalAppearance>());
    const auto becomes = [](const Appearance &wanted) {
        return QTest::qWaitFor([&] { return AppTheme::instance().appearance() == wanted; }, 20'000);
    };
    CHECK(becomes({Scheme::Dark, Contrast::Normal, Motion::Normal}));
    portal.change("contrast", 1U);
    CHECK(becomes({Scheme::Dark, Contrast::High, Motion::Normal}));
    portal.change("color-scheme", 2U);
    CHECK(becomes({Scheme::Light, Contrast::High, Motion::Normal}));
    portal.change("contrast", 0U);
    CHECK(becomes({}));
    portal.change("accent-color", portalAccent(1, 0.5, 0));
    CHECK(becomes({.accent = qRgb(255, 128, 0)}));
    portal.change("accent-color", portalAccent(-1, -1, -1)); // None was chosen.
    CHECK(becomes({}));
    const Button button("Save");
    const int before = button.sizeHint().width();
    portal.change("text-scaling-factor", 1.5, "org.gnome.desktop.interface");
    CHECK(becomes({.textScale = 1.5}));
    CHECK(button.sizeHint().width() > before * 1.2);
    portal.change("text-scaling-factor", 1.0, "org.gnome.desktop.interface");
    CHECK(becomes({}));
    CHECK(button.sizeHint().width() == before);
    AppTheme::instance().setAppearance({});
}

// In a process of its own, which knows of the bus only what the program teaches it.
TEST_CASE_FIXTURE(RunningWindow, "the finished program changes between light and dark while it runs")
{
    Portal portal;
    open();
    const auto background = [this] {
        const QString file = home.filePath("shown.png");
        outputOf("maim", {"-i", window, file});
        const QImage shown(file);
        return shown.isNull() ? QColor() : shown.pixelColor(4, shown.height() - 4);
    };
    CHECK(eventually([&] { return background().isValid() && background().lightness() < 80; }));
    portal.change("color-scheme", 2U);
    CHECK(eventually([&] { return background().lightness() > 200; }));
    portal.change("color-scheme", 1U);
    CHECK(eventually([&] { return background().isValid() && background().lightness() < 80; }));
    close();
}

TEST_CASE_FIXTURE(PortalWindow,
                  "an image is chosen in the desktop's own dialog, and where there is none in one of the program")
{
    const QUuid project = openProject();
    saveCheckpoint(project, "Start", 10);
    settle();

    portal.hasChooser = true;
    click("Replace image…");
    CHECK(eventually([&] { return !portal.asked.isEmpty(); }));
    CHECK_FALSE(window->findChild<QFileDialog *>());
    const auto isAsking = [this] { return window->findChild<FileChooser *>() != nullptr; };
    CHECK(eventually([&] { return !isAsking(); }));
    portal.chosen = photo();
    click("Replace image…");
    CHECK(eventually([this] { return seesText("Image added. A copy is saved with this checkpoint."); }));

    portal.hasChooser = false;
    AppTheme::instance().setAppearance({.scheme = Scheme::Dark});
    click("Replace image…");
    QPointer<QFileDialog> dialog;
    REQUIRE(eventually([&] { return (dialog = window->findChild<QFileDialog *>()) && dialog->isVisible(); }));
    CHECK(dialog->directory() == QDir::home()); // There is no folder of pictures.
    CHECK(dialog->palette().color(QPalette::Base) == AppTheme::instance().color(Role::Field));
    CHECK(dialog->grab().save(ARDENO_PICTURES "/choose-image-dark.png"));
    click("Replace image…"); // One at a time.
    CHECK(window->findChildren<QFileDialog *>().size() == 1);
    dialog->reject();
    CHECK(eventually([&] { return !dialog; }));
    AppTheme::instance().setAppearance({});
}

TEST_CASE_FIXTURE(PortalWindow, "an image goes to the checkpoint it was asked for, and a dialog may vanish")
{
    portal.hasChooser = portal.isOpen = true;
    openProject();
    const auto [older, newer] = saveTwoCheckpoints();
    click("Replace image…");
    REQUIRE(eventually([&] { return !portal.asked.isEmpty(); }));
    store().navigation.selectCheckpoint(older.id);
    settle();
    portal.answer(photo());
    CHECK(eventually([&] { return store().library.checkpoint(newer.id)->screenshot != newer.screenshot; }));
    CHECK(store().library.checkpoint(older.id)->screenshot == older.screenshot);

    portal.asked.clear();
    click("Replace image…");
    REQUIRE(eventually([&] { return !portal.asked.isEmpty(); }));
    portal.leave();
    CHECK(eventually([this] { return window->findChild<FileChooser *>() == nullptr; }));
    portal.join();
    portal.asked.clear();
    click("Replace image…");
    CHECK_MESSAGE(eventually([&] { return !portal.asked.isEmpty(); }), "it can be asked again");
}
