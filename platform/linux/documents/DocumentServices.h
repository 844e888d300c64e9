// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/bus/SessionBus.h"

#include <QString>
#include <QStringList>

namespace ardeno {

// Viewers that tell over the session's bus what they show. Used on a worker thread.
namespace DocumentServices {

// Whether the application is one of them; no other one is asked.
bool answers(const QString &applicationID);

// The documents that this process of the application shows, of all its windows and tabs. Some viewers only answer
// whether they show a certain file: they are asked about the candidates.
QStringList documents(const SessionBus &bus, const QString &applicationID, qint64 processID,
                      const QStringList &candidates);

} // namespace DocumentServices

} // namespace ardeno
