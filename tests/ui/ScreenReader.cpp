// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/ScreenReader.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>

#include <doctest/doctest.h>

namespace ardeno {

namespace {

constexpr auto accessible = "org.a11y.atspi.Accessible";
constexpr auto component = "org.a11y.atspi.Component";
constexpr int patience = 5000; // Milliseconds.

// Bits of the set of states.
constexpr int enabledState = 8;
constexpr int focusableState = 11;
constexpr int showingState = 25;

QDBusConnection openBus()
{
    const QDBusMessage question =
        QDBusMessage::createMethodCall("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress");
    const QDBusMessage answer = QDBusConnection::sessionBus().call(question, QDBus::Block, patience);
    REQUIRE(answer.type() == QDBusMessage::ReplyMessage);
    return QDBusConnection::connectToBus(answer.arguments().value(0).toString(), "screen-reader");
}

} // namespace

ScreenReader::ScreenReader(qint64 processID) : m_bus(openBus()), m_processID(processID) {}

QVariantList ScreenReader::ask(const Node &node, const QString &interface, const QString &method,
                               const QVariantList &arguments) const
{
    QDBusMessage call = QDBusMessage::createMethodCall(node.service, node.path, interface, method);
    call.setArguments(arguments);
    return m_bus.call(call, QDBus::Block, patience).arguments();
}

QList<ScreenReader::Node> ScreenReader::childrenOf(const Node &node) const
{
    QList<Node> children;
    const QVariant answer = ask(node, accessible, "GetChildren").value(0);
    if (!answer.canConvert<QDBusArgument>())
        return children;
    const auto list = answer.value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        Node child;
        QDBusObjectPath path;
        list.beginStructure();
        list >> child.service >> path;
        list.endStructure();
        child.path = path.path();
        children.append(child);
    }
    list.endArray();
    return children;
}

std::optional<ScreenReader::Node> ScreenReader::application() const
{
    for (const Node &node : childrenOf({"org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"})) {
        if (m_bus.interface()->servicePid(node.service).value() == m_processID)
            return node;
    }
    return std::nullopt;
}

QString ScreenReader::nameOf(const Node &node) const
{
    const QVariantList name = ask(node, "org.freedesktop.DBus.Properties", "Get", {QString(accessible), "Name"});
    return name.value(0).value<QDBusVariant>().variant().toString();
}

bool ScreenReader::walk(const Node &node, QRect around, const std::function<bool(const Control &)> &visit) const
{
    const QVariant states = ask(node, accessible, "GetState").value(0);
    const auto bits = states.canConvert<QDBusArgument>() ? qdbus_cast<QList<uint>>(states) : QList<uint>{0, 0};
    const auto has = [&](int bit) { return (bits.value(bit / 32) >> (bit % 32)) & 1U; };
    if (has(showingState)) {
        Control control{.node = node,
                        .role = ask(node, accessible, "GetRole").value(0).toUInt(),
                        .isEnabled = has(enabledState) != 0,
                        .isFocusable = has(focusableState) != 0};
        control.name = nameOf(node);
        const QVariant place = ask(node, component, "GetExtents", {0U}).value(0);
        if (place.canConvert<QDBusArgument>())
            control.extents = qdbus_cast<QRect>(place);
        control.around = around;
        if (around.isNull() || around.intersects(control.extents)) // A part that is out of sight leaves it as it is.
            around = around.isNull() ? control.extents : around & control.extents;
        if (!visit(control))
            return false;
    }
    for (const Node &child : childrenOf(node)) {
        if (!walk(child, around, visit))
            return false;
    }
    return true;
}

QList<ScreenReader::Control> ScreenReader::read() const
{
    QList<Control> all;
    if (const std::optional<Node> root = application()) {
        walk(*root, {}, [&all](const Control &control) {
            all.append(control);
            return true;
        });
    }
    return all;
}

std::optional<ScreenReader::Control> ScreenReader::find(const QString &name) const
{
    for (const Control &control : read()) {
        if (control.name == name || control.name.startsWith(name + ','))
            return control;
    }
    return std::nullopt;
}

QStringList ScreenReader::rows(const QString &list) const
{
    constexpr uint listRole = 31;
    QStringList names;
    for (const Control &control : read()) {
        if (control.name != list || control.role != listRole)
            continue;
        for (const Node &row : childrenOf(control.node))
            names << nameOf(row);
    }
    return names;
}

bool ScreenReader::focus(const QString &name) const
{
    const std::optional<Control> found = find(name);
    return found && ask(found->node, component, "GrabFocus").value(0).toBool();
}

} // namespace ardeno
