// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/bus/SessionBus.h"

#include <QDeadlineTimer>
#include <QHash>
#include <QString>
#include <QStringList>

#include <mutex>

namespace ardeno {

// The documents that applications name to assistive technologies. Applications are asked one object at a time, which
// is slow: each is given up after 300 ms. For several worker threads.
class AccessibleDocuments final {
public:
    // The bus outlives it.
    explicit AccessibleDocuments(const LazySessionBus &session) : m_session(session) {}

    // The documents in the windows of this title of a process.
    QStringList documents(qint64 processID, const QString &windowTitle) const;

private:
    struct Object {
        QString service = {};
        QString path = {};
    };

    void connect() const;
    QList<Object> children(const Object &object, const QDeadlineTimer &deadline) const;
    QStringList documentsBelow(const Object &window, const QDeadlineTimer &deadline) const;
    QString documentOf(const Object &object, const QDeadlineTimer &deadline) const;

    const LazySessionBus &m_session;
    mutable std::once_flag m_once;
    mutable SessionBus m_bus;
    mutable QHash<qint64, QString> m_services; // By process.
};

} // namespace ardeno
