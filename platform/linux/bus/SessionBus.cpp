// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/bus/SessionBus.h"

#include <gio/gio.h>

#include <QFile>

namespace ardeno {

namespace {

struct Connecting {
    GDBusConnection *connection = nullptr;
    bool isDone = false;
};

void connected(GObject *, GAsyncResult *result, gpointer data)
{
    auto *const connecting = static_cast<Connecting *>(data);
    connecting->connection = g_dbus_connection_new_for_address_finish(result, nullptr);
    connecting->isDone = true;
}

gboolean cancel(gpointer cancellable)
{
    g_cancellable_cancel(G_CANCELLABLE(cancellable));
    return G_SOURCE_REMOVE;
}

// Whoever listens at the address may accept the connection and then say nothing: it is given up in time.
GDBusConnection *connectTo(const QByteArray &address, std::chrono::milliseconds patience)
{
    GMainContext *const context = g_main_context_new();
    g_main_context_push_thread_default(context);
    GCancellable *const cancellable = g_cancellable_new();
    GSource *const alarm = g_timeout_source_new(static_cast<guint>(patience.count()));
    g_source_set_callback(alarm, cancel, cancellable, nullptr);
    g_source_attach(alarm, context);
    Connecting connecting;
    const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                         G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    g_dbus_connection_new_for_address(address.constData(), flags, nullptr, cancellable, connected, &connecting);
    while (!connecting.isDone)
        g_main_context_iteration(context, TRUE);
    g_source_destroy(alarm);
    g_source_unref(alarm);
    g_object_unref(cancellable);
    g_main_context_pop_thread_default(context);
    g_main_context_unref(context);
    return connecting.connection;
}

// Without looking for one on the X server, which would start one.
QByteArray sessionAddress()
{
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    if (!address.isEmpty())
        return address;
    const QByteArray socket = qgetenv("XDG_RUNTIME_DIR") + "/bus";
    return QFile::exists(QFile::decodeName(socket)) ? "unix:path=" + socket : QByteArray();
}

GVariant *variant(const std::vector<SessionBus::Argument> &arguments)
{
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE_TUPLE);
    for (const SessionBus::Argument &argument : arguments) {
        if (const auto *const text = std::get_if<QString>(&argument))
            g_variant_builder_add(&builder, "s", text->toUtf8().constData());
        else
            g_variant_builder_add(&builder, "b", static_cast<gboolean>(std::get<bool>(argument)));
    }
    return g_variant_builder_end(&builder);
}

GVariant *asVariant(const std::shared_ptr<void> &value)
{
    return static_cast<GVariant *>(value.get());
}

} // namespace

BusValue::BusValue(void *variant)
{
    if (variant)
        m_value = std::shared_ptr<void>(variant, [](void *value) { g_variant_unref(static_cast<GVariant *>(value)); });
}

QString BusValue::text() const
{
    GVariant *const value = asVariant(m_value);
    const bool isText = value && (g_variant_is_of_type(value, G_VARIANT_TYPE_STRING) ||
                                  g_variant_is_of_type(value, G_VARIANT_TYPE_OBJECT_PATH));
    return isText ? QString::fromUtf8(g_variant_get_string(value, nullptr)) : QString();
}

bool BusValue::boolean() const
{
    GVariant *const value = asVariant(m_value);
    return value && g_variant_is_of_type(value, G_VARIANT_TYPE_BOOLEAN) && g_variant_get_boolean(value);
}

quint32 BusValue::number() const
{
    GVariant *const value = asVariant(m_value);
    return value && g_variant_is_of_type(value, G_VARIANT_TYPE_UINT32) ? g_variant_get_uint32(value) : 0;
}

qsizetype BusValue::size() const
{
    GVariant *const value = asVariant(m_value);
    return value && g_variant_is_container(value) ? static_cast<qsizetype>(g_variant_n_children(value)) : 0;
}

BusValue BusValue::at(qsizetype index) const
{
    if (index < 0 || index >= size())
        return {};
    GVariant *const child = g_variant_get_child_value(asVariant(m_value), static_cast<gsize>(index));
    if (!g_variant_is_of_type(child, G_VARIANT_TYPE_VARIANT))
        return BusValue(child);
    GVariant *const inner = g_variant_get_variant(child);
    g_variant_unref(child);
    return BusValue(inner);
}

SessionBus SessionBus::session(std::chrono::milliseconds patience)
{
    return at(QString::fromLocal8Bit(sessionAddress()), patience);
}

SessionBus SessionBus::at(const QString &address, std::chrono::milliseconds patience)
{
    SessionBus bus;
    GDBusConnection *const connection = address.isEmpty() ? nullptr : connectTo(address.toLocal8Bit(), patience);
    if (connection) {
        g_dbus_connection_set_exit_on_close(connection, FALSE);
        bus.m_connection = std::shared_ptr<void>(connection, [](void *object) {
            g_dbus_connection_close(static_cast<GDBusConnection *>(object), nullptr, nullptr, nullptr);
            g_object_unref(object);
        });
    }
    return bus;
}

BusValue SessionBus::ask(const Question &question, std::chrono::milliseconds patience) const
{
    const QByteArray service = question.service.toUtf8();
    const QByteArray path = question.path.toUtf8();
    const QByteArray interface = question.interface.toUtf8();
    // Names that other programs gave are checked: the library ends the program over a wrong one.
    const bool isWellFormed = g_dbus_is_name(service.constData()) && g_variant_is_object_path(path.constData()) &&
                              g_dbus_is_interface_name(interface.constData());
    if (!m_connection || !isWellFormed || patience.count() <= 0)
        return {};
    return BusValue(g_dbus_connection_call_sync(
        static_cast<GDBusConnection *>(m_connection.get()), service.constData(), path.constData(),
        interface.constData(), question.method.toUtf8().constData(), variant(question.arguments), nullptr,
        G_DBUS_CALL_FLAGS_NO_AUTO_START, static_cast<gint>(patience.count()), nullptr, nullptr));
}

BusValue SessionBus::property(const QString &service, const QString &path, const QString &interface,
                              const QString &name, std::chrono::milliseconds patience) const
{
    const Question question{service, path, "org.freedesktop.DBus.Properties", "Get", {interface, name}};
    return ask(question, patience).at(0);
}

qint64 SessionBus::processOf(const QString &service, std::chrono::milliseconds patience) const
{
    const Question question{"org.freedesktop.DBus",
                            "/org/freedesktop/DBus",
                            "org.freedesktop.DBus",
                            "GetConnectionUnixProcessID",
                            {service}};
    return ask(question, patience).at(0).number();
}

} // namespace ardeno
