// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Messages.h"
#include "support/Preferences.h"

#include <QCoreApplication>
#include <QStringList>

#include <optional>

namespace ardeno {

// The copies of libraries that could not be read: whoever does not see the message now sees it at the next start.
class KeptCopies final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::KeptCopies)

public:
    enum class Replacement { Empty, FromMemory }; // Of the library that could not be read.

    KeptCopies(Messages &messages, Preferences &preferences) : m_messages(messages), m_preferences(preferences) {}

    // What is said of copies is kept in mind from now on, until it is dismissed.
    void watch();
    // Names those again that nobody has dismissed.
    void remind();

    static Remark remark(const QString &path, Replacement replacement);

private:
    void keepInMind();

    Messages &m_messages;
    Preferences &m_preferences;
    QStringList m_shown = {};
    std::optional<QPropertyNotifier> m_remarks = {};
};

} // namespace ardeno
