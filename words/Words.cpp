// SPDX-License-Identifier: GPL-3.0-or-later
#include "words/Words.h"

#include "support/StoredText.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace ardeno {

namespace {

const QString countedTexts = "ardeno_en";
const QString desktopCatalogue = "ardeno_linux";

// One flat list of texts, whatever class they stand in.
class FlatCatalogue final : public QTranslator {
public:
    explicit FlatCatalogue(bool isEnglish) : m_isEnglish(isEnglish) {}

    QString translate(const char *context, const char *text, const char *hint, int n) const override
    {
        Q_UNUSED(context)
        const bool isStored = qstrcmp(hint, storedOnDisk) == 0;
        if (isStored && !m_isEnglish)
            return {};
        return QTranslator::translate("ardeno", text, isStored ? nullptr : hint, n);
    }

private:
    bool m_isEnglish;
};

} // namespace

Words::Words(Language language)
{
    load(countedTexts);
    if (language != Language::OfCode)
        load(desktopCatalogue);
    if (language == Language::OfUser)
        loadLanguage(QLocale().uiLanguages());
}

Words::Words(const QStringList &languages) : Words(Language::English)
{
    loadLanguage(languages);
}

Words::~Words() = default; // A translator takes itself off the application.

bool Words::load(const QString &name)
{
    auto catalogue = std::make_unique<FlatCatalogue>(name == countedTexts || name == desktopCatalogue);
    // Exactly this file: by itself a translator would also try shorter names.
    if (!catalogue->load(name, ":/words", " ") || !QCoreApplication::installTranslator(catalogue.get()))
        return false;
    m_catalogues.push_back(std::move(catalogue));
    return true;
}

void Words::loadLanguage(const QStringList &languages)
{
    for (QString language : languages) {
        language.replace('-', '_');
        if (language == "C" || language == "en" || language.startsWith("en_"))
            return; // The sentences in the code.
        if (!load("ardeno_" + language))
            continue;
        load(desktopCatalogue + '_' + language);
        auto qtTexts = std::make_unique<QTranslator>();
        if (qtTexts->load("qtbase_" + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath)) &&
            QCoreApplication::installTranslator(qtTexts.get()))
            m_catalogues.push_back(std::move(qtTexts));
        return;
    }
}

} // namespace ardeno
