// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QVariantMap>

#include <functional>

namespace ardeno {

// One application for each session: who starts second asks the first to come to the front, over the session bus.
class SingleInstance final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    static constexpr const char *service = "org.ardeno.Ardeno";
    static constexpr const char *path = "/org/ardeno/Ardeno";

    // False when another one runs, which was asked to come to the front. Without a session bus everyone is the first.
    bool claim();

    void setOnActivate(std::function<void()> activated) { m_activated = std::move(activated); }

public Q_SLOTS:
    // Named as the interface of the bus says.
    void Activate(const QVariantMap &platformData); // NOLINT(readability-identifier-naming)

private:
    std::function<void()> m_activated;
};

} // namespace ardeno
