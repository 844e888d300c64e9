// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/KeptCopies.h"

#include "store/PreferenceKeys.h"

#include <QFile>

#include <utility>

namespace ardeno {

void KeptCopies::watch()
{
    m_remarks.emplace(m_messages.remarks.addNotifier([this] { keepInMind(); }));
}

void KeptCopies::remind()
{
    for (const QString &path : m_preferences.value(keys::keptCopies).value_or(QStringList())) {
        if (QFile::exists(path))
            m_messages.remark(remark(path, Replacement::Empty));
    }
}

Remark KeptCopies::remark(const QString &path, Replacement replacement)
{
    const QString sentence =
        replacement == Replacement::Empty
            ? tr("Your saved checkpoints could not be read. The file is kept as %1, and a new library has been begun.")
            : tr("Your library was damaged by another program. What it held is kept as %1, and your checkpoints have "
                 "been written anew.");
    return {.sentence = sentence.arg(path), .subject = path, .file = path};
}

void KeptCopies::keepInMind()
{
    QStringList shown;
    for (const Remark &remark : m_messages.remarks()) {
        if (remark.file)
            shown += *remark.file;
    }
    const QStringList before = std::exchange(m_shown, shown);
    if (shown == before)
        return;
    QStringList kept = m_preferences.value(keys::keptCopies).value_or(QStringList());
    kept.removeIf([&](const QString &path) { return before.contains(path) || shown.contains(path); });
    m_preferences.setValue(keys::keptCopies, kept + shown);
}

} // namespace ardeno
