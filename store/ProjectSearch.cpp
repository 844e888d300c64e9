// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/ProjectSearch.h"

#include "support/Text.h"

#include <QStringMatcher>

#include <algorithm>
#include <utility>

namespace ardeno {

namespace {

constexpr char16_t separator = 0xFFFF; // No character, so it is in no title that a person can type.

// Most titles are plain, and folding those is nothing but a change of letters.
void appendFolded(QString *text, const QString &title)
{
    const bool isPlain = std::all_of(title.begin(), title.end(), [](QChar letter) { return letter.unicode() < 0x80; });
    if (!isPlain) {
        text->append(Text::folded(title));
        return;
    }
    const qsizetype from = text->size();
    text->append(title);
    for (auto letter = text->begin() + from; letter != text->end(); ++letter) {
        if (*letter >= 'A' && *letter <= 'Z')
            *letter = QChar(letter->unicode() + ('a' - 'A'));
    }
}

} // namespace

const QSet<QUuid> &ProjectSearch::withTitle(const QString &part, const QList<Checkpoint> &checkpoints)
{
    const bool isIndexed = m_indexed.isSharedWith(checkpoints);
    if (isIndexed && part == m_part)
        return m_found;
    if (!isIndexed)
        index(checkpoints);
    m_part = part;
    const QString folded = Text::folded(part);
    // Who types on finds less and less: what did not match before does not match now.
    const bool narrows = isIndexed && !m_folded.isEmpty() && folded.contains(m_folded);
    const QSet<QUuid> candidates = std::exchange(m_found, {});
    m_folded = folded;
    if (folded.contains(QChar(separator)))
        return m_found;
    const QStringMatcher matcher(folded, Qt::CaseSensitive);
    for (auto titles = m_titles.cbegin(); titles != m_titles.cend(); ++titles) {
        if ((!narrows || candidates.contains(titles.key())) && matcher.indexIn(titles.value()) >= 0)
            m_found.insert(titles.key());
    }
    return m_found;
}

void ProjectSearch::index(const QList<Checkpoint> &checkpoints)
{
    m_indexed = checkpoints;
    m_titles.clear();
    for (const Checkpoint &checkpoint : checkpoints) {
        if (!checkpoint.projectID)
            continue;
        QString &titles = m_titles[*checkpoint.projectID];
        appendFolded(&titles, checkpoint.title);
        titles.append(QChar(separator));
    }
}

} // namespace ardeno
