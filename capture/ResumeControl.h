// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>

#include <functional>

namespace ardeno {

// Tells what a resume waits for next, and asks whether its user still wants it. What has begun is brought to its end;
// nothing is taken back. Without functions nobody listens and nobody stops it.
struct ResumeControl {
    std::function<void(const QString &)> tellAwaited = {}; // The name of an application, page or window.
    std::function<bool()> askStopped = {};

    void awaits(const QString &name) const
    {
        if (tellAwaited)
            tellAwaited(name);
    }

    bool isStopped() const { return askStopped && askStopped(); }

    // Why something was left, in a few words.
    static QString reason() { return QCoreApplication::translate("ardeno::ResumeControl", "stopped by you"); }
};

} // namespace ardeno
