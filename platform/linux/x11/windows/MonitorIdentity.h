// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace ardeno {

// What tells a monitor from others in every desktop session.
struct MonitorIdentity {
    QByteArray name = {}; // Of its connector or of the virtual monitor.
    QByteArray edid = {}; // Its own description; empty where it has none, as on virtual screens.

    // What people call it: its model ("DELL U2715H"), else its name.
    QString displayedName() const;

    // A number for each: of its description, which follows it to another connector. Where several monitors carry the
    // same description, or have none, the name counts too. No two are equal.
    static QList<quint32> stableNumbers(const QList<MonitorIdentity> &monitors);

    bool operator==(const MonitorIdentity &) const = default;
};

} // namespace ardeno
