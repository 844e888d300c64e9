// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Text.h"

#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

namespace ardeno {

namespace {

icu::UnicodeString toIcu(const QString &text)
{
    // Aliases the text: no copy is made while it is only read.
    return {false, reinterpret_cast<const UChar *>(text.constData()), static_cast<int32_t>(text.size())};
}

QString fromIcu(const icu::UnicodeString &text)
{
    return QString(reinterpret_cast<const QChar *>(text.getBuffer()), text.length());
}

} // namespace

QString Text::folded(const QString &text)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2 *composer = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status))
        return text.normalized(QString::NormalizationForm_C).toCaseFolded();
    // Folding an accented letter can leave it decomposed, so the text is composed after folding, too.
    icu::UnicodeString composed = composer->normalize(toIcu(text), status);
    composed.foldCase();
    return fromIcu(composer->normalize(composed, status));
}

struct NameOrder::Collator {
    std::unique_ptr<icu::Collator> icu;
};

NameOrder::NameOrder() : m_collator(std::make_unique<Collator>())
{
    UErrorCode status = U_ZERO_ERROR;
    m_collator->icu.reset(icu::Collator::createInstance(icu::Locale::getDefault(), status));
    if (U_FAILURE(status))
        m_collator->icu.reset();
    else
        m_collator->icu->setStrength(icu::Collator::SECONDARY);
}

NameOrder::~NameOrder() = default;

bool NameOrder::operator()(const QString &a, const QString &b) const
{
    if (!m_collator->icu)
        return Text::folded(a) < Text::folded(b);
    return m_collator->icu->compare(toIcu(a), toIcu(b)) == icu::Collator::LESS;
}

} // namespace ardeno
