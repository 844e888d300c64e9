// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <memory>

namespace ardeno {

// Names are compared as people do: letter case and the way an accent is composed make no difference ("ß" is "ss").
namespace Text {

// Full Unicode case folding in normal form C: equal results mean equal names.
QString folded(const QString &text);

inline bool equalNames(const QString &a, const QString &b)
{
    return folded(a) == folded(b);
}

inline bool containsName(const QString &text, const QString &part)
{
    return folded(text).contains(folded(part));
}

} // namespace Text

// The order of the user's language, letter case ignored; kept while a list is sorted because making one is dear.
class NameOrder final {
public:
    NameOrder();
    ~NameOrder();
    NameOrder(const NameOrder &) = delete;
    NameOrder &operator=(const NameOrder &) = delete;

    // Whether a comes before b.
    bool operator()(const QString &a, const QString &b) const;

private:
    struct Collator;
    std::unique_ptr<Collator> m_collator;
};

} // namespace ardeno
