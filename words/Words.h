// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include <memory>
#include <vector>

class QTranslator;

namespace ardeno {

// What the program says, beyond the sentences in its code: counted things have a singular; what would be false on this
// desktop (its name, its keys, its programs) is replaced by a catalogue of the desktop; then come the language's own
// catalogues. A text has one translation wherever it stands. Ends with this object.
class Words final {
public:
    // OfCode: the sentences in the code with their singulars, and nothing of this desktop.
    enum class Language { OfCode, English, OfUser };

    // The application object exists, and nothing is shown yet.
    explicit Words(Language language);
    // In the first of these languages ("de", "pt_BR") that there is a catalogue for.
    explicit Words(const QStringList &languages);
    ~Words();
    Words(const Words &) = delete;
    Words &operator=(const Words &) = delete;

private:
    bool load(const QString &name);
    void loadLanguage(const QStringList &languages);

    std::vector<std::unique_ptr<QTranslator>> m_catalogues;
};

} // namespace ardeno
