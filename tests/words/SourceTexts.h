// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

namespace ardeno {

// A text in the program's sources.
struct SourceText {
    QString file = {}; // Below the folder of the sources.
    QString text = {};
    bool isTranslatable = false; // It stands in tr() or translate().
    bool isStored = false;       // It stands in storedText().
};

// Every text of the rooms that say something to people.
QList<SourceText> sourceTexts();

// The translations of a catalogue by their texts: one each, or the forms of a counted text. None: it is unfinished.
QHash<QString, QStringList> catalogue(const QString &name);

} // namespace ardeno
