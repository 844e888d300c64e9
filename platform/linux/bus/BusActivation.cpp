// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/bus/BusActivation.h"

#include <gio/gio.h>

#include <memory>
#include <vector>

namespace ardeno {

namespace {

struct UnreferenceBus {
    void operator()(GDBusConnection *bus) const { g_object_unref(bus); }
};

// As the desktop entry specification forms it.
QByteArray objectPath(const QString &applicationID)
{
    return '/' + QString(applicationID).replace('.', '/').replace('-', '_').toUtf8();
}

GVariant *platformData()
{
    return g_variant_new_array(G_VARIANT_TYPE("{sv}"), nullptr, 0);
}

GVariant *arguments(const QList<QByteArray> &addresses)
{
    if (addresses.isEmpty())
        return g_variant_new("(@a{sv})", platformData());
    std::vector<const char *> words;
    for (const QByteArray &address : addresses)
        words.push_back(address.constData());
    words.push_back(nullptr);
    return g_variant_new("(^as@a{sv})", words.data(), platformData());
}

} // namespace

BusActivation::Answer BusActivation::open(const QString &applicationID, const QList<QByteArray> &addresses)
{
    constexpr int patience = 8000; // Milliseconds; it may have to be started.
    const QByteArray name = applicationID.toUtf8();
    const std::unique_ptr<GDBusConnection, UnreferenceBus> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    if (!bus || !g_dbus_is_name(name.constData()))
        return Answer::NobodyThere;
    GError *error = nullptr;
    GVariant *answer =
        g_dbus_connection_call_sync(bus.get(), name.constData(), objectPath(applicationID).constData(),
                                    "org.freedesktop.Application", addresses.isEmpty() ? "Activate" : "Open",
                                    arguments(addresses), nullptr, G_DBUS_CALL_FLAGS_NONE, patience, nullptr, &error);
    if (answer)
        g_variant_unref(answer);
    const bool isLate = g_error_matches(error, G_IO_ERROR, G_IO_ERROR_TIMED_OUT);
    g_clear_error(&error);
    return answer || isLate ? Answer::Opened : Answer::NobodyThere;
}

} // namespace ardeno
