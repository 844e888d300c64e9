// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QObject>

#include <functional>

namespace ardeno {

// Tells when the program is to end: a signal from outside, or the end of the session's bus. One object at a time.
class EndRequest final : public QObject {
    Q_OBJECT

public:
    EndRequest(QDBusConnection connection, std::function<void()> handler);
    ~EndRequest() override;

private Q_SLOTS: // The bus library calls slots alone.
    void handle();

private:
    std::function<void()> m_handler;
};

} // namespace ardeno
