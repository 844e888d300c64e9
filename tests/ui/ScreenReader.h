// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QRect>
#include <QStringList>

#include <functional>
#include <optional>

namespace ardeno {

// Reads another program through the accessibility bus, as screen readers do.
class ScreenReader final {
public:
    struct Node {
        QString service = {};
        QString path = {};
    };

    struct Control {
        Node node = {};
        QString name = {};
        uint role = 0;      // AtspiRole.
        QRect extents = {}; // On the screen.
        QRect around = {};  // What the parts of the window that it stands in leave to be seen.
        bool isEnabled = false;
        bool isFocusable = false;
    };

    explicit ScreenReader(qint64 processID);

    // All that is seen of the program, from top to bottom; empty while it is not on the bus.
    QList<Control> read() const;

    // The first one of that name, or whose name begins with it and a comma, as rows do.
    std::optional<Control> find(const QString &name) const;

    // The names of the rows of a list, whether they are in sight or not.
    QStringList rows(const QString &list) const;

    // Gives it the keyboard; false when there is nothing of that name.
    bool focus(const QString &name) const;

private:
    std::optional<Node> application() const;
    QString nameOf(const Node &node) const;
    // False ends the walk.
    bool walk(const Node &node, QRect around, const std::function<bool(const Control &)> &visit) const;
    QList<Node> childrenOf(const Node &node) const;
    QVariantList ask(const Node &node, const QString &interface, const QString &method,
                     const QVariantList &arguments = {}) const;

    QDBusConnection m_bus;
    qint64 m_processID;
};

} // namespace ardeno
