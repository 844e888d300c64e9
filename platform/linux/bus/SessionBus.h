// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <chrono>
#include <memory>
#include <mutex>
#include <variant>
#include <vector>

namespace ardeno {

// A value that came over a bus; invalid where there is none, and then everything in it is empty.
class BusValue final {
public:
    BusValue() = default;
    // Takes a GVariant over.
    explicit BusValue(void *variant);

    bool isValid() const { return m_value != nullptr; }

    // Of a text, an object path or a signature; empty otherwise.
    QString text() const;
    bool boolean() const;
    quint32 number() const;
    // Of an array, a structure or an entry of a dictionary.
    qsizetype size() const;
    // A member, without the variant it may be wrapped in.
    BusValue at(qsizetype index) const;

private:
    std::shared_ptr<void> m_value;
};

// A connection to a message bus for questions from worker threads. Nothing is ever started to answer one.
class SessionBus final {
public:
    using Argument = std::variant<QString, bool>;

    struct Question {
        QString service = {};
        QString path = {};
        QString interface = {};
        QString method = {};
        std::vector<Argument> arguments = {};
    };

    // The session's bus, or the one of this address; not connected when it does not answer in time.
    static SessionBus session(std::chrono::milliseconds patience);
    static SessionBus at(const QString &address, std::chrono::milliseconds patience);

    bool isConnected() const { return m_connection != nullptr; }

    // The answer's values; invalid when there is none in time.
    BusValue ask(const Question &question, std::chrono::milliseconds patience) const;
    BusValue property(const QString &service, const QString &path, const QString &interface, const QString &name,
                      std::chrono::milliseconds patience) const;
    // The process behind a name; 0 when nobody has it.
    qint64 processOf(const QString &service, std::chrono::milliseconds patience) const;

private:
    std::shared_ptr<void> m_connection;
};

// The session's bus, connected when the first of several threads needs it.
class LazySessionBus final {
public:
    explicit LazySessionBus(std::chrono::milliseconds patience) : m_patience(patience) {}

    const SessionBus &bus() const
    {
        std::call_once(m_once, [this] { m_bus = SessionBus::session(m_patience); });
        return m_bus;
    }

private:
    std::chrono::milliseconds m_patience;
    mutable std::once_flag m_once;
    mutable SessionBus m_bus;
};

} // namespace ardeno
